// The wizard from Welcome to Finished with this system's control objects and lines, the virtual lane's devices at their
// other end.
#include "app/SystemSerlink.h"
#include "lane/LaneRunner.h"
#include "platform/serial/BlockingSerialLine.h"
#include "profiles/RegistryPaths.h"
#include "programming/BoxesSeen.h"
#include "programming/ExpectedConfiguration.h"
#include "programming/ScannerConfiguration.h"
#include "support/PseudoTerminal.h"
#include "support/ScopedVariable.h"
#include "support/TemporaryDirectory.h"
#include "support/TemporaryRegistry.h"
#include "support_opos/SystemControls.h"
#include "wizard/WizardWindow.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

QString UsbNotice(const QString& word) {
    return "If not already configured for use with Ravlin, your " + word +
           " scanner must be configured by the scanning of a bar code or a menu of bar codes.  Please contact a Tavrin "
           "representative if you require assistance with that.";
}

class WizardJourney : public ::testing::Test {
protected:
    // What the lane answers to a command; fails the test where that is an error.
    std::string Lane(const std::string& command) {
        const std::string answer = lane_.Execute(command);
        EXPECT_TRUE(answer.starts_with("ok")) << command << ": " << answer;
        return answer.size() > 3 ? answer.substr(3) : std::string();
    }
    // The configuration of the scanner on port 1, and what it must be once it was programmed for a class.
    std::string Block() { return Lane("block 1"); }
    std::string ExpectedBlock(std::int32_t configurationType) {
        return EncodeBlock(ExpectedConfiguration(configurationType, DecodeReply(Block() + "000000").block));
    }
    bool Shows(const QString& label, const QString& text) {
        return WaitUntil([&] { return window_.Text(label) == text; });
    }
    std::string ScannerValue(const std::string& name, const std::string& value) {
        return registry_.Text(RegistryPaths::ScannerFolder + name, value);
    }
    std::string ScaleValue(const std::string& name, const std::string& value) {
        return registry_.Text(RegistryPaths::ScaleFolder + name, value);
    }
    static bool IsFree(int port) {
        BlockingSerialLine line;
        line.Open(port);
        return true;
    }

    TemporaryDirectory places_;
    ScopedVariable runtime_{"XDG_RUNTIME_DIR", (places_.Path() / "run").string()};
    ScopedVariable state_{"XDG_STATE_HOME", (places_.Path() / "state").string()};
    TemporaryPorts ports_;
    LaneRunner lane_{{.directory = ports_.Directory()}, [](const std::string&) {}};
    TemporaryRegistry registry_;
    SystemControls controls_{registry_};
    std::vector<std::shared_ptr<CDevice>> added_;
    frmWizard wizard_{
        frmWizard::Services{registry_, controls_, SystemSerlink(), "010264", "RS232\rFull Speed USB\rPOS USB",
                            [this](const std::shared_ptr<CDevice>& device) { added_.push_back(device); }}};
    WizardWindow window_{wizard_};
};

} // namespace

TEST_F(WizardJourney, SingleCableScannerAndScaleFromWelcomeToFinished) {
    Lane("scanner 1 29");
    Lane("scale 1");
    const std::string expected = ExpectedBlock(29); // with a metric single-cable scale and a display
    ASSERT_NE(Block(), expected);

    window_.GoToOptions("Pelerin/3172", 1);
    window_.TypeNames("Lane 1", "Lane 1 Scale");
    Choose(window_.List("lstWeightUnit_1"), "Metric");
    Choose(window_.List("lstScaleDisplay_1"), "Yes");
    window_.Next();
    ASSERT_EQ(window_.Page(), WizardPage::TestScanner);
    EXPECT_EQ(registry_.SubKeys(RegistryPaths::ScannerFolder), std::vector<std::string>{"Lane 1"});
    EXPECT_EQ(registry_.SubKeys(RegistryPaths::ScaleFolder), std::vector<std::string>{"Lane 1 Scale"});
    EXPECT_EQ(ScannerValue("Lane 1", "Serial Port"), "1");
    EXPECT_EQ(ScaleValue("Lane 1 Scale", "Serial Port"), "1");
    EXPECT_EQ(added_.size(), 2U);
    EXPECT_EQ(Block(), expected);

    Lane("scan 1 ]E05018374827715");
    EXPECT_TRUE(Shows("lblScanData", "5018374827715"));
    EXPECT_EQ(window_.Text("lblScanDataType"), "EAN/JAN 13 (104)");
    Lane("scan 1 ]E00012345678905");
    EXPECT_TRUE(Shows("lblScanData", "012345678905"));
    EXPECT_EQ(window_.Text("lblScanDataType"), "UPC-A (101)");

    window_.Next();
    ASSERT_EQ(window_.Page(), WizardPage::TestScale);
    Lane("weight 1 1.235 kg");
    EXPECT_TRUE(Shows("lblWeight", "1.235 kg"));
    Lane("weight 1 0.500 kg");
    EXPECT_TRUE(Shows("lblWeight", "0.500 kg"));

    window_.Next();
    EXPECT_EQ(window_.Page(), WizardPage::Finished);
    window_.Finish();
    EXPECT_FALSE(wizard_.isVisible());
    EXPECT_TRUE(IsFree(1));
}

TEST_F(WizardJourney, EnglishScaleShowsPounds) {
    Lane("scanner 1 17");
    Lane("scale 1");
    window_.GoToOptions("Pelerin/3172", 1);
    window_.TypeNames("Lane", "Scale");
    window_.Next();
    window_.Next();
    ASSERT_EQ(window_.Page(), WizardPage::TestScale);
    Lane("weight 1 1.23 lb");
    EXPECT_TRUE(Shows("lblWeight", "1.23 lb"));
}

TEST_F(WizardJourney, DualCableScaleKeepsItsOwnPortAndIsNotOpened) {
    Lane("scanner 1 47");
    Lane("scale 2");
    const std::string expected = ExpectedBlock(35);
    window_.GoToOptions("Pelerin/3256", 2);
    window_.TypeNames("Lane", "Scale");
    Choose(window_.List("lstScaleComPort_2"), "COM2");
    window_.Next();
    ASSERT_EQ(window_.Page(), WizardPage::TestScanner);
    EXPECT_EQ(Block(), expected);
    EXPECT_EQ(ScaleValue("Scale", "PORT"), "COM2");
    Lane("scan 1 ]C0Lane");
    EXPECT_TRUE(Shows("lblScanData", "Lane"));
    EXPECT_EQ(window_.Text("lblScanDataType"), "Code 128 (110)");
    window_.Next();
    EXPECT_EQ(window_.Page(), WizardPage::TestScale);
    EXPECT_TRUE(window_.Sees("lblDualCableNote"));
    EXPECT_TRUE(IsFree(2));
    window_.Next();
    EXPECT_EQ(window_.Page(), WizardPage::Finished);
}

TEST_F(WizardJourney, ModelWithoutScaleGoesFromItsTestToTheEnd) {
    Lane("scanner 1 3");
    const std::string expected = ExpectedBlock(3);
    window_.GoToOptions("7346");
    window_.TypeNames("Lane");
    window_.Next();
    ASSERT_EQ(window_.Page(), WizardPage::TestScanner);
    EXPECT_EQ(Block(), expected);
    EXPECT_TRUE(registry_.SubKeys(RegistryPaths::ScaleFolder).empty());
    Lane("scan 1 ]E455123457");
    EXPECT_TRUE(Shows("lblScanData", "55123457"));
    EXPECT_EQ(window_.Text("lblScanDataType"), "EAN/JAN 8 (103)");
    window_.Next();
    EXPECT_EQ(window_.Page(), WizardPage::Finished);
    window_.Back();
    EXPECT_EQ(window_.Page(), WizardPage::TestScanner);
    Lane("scan 1 ]C0again");
    EXPECT_TRUE(Shows("lblScanData", "again"));
}

TEST_F(WizardJourney, UsbScannersAreExplainedInsteadOfProgrammed) {
    window_.GoToOptions("Pelerin/3172", 0);
    window_.TypeNames("Lane");
    Choose(window_.List("lstInterface_0"), "Full Speed USB");
    {
        const ExpectBox notice("Kalder Information", UsbNotice("IBM OEM USB"));
        window_.Next();
    }
    EXPECT_EQ(window_.Page(), WizardPage::TestScanner);
    EXPECT_EQ(window_.Text("lblScannerState"), "The scanner is not ready: No Hardware (107)");
    EXPECT_EQ(ScannerValue("Lane", "Scanner Version"), "2");
    window_.Back();
    Choose(window_.List("lstInterface_0"), "POS USB");
    {
        const ExpectBox notice("Kalder Information",
                               UsbNotice("POS USB") +
                                   "\r\n\r\nNote that your POS USB scanner also requires you to have installed a POS "
                                   "USB driver, separate from the Ravlin OPOS driver.  POS USB drivers are available "
                                   "from the downloads section of the Tavrin web site.  Please contact a Tavrin "
                                   "representative if you require assistance with that.");
        window_.Next();
    }
    EXPECT_EQ(window_.Page(), WizardPage::TestScanner);
    EXPECT_EQ(ScannerValue("Lane", "Scanner Version"), "3");
}

TEST_F(WizardJourney, RefusedProgrammingIsRepeatedFromTheOptions) {
    Lane("scanner 1 16");
    const std::string before = Block();
    const std::string expected = ExpectedBlock(16);
    Lane("refuse 1");
    window_.GoToOptions("Pelerin/3172", 0);
    window_.TypeNames("Lane");
    {
        const ExpectBox box("Ravlin", WizardTexts::CannotConfigure);
        window_.Next();
    }
    EXPECT_EQ(window_.Page(), WizardPage::Options);
    EXPECT_TRUE(window_.Text("lblFailureReason").contains("COM1"));
    EXPECT_EQ(Block(), before);
    window_.Next();
    EXPECT_EQ(window_.Page(), WizardPage::TestScanner);
    EXPECT_EQ(Block(), expected);
}

TEST_F(WizardJourney, WrongPortIsCorrectedOnTheOptions) {
    Lane("scanner 1 16");
    window_.GoToOptions("Pelerin/3172", 0);
    window_.TypeNames("Lane");
    Choose(window_.List("lstScannerComPort_0"), "COM64");
    {
        const ExpectBox box("Ravlin", WizardTexts::CannotConfigure);
        window_.Next();
    }
    EXPECT_TRUE(window_.Text("lblFailureReason").contains("COM64"));
    EXPECT_EQ(ScannerValue("Lane", "Serial Port"), "64");
    Choose(window_.List("lstScannerComPort_0"), "COM1");
    window_.Next();
    EXPECT_EQ(window_.Page(), WizardPage::TestScanner);
    EXPECT_EQ(ScannerValue("Lane", "Serial Port"), "1");
    EXPECT_EQ(added_.size(), 2U);
}

TEST_F(WizardJourney, ScannerThatWasUnpluggedIsTriedAgainOnceItIsBack) {
    Lane("scanner 1 16");
    window_.GoToOptions("Pelerin/3172", 0);
    window_.TypeNames("Lane");
    window_.Next();
    window_.Next();
    ASSERT_EQ(window_.Page(), WizardPage::Finished);
    Lane("unplug 1");
    {
        const ExpectBox cancelled("Ravlin", WizardTexts::CannotTestScanner, QMessageBox::Cancel);
        window_.Back();
    }
    EXPECT_EQ(window_.Page(), WizardPage::Finished);
    {
        const ExpectBox retried("Ravlin", WizardTexts::CannotTestScanner, QMessageBox::Retry);
        const BoxesSeen hand([this] { Lane("scanner 1 16"); });
        window_.Back();
    }
    EXPECT_EQ(window_.Page(), WizardPage::TestScanner);
    Lane("scan 1 ]C0back");
    EXPECT_TRUE(Shows("lblScanData", "back"));
}

TEST_F(WizardJourney, ScaleThatWasUnpluggedIsTriedAgainOnceItIsBack) {
    Lane("scanner 1 17");
    Lane("scale 1");
    window_.GoToOptions("Pelerin/3172", 1);
    window_.TypeNames("Lane", "Scale");
    window_.Next();
    ASSERT_EQ(window_.Page(), WizardPage::TestScanner);
    Lane("unplug 1");
    {
        const ExpectBox cancelled("Ravlin", WizardTexts::CannotTestScale, QMessageBox::Cancel);
        window_.Next();
    }
    EXPECT_EQ(window_.Page(), WizardPage::Finished);
    {
        const ExpectBox retried("Ravlin", WizardTexts::CannotTestScale, QMessageBox::Retry);
        const BoxesSeen hand([this] {
            Lane("scanner 1 17");
            Lane("scale 1");
        });
        window_.Back();
    }
    EXPECT_EQ(window_.Page(), WizardPage::TestScale);
    Lane("weight 1 0.75 lb");
    EXPECT_TRUE(Shows("lblWeight", "0.75 lb"));
}

TEST_F(WizardJourney, BackLeadsOverTheSamePagesAndClosesTheDevices) {
    Lane("scanner 1 17");
    Lane("scale 1");
    window_.GoToOptions("Pelerin/3172", 1);
    window_.TypeNames("Lane", "Scale");
    for (int i = 0; i < 3; ++i)
        window_.Next();
    for (const int page : {WizardPage::TestScale, WizardPage::TestScanner, WizardPage::Options, WizardPage::ScaleType,
                           WizardPage::SelectScanner, WizardPage::Welcome}) {
        window_.Back();
        EXPECT_EQ(window_.Page(), page);
    }
    EXPECT_TRUE(IsFree(1));
}

TEST_F(WizardJourney, ClosedInMidTestItLetsTheDeviceGo) {
    Lane("scanner 1 17");
    window_.GoToOptions("Pelerin/3172", 0);
    window_.TypeNames("Lane");
    window_.Next();
    ASSERT_EQ(window_.Page(), WizardPage::TestScanner);
    EXPECT_ANY_THROW(IsFree(1));
    wizard_.close();
    EXPECT_FALSE(wizard_.isVisible());
    EXPECT_TRUE(IsFree(1));
}
