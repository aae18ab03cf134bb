// One hive's database file and the connections to it.
#pragma once

#include "platform/registry/Hive.h"
#include "platform/registry/SqliteSession.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class SqliteHive final : public Hive {
public:
    // Opens nothing. word is what messages call the hive.
    SqliteHive(std::filesystem::path file, std::string word, std::chrono::milliseconds lockLimit);

protected:
    [[nodiscard]] std::string Title() const override;
    [[nodiscard]] std::string Describe(const HiveFailure& failure) const override;
    [[nodiscard]] std::shared_ptr<HiveSession> BeginReading() override;
    [[nodiscard]] std::shared_ptr<HiveSession> BeginWriting() override;

private:
    [[nodiscard]] std::unique_ptr<HiveConnection> Connect();
    [[nodiscard]] std::shared_ptr<HiveSession> Begin(std::unique_ptr<HiveConnection> connection,
                                                     SqliteSession::Access access);

    std::filesystem::path file_;
    std::string word_;
    std::chrono::milliseconds lockLimit_;
    std::vector<std::unique_ptr<HiveConnection>> idle_;
};
