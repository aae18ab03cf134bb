// What the main window leaves behind when it is closed.
#include "app/SystemSerlink.h"
#include "app/frmMain.h"
#include "platform/help/HelpViewer.h"
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "support/FailingRegistry.h"
#include "support/TemporaryRegistry.h"
#include "support_opos/ScriptedControls.h"
#include "support_widgets/BoxWatcher.h"

#include <gtest/gtest.h>

namespace {

class Shutdown : public ::testing::Test {
protected:
    Shutdown() {
        registry_.Put(RegistryPaths::Settings, "StartupWizard", "1", RegistryRoot::CurrentUser);
        window_.Form_Load(false);
        window_.show();
        for (ScriptedScanner* scanner : controls_.scanners)
            scanner->calls.clear();
    }

    TemporaryRegistry registry_;
    FailingRegistry failing_{registry_};
    ScriptedControls controls_;
    std::unique_ptr<HelpViewer> help_ = CreateHelpViewer();
    frmMain window_{{.registry = failing_, .controls = controls_, .makeSerlink = SystemSerlink(), .help = *help_}};
    ScriptedScanner& simpleScan_ = *controls_.scanners.at(0);
    ScriptedScanner& detailScan_ = *controls_.scanners.at(1);
};

using Calls = std::vector<std::string>;

} // namespace

TEST_F(Shutdown, ClearsAndClosesTheScannersOfBothTestsThatAreOpen) {
    for (ScriptedScanner* scanner : {&simpleScan_, &detailScan_}) {
        scanner->Open("Lane");
        scanner->calls.clear();
    }
    window_.close();
    EXPECT_EQ(simpleScan_.calls, (Calls{"ClearInput", "Close"}));
    EXPECT_EQ(detailScan_.calls, (Calls{"ClearInput", "Close"}));
}

TEST_F(Shutdown, LeavesClosedScannersAlone) {
    window_.close();
    EXPECT_EQ(simpleScan_.calls, Calls{});
    EXPECT_EQ(detailScan_.calls, Calls{});
}

TEST_F(Shutdown, ReleasesTheProfiles) {
    auto scanner = std::make_shared<CScanner2>(registry_);
    scanner->DeviceName("Lane");
    window_.AddDevice(scanner);
    const std::weak_ptr<CDevice> held = scanner;
    scanner.reset();
    ASSERT_FALSE(held.expired());
    window_.close();
    EXPECT_TRUE(held.expired());
}

TEST_F(Shutdown, GoesOnWhereThePositionCannotBeStored) {
    failing_.FailAt(RegistryOperation::WriteValue, 2, RegistryErrorNumber::WriteValue);
    const ExpectBox box("Ravlin", "The disk is gone.\r\n\r\nError Number: -2147220985");
    window_.close();
    EXPECT_FALSE(window_.isVisible());
    EXPECT_EQ(registry_.Text(RegistryPaths::Settings, "Left", RegistryRoot::CurrentUser), "") << "all of it or nothing";
}
