#include "app/Settings.h"

#include "profiles/NumberedError.h"
#include "profiles/RegistryPaths.h"
#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

namespace {

class StoredSettings : public ::testing::Test {
protected:
    void Put(const std::string& name, const std::string& text) {
        registry_.Put(RegistryPaths::Settings, name, text, RegistryRoot::CurrentUser);
    }
    std::string Text(const std::string& name) {
        return registry_.Text("Software\\Tavrin Instruments\\Ravlin 2", name, RegistryRoot::CurrentUser);
    }

    TemporaryRegistry registry_;
    Settings settings_{registry_};
};

} // namespace

TEST_F(StoredSettings, ReadAsTheirDefaultsOnAFreshMachine) {
    EXPECT_EQ(settings_.WindowPosition().left, 0);
    EXPECT_EQ(settings_.WindowPosition().top, 0);
    EXPECT_EQ(settings_.ListBar(), 0);
    EXPECT_TRUE(settings_.OpensWizard());
    EXPECT_EQ(settings_.LogVerbosity(), "");
    EXPECT_FALSE(registry_.HasKey(RegistryPaths::Settings, RegistryRoot::CurrentUser)) << "reading makes no keys";
    EXPECT_FALSE(registry_.HasKey(RegistryPaths::DriverOptions));
}

TEST_F(StoredSettings, KeepTheWindowPerUser) {
    settings_.SaveWindow({120.5F, -7}, 3);
    EXPECT_EQ(Text("Left"), "120.5");
    EXPECT_EQ(Text("Top"), "-7");
    EXPECT_EQ(Text("ListBar"), "3");
    EXPECT_EQ(settings_.WindowPosition().left, 120.5F);
    EXPECT_EQ(settings_.WindowPosition().top, -7);
    EXPECT_EQ(settings_.ListBar(), 3);
}

TEST_F(StoredSettings, AnEmptyPositionCountsAsZero) {
    Put("Left", "");
    Put("Top", "");
    EXPECT_EQ(settings_.WindowPosition().left, 0);
    EXPECT_EQ(settings_.WindowPosition().top, 0);
}

TEST_F(StoredSettings, AnyNumberButZeroSuppressesTheWizard) {
    for (const auto& [text, opens] :
         {std::pair{"0", true}, {"", true}, {"00", true}, {"1", false}, {"7", false}, {"32767", false}}) {
        Put("StartupWizard", text);
        EXPECT_EQ(settings_.OpensWizard(), opens) << text;
    }
}

TEST_F(StoredSettings, TextThatIsNoNumberIsAnError) {
    for (const char* name : {"Left", "ListBar", "StartupWizard"})
        Put(name, "here");
    EXPECT_THROW((void)settings_.WindowPosition(), NumberedError);
    EXPECT_THROW((void)settings_.ListBar(), NumberedError);
    EXPECT_THROW((void)settings_.OpensWizard(), NumberedError);
}

TEST_F(StoredSettings, KeepTheLoggingLevelForTheMachine) {
    settings_.SaveLogVerbosity(-1);
    EXPECT_EQ(registry_.Text("SOFTWARE\\OLEForRetail\\ServiceInfo\\Tavrin", "LogVerbosity"), "-1");
    settings_.SaveLogVerbosity(4);
    EXPECT_EQ(settings_.LogVerbosity(), "4");
}
