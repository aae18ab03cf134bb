#include "platform/registry/Hives.h"
#include "platform/registry/RegistryNames.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

// What a value reads as where a string is wanted.
std::string AsText(const RegistryValue& value) {
    if (RegistryType::IsText(value.type))
        return value.data;
    if (const auto number = NumberOf(value))
        return std::to_string(*number);
    throw RegistryError(RegistryErrorNumber::ReadKey,
                        "The value \"" + value.name +
                            "\" holds bytes where a text was expected. Replace it by a text.");
}

class HiveStore final : public RegistryStore {
public:
    explicit HiveStore(Hives& hives) : hives_(hives), sessions_(hives) {}

    void CreateMissing(bool create) override { createMissing_ = create; }
    void RootKey(RegistryRoot root) override;
    void KeyPath(std::string_view path) override;
    void BeginWriting() override;
    std::string ReadValue(RegistryValueType type, std::string_view name) override;
    void WriteValue(std::string_view name, std::string_view text) override;
    std::int32_t ValueCount() override { return static_cast<std::int32_t>(Values().size()); }
    std::int32_t SubKeyCount() override { return static_cast<std::int32_t>(SubKeys().size()); }
    std::string ValueName(std::int32_t index) override;
    std::string SubKeyName(std::int32_t index) override;
    void DeleteKey(std::string_view subKey) override;
    void Release() override { sessions_.Commit(); }

private:
    // Every operation on the hive of the current root goes through here.
    template<typename Operation>
    auto Attempt(RegistryErrorNumber number, Operation operation) {
        return hives_.Of(root_).Attempt(number, operation);
    }

    // The session to write with and the current key in it.
    struct Place {
        HiveSession& session;
        KeyId key;
    };
    Place PlaceToWrite(RegistryErrorNumber number);
    void StartWriting(RegistryErrorNumber number);
    // For messages.
    [[nodiscard]] std::string CurrentKey() const {
        return path_ ? "registry key \"" + *path_ + "\"" : std::string("selected registry key");
    }
    void Select(std::optional<KeyId> key);
    const StoredValues& Values();
    const KeyNames& SubKeys();

    Hives& hives_;
    HiveSessions sessions_;
    RegistryRoot root_ = RegistryRoot::LocalMachine;
    bool createMissing_ = true;
    std::optional<std::string> path_;
    std::optional<KeyId> key_;
    // What the current key holds, read when first asked for.
    std::shared_ptr<const StoredValues> values_;
    std::shared_ptr<const KeyNames> subKeys_;
};

void HiveStore::Select(std::optional<KeyId> key) {
    key_ = key;
    values_.reset();
    subKeys_.reset();
}

void HiveStore::RootKey(RegistryRoot root) {
    root_ = root;
    path_.reset();
    Select(std::nullopt);
}

void HiveStore::KeyPath(std::string_view path) {
    path_.reset();
    Select(std::nullopt);
    HiveSession& session = sessions_.Reading(root_);
    auto key = Attempt(RegistryErrorNumber::OpenKey, [&] { return session.FindKey(path); });
    if (!key && createMissing_) {
        HiveSession& writing = sessions_.Writing(root_, RegistryErrorNumber::CreateKey);
        key = Attempt(RegistryErrorNumber::CreateKey, [&] { return writing.MakeKey(path); });
    }
    path_ = path;
    Select(key);
}

void HiveStore::StartWriting(RegistryErrorNumber number) {
    if (sessions_.IsWriting(root_))
        return;
    HiveSession& session = sessions_.Writing(root_, number);
    // The newest state may be another than the one in which the current key was found.
    if (!path_)
        return;
    const bool make = createMissing_ && key_;
    Select(Attempt(number,
                   [&]() -> std::optional<KeyId> { return make ? session.MakeKey(*path_) : session.FindKey(*path_); }));
}

void HiveStore::BeginWriting() {
    StartWriting(RegistryErrorNumber::OpenKey);
}

HiveStore::Place HiveStore::PlaceToWrite(RegistryErrorNumber number) {
    StartWriting(number);
    if (!key_)
        throw RegistryError(RegistryErrorNumber::KeyMissing, "There is no " + CurrentKey() + ".");
    values_.reset();
    subKeys_.reset();
    return {sessions_.Writing(root_, number), *key_};
}

const StoredValues& HiveStore::Values() {
    if (!values_)
        values_ = !key_ ? std::make_shared<StoredValues>()
                        : Attempt(RegistryErrorNumber::ReadKey, [&] { return sessions_.Reading(root_).Values(*key_); });
    return *values_;
}

const KeyNames& HiveStore::SubKeys() {
    if (!subKeys_)
        subKeys_ = !key_
                       ? std::make_shared<KeyNames>()
                       : Attempt(RegistryErrorNumber::ReadKey, [&] { return sessions_.Reading(root_).SubKeys(*key_); });
    return *subKeys_;
}

std::string HiveStore::ReadValue(RegistryValueType /*type*/, std::string_view name) {
    CheckValueName(name, RegistryErrorNumber::ReadKey);
    const auto& values = Values();
    const auto found = std::ranges::find(values, FoldedName(name), &StoredValue::folded);
    return found == values.end() ? std::string() : AsText(found->value);
}

void HiveStore::WriteValue(std::string_view name, std::string_view text) {
    const auto [session, key] = PlaceToWrite(RegistryErrorNumber::WriteValue);
    const RegistryValue value{std::string(name), RegistryType::String, std::string(text)};
    Attempt(RegistryErrorNumber::WriteValue, [&, &session = session, key = key] { session.PutValue(key, value); });
}

std::string HiveStore::ValueName(std::int32_t index) {
    const auto& values = Values();
    if (index < 0 || index > static_cast<std::int32_t>(values.size()))
        throw RegistryError(RegistryErrorNumber::ReadKey,
                            "There is no value number " + std::to_string(index) + " in the " + CurrentKey() + ".");
    return index == static_cast<std::int32_t>(values.size()) ? std::string()
                                                             : values[static_cast<std::size_t>(index)].value.name;
}

std::string HiveStore::SubKeyName(std::int32_t index) {
    const auto& names = SubKeys();
    if (names.empty())
        throw RegistryError(RegistryErrorNumber::NoSubKeys, "There are no subkeys in the " + CurrentKey() + ".");
    if (index < 0 || index >= static_cast<std::int32_t>(names.size()))
        throw RegistryError(RegistryErrorNumber::ReadKey,
                            "There is no subkey number " + std::to_string(index) + " in the " + CurrentKey() + ".");
    return names[static_cast<std::size_t>(index)];
}

void HiveStore::DeleteKey(std::string_view subKey) {
    const auto names = PathNames(subKey);
    if (names.empty())
        CheckKeyName("", RegistryErrorNumber::DeleteKey);
    for (const std::string_view name : names)
        CheckKeyName(name, RegistryErrorNumber::DeleteKey);
    const auto [session, key] = PlaceToWrite(RegistryErrorNumber::DeleteKey);
    Attempt(RegistryErrorNumber::DeleteKey, [&, &session = session, key = key] {
        std::optional<KeyId> found = key;
        for (const std::string_view name : names)
            if (found)
                found = session.FindSubKey(*found, name);
        if (!found)
            throw RegistryError(RegistryErrorNumber::KeyMissing,
                                "There is no subkey \"" + std::string(subKey) + "\" in the " + CurrentKey() + ".");
        session.DropKey(*found);
    });
}

class HiveRegistry final : public Registry {
public:
    explicit HiveRegistry(Hives hives) : hives_(std::move(hives)) {}

    std::unique_ptr<RegistryStore> CreateStore() override { return std::make_unique<HiveStore>(hives_); }

private:
    Hives hives_;
};

} // namespace

std::unique_ptr<Registry> MakeRegistry(Hives hives) {
    return std::make_unique<HiveRegistry>(std::move(hives));
}
