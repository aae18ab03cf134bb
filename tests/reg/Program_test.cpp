// ravlin-reg as its users meet it: the program itself, its exit status and what it says.
#include "support/RunProgram.h"
#include "support/TemporaryDirectory.h"
#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace {

class RavlinReg : public testing::Test {
protected:
    ProgramRun RunReg(const std::vector<std::string>& arguments) {
        return RunProgram(RAVLIN_REG, arguments, registry_.Environment());
    }
    ProgramRun RunTyping(const std::string& typed, const std::vector<std::string>& arguments) {
        return RunProgramOnTerminal(RAVLIN_REG, arguments, registry_.Environment(), typed);
    }
    void ExpectDone(const std::vector<std::string>& arguments) {
        const ProgramRun run = RunReg(arguments);
        EXPECT_EQ(run.exitStatus, 0) << run.errors;
        EXPECT_EQ(run.errors, "");
    }
    // One line on standard error that holds the text.
    void ExpectRefused(const std::vector<std::string>& arguments, const std::string& text) {
        const ProgramRun run = RunReg(arguments);
        EXPECT_EQ(run.exitStatus, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(std::ranges::count(run.errors, '\n'), 1) << run.errors;
        EXPECT_TRUE(run.errors.starts_with("ERROR: ") && run.errors.ends_with('\n')) << run.errors;
        EXPECT_NE(run.errors.find(text), std::string::npos) << run.errors;
    }
    std::string File(const std::string& name) { return directory_.Path() / name; }
    std::string FileWith(const std::string& text) {
        const std::string file = File("given.reg");
        std::ofstream(file, std::ios::binary) << text;
        return file;
    }

    TemporaryRegistry registry_;
    TemporaryDirectory directory_;
};

} // namespace

TEST_F(RavlinReg, AddsKeysAndValues) {
    ExpectDone({"add", "HKLM\\Folder\\Empty"});
    ExpectDone({"add", "HKLM\\Folder\\Lane", "/v", "Model", "/d", "Kasse \xC3\xBC"});
    ExpectDone({"add", "HKLM\\Folder\\Lane", "/ve", "/d", "default"});
    ExpectDone({"add", "HKLM\\Folder\\Lane", "/v", "NoText"});
    ExpectDone({"add", "HKCU\\Settings", "/d", "user"});
    EXPECT_EQ(registry_.SubKeys("Folder"), (std::vector<std::string>{"Empty", "Lane"}));
    EXPECT_EQ(registry_.Values("Folder\\Lane"),
              (std::vector<RegistryValue>{{"Model", 1, "Kasse \xC3\xBC"}, {"", 1, "default"}, {"NoText", 1, ""}}));
    EXPECT_EQ(registry_.Text("Settings", "", RegistryRoot::CurrentUser), "user");
}

TEST_F(RavlinReg, QueriesWhatWasAdded) {
    registry_.Put("Lane", "Model", "758");
    const ProgramRun run = RunReg({"QUERY", "hklm\\lane", "/V", "model"});
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.output, "\nHKEY_LOCAL_MACHINE\\lane\n    Model    REG_SZ    758\n\n");
    ExpectRefused({"query", "HKLM\\Nowhere"}, "HKEY_LOCAL_MACHINE\\Nowhere");
}

TEST_F(RavlinReg, OverwritesAValueOnlyWithConsent) {
    registry_.Put("Lane", "Model", "old");
    ExpectRefused({"add", "HKLM\\Lane", "/v", "MODEL", "/d", "new"}, "/f");
    EXPECT_EQ(registry_.Text("Lane", "Model"), "old");
    EXPECT_EQ(RunTyping("no\n", {"add", "HKLM\\Lane", "/v", "Model", "/d", "new"}).exitStatus, 1);
    EXPECT_EQ(registry_.Text("Lane", "Model"), "old");
    const ProgramRun asked = RunTyping("what?\nYES\n", {"add", "HKLM\\Lane", "/v", "Model", "/d", "typed"});
    EXPECT_EQ(asked.exitStatus, 0) << asked.output;
    EXPECT_NE(asked.output.find("Value Model exists, overwrite (Yes/No)?"), std::string::npos) << asked.output;
    EXPECT_EQ(registry_.Text("Lane", "Model"), "typed");
    ExpectDone({"add", "HKLM\\Lane", "/v", "Model", "/d", "new", "/f"});
    EXPECT_EQ(registry_.Text("Lane", "Model"), "new");
}

TEST_F(RavlinReg, DeletesOnlyWithConsent) {
    registry_.Put("Lane", "Model", "758");
    ExpectRefused({"delete", "HKLM\\Lane"}, "/f");
    EXPECT_TRUE(registry_.HasKey("Lane"));
    EXPECT_EQ(RunTyping("n\n", {"delete", "HKLM\\Lane"}).exitStatus, 1);
    EXPECT_TRUE(registry_.HasKey("Lane"));
    EXPECT_EQ(RunTyping("y\n", {"delete", "HKLM\\Lane"}).exitStatus, 0);
    EXPECT_FALSE(registry_.HasKey("Lane"));
}

TEST_F(RavlinReg, DeletesAValueAllValuesOrTheKey) {
    for (const char* const name : {"", "a", "b", "c"})
        registry_.Put("Folder\\Lane", name, "1");
    registry_.Put("Folder\\Lane\\Sub", "x", "1");
    ExpectDone({"delete", "HKLM\\Folder\\Lane", "/v", "A", "/f"});
    ExpectDone({"delete", "HKLM\\Folder\\Lane", "/ve", "/f"});
    EXPECT_EQ(registry_.Values("Folder\\Lane"), (std::vector<RegistryValue>{{"b", 1, "1"}, {"c", 1, "1"}}));
    ExpectDone({"delete", "HKLM\\Folder\\Lane", "/va", "/f"});
    EXPECT_TRUE(registry_.Values("Folder\\Lane").empty());
    EXPECT_EQ(registry_.Text("Folder\\Lane\\Sub", "x"), "1");
    ExpectDone({"delete", "HKLM\\Folder\\Lane", "/f"});
    EXPECT_FALSE(registry_.HasKey("Folder\\Lane\\Sub"));
    EXPECT_TRUE(registry_.HasKey("Folder"));
}

TEST_F(RavlinReg, RefusesToDeleteWhatIsNotThereAndWholeHives) {
    registry_.Put("Lane", "Model", "758");
    ExpectRefused({"delete", "HKLM\\Other", "/f"}, "Other");
    ExpectRefused({"delete", "HKLM\\Lane", "/v", "Port", "/f"}, "Port");
    ExpectRefused({"delete", "HKLM", "/f"}, "whole hive");
    EXPECT_EQ(registry_.Text("Lane", "Model"), "758");
}

TEST_F(RavlinReg, ExportsAndImports) {
    registry_.Put("Lane", "Model", "Kasse \xF0\x9F\x98\x80");
    ExpectDone({"export", "HKLM\\Lane", File("lane.reg")});
    ExpectDone({"delete", "HKLM\\Lane", "/f"});
    ExpectDone({"import", File("lane.reg")});
    EXPECT_EQ(registry_.Text("Lane", "Model"), "Kasse \xF0\x9F\x98\x80");
    EXPECT_FALSE(std::filesystem::exists(File("lane.reg.new")));
}

TEST_F(RavlinReg, OverwritesAFileOnlyWithConsent) {
    registry_.Put("Lane", "Model", "758");
    const std::string file = FileWith("precious");
    ExpectRefused({"export", "HKLM\\Lane", file}, "/y");
    EXPECT_EQ(std::filesystem::file_size(file), 8U);
    EXPECT_EQ(RunTyping("yes\n", {"export", "HKLM\\Lane", file}).exitStatus, 0);
    EXPECT_GT(std::filesystem::file_size(file), 8U);
    ExpectDone({"export", "HKLM\\Lane", file, "/y"});
}

TEST_F(RavlinReg, RefusesFilesThatItCannotWriteOrRead) {
    registry_.Put("Lane", "Model", "758");
    ExpectRefused({"export", "HKLM\\Lane", File("missing/lane.reg")}, "missing/lane.reg");
    ExpectRefused({"export", "HKLM\\Nowhere", File("lane.reg")}, "Nowhere");
    ExpectRefused({"import", File("missing.reg")}, "missing.reg");
    ExpectRefused({"import", directory_.Path()}, "directory");
    ExpectRefused({"import", FileWith("W\xFF")}, "UTF-8");
}

TEST_F(RavlinReg, AnImportDeletesWhatTheFileSays) {
    registry_.Put("Old\\Sub", "x", "1");
    registry_.Put("Lane", "Model", "758");
    registry_.Put("Lane", "Port", "1");
    ExpectDone({"import", FileWith("Windows Registry Editor Version 5.00\n[-HKLM\\Old]\n[-HKLM\\Never]\n"
                                   "[HKLM\\Lane]\n\"Model\"=-\n\"Never\"=-\n\"New\"=dword:1\n")});
    EXPECT_FALSE(registry_.HasKey("Old"));
    EXPECT_EQ(registry_.Values("Lane"),
              (std::vector<RegistryValue>{{"Port", 1, "1"}, {"New", 4, std::string("\1\0\0\0", 4)}}));
}

TEST_F(RavlinReg, ABadLineIsNamedAndNothingIsImported) {
    const std::string good = "Windows Registry Editor Version 5.00\r\n\r\n[HKLM\\Lane]\r\n\"Model\"=\"758\"\r\n";
    const std::string file = FileWith(good + "\"Port\"=dword:x\r\n");
    ExpectRefused({"import", file}, file + ":5: ");
    EXPECT_FALSE(registry_.HasKey("Lane"));
    // One that only the store finds.
    ExpectRefused({"import", FileWith(good + "[HKCU\\User]\r\n[HKLM\\" + std::string(256, 'k') + "]\r\n")}, ":6: ");
    EXPECT_FALSE(registry_.HasKey("Lane"));
    EXPECT_FALSE(registry_.HasKey("User", RegistryRoot::CurrentUser));
}

TEST_F(RavlinReg, ShowsItsUsageAndRefusesNonsense) {
    const ProgramRun run = RunReg({"/?"});
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_NE(run.output.find("ravlin-reg query KEY [/s] [/v NAME | /ve]"), std::string::npos);
    ExpectRefused({}, "/?");
    ExpectRefused({"frobnicate"}, "frobnicate");
    ExpectRefused({"add", "HKLM\\Lane", "/v", "\xFF"}, "UTF-8");
}

TEST_F(RavlinReg, NamesTheFileOfAHiveThatItCannotUse) {
    std::ofstream(registry_.Files().machine)
        << "This is no database, but a text that is long enough to be read as one.";
    ExpectRefused({"query", "HKLM"}, registry_.Files().machine);
}
