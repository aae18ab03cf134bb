#include "reg/KeyReference.h"

#include <gtest/gtest.h>

TEST(KeyReference, HivesGoByAbbreviationAndFullNameInAnyCase) {
    for (const char* const hive : {"HKLM", "hklm", "HKEY_LOCAL_MACHINE", "Hkey_Local_Machine"}) {
        const auto key = ParseKeyReference(std::string(hive) + "\\Software\\Lane");
        ASSERT_TRUE(key) << hive;
        EXPECT_EQ(key->root, RegistryRoot::LocalMachine);
        EXPECT_EQ(key->path, "Software\\Lane");
    }
    for (const char* const hive : {"HKCU", "hkcu", "HKEY_CURRENT_USER"})
        EXPECT_EQ(ParseKeyReference(hive)->root, RegistryRoot::CurrentUser) << hive;
}

TEST(KeyReference, TheHiveAloneHasTheEmptyPath) {
    EXPECT_EQ(ParseKeyReference("HKLM")->path, "");
    EXPECT_EQ(ParseKeyReference("HKLM\\")->path, "");
    EXPECT_EQ(ParseKeyReference("HKLM")->FullName(), "HKEY_LOCAL_MACHINE");
}

TEST(KeyReference, SuperfluousBackslashesAreLeftOut) {
    EXPECT_EQ(ParseKeyReference("HKCU\\\\Software\\\\Lane\\")->FullName(), "HKEY_CURRENT_USER\\Software\\Lane");
}

TEST(KeyReference, OtherHivesAreNotKept) {
    for (const char* const text : {"", "HKCR\\x", "HKEY_USERS\\x", "HKLMX", "Software\\Lane", "HKLM/Software"})
        EXPECT_FALSE(ParseKeyReference(text)) << text;
}
