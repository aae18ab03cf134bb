#include "platform/registry/HiveFiles.h"

#include "platform/registry/RegistrySqlite.h"
#include "support/InChild.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

// The variables that decide, all unset; the test's changes stay in a child process.
void ClearEnvironment() {
    for (const char* const name :
         {"RAVLIN_MACHINE_HIVE", "RAVLIN_USER_HIVE", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "HOME"})
        unsetenv(name);
}

bool ExpectUserHive(const std::string& wanted) {
    const auto user = SystemHiveFiles().user;
    if (user != wanted)
        std::fprintf(stderr, "%s instead of %s\n", user.c_str(), wanted.c_str());
    return user == wanted;
}

} // namespace

TEST(HiveFiles, TheVariablesNameTheFiles) {
    EXPECT_TRUE(InChild([] {
        setenv("RAVLIN_MACHINE_HIVE", "/some/machine", 1);
        setenv("RAVLIN_USER_HIVE", "/some/user", 1);
        return SystemHiveFiles().machine == "/some/machine" && ExpectUserHive("/some/user");
    }));
}

TEST(HiveFiles, TheUsersHiveLiesWhereConfigurationDoes) {
    EXPECT_TRUE(InChild([] {
        ClearEnvironment();
        setenv("HOME", "/home/someone", 1);
        if (!ExpectUserHive("/home/someone/.config/ravlin/user.db"))
            return false;
        setenv("XDG_CONFIG_HOME", "relative/is/ignored", 1);
        if (!ExpectUserHive("/home/someone/.config/ravlin/user.db"))
            return false;
        setenv("XDG_CONFIG_HOME", "/etc/someone", 1);
        return ExpectUserHive("/etc/someone/ravlin/user.db");
    }));
}

TEST(HiveFiles, TheMachinesHiveLiesWhereDataDoesUnlessThereIsAPlaceForAll) {
    EXPECT_TRUE(InChild([] {
        const bool shared = access("/var/lib/ravlin", W_OK | X_OK) == 0;
        ClearEnvironment();
        setenv("HOME", "/home/someone", 1);
        const std::string forAll = "/var/lib/ravlin/machine.db";
        if (SystemHiveFiles().machine != (shared ? forAll : "/home/someone/.local/share/ravlin/machine.db"))
            return false;
        setenv("XDG_DATA_HOME", "/srv/someone", 1);
        return SystemHiveFiles().machine == (shared ? forAll : "/srv/someone/ravlin/machine.db");
    }));
}

TEST(HiveFiles, WithoutAnyPlaceTheFirstUseSaysWhatToSet) {
    EXPECT_TRUE(InChild([] {
        ClearEnvironment();
        const auto registry = OpenSystemRegistry();
        const auto store = registry->CreateStore();
        store->RootKey(RegistryRoot::CurrentUser);
        try {
            store->KeyPath("Software");
        } catch (const RegistryError& error) {
            return error.Number() == 0x80040201 && error.Description().find("RAVLIN_USER_HIVE") != std::string::npos;
        }
        return false;
    }));
}

TEST(HiveFiles, TheSystemsRegistryMakesTheDirectoriesAndTheFile) {
    EXPECT_TRUE(InChild([] {
        const TemporaryDirectory directory;
        setenv("RAVLIN_MACHINE_HIVE", (directory.Path() / "a" / "b" / "hive").c_str(), 1);
        const auto registry = OpenSystemRegistry();
        const auto store = registry->CreateStore();
        store->KeyPath("Software");
        store->Release();
        return std::filesystem::exists(directory.Path() / "a" / "b" / "hive");
    }));
}
