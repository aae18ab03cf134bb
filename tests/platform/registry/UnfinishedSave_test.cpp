// What the registry of Windows does where one save consists of many changes.
#include "platform/registry/ChangeJournal.h"
#include "platform/registry/NamedLock.h"
#include "platform/registry/RegistryKey.h"
#include "support/TemporaryKeys.h"

#include <gtest/gtest.h>

namespace {

using Kind = RegistryChange::Kind;
constexpr auto Text = RegistryValueType::String;

RegistryChange Put(const std::string& path, const std::string& name, const std::string& text) {
    return {Kind::PutValue, path, {name, RegistryType::String, text}};
}

class UnfinishedSave : public testing::Test {
protected:
    // As a program leaves it that dies while it saves.
    void LeaveBehind(const RegistryChanges& changes) { LeaveBytes(EncodeChanges(changes)); }
    void LeaveBytes(const std::string& bytes) {
        bool made = false;
        RegistryKey::Make(HKEY_LOCAL_MACHINE, Journal(), made).Put({"Changes", RegistryType::Binary, bytes});
    }
    [[nodiscard]] bool IsLeftBehind() const {
        return RegistryKey::Open(HKEY_LOCAL_MACHINE, Journal(), KEY_READ).has_value();
    }
    [[nodiscard]] const std::string& Journal() const { return keys_.Places().machine.journal; }

    // By the system's own means, without the store.
    [[nodiscard]] std::string Stored(const std::string& path, const std::string& name) const {
        const auto key = RegistryKey::Open(HKEY_LOCAL_MACHINE, keys_.Places().machine.base + "\\" + path, KEY_READ);
        const auto value = key ? key->Value(name) : std::nullopt;
        return value ? value->data : "nothing";
    }
    void Store(const std::string& path, const std::string& name, const std::string& text) {
        bool made = false;
        RegistryKey::Make(HKEY_LOCAL_MACHINE, keys_.Places().machine.base + "\\" + path, made)
            .Put({name, RegistryType::String, text});
    }
    std::unique_ptr<RegistryStore> Reader(const std::string& path) {
        auto store = registry_->CreateStore();
        store->CreateMissing(false);
        store->KeyPath(path);
        return store;
    }

    TemporaryKeys keys_;
    std::unique_ptr<Registry> registry_ = OpenWindowsRegistry(keys_.Places(), std::chrono::milliseconds(20));
};

} // namespace

TEST_F(UnfinishedSave, ReadsAsIfItHadBeenFinishedWithoutWritingAnything) {
    Store("Lane", "Model", "old");
    Store("Lane", "Foreign", "1");
    LeaveBehind({{Kind::DropKey, "Lane", {}}, {Kind::MakeKey, "Lane", {}}, Put("Lane", "Model", "new")});
    const auto store = Reader("Lane");
    EXPECT_EQ(store->ReadValue(Text, "Model"), "new");
    EXPECT_EQ(store->ReadValue(Text, "Foreign"), "");
    EXPECT_EQ(store->ValueCount(), 1);
    EXPECT_EQ(Stored("Lane", "Model"), "old");
    EXPECT_TRUE(IsLeftBehind());
}

TEST_F(UnfinishedSave, IsFinishedByTheNextThatWrites) {
    Store("Lane", "Display", "1"); // carried out as far as here
    LeaveBehind({{Kind::DropKey, "Lane", {}},
                 {Kind::MakeKey, "Lane", {}},
                 Put("Lane", "Display", "1"),
                 Put("Lane", "Model", "new"),
                 {Kind::DropValue, "Lane", {.name = "Gone", .type = 0, .data = {}}}});
    const auto store = registry_->CreateStore();
    store->BeginWriting();
    EXPECT_EQ(Stored("Lane", "Model"), "new");
    EXPECT_EQ(Stored("Lane", "Display"), "1");
    EXPECT_FALSE(IsLeftBehind());
}

TEST_F(UnfinishedSave, OfAnotherVersionIsNamedAndLeftAlone) {
    LeaveBytes("RVL9 whatever");
    EXPECT_THROW(Reader("Lane"), RegistryError);
    EXPECT_TRUE(IsLeftBehind());
}

TEST_F(UnfinishedSave, LeavesNothingBehindWhenItSucceeds) {
    const auto store = registry_->CreateStore();
    store->KeyPath("Lane");
    store->WriteValue("Model", "new");
    EXPECT_EQ(Stored("Lane", "Model"), "nothing");
    store->Release();
    EXPECT_EQ(Stored("Lane", "Model"), "new");
    EXPECT_FALSE(IsLeftBehind());
}

TEST_F(UnfinishedSave, ThatTheSystemRefusesHalfwayIsTakenBackAsAWhole) {
    Store("Lane", "Model", "old");
    Store("Lane\\Sub", "Deep", "old");
    // Below a key that lives only until the next start, the system makes no lasting one.
    HKEY passing = nullptr;
    const std::string path = keys_.Places().machine.base + "\\Passing";
    ASSERT_EQ(RegCreateKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &passing, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(passing);
    const auto store = registry_->CreateStore();
    store->KeyPath("");
    store->DeleteKey("Lane");
    store->KeyPath("Lane");
    store->WriteValue("Model", "new");
    store->KeyPath("Passing\\Lasting");
    try {
        store->Release();
        FAIL() << "no error was raised";
    } catch (const RegistryError& error) {
        EXPECT_EQ(error.Number(), static_cast<std::uint32_t>(RegistryErrorNumber::CloseKey));
        EXPECT_NE(error.Description().find("Passing\\Lasting"), std::string::npos) << error.Description();
    }
    EXPECT_EQ(Stored("Lane", "Model"), "old");
    EXPECT_EQ(Stored("Lane\\Sub", "Deep"), "old");
    EXPECT_FALSE(IsLeftBehind());
}

TEST_F(UnfinishedSave, WaitsForAnotherProgramAndSaysWhatToDoAtTheLimit) {
    const auto other = OpenWindowsRegistry(keys_.Places());
    const auto first = other->CreateStore();
    first->BeginWriting();
    const auto second = registry_->CreateStore();
    try {
        second->BeginWriting();
        FAIL() << "no error was raised";
    } catch (const RegistryError& error) {
        EXPECT_EQ(error.Number(), static_cast<std::uint32_t>(RegistryErrorNumber::OpenKey));
        EXPECT_NE(error.Description().find("another program"), std::string::npos) << error.Description();
    }
    first->Release();
    second->BeginWriting();
}

TEST(ChangeJournal, GivesBackWhatWasWritten) {
    const RegistryChanges changes{
        {Kind::MakeKey, "Folder\\Kasse \xC3\xBC", {}},
        {Kind::PutValue, "Folder", {"", RegistryType::Binary, std::string("\0\xFF\r\n", 4)}},
        {Kind::DropKey, "", {}},
    };
    EXPECT_EQ(DecodeChanges(EncodeChanges(changes)), changes);
    EXPECT_EQ(DecodeChanges(EncodeChanges({})), RegistryChanges{});
}

TEST(ChangeJournal, RefusesWhatItDidNotWrite) {
    const std::string whole = EncodeChanges({Put("Lane", "Model", "new")});
    for (std::size_t length = 5; length < whole.size(); ++length)
        EXPECT_EQ(DecodeChanges(whole.substr(0, length)), std::nullopt) << length;
    EXPECT_EQ(DecodeChanges(""), std::nullopt);
    EXPECT_EQ(DecodeChanges(whole + '\1'), std::nullopt);
    std::string kind = whole;
    kind[4] = 9;
    EXPECT_EQ(DecodeChanges(kind), std::nullopt);
}
