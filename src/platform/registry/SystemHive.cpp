#include "platform/registry/SystemHive.h"

#include "platform/registry/ChangeJournal.h"
#include "platform/registry/SystemSession.h"

#include <algorithm>
#include <ranges>

namespace {

constexpr const char* JournalValue = "Changes";

} // namespace

SystemHive::SystemHive(const RegistryPlace& place, std::chrono::milliseconds lockLimit)
    : place_(place),
      hive_(place.root == RegistryRoot::CurrentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE),
      lockLimit_(lockLimit) {}

std::string SystemHive::Title() const {
    return place_.root == RegistryRoot::CurrentUser ? "The registry of the current user"
                                                    : "The registry of this machine";
}

std::string SystemHive::PathOf(const std::string& path) const {
    return place_.base.empty() || path.empty() ? place_.base + path : place_.base + '\\' + path;
}

std::optional<RegistryKey> SystemHive::Open(const std::string& path, REGSAM access) const {
    return RegistryKey::Open(hive_, PathOf(path), access);
}

NamedLock SystemHive::Hold(const char* what) const {
    std::string name =
        "Ravlin registry, " + std::string(what) + ", " + std::to_string(static_cast<int>(place_.root)) + place_.base;
    std::ranges::replace(name, '\\', '/');
    auto lock = NamedLock::Take(name, lockLimit_);
    if (!lock)
        throw RegistryError(RegistryErrorNumber::OpenKey,
                            Title() + " is being written by another program, which did not finish in time. Nothing was "
                                      "changed. Let the other program finish or close it, and do it again.");
    return std::move(*lock);
}

NamedLock SystemHive::HoldSaves() const {
    return Hold("save");
}

RegistryChanges SystemHive::Unfinished() const {
    const auto journal = RegistryKey::Open(hive_, place_.journal, KEY_READ);
    const auto value = journal ? journal->Value(JournalValue) : std::nullopt;
    if (!value)
        return {};
    const auto changes = DecodeChanges(value->data);
    if (!changes)
        throw RegistryError(RegistryErrorNumber::ReadKey,
                            "The registry key \"" + place_.journal +
                                "\" holds an unfinished save of another version of the program. Start that version "
                                "once, or delete the key.");
    return *changes;
}

std::shared_ptr<HiveSession> SystemHive::BeginReading() {
    return std::make_shared<SystemSession>(*this, std::nullopt);
}

std::shared_ptr<HiveSession> SystemHive::BeginWriting() {
    auto lock = Hold("write");
    Finish();
    return std::make_shared<SystemSession>(*this, std::move(lock));
}

void SystemHive::Finish() const {
    const NamedLock saving = HoldSaves();
    const RegistryChanges changes = Unfinished();
    if (changes.empty())
        return;
    RegistryChanges undo;
    for (const RegistryChange& change : changes)
        CarryOut(change, undo);
    RegistryKey::Drop(hive_, place_.journal);
}

void SystemHive::Save(const RegistryChanges& changes) const {
    if (changes.empty())
        return;
    const NamedLock saving = HoldSaves();
    bool made = false;
    const RegistryKey journal = RegistryKey::Make(hive_, place_.journal, made);
    journal.Put({JournalValue, RegistryType::Binary, EncodeChanges(changes)});
    RegistryChanges undo;
    try {
        for (const RegistryChange& change : changes)
            CarryOut(change, undo);
    } catch (const WindowsFailure&) {
        RegistryChanges ignored;
        for (const RegistryChange& change : RegistryChanges(undo))
            CarryOut(change, ignored);
        RegistryKey::Drop(hive_, place_.journal);
        throw;
    }
    // Durable with the journal, whose end may come to the disk later: carrying it out again changes nothing.
    journal.Flush();
    RegistryKey::Drop(hive_, place_.journal);
}

void SystemHive::CarryOut(const RegistryChange& change, RegistryChanges& undo) const {
    using Kind = RegistryChange::Kind;
    if (change.kind == Kind::DropKey) {
        DropKey(change.path, undo);
        return;
    }
    bool made = false;
    const RegistryKey key = RegistryKey::Make(hive_, PathOf(change.path), made);
    if (made)
        undo.insert(undo.begin(), {Kind::DropKey, change.path, {}});
    if (change.kind == Kind::MakeKey)
        return;
    if (const auto old = key.Value(change.value.name))
        undo.insert(undo.begin(), {Kind::PutValue, change.path, *old});
    else
        undo.insert(undo.begin(), {Kind::DropValue, change.path, change.value});
    if (change.kind == Kind::PutValue)
        key.Put(change.value);
    else
        key.DropValue(change.value.name);
}

void SystemHive::DropKey(const std::string& path, RegistryChanges& undo) const {
    RegistryChanges below;
    Remember(path, below);
    undo.insert(undo.begin(), below.begin(), below.end());
    RegistryKey::Drop(hive_, PathOf(path));
}

void SystemHive::Remember(const std::string& path, RegistryChanges& below) const {
    const auto key = Open(path, KEY_READ);
    if (!key)
        return;
    below.push_back({RegistryChange::Kind::MakeKey, path, {}});
    for (const RegistryValue& value : key->Values())
        below.push_back({RegistryChange::Kind::PutValue, path, value});
    for (const std::string& name : key->SubKeys())
        Remember(path + '\\' + name, below);
}
