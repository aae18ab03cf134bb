// One transaction on a hive and what is known within it.
#pragma once

#include "platform/registry/HiveConnection.h"
#include "profiles/RegistryTree.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using KeyId = std::int64_t;
inline constexpr KeyId HiveKey = 0;

struct StoredValue {
    RegistryValue value;
    std::string folded;
};
using StoredValues = std::vector<StoredValue>;
using KeyNames = std::vector<std::string>;

// A reading session is one state of the hive and may be shared; a writing one has the hive's write lock. Ends without
// Commit as if it had never been. Errors: SqliteError; RegistryError for names that are not allowed.
class HiveSession {
public:
    enum class Access { Read, Write };
    using GiveBack = std::function<void(std::unique_ptr<HiveConnection>)>;

    HiveSession(std::unique_ptr<HiveConnection> connection, Access access, GiveBack giveBack);
    ~HiveSession();
    HiveSession(const HiveSession&) = delete;
    HiveSession& operator=(const HiveSession&) = delete;

    [[nodiscard]] bool MayWrite() const { return access_ == Access::Write; }

    [[nodiscard]] std::optional<KeyId> FindKey(std::string_view path);
    // Finds or makes the key and those above it.
    [[nodiscard]] KeyId MakeKey(std::string_view path);
    [[nodiscard]] std::optional<KeyId> FindSubKey(KeyId parent, std::string_view name);

    // In the order of their names without case, and in the order in which they were made. What was returned stays as
    // it is when the session changes the key.
    [[nodiscard]] std::shared_ptr<const KeyNames> SubKeys(KeyId key);
    [[nodiscard]] std::shared_ptr<const StoredValues> Values(KeyId key);

    void PutValue(KeyId key, const RegistryValue& value);
    bool DropValue(KeyId key, std::string_view name);
    // With all that lies below it.
    void DropKey(KeyId key);

    void Commit();

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
