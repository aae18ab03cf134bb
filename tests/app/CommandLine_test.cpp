#include "app/CommandLine.h"

#include <gtest/gtest.h>

TEST(CommandLine, ADashAndALowerCaseLShowTheLogLevels) {
    for (const QStringList& line : {QStringList{"-l"}, {"-xl"}, {"--level"}, {"-a", "b", "l"}})
        EXPECT_TRUE(ParseCommandLine(line).showLogLevel) << line.join(' ').toStdString();
    for (const QStringList& line : {QStringList{}, {"-L"}, {"l"}, {"-"}, {"-lx"}, {"x-l"}})
        EXPECT_FALSE(ParseCommandLine(line).showLogLevel) << line.join(' ').toStdString();
}

TEST(CommandLine, AnswersForVersionAndHelp) {
    EXPECT_EQ(ParseCommandLine({"--version"}).answer, "Ravlin 2.0.0\n");
    EXPECT_TRUE(ParseCommandLine({"--help"}).answer.contains("-l "));
    EXPECT_EQ(ParseCommandLine({}).answer, "");
}

TEST(CommandLine, SaysWhatItDoesNotKnow) {
    EXPECT_TRUE(ParseCommandLine({"lane", "1"}).warning.contains("\"lane 1\""));
    EXPECT_EQ(ParseCommandLine({"-l"}).warning, "");
    EXPECT_EQ(ParseCommandLine({}).warning, "");
}
