// Menu entries, the description for software catalogues, and the version that all of them tell.
#include "packaging/SourceFile.h"
#include "support/RunProgram.h"

#include <gtest/gtest.h>

#include <regex>

namespace {

const std::string Desktop = "packaging/desktop/";

void ExpectValid(const std::string& program, std::vector<std::string> arguments, const std::string& file) {
    arguments.push_back(RAVLIN_SOURCE_DIR "/" + file);
    const ProgramRun run = RunProgram(program, arguments);
    EXPECT_EQ(run.exitStatus, 0) << run.output << run.errors;
}

// The first group of the first match.
std::string First(const std::string& file, const char* expression) {
    const std::string text = SourceFile(file);
    std::smatch match;
    return std::regex_search(text, match, std::regex(expression)) ? match.str(1) : "";
}

} // namespace

TEST(MenuEntries, AreValid) {
    ExpectValid(DESKTOP_FILE_VALIDATE, {}, Desktop + "org.ravlin.ravlin.desktop");
    ExpectValid(DESKTOP_FILE_VALIDATE, {}, Desktop + "org.ravlin.lane.desktop");
}

TEST(MenuEntries, StartTheProgramsThatNameThem) {
    EXPECT_EQ(First(Desktop + "org.ravlin.ravlin.desktop", "\nExec=(.*)"), "ravlin");
    EXPECT_EQ(First(Desktop + "org.ravlin.lane.desktop", "\nExec=(.*)"), "ravlin-lane");
    const char* const named = "setDesktopFileName\\(\"(.*)\"";
    EXPECT_EQ(First("src/app/RavlinApplication.cpp", named), "org.ravlin.ravlin");
    EXPECT_EQ(First("src/lane/window/LaneProgram.cpp", named), "org.ravlin.lane");
}

TEST(CatalogueEntry, IsValid) {
    ExpectValid(APPSTREAMCLI, {"validate", "--no-net", "--pedantic"}, Desktop + "org.ravlin.ravlin.metainfo.xml");
}

TEST(Version, IsTheSameEverywhere) {
    EXPECT_EQ(First(Desktop + "org.ravlin.ravlin.metainfo.xml", "<release version=\"([^\"]*)\""), RAVLIN_VERSION);
    EXPECT_EQ(First("packaging/debian/changelog", "^ravlin \\(([^-]*)-"), RAVLIN_VERSION);
    EXPECT_EQ(First("CHANGELOG.md", "\n## ([0-9.]*)"), RAVLIN_VERSION);
}
