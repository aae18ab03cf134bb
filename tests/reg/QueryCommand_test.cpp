#include "reg/Commands.h"
#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

std::string Query(TemporaryRegistry& registry, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "query");
    std::ostringstream out;
    RunCommand(ParseCommandLine(arguments), *registry.Tree(), {out, [](const std::string&) { return std::nullopt; }});
    return out.str();
}

void Set(TemporaryRegistry& registry, const RegistryValue& value) {
    const auto tree = registry.Tree();
    tree->SetValue(RegistryRoot::LocalMachine, "Lane", value);
    tree->Commit();
}

// Everything on the only value's line behind its name.
std::string Shown(std::uint32_t type, const std::string& data) {
    TemporaryRegistry registry;
    Set(registry, {"x", type, data});
    const std::string text = Query(registry, {"HKLM\\Lane"});
    const std::string before = "\nHKEY_LOCAL_MACHINE\\Lane\n    x    ";
    EXPECT_TRUE(text.starts_with(before)) << text;
    return text.substr(before.size(), text.size() - before.size() - 2);
}

TemporaryRegistry& Fill(TemporaryRegistry& registry) {
    registry.Put("Folder\\Lane", "", "Tavrin.Opos.Scanner");
    registry.Put("Folder\\Lane", "Model", "758");
    registry.Put("Folder\\Lane\\Deep", "Model", "Pelerin/3172");
    registry.Put("Folder\\Other\\Empty", "Port", "1");
    return registry;
}

} // namespace

TEST(QueryCommand, ShowsValuesAndThenTheNamesOfSubkeys) {
    TemporaryRegistry registry;
    EXPECT_EQ(Query(Fill(registry), {"HKLM\\Folder\\Lane"}), "\n"
                                                             "HKEY_LOCAL_MACHINE\\Folder\\Lane\n"
                                                             "    (Default)    REG_SZ    Tavrin.Opos.Scanner\n"
                                                             "    Model    REG_SZ    758\n"
                                                             "\n"
                                                             "HKEY_LOCAL_MACHINE\\Folder\\Lane\\Deep\n");
}

TEST(QueryCommand, AKeyWithoutValuesShowsItsSubkeysOnly) {
    TemporaryRegistry registry;
    EXPECT_EQ(Query(Fill(registry), {"HKLM\\folder"}), "\n"
                                                       "HKEY_LOCAL_MACHINE\\folder\\Lane\n"
                                                       "HKEY_LOCAL_MACHINE\\folder\\Other\n");
    EXPECT_EQ(Query(registry, {"HKLM"}), "\nHKEY_LOCAL_MACHINE\\Folder\n");
}

TEST(QueryCommand, ShowsAllBelowTheKeyWhenAsked) {
    TemporaryRegistry registry;
    EXPECT_EQ(Query(Fill(registry), {"HKLM\\Folder", "/s"}), "\n"
                                                             "HKEY_LOCAL_MACHINE\\Folder\\Lane\n"
                                                             "    (Default)    REG_SZ    Tavrin.Opos.Scanner\n"
                                                             "    Model    REG_SZ    758\n"
                                                             "\n"
                                                             "HKEY_LOCAL_MACHINE\\Folder\\Lane\\Deep\n"
                                                             "    Model    REG_SZ    Pelerin/3172\n"
                                                             "\n"
                                                             "HKEY_LOCAL_MACHINE\\Folder\\Other\n"
                                                             "\n"
                                                             "HKEY_LOCAL_MACHINE\\Folder\\Other\\Empty\n"
                                                             "    Port    REG_SZ    1\n"
                                                             "\n");
}

TEST(QueryCommand, ShowsOneValueWhateverTheCaseOfItsName) {
    TemporaryRegistry registry;
    EXPECT_EQ(Query(Fill(registry), {"HKLM\\Folder\\Lane", "/v", "MODEL"}), "\n"
                                                                            "HKEY_LOCAL_MACHINE\\Folder\\Lane\n"
                                                                            "    Model    REG_SZ    758\n"
                                                                            "\n");
}

TEST(QueryCommand, SearchesAValueBelowTheKey) {
    TemporaryRegistry registry;
    EXPECT_EQ(Query(Fill(registry), {"HKLM\\Folder", "/s", "/v", "Model"}), "\n"
                                                                            "HKEY_LOCAL_MACHINE\\Folder\\Lane\n"
                                                                            "    Model    REG_SZ    758\n"
                                                                            "\n"
                                                                            "HKEY_LOCAL_MACHINE\\Folder\\Lane\\Deep\n"
                                                                            "    Model    REG_SZ    Pelerin/3172\n"
                                                                            "\n"
                                                                            "End of search: 2 match(es) found.\n");
}

TEST(QueryCommand, AMissingDefaultValueIsShownAsNotSet) {
    TemporaryRegistry registry;
    EXPECT_EQ(Query(Fill(registry), {"HKLM\\Folder", "/ve"}), "\n"
                                                              "HKEY_LOCAL_MACHINE\\Folder\n"
                                                              "    (Default)    REG_SZ    (value not set)\n"
                                                              "\n");
}

TEST(QueryCommand, WhatIsMissingIsAnErrorThatNamesIt) {
    TemporaryRegistry registry;
    EXPECT_THROW((void)Query(Fill(registry), {"HKLM\\Nowhere"}), CommandError);
    EXPECT_THROW((void)Query(registry, {"HKLM\\Folder\\Lane", "/v", "Nothing"}), CommandError);
    EXPECT_THROW((void)Query(registry, {"HKLM\\Folder", "/s", "/v", "Nothing"}), CommandError);
}

TEST(QueryCommand, EachTypeIsShownInItsForm) {
    EXPECT_EQ(Shown(RegistryType::String, "a b"), "REG_SZ    a b");
    EXPECT_EQ(Shown(RegistryType::ExpandString, "%PATH%"), "REG_EXPAND_SZ    %PATH%");
    EXPECT_EQ(Shown(RegistryType::Binary, "\x01\xFE"), "REG_BINARY    01FE");
    EXPECT_EQ(Shown(RegistryType::Number32, std::string("\x2A\x01\0\0", 4)), "REG_DWORD    0x12a");
    EXPECT_EQ(Shown(RegistryType::Number32, "\x2A"), "REG_DWORD    2A") << "of a wrong length";
    EXPECT_EQ(Shown(RegistryType::Number64, std::string(8, '\0')), "REG_QWORD    0x0");
    EXPECT_EQ(Shown(RegistryType::MultiString, std::string("a\0\0\0b\0\0\0\0\0", 10)), "REG_MULTI_SZ    a\\0b");
    EXPECT_EQ(Shown(RegistryType::None, "\x01"), "REG_NONE    01");
    EXPECT_EQ(Shown(0x2A, "\x01"), "REG_TYPE_0x2a    01");
}
