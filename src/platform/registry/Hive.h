// One hive and the sessions that are open on it.
#pragma once

#include "platform/registry/HiveSession.h"

#include <memory>
#include <string>

class Hive {
public:
    virtual ~Hive() = default;
    Hive(const Hive&) = delete;
    Hive& operator=(const Hive&) = delete;

    // What everybody reads at the moment: joins the reading session that is open already, so that all readers see one
    // state, or begins one. Never older than what a session of this hive has committed. Errors: RegistryError OpenKey.
    [[nodiscard]] std::shared_ptr<HiveSession> Read();
    // A session that keeps other writers out, from the newest state on. Errors: RegistryError with the number given,
    // also where a session of this hive is writing still: waiting for that would never end.
    [[nodiscard]] std::shared_ptr<HiveSession> Write(RegistryErrorNumber number);
    // To be called when a writing session has committed.
    void Changed() { reading_.reset(); }

    // Runs an operation of a session; what the system reports becomes a RegistryError with this number.
    template<typename Operation>
    auto Attempt(RegistryErrorNumber number, Operation operation) {
        try {
            return operation();
        } catch (const HiveFailure& failure) {
            throw RegistryError(number, Describe(failure));
        }
    }

protected:
    Hive() = default;

    // What messages call the hive, as the beginning of a sentence.
    [[nodiscard]] virtual std::string Title() const = 0;
    // Whole sentences: what it was, what was wrong and, where there is one, the way out.
    [[nodiscard]] virtual std::string Describe(const HiveFailure& failure) const = 0;
    // Errors: HiveFailure; RegistryError.
    [[nodiscard]] virtual std::shared_ptr<HiveSession> BeginReading() = 0;
    [[nodiscard]] virtual std::shared_ptr<HiveSession> BeginWriting() = 0;

private:
    std::weak_ptr<HiveSession> reading_;
    std::weak_ptr<HiveSession> writing_;
};
