#include "WizardFixture.h"

#include "opos/OposConstants.h"

#include <algorithm>

using Calls = std::vector<std::string>;

TEST_F(Wizard, ScannerUnderTestIsOpenedClaimedAndEnabled) {
    auto& window = OpenAtScannerTest();
    Calls calls = Scanner().calls;
    calls.erase(calls.begin(), std::ranges::find(calls, "Open Lane"));
    EXPECT_EQ(calls, Calls({"Open Lane", "ClaimDevice 1000", "DeviceEnabled 1", "DecodeData 1", "DataEventEnabled 1"}));
    EXPECT_EQ(window.Text("lblScanData"), "");
    EXPECT_EQ(window.Text("lblScanDataType"), "");
    EXPECT_EQ(window.Text("lblScannerState"), "");
}

TEST_F(Wizard, ShowsEachLabelWithItsSymbology) {
    auto& window = OpenAtScannerTest();
    Scanner().Scan("]E05018374827715", "5018374827715", OposSymbology::Ean13);
    EXPECT_EQ(window.Text("lblScanData"), "5018374827715");
    EXPECT_EQ(window.Text("lblScanDataType"), "EAN/JAN 13 (104)");
    EXPECT_TRUE(Scanner().DataEventEnabled());

    Scanner().Scan("\xC4<b>", "\xC4<b>", 999);
    EXPECT_EQ(window.Text("lblScanData"), QString::fromUtf8("Ä<b>"));
    EXPECT_EQ(window.Text("lblScanDataType"), "Unknown (999)");
}

TEST_F(Wizard, LabelsOfAnEarlierTestAreGone) {
    auto& window = OpenAtScannerTest();
    Scanner().Scan("123", "123", 110);
    window.Back();
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
    EXPECT_EQ(window.Text("lblScanData"), "");
    EXPECT_EQ(window.Text("lblScanDataType"), "");
}

TEST_F(Wizard, ScannerThatDoesNotOpenIsTriedAgainOnRetry) {
    auto& window = Open();
    int opened = 0;
    Scanner().onOpen = [&] { Scanner().openResult = ++opened < 3 ? 302 : 0; };
    window.GoToOptions("7346");
    window.TypeNames("Lane");
    const ExpectBox first("Ravlin", WizardTexts::CannotTestScanner, QMessageBox::Retry);
    const ExpectBox second("Ravlin", WizardTexts::CannotTestScanner, QMessageBox::Retry);
    window.Next();
    EXPECT_EQ(opened, 3);
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
    EXPECT_TRUE(Scanner().DataEventEnabled());
}

TEST_F(Wizard, ScannerThatDoesNotOpenIsLeftOutOnCancel) {
    for (const auto& [scaleType, page] :
         std::vector<std::pair<int, int>>{{0, WizardPage::Finished}, {2, WizardPage::TestScale}}) {
        auto& window = Open();
        Scanner().openResult = 302;
        window.GoToOptions("Pelerin/3172", scaleType);
        window.TypeNames("Lane", "LaneScale");
        const ExpectBox box("Ravlin", WizardTexts::CannotTestScanner, QMessageBox::Cancel);
        window.Next();
        EXPECT_EQ(window.Page(), page);
        EXPECT_EQ(std::ranges::count(Scanner().calls, "ClaimDevice 1000"), 0);
        EXPECT_FALSE(added_.front()->InUse());
        EXPECT_TRUE(window.Widget("cmdBack").isEnabled());
    }
}

TEST_F(Wizard, ScannerThatIsHeldElsewhereSaysSo) {
    auto& window = Open();
    Scanner().results["ClaimDevice"] = OposResult::Timeout;
    window.GoToOptions("7346");
    window.TypeNames("Lane");
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
    EXPECT_EQ(window.Text("lblScannerState"), "The scanner is not ready: Timeout (112)");
    Scanner().results.clear();
    window.Back();
    window.Next();
    EXPECT_EQ(window.Text("lblScannerState"), "");
}

TEST_F(Wizard, ScannerThatCannotBeEnabledSaysSo) {
    auto& window = Open();
    Scanner().results["DeviceEnabled"] = OposResult::NoHardware;
    window.GoToOptions("7346");
    window.TypeNames("Lane");
    window.Next();
    EXPECT_EQ(window.Text("lblScannerState"), "The scanner is not ready: No Hardware (107)");
}

TEST_F(Wizard, ProfileUnderTestIsInUse) {
    auto& window = OpenAtScannerTest(1);
    EXPECT_TRUE(added_[0]->InUse());
    EXPECT_FALSE(added_[1]->InUse());
    window.Next();
    EXPECT_FALSE(added_[0]->InUse());
    EXPECT_TRUE(added_[1]->InUse());
    window.Next();
    EXPECT_FALSE(added_[0]->InUse());
    EXPECT_FALSE(added_[1]->InUse());
}

TEST_F(Wizard, EveryPageChangeClosesBothDevices) {
    auto& window = Open();
    for (int i = 0; i < 2; ++i) {
        Scanner().calls.clear();
        Scale().calls.clear();
        window.Next();
        EXPECT_EQ(Scanner().calls, Calls{"Close"});
        EXPECT_EQ(Scale().calls, Calls{"Close"});
    }
    window.Back();
    EXPECT_EQ(Scanner().calls, Calls({"Close", "Close"}));
}

TEST_F(Wizard, ClosingItClosesTheScannerUnderTest) {
    OpenAtScannerTest();
    Scanner().calls.clear();
    wizard_->close();
    EXPECT_FALSE(wizard_->isVisible());
    EXPECT_EQ(Scanner().calls, Calls{"Close"});
    EXPECT_FALSE(added_[0]->InUse());
}

TEST_F(Wizard, DestroyingItEndsTheTest) {
    OpenAtScannerTest();
    wizard_.reset();
    EXPECT_FALSE(added_[0]->InUse());
}

TEST_F(Wizard, EscapeDoesNotEndATest) {
    auto& window = OpenAtScannerTest(1);
    window_->Press(Qt::Key_Escape);
    EXPECT_TRUE(wizard_->isVisible());
    EXPECT_NE(Scanner().State(), OposState::Closed);
    window.Next();
    window_->Press(Qt::Key_Escape);
    EXPECT_TRUE(wizard_->isVisible());
    window.Next();
    window_->Press(Qt::Key_Escape);
    EXPECT_FALSE(wizard_->isVisible());
}

TEST_F(Wizard, ClosedWhileItWaitsForTheScannerItStaysClosed) {
    auto& window = Open();
    Scanner().onClaim = [this] { wizard_->close(); };
    window.GoToOptions("7346");
    window.TypeNames("Lane");
    window.Next();
    EXPECT_FALSE(wizard_->isVisible());
    EXPECT_FALSE(added_[0]->InUse());
}
