// The manual pages against the programs' own usages.
#include "packaging/SourceFile.h"
#include "support/RunProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>

namespace {

using Words = std::set<std::string>;

class ManualPage : public testing::TestWithParam<const char*> {
protected:
    static std::string Source() { return SourceFile("docs/man/" + std::string(GetParam()) + ".1"); }
    // The lines between two headings.
    static std::string Part(const std::string& from, const std::string& to) {
        const std::string page = Source();
        const auto begin = page.find(".SH " + from + "\n");
        return begin == std::string::npos ? std::string() : page.substr(begin, page.find(".SH " + to + "\n") - begin);
    }
    // The program, without any display to open.
    static ProgramRun Asked(const char* question) {
        return RunProgram(std::string(RAVLIN_PROGRAM_DIR "/") + GetParam(), {question},
                          {"DISPLAY=", "WAYLAND_DISPLAY=", "QT_QPA_PLATFORM=xcb"});
    }
};

// The words that look like an option: -x, --word, /x and /xy.
Words Options(std::string text) {
    text = std::regex_replace(text, std::regex(R"(\\f[A-Z]|[\[\](){}|,"])"), " ");
    text = std::regex_replace(text, std::regex(R"(\\-)"), "-");
    static const std::regex option(R"(--?[a-zA-Z]+|/(\?|[a-z]{1,2}))");
    Words found;
    std::istringstream words(text);
    for (std::string word; words >> word;)
        if (std::regex_match(word, option))
            found.insert(word);
    return found;
}

// The first group of every match.
Words All(const std::string& text, const char* expression) {
    const std::regex pattern(expression, std::regex::multiline);
    Words found;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
        found.insert((*match)[1]);
    return found;
}

} // namespace

TEST_P(ManualPage, IsWellFormed) {
    const ProgramRun lint =
        RunProgram(MANDOC, {"-Tlint", "-Wwarning", RAVLIN_SOURCE_DIR "/docs/man/" + std::string(GetParam()) + ".1"});
    EXPECT_EQ(lint.exitStatus, 0);
    EXPECT_EQ(lint.output + lint.errors, "");
}

TEST_P(ManualPage, NamesTheOptionsOfTheUsageAndNoOthers) {
    const ProgramRun help = Asked("--help");
    ASSERT_EQ(help.exitStatus, 0) << help.errors;
    EXPECT_TRUE(Options(help.output).contains("--version"));
    EXPECT_EQ(Options(Part("SYNOPSIS", "EXIT STATUS")), Options(help.output));
    EXPECT_EQ(Options(Part("OPTIONS", "EXIT STATUS")), Options(help.output)) << "each is explained";
}

TEST_P(ManualPage, NamesTheCommandsOfTheUsageAndNoOthers) {
    EXPECT_EQ(All(Part("COMMANDS", "OPTIONS") + Part("COMMANDS", "EXIT STATUS"), R"(^\.TP\n\.B[IR]? ([a-z]+))"),
              All(Asked("--help").output, "^  (?:ravlin-reg )?([a-z]+) "));
}

TEST_P(ManualPage, HasWhatAReaderLooksFor) {
    for (const char* const heading :
         {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "ENVIRONMENT", "FILES", "EXAMPLES", "SEE ALSO"})
        EXPECT_NE(Source().find(".SH " + std::string(heading) + "\n"), std::string::npos) << heading;
}

TEST_P(ManualPage, BelongsToAProgramThatPrintsItsVersion) {
    const ProgramRun version = Asked("--version");
    EXPECT_EQ(version.exitStatus, 0) << version.errors;
    const std::string line = version.output;
    EXPECT_TRUE(line.ends_with(" " RAVLIN_VERSION "\n") && std::ranges::count(line, '\n') == 1) << line;
}

INSTANTIATE_TEST_SUITE_P(Programs, ManualPage, testing::Values("ravlin", "ravlin-lane", "ravlin-reg"),
                         [](const auto& parameter) {
                             std::string name = parameter.param;
                             std::erase(name, '-');
                             return name;
                         });
