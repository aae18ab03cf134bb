// One transaction on a hive's database.
#pragma once

#include "platform/registry/HiveConnection.h"
#include "platform/registry/HiveSession.h"

#include <functional>

class SqliteSession final : public HiveSession {
public:
    enum class Access { Read, Write };
    using GiveBack = std::function<void(std::unique_ptr<HiveConnection>)>;

    SqliteSession(std::unique_ptr<HiveConnection> connection, Access access, GiveBack giveBack);
    ~SqliteSession() override;

    [[nodiscard]] bool MayWrite() const override { return access_ == Access::Write; }
    [[nodiscard]] std::optional<KeyId> FindKey(std::string_view path) override;
    [[nodiscard]] KeyId MakeKey(std::string_view path) override;
    [[nodiscard]] std::optional<KeyId> FindSubKey(KeyId parent, std::string_view name) override;
    [[nodiscard]] std::shared_ptr<const KeyNames> SubKeys(KeyId key) override;
    [[nodiscard]] std::shared_ptr<const StoredValues> Values(KeyId key) override;
    void PutValue(KeyId key, const RegistryValue& value) override;
    bool DropValue(KeyId key, std::string_view name) override;
    void DropKey(KeyId key) override;
    void Commit() override;

private:
    std::optional<KeyId> FindFolder(std::string_view path);
    void PrepareToWrite();

    std::unique_ptr<HiveConnection> connection_;
    Access access_;
    GiveBack giveBack_;
    bool open_ = false;

    // The folder that was looked up last: profiles are read one after the other out of one.
    std::string folderPath_;
    std::optional<KeyId> folder_;
    // The values that were read last: a profile's class is recognised by one store and loaded by another.
    KeyId valuesOf_ = HiveKey;
    std::shared_ptr<const StoredValues> values_;
};
