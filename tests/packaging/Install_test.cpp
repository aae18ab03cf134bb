// What cmake --install puts where.
#include "support/RunProgram.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <set>

namespace fs = std::filesystem;

TEST(Install, PutsProgramsPagesEntriesAndIconsWhereADesktopLooks) {
    const TemporaryDirectory directory;
    const ProgramRun run = RunProgram(CMAKE_PROGRAM, {"--install", RAVLIN_BINARY_DIR, "--prefix", "/usr"},
                                      {"DESTDIR=" + directory.Path().string()});
    ASSERT_EQ(run.exitStatus, 0) << run.errors;
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(directory.Path()))
        if (!entry.is_directory())
            files.insert(entry.path().lexically_relative(directory.Path() / "usr"));

    std::set<std::string> wanted = {
        "bin/ravlin",
        "bin/ravlin-lane",
        "bin/ravlin-reg",
        "share/applications/org.ravlin.lane.desktop",
        "share/applications/org.ravlin.ravlin.desktop",
        "share/icons/hicolor/scalable/apps/ravlin.svg",
        "share/man/man1/ravlin-lane.1",
        "share/man/man1/ravlin-reg.1",
        "share/man/man1/ravlin.1",
        "share/metainfo/org.ravlin.ravlin.metainfo.xml",
    };
    for (const char* const size : {"16", "22", "24", "32", "48", "64", "128", "256", "512"})
        wanted.insert("share/icons/hicolor/" + std::string(size) + "x" + size + "/apps/ravlin.png");
    EXPECT_EQ(files, wanted);
    const auto mayRun = [&](const char* file) {
        return (fs::status(directory.Path() / "usr" / file).permissions() & fs::perms::others_exec) != fs::perms::none;
    };
    EXPECT_TRUE(mayRun("bin/ravlin") && mayRun("bin/ravlin-lane") && mayRun("bin/ravlin-reg"));
}
