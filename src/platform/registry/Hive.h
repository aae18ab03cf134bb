// One hive: its file, the connections to it and the sessions that are open on it.
#pragma once

#include "platform/registry/HiveSession.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class Hive {
public:
    // Opens nothing. word is what messages call the hive.
    Hive(std::filesystem::path file, std::string word, std::chrono::milliseconds lockLimit);

    // What everybody reads at the moment: joins the reading session that is open already, so that all readers see one
    // state, or begins one. Never older than what a session of this hive has committed. Errors: RegistryError OpenKey.
    [[nodiscard]] std::shared_ptr<HiveSession> Read();
    // A session that has the write lock, from the newest state on. Errors: RegistryError with the number given, also
    // where a session of this hive is writing still: waiting for that would never end.
    [[nodiscard]] std::shared_ptr<HiveSession> Write(RegistryErrorNumber number);
    // To be called when a writing session has committed.
    void Changed();

    // Runs an operation of a session; what SQLite reports becomes a RegistryError with this number.
    template<typename Operation>
    auto Attempt(RegistryErrorNumber number, Operation operation) {
        try {
            return operation();
        } catch (const SqliteError& error) {
            throw RegistryError(number, Describe(error));
        }
    }

private:
    [[nodiscard]] std::unique_ptr<HiveConnection> Connect();
    [[nodiscard]] std::shared_ptr<HiveSession> Begin(std::unique_ptr<HiveConnection> connection,
                                                     HiveSession::Access access);
    // Names the file, says what is wrong and what to do.
    [[nodiscard]] std::string Describe(const SqliteError& error) const;

    std::filesystem::path file_;
    std::string word_;
    std::chrono::milliseconds lockLimit_;
    std::vector<std::unique_ptr<HiveConnection>> idle_;
    std::weak_ptr<HiveSession> reading_;
    std::weak_ptr<HiveSession> writing_;
};
