#include "WizardFixture.h"

#include <algorithm>

namespace {

QString UsbNotice(const QString& word) {
    return "If not already configured for use with Ravlin, your " + word +
           " scanner must be configured by the scanning of a bar code or a menu of bar codes.  Please contact a Tavrin "
           "representative if you require assistance with that.";
}

const QString DriverNote =
    "\r\n\r\nNote that your POS USB scanner also requires you to have installed a POS USB driver, separate from the "
    "Ravlin OPOS driver.  POS USB drivers are available from the downloads section of the Tavrin web site.  Please "
    "contact a Tavrin representative if you require assistance with that.";

} // namespace

TEST_F(Wizard, ProgramsTheScannerOverItsPortAndGoesOn) {
    auto& window = Open();
    window.GoToOptions("Pelerin/3172", 1);
    window.TypeNames("Lane", "LaneScale");
    Choose(window.List("lstScannerComPort_1"), "COM20");
    window.Next();
    EXPECT_EQ(sessions_, 1);
    EXPECT_EQ(std::ranges::count(lineLog_, "PortNumber = 20"), 1);
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
    EXPECT_TRUE(window.Widget("cmdNext").isEnabled());
    EXPECT_TRUE(window.Widget("cmdBack").isEnabled());
}

TEST_F(Wizard, ShowsTheProgrammingWindowWhileItProgramsAndTakesNoInput) {
    bool seen = false;
    script_.receiveReply = [this, &seen] {
        const auto* program = wizard_->findChild<QWidget*>("frmProgram");
        seen = program != nullptr && program->isVisible() && program->isWindow();
        EXPECT_EQ(window_->Page(), WizardPage::Configuration);
        EXPECT_FALSE(window_->Widget("cmdNext").isEnabled());
        EXPECT_FALSE(window_->Widget("cmdBack").isEnabled());
        return true;
    };
    OpenAtScannerTest();
    EXPECT_TRUE(seen);
    EXPECT_EQ(wizard_->findChild<QWidget*>("frmProgram"), nullptr);
}

TEST_F(Wizard, CannotBeClosedWhileItPrograms) {
    script_.receiveReply = [this] {
        wizard_->close();
        wizard_->reject();
        QTest::keyClick(wizard_->windowHandle(), Qt::Key_Escape);
        EXPECT_TRUE(wizard_->isVisible());
        return true;
    };
    auto& window = OpenAtScannerTest();
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
    EXPECT_TRUE(wizard_->isVisible());
}

TEST_F(Wizard, ScannerThatCannotBeProgrammedLeadsBackToTheOptions) {
    script_.receiveReply = [] { return false; };
    script_.failureText = "The scanner on COM1 did not answer.";
    const ExpectBox box("Ravlin", WizardTexts::CannotConfigure);
    auto& window = OpenAtScannerTest(1);
    EXPECT_TRUE(box.Shown());
    EXPECT_EQ(window.Page(), WizardPage::Options);
    EXPECT_EQ(Control<QLineEdit>(*wizard_, "txtScannerName_1").text(), "Lane");
    EXPECT_TRUE(window.Widget("cmdNext").isEnabled());
    EXPECT_TRUE(window.Widget("cmdBack").isEnabled());
    EXPECT_EQ(window.Text("lblFailureReason"), "The scanner on COM1 did not answer.");
    EXPECT_TRUE(window.Sees("lblFailureReason"));
    EXPECT_EQ(std::ranges::count(Scanner().calls, "Open Lane"), 0);
}

TEST_F(Wizard, ProgrammingCanBeRepeatedFromTheOptions) {
    script_.commandSucceeded = [] { return false; };
    script_.failureText = "It refused.";
    const ExpectBox box("Ravlin", WizardTexts::CannotConfigure);
    auto& window = OpenAtScannerTest();
    script_.commandSucceeded = [] { return true; };
    script_.failureText.clear();
    window.Next();
    EXPECT_EQ(sessions_, 2);
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
    window.Back();
    EXPECT_EQ(window.Text("lblFailureReason"), "");
}

TEST_F(Wizard, PowerCycleOfAnOlderScannerIsAskedForOverTheWizard) {
    auto& window = Open();
    window.GoToOptions("758");
    window.TypeNames("Lane");
    const ExpectBox box("Ravlin", "You must recycle power to enter programming mode for this scanner.");
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::TestScanner);
}

TEST_F(Wizard, UsbScannerIsNotProgrammedButItsUserIsToldHow) {
    for (const auto& [interfaceIndex, text] :
         std::vector<std::pair<int, QString>>{{1, UsbNotice("IBM OEM USB")}, {2, UsbNotice("POS USB") + DriverNote}}) {
        auto& window = Open();
        window.GoToOptions("Pelerin/3256", 0);
        window.TypeNames("Lane");
        Choose(window.List("lstInterface_0"), interfaceIndex);
        const ExpectBox notice("Kalder Information", text);
        window.Next();
        EXPECT_EQ(window.Page(), WizardPage::TestScanner);
        EXPECT_EQ(sessions_, 0);
        EXPECT_EQ(ScannerValue("Lane", "Scanner Version"), std::to_string(interfaceIndex + 1));
        EXPECT_EQ(ScannerValue("Lane", "Serial Port"), "");
    }
}
