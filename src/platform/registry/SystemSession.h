// What one sequence of operations knows of a hive of the Windows registry, and what it wants to change in it.
#pragma once

#include "platform/registry/HiveSession.h"
#include "platform/registry/NamedLock.h"
#include "platform/registry/RegistryChange.h"

#include <deque>
#include <map>
#include <optional>

class SystemHive;

// Knows a key from when it was first asked for, and with it those below it (up to some thousand), all read at one
// moment between two saves. That is as near as the registry lets a program come to one state of it: a key beyond that
// is read when it is needed.
class SystemSession final : public HiveSession {
public:
    // With the lock of writers it may write.
    SystemSession(const SystemHive& hive, std::optional<NamedLock> writing);

    [[nodiscard]] bool MayWrite() const override { return writing_.has_value(); }
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
    struct Key {
        std::string path;
        std::string name;
        bool exists = true;
        // Whether the values and the names of all subkeys have been read.
        bool known = false;
        StoredValues values;
        std::map<std::string, KeyId> subKeys; // by folded name; some may not exist
    };

    [[nodiscard]] Key& At(KeyId key) { return keys_[static_cast<std::size_t>(key)]; }
    KeyId Add(KeyId parent, std::string_view name, const std::string& folded, bool exists);
    KeyId Make(KeyId parent, std::string_view name);
    void Forget(KeyId key);
    // Reads the key, and those below it as long as they are not too many.
    void Know(KeyId key);
    void Read(KeyId key);
    void CheckMayWrite(const std::string& path, std::uint32_t access) const;
    void Record(RegistryChange change);
    void CarryOutHere(const RegistryChanges& unfinished);
    void Replace(KeyId key, const RegistryValue& value);

    const SystemHive& hive_;
    std::optional<NamedLock> writing_;
    std::deque<Key> keys_;
    RegistryChanges changes_;
    bool caughtUp_ = false;
};
