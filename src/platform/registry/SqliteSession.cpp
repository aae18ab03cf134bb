#include "platform/registry/SqliteSession.h"

#include "platform/registry/RegistryNames.h"

#include <sqlite3.h>

#include <exception>
#include <utility>

SqliteSession::SqliteSession(std::unique_ptr<HiveConnection> connection, Access access, GiveBack giveBack)
    : connection_(std::move(connection)), access_(access), giveBack_(std::move(giveBack)) {
    connection_->Run(MayWrite() ? HiveQuery::BeginImmediate : HiveQuery::Begin);
    open_ = true;
}

SqliteSession::~SqliteSession() {
    try {
        if (open_ && connection_->InTransaction())
            connection_->Run(HiveQuery::Rollback);
        giveBack_(std::move(connection_));
    } catch (const std::exception&) {
        // The connection closes instead of being used again, which ends the transaction as well.
        connection_.reset();
    }
}

std::optional<KeyId> SqliteSession::FindSubKey(KeyId parent, std::string_view name) {
    CheckKeyName(name, RegistryErrorNumber::OpenKey);
    const std::string folded = FoldedName(name);
    const auto find = connection_->Prepared(HiveQuery::FindKey);
    if (!find->Bind(1, parent).Bind(2, folded).Step())
        return std::nullopt;
    return find->Number(0);
}

std::optional<KeyId> SqliteSession::FindFolder(std::string_view path) {
    if (folder_ && folderPath_ == path)
        return folder_;
    std::optional<KeyId> key = HiveKey;
    for (const std::string_view name : PathNames(path)) {
        key = FindSubKey(*key, name);
        if (!key)
            return std::nullopt;
    }
    folderPath_ = path;
    folder_ = key;
    return key;
}

std::optional<KeyId> SqliteSession::FindKey(std::string_view path) {
    const CutPath cut = CutLastName(path);
    if (cut.name.empty())
        return HiveKey;
    const auto folder = FindFolder(cut.parent);
    return folder ? FindSubKey(*folder, cut.name) : std::nullopt;
}

KeyId SqliteSession::MakeKey(std::string_view path) {
    PrepareToWrite();
    KeyId key = HiveKey;
    for (const std::string_view name : PathNames(path)) {
        if (const auto found = FindSubKey(key, name)) {
            key = *found;
            continue;
        }
        const std::string folded = FoldedName(name);
        const auto add = connection_->Prepared(HiveQuery::AddKey);
        add->Bind(1, key).Bind(2, folded).Bind(3, name).Step();
        key = add->Number(0);
    }
    return key;
}

std::shared_ptr<const KeyNames> SqliteSession::SubKeys(KeyId key) {
    auto names = std::make_shared<KeyNames>();
    const auto list = connection_->Prepared(HiveQuery::SubKeys);
    list->Bind(1, key);
    while (list->Step())
        names->push_back(list->Bytes(0));
    return names;
}

std::shared_ptr<const StoredValues> SqliteSession::Values(KeyId key) {
    if (values_ && valuesOf_ == key)
        return values_;
    auto values = std::make_shared<StoredValues>();
    const auto list = connection_->Prepared(HiveQuery::Values);
    list->Bind(1, key);
    while (list->Step())
        values->push_back(
            {{list->Bytes(0), static_cast<std::uint32_t>(list->Number(2)), list->Bytes(3)}, list->Bytes(1)});
    valuesOf_ = key;
    values_ = values;
    return values;
}

void SqliteSession::PutValue(KeyId key, const RegistryValue& value) {
    CheckValueName(value.name, RegistryErrorNumber::WriteValue);
    if (RegistryType::IsText(value.type))
        CheckText(value.data, RegistryErrorNumber::WriteValue);
    PrepareToWrite();
    const std::string folded = FoldedName(value.name);
    const auto put = connection_->Prepared(HiveQuery::PutValue);
    put->Bind(1, key).Bind(2, folded).Bind(3, value.name).Bind(4, static_cast<std::int64_t>(value.type));
    put->BindBytes(5, value.data).Step();
}

bool SqliteSession::DropValue(KeyId key, std::string_view name) {
    CheckValueName(name, RegistryErrorNumber::WriteValue);
    PrepareToWrite();
    const std::string folded = FoldedName(name);
    connection_->Prepared(HiveQuery::DropValue)->Bind(1, key).Bind(2, folded).Step();
    return connection_->ChangedRows() > 0;
}

void SqliteSession::DropKey(KeyId key) {
    PrepareToWrite();
    connection_->Prepared(HiveQuery::DropValuesBelow)->Bind(1, key).Step();
    connection_->Prepared(HiveQuery::DropKeysBelow)->Bind(1, key).Step();
}

void SqliteSession::Commit() {
    connection_->Run(HiveQuery::Commit);
    open_ = false;
}

void SqliteSession::PrepareToWrite() {
    // Without this the rest of a broken sequence would be written piece by piece.
    if (!connection_->InTransaction())
        throw SqliteError(SQLITE_ABORT, "an earlier operation of this sequence failed");
    folder_.reset();
    values_.reset();
}
