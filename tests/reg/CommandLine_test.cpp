#include "reg/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

Command Parse(const std::vector<std::string>& arguments) {
    return ParseCommandLine(arguments);
}

} // namespace

TEST(CommandLine, CommandsAndSwitchesAreKnownInAnyCase) {
    const Command command = Parse({"QUERY", "hklm\\Lane", "/S", "/V", "Model"});
    EXPECT_EQ(command.verb, Verb::Query);
    EXPECT_EQ(command.key.path, "Lane");
    EXPECT_TRUE(command.recursive);
    EXPECT_EQ(command.valueName, "Model");
}

TEST(CommandLine, TheDefaultValueIsTheOneWithoutName) {
    EXPECT_EQ(Parse({"query", "HKLM\\Lane", "/ve"}).valueName, "");
    EXPECT_EQ(Parse({"query", "HKLM\\Lane"}).valueName, std::nullopt);
}

TEST(CommandLine, NamesAndTextsMayLookLikeSwitchesOrBeEmpty) {
    const Command command = Parse({"add", "HKLM\\Lane", "/v", "/f", "/d", "/?"});
    EXPECT_EQ(command.valueName, "/f");
    EXPECT_EQ(command.data, "/?");
    EXPECT_FALSE(command.force);
    EXPECT_EQ(Parse({"add", "HKLM\\Lane", "/v", "x", "/d", ""}).data, "");
}

TEST(CommandLine, FilesMayBeginWithASlash) {
    const Command command = Parse({"export", "HKCU\\Lane", "/tmp/x.reg", "/y"});
    EXPECT_EQ(command.file, "/tmp/x.reg");
    EXPECT_TRUE(command.force);
    EXPECT_EQ(Parse({"import", "/tmp/x.reg"}).file, "/tmp/x.reg");
}

TEST(CommandLine, DeleteTakesAllValues) {
    const Command command = Parse({"delete", "HKLM\\Lane", "/va", "/f"});
    EXPECT_TRUE(command.allValues);
    EXPECT_TRUE(command.force);
}

TEST(CommandLine, HelpIsGivenAloneAndBehindACommand) {
    EXPECT_EQ(Parse({"/?"}).verb, Verb::Help);
    EXPECT_EQ(Parse({"query", "/?"}).verb, Verb::Help);
    EXPECT_EQ(Parse({"--help"}).verb, Verb::Help);
    EXPECT_NE(Usage().find("RAVLIN_MACHINE_HIVE"), std::string_view::npos);
}

TEST(CommandLine, TheVersionIsGivenAlone) {
    EXPECT_EQ(Parse({"--version"}).verb, Verb::Version);
    EXPECT_EQ(Parse({"add", "HKLM\\Lane", "/v", "--version"}).valueName, "--version");
}

TEST(CommandLine, WhatCannotBeMeantIsRefusedInOneLine) {
    const std::vector<std::vector<std::string>> wrong = {
        {},
        {"show"},
        {"query"},
        {"query", ""},
        {"query", "Lane"},
        {"query", "HKLM\\Lane", "/f"},
        {"query", "HKLM\\Lane", "/v"},
        {"query", "HKLM\\Lane", "/v", "x", "/ve"},
        {"query", "HKLM\\Lane", "/s /v"},
        {"query", "HKLM\\Lane", "extra"},
        {"query", "HKLM\\Lane", ""},
        {"add", "HKLM\\Lane", "/va"},
        {"add", "HKLM\\Lane", "/d"},
        {"delete", "HKLM\\Lane", "/va", "/v", "x"},
        {"delete", "HKLM\\Lane", "/s"},
        {"export", "HKLM\\Lane"},
        {"export", "HKLM\\Lane", "x.reg", "/f"},
        {"import"},
        {"import", "x.reg", "/f"},
    };
    for (const auto& arguments : wrong) {
        try {
            Parse(arguments);
            ADD_FAILURE() << "accepted: " << testing::PrintToString(arguments);
        } catch (const CommandError& error) {
            EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
            EXPECT_NE(std::string(error.what()).find("/?"), std::string::npos);
        }
    }
}
