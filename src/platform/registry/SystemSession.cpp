#include "platform/registry/SystemSession.h"

#include "platform/registry/RegistryNames.h"
#include "platform/registry/SystemHive.h"

#include <algorithm>

namespace {

constexpr std::size_t MostReadAhead = 2000;

std::string Below(const std::string& path, std::string_view name) {
    return path.empty() ? std::string(name) : path + '\\' + std::string(name);
}

} // namespace

SystemSession::SystemSession(const SystemHive& hive, std::optional<NamedLock> writing)
    : hive_(hive), writing_(std::move(writing)), keys_(1) {
    const NamedLock steady = hive_.HoldSaves();
    CarryOutHere(hive_.Unfinished());
}

KeyId SystemSession::Add(KeyId parent, std::string_view name, const std::string& folded, bool exists) {
    const auto added = static_cast<KeyId>(keys_.size());
    keys_.push_back({.path = Below(At(parent).path, name),
                     .name = std::string(name),
                     .exists = exists,
                     .known = !exists,
                     .values = {},
                     .subKeys = {}});
    At(parent).subKeys[folded] = added;
    return added;
}

std::optional<KeyId> SystemSession::FindSubKey(KeyId parent, std::string_view name) {
    CheckKeyName(name, RegistryErrorNumber::OpenKey);
    const std::string folded = FoldedName(name);
    if (const auto found = At(parent).subKeys.find(folded); found != At(parent).subKeys.end())
        return At(found->second).exists ? std::optional(found->second) : std::nullopt;
    if (At(parent).known)
        return std::nullopt;
    const bool exists = hive_.Open(Below(At(parent).path, name), KEY_READ).has_value();
    const KeyId key = Add(parent, name, folded, exists);
    return exists ? std::optional(key) : std::nullopt;
}

std::optional<KeyId> SystemSession::FindKey(std::string_view path) {
    KeyId key = HiveKey;
    for (const std::string_view name : PathNames(path)) {
        const auto found = FindSubKey(key, name);
        if (!found)
            return std::nullopt;
        key = *found;
    }
    Know(key);
    return At(key).exists ? std::optional(key) : std::nullopt;
}

void SystemSession::Know(KeyId key) {
    if (At(key).known)
        return;
    const NamedLock steady = hive_.HoldSaves();
    std::vector<KeyId> ahead{key};
    for (std::size_t i = 0; i < ahead.size(); ++i) {
        if (!At(ahead[i]).known)
            Read(ahead[i]);
        for (const auto& [folded, subKey] : At(ahead[i]).subKeys)
            if (ahead.size() < MostReadAhead && At(subKey).exists)
                ahead.push_back(subKey);
    }
}

void SystemSession::Read(KeyId key) {
    const auto open = hive_.Open(At(key).path, KEY_READ);
    At(key).known = true;
    At(key).exists = open.has_value() || key == HiveKey;
    if (!open)
        return;
    for (RegistryValue& value : open->Values()) {
        const std::string folded = FoldedName(value.name);
        At(key).values.push_back({std::move(value), folded});
    }
    for (const std::string& name : open->SubKeys()) {
        const std::string folded = FoldedName(name);
        if (const auto found = At(key).subKeys.find(folded); found == At(key).subKeys.end())
            Add(key, name, folded, true);
        else if (At(found->second).exists)
            At(found->second).name = name; // in the case it was made with
    }
}

std::shared_ptr<const KeyNames> SystemSession::SubKeys(KeyId key) {
    Know(key);
    auto names = std::make_shared<KeyNames>();
    for (const auto& [folded, subKey] : At(key).subKeys)
        if (At(subKey).exists)
            names->push_back(At(subKey).name);
    return names;
}

std::shared_ptr<const StoredValues> SystemSession::Values(KeyId key) {
    Know(key);
    return std::make_shared<StoredValues>(At(key).values);
}

void SystemSession::CheckMayWrite(const std::string& path, std::uint32_t access) const {
    std::string_view nearest = path;
    while (true) {
        if (hive_.Open(std::string(nearest), nearest == path ? access : KEY_CREATE_SUB_KEY) || nearest.empty())
            return;
        nearest = CutLastName(nearest).parent;
    }
}

void SystemSession::Record(RegistryChange change) {
    if (caughtUp_)
        changes_.push_back(std::move(change));
}

KeyId SystemSession::Make(KeyId parent, std::string_view name) {
    if (const auto found = FindSubKey(parent, name))
        return *found;
    const std::string path = Below(At(parent).path, name);
    if (caughtUp_)
        CheckMayWrite(path, KEY_CREATE_SUB_KEY);
    const KeyId key = Add(parent, name, FoldedName(name), true);
    At(key).known = true;
    Record({RegistryChange::Kind::MakeKey, path, {}});
    return key;
}

KeyId SystemSession::MakeKey(std::string_view path) {
    KeyId key = HiveKey;
    for (const std::string_view name : PathNames(path))
        key = Make(key, name);
    Know(key);
    return key;
}

void SystemSession::Replace(KeyId key, const RegistryValue& value) {
    const std::string folded = FoldedName(value.name);
    const auto found = std::ranges::find(At(key).values, folded, &StoredValue::folded);
    if (found == At(key).values.end()) {
        At(key).values.push_back({value, folded});
        return;
    }
    found->value.type = value.type;
    found->value.data = value.data;
}

void SystemSession::PutValue(KeyId key, const RegistryValue& value) {
    CheckValueName(value.name, RegistryErrorNumber::WriteValue);
    if (RegistryType::IsText(value.type))
        CheckText(value.data, RegistryErrorNumber::WriteValue);
    if (!At(key).exists)
        throw RegistryError(RegistryErrorNumber::KeyMissing, "The registry key \"" + At(key).path + "\" was deleted.");
    CheckMayWrite(At(key).path, KEY_SET_VALUE);
    Know(key);
    Replace(key, value);
    Record({RegistryChange::Kind::PutValue, At(key).path, value});
}

bool SystemSession::DropValue(KeyId key, std::string_view name) {
    CheckValueName(name, RegistryErrorNumber::WriteValue);
    Know(key);
    const std::string folded = FoldedName(name);
    if (std::erase_if(At(key).values, [&](const StoredValue& value) { return value.folded == folded; }) == 0)
        return false;
    CheckMayWrite(At(key).path, KEY_SET_VALUE);
    Record({RegistryChange::Kind::DropValue, At(key).path, {.name = std::string(name), .type = 0, .data = {}}});
    return true;
}

void SystemSession::Forget(KeyId key) {
    At(key).exists = false;
    At(key).known = true;
    At(key).values.clear();
    for (const auto& [folded, subKey] : At(key).subKeys)
        Forget(subKey);
    At(key).subKeys.clear();
}

void SystemSession::DropKey(KeyId key) {
    CheckMayWrite(At(key).path, KEY_SET_VALUE | DELETE);
    Forget(key);
    Record({RegistryChange::Kind::DropKey, At(key).path, {}});
}

void SystemSession::CarryOutHere(const RegistryChanges& unfinished) {
    for (const RegistryChange& change : unfinished) {
        KeyId key = HiveKey;
        for (const std::string_view name : PathNames(change.path))
            key = Make(key, name);
        if (change.kind == RegistryChange::Kind::DropKey) {
            Forget(key);
        } else if (change.kind != RegistryChange::Kind::MakeKey) {
            if (!At(key).known)
                Read(key);
            if (change.kind == RegistryChange::Kind::PutValue)
                Replace(key, change.value);
            else
                std::erase_if(At(key).values, [folded = FoldedName(change.value.name)](const StoredValue& value) {
                    return value.folded == folded;
                });
        }
    }
    caughtUp_ = true;
}

void SystemSession::Commit() {
    hive_.Save(changes_);
    changes_.clear();
    writing_.reset();
}
