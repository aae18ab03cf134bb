#include "profiles/RegistryTree.h"

#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

namespace {

constexpr auto Machine = RegistryRoot::LocalMachine;
using Values = std::vector<RegistryValue>;

std::string ReadAsText(TemporaryRegistry& registry, const RegistryValue& value) {
    const auto tree = registry.Tree();
    tree->SetValue(Machine, "Lane", value);
    tree->Commit();
    return registry.Text("Lane", value.name);
}

} // namespace

TEST(RegistryTree, KeepsTypesAndBytesAsTheyAre) {
    TemporaryRegistry registry;
    const Values values = {
        {"text", RegistryType::String, "a"},
        {"", RegistryType::ExpandString, "%PATH%"},
        {"bytes", RegistryType::Binary, std::string("\0\xFF\x80", 3)},
        {"none", RegistryType::None, ""},
        {"number", RegistryType::Number32, std::string("\1\0\0\0", 4)},
        {"other", 0xFFFFFFFF, "\xFF"},
    };
    const auto tree = registry.Tree();
    for (const RegistryValue& value : values)
        tree->SetValue(Machine, "Lane", value);
    tree->Commit();
    EXPECT_EQ(registry.Values("Lane"), values);
}

TEST(RegistryTree, AddsNoEndToAListOfTextsThatHasNone) {
    TemporaryRegistry registry;
    const std::string list(14, 'a');
    const auto tree = registry.Tree();
    for (const std::size_t length : {14U, 13U, 2U, 0U})
        tree->SetValue(Machine, "Lane", {std::to_string(length), RegistryType::MultiString, list.substr(0, length)});
    tree->Commit();
    for (const std::size_t length : {14U, 13U, 2U, 0U})
        EXPECT_EQ(tree->Value(Machine, "Lane", std::to_string(length)).value().data, list.substr(0, length));
}

TEST(RegistryTree, ReplacingAValueKeepsItsPlaceAndTheCaseOfItsName) {
    TemporaryRegistry registry;
    const auto tree = registry.Tree();
    tree->SetValue(Machine, "Lane", {"Model", RegistryType::String, "1"});
    tree->SetValue(Machine, "Lane", {"Port", RegistryType::String, "2"});
    tree->SetValue(Machine, "LANE", {"MODEL", RegistryType::Binary, "3"});
    EXPECT_EQ(tree->Values(Machine, "Lane"), (Values{{"Model", RegistryType::Binary, "3"}, {"Port", 1, "2"}}));
    EXPECT_EQ(tree->Value(Machine, "lane", "mODEL"), (RegistryValue{"Model", RegistryType::Binary, "3"}));
    EXPECT_EQ(tree->Value(Machine, "Lane", "Missing"), std::nullopt);
    EXPECT_EQ(tree->Value(Machine, "Missing", "Model"), std::nullopt);
}

TEST(RegistryTree, NothingIsSeenByOthersBeforeCommit) {
    TemporaryRegistry registry;
    registry.Put("Lane", "Model", "old");
    {
        const auto tree = registry.Tree();
        tree->SetValue(Machine, "Lane", {"Model", RegistryType::String, "new"});
        tree->SetValue(RegistryRoot::CurrentUser, "Lane", {"Left", RegistryType::String, "1"});
        EXPECT_EQ(registry.Text("Lane", "Model"), "old");
    }
    EXPECT_EQ(registry.Text("Lane", "Model"), "old");
    EXPECT_FALSE(registry.HasKey("Lane", RegistryRoot::CurrentUser));
}

TEST(RegistryTree, BothHivesAreCommitted) {
    TemporaryRegistry registry;
    const auto tree = registry.Tree();
    tree->SetValue(Machine, "Lane", {"Model", RegistryType::String, "new"});
    tree->SetValue(RegistryRoot::CurrentUser, "Lane", {"Left", RegistryType::String, "1"});
    tree->Commit();
    EXPECT_EQ(registry.Text("Lane", "Model"), "new");
    EXPECT_EQ(registry.Text("Lane", "Left", RegistryRoot::CurrentUser), "1");
}

TEST(RegistryTree, DeletingTellsWhetherThereWasAnything) {
    TemporaryRegistry registry;
    registry.Put("Folder\\Lane", "Model", "1");
    const auto tree = registry.Tree();
    EXPECT_FALSE(tree->DeleteValue(Machine, "Folder\\Lane", "Port"));
    EXPECT_FALSE(tree->DeleteValue(Machine, "Nowhere", "Model"));
    EXPECT_FALSE(tree->DeleteKey(Machine, "Nowhere"));
    EXPECT_FALSE(tree->HasKey(Machine, "Nowhere")) << "deleting makes nothing";
    EXPECT_TRUE(tree->DeleteValue(Machine, "Folder\\Lane", "MODEL"));
    EXPECT_TRUE(tree->DeleteKey(Machine, "FOLDER"));
    EXPECT_FALSE(tree->HasKey(Machine, "Folder\\Lane"));
    EXPECT_TRUE(tree->HasKey(Machine, ""));
    EXPECT_THROW(tree->DeleteKey(Machine, "\\"), RegistryError);
}

TEST(RegistryTree, AKeyMadeAfterADeletionIsFoundUnderTheSamePath) {
    TemporaryRegistry registry;
    registry.Put("Folder\\Lane", "Model", "1");
    const auto tree = registry.Tree();
    EXPECT_EQ(tree->Values(Machine, "Folder\\Lane").size(), 1U);
    tree->DeleteKey(Machine, "Folder");
    EXPECT_TRUE(tree->Values(Machine, "Folder\\Lane").empty());
    tree->CreateKey(Machine, "Folder\\Lane\\Sub");
    EXPECT_EQ(tree->SubKeys(Machine, "Folder\\Lane"), std::vector<std::string>{"Sub"});
}

TEST(RegistryStoreTypes, NumbersAndExpandableTextsReadAsText) {
    TemporaryRegistry registry;
    EXPECT_EQ(ReadAsText(registry, {"x", RegistryType::Number32, std::string("\x2A\x01\0\0", 4)}), "298");
    EXPECT_EQ(ReadAsText(registry, {"x", RegistryType::Number32, "\xFF\xFF\xFF\xFF"}), "4294967295");
    EXPECT_EQ(ReadAsText(registry, {"x", RegistryType::Number64, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}),
              "18446744073709551615");
    EXPECT_EQ(ReadAsText(registry, {"x", RegistryType::ExpandString, "%PATH%"}), "%PATH%");
}

TEST(RegistryStoreTypes, BytesAreNoText) {
    TemporaryRegistry registry;
    const Values values = {{"x", RegistryType::Binary, "1"},
                           {"x", RegistryType::None, ""},
                           {"x", RegistryType::MultiString, std::string("a\0\0\0\0\0", 6)},
                           {"x", RegistryType::Number32, "1"}};
    for (const RegistryValue& value : values) {
        try {
            ReadAsText(registry, value);
            ADD_FAILURE() << "type " << value.type;
        } catch (const RegistryError& error) {
            EXPECT_EQ(error.Number(), 0x80040204U);
        }
    }
}
