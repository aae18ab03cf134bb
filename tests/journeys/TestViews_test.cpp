// Devices on the counter, tested from the main window: real profiles, the system's control objects, real lines.
#include "platform/opos/OposSite.h"
#include "platform/opos/SimulatedScale.h"
#include "support_app/MainWindow.h"
#include "support_widgets/BoxWatcher.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace {

constexpr int SimpleTestIndex = 2;
constexpr int DetailedTestIndex = 3;
constexpr int DeviceInformationIndex = 4;

class TestViews : public ::testing::Test {
protected:
    TestViews() { WithoutWizard(site_.registry); }

    void Start(int view) {
        window_.emplace(site_.registry);
        (*window_)->ShowView(view);
    }
    template<typename T>
    T& Get(const char* name) {
        return Control<T>(**window_, name);
    }
    QString Text(const char* label) { return Get<QLabel>(label).text(); }
    void Press(const char* button) { Click(Get<QAbstractButton>(button)); }
    bool Shows(const char* label, const QString& text) {
        return WaitUntil([&] { return Text(label) == text; });
    }

    OposSite site_;
    std::optional<MainWindow> window_;
};

} // namespace

TEST_F(TestViews, LabelsAreShownWithTheirSymbology) {
    site_.SaveScanner("Lane", 1);
    const PseudoTerminal line(site_.ports, 1);
    Start(SimpleTestIndex);
    Press("cmdSimpleScannerBegin");
    line.Send("]E05018374827715\r");
    EXPECT_TRUE(Shows("lblSimpleScanData", "5018374827715"));
    EXPECT_EQ(Text("lblSimpleDataType"), "EAN/JAN 13 (104)");
    line.Send("\x02]A0LANE-1\r\n");
    EXPECT_TRUE(Shows("lblSimpleScanData", "LANE-1"));
    EXPECT_EQ(Text("lblSimpleDataType"), "Code 39 (108)");
    Press("cmdSimpleScannerEnd");
    EXPECT_EQ(Text("lblSimpleScanData"), "");
}

TEST_F(TestViews, TheWeightOnTheScaleIsShownLive) {
    site_.SaveScale("Scale", 2);
    const PseudoTerminal line(site_.ports, 2);
    SimulatedScale scale(line, [](char) { return SimulatedScale::Frame("01.235"); });
    Start(SimpleTestIndex);
    Press("cmdSimpleScaleBegin");
    EXPECT_TRUE(Shows("lblSimpleScaleWeight", "1.235 kg"));
    scale.AnswerWith([](char) { return SimulatedScale::Status(1); }); // something is put on
    scale.AnswerWith([](char) { return SimulatedScale::Frame("12.500"); });
    EXPECT_TRUE(Shows("lblSimpleScaleWeight", "12.500 kg"));
    Press("cmdSimpleScaleEnd");
    EXPECT_EQ(Text("lblSimpleScaleWeight"), "");
}

TEST_F(TestViews, AScannerUnpluggedDuringItsTestLeavesAPageThatGoesOn) {
    site_.SaveScanner("Lane", 1);
    {
        PseudoTerminal line(site_.ports, 1);
        Start(SimpleTestIndex);
        Press("cmdSimpleScannerBegin");
        line.Send("]A0BEFORE\r");
        EXPECT_TRUE(Shows("lblSimpleScanData", "BEFORE"));
        line.Unplug();
    }
    Press("cmdSimpleScannerEnd");
    {
        const ExpectBox box("OPOS Error", "An error occured while attempting to open the specified device.\r\n"
                                          "Result Code: 101");
        site_.ports.Remove(1);
        Press("cmdSimpleScannerBegin");
    }
    EXPECT_TRUE(Get<QPushButton>("cmdSimpleScannerBegin").isEnabled());
    const PseudoTerminal again(site_.ports, 1);
    Press("cmdSimpleScannerBegin");
    again.Send("]A0AGAIN\r");
    EXPECT_TRUE(Shows("lblSimpleScanData", "AGAIN"));
}

TEST_F(TestViews, AScannerThatAnotherProgramHoldsIsReportedAndCanBeTestedLater) {
    site_.SaveScanner("Lane", 1);
    const PseudoTerminal line(site_.ports, 1);
    const auto other = site_.controls->CreateScanner();
    ASSERT_EQ(other->Open("Lane"), 0);
    ASSERT_EQ(other->ClaimDevice(0), 0);
    Start(SimpleTestIndex);
    {
        const ExpectBox box("OPOS Error", "An error occured while attempting to claim the specified device.\r\n"
                                          "Result Code: 112");
        Press("cmdSimpleScannerBegin");
    }
    other->Close();
    Press("cmdSimpleScannerBegin");
    line.Send("]A0MINE\r");
    EXPECT_TRUE(Shows("lblSimpleScanData", "MINE"));
}

TEST_F(TestViews, ADeviceIsDrivenStepByStep) {
    site_.SaveScanner("Lane", 1);
    const PseudoTerminal line(site_.ports, 1);
    Start(DetailedTestIndex);
    Press("cmdDetailedEnable");
    EXPECT_EQ(Text("lblDetailedResultCode"), "Closed (101)");
    Press("cmdDetailedOpen");
    EXPECT_EQ(Text("lblDetailedResultCode"), "Success (0)");
    EXPECT_EQ(Text("lblDetailedState"), "Idle (2)");
    Press("cmdDetailedEnable");
    EXPECT_EQ(Text("lblDetailedResultCode"), "Not Claimed (103)");
    Press("cmdDetailedClaim");
    Press("cmdDetailedEnable");
    EXPECT_EQ(Text("lblDetailedResultCode"), "Success (0)");
    Press("chkDetailedDecodeData");
    line.Send("]A0AB1\r]A0SECOND\r");
    EXPECT_TRUE(Shows("lblDetailedScanDataCount", "2")) << "queued labels are counted";
    Press("chkDetailedDataEvent");
    EXPECT_TRUE(Shows("lblDetailedScanDataLabel", "AB1"));
    EXPECT_FALSE(Get<QCheckBox>("chkDetailedDataEvent").isChecked());
    EXPECT_TRUE(Text("lblDetailedScanDataASCII").endsWith("65 66 49"));
    Press("cmdDetailedClearInput");
    EXPECT_TRUE(Shows("lblDetailedScanDataCount", "0"));
    const WhenShown dialog("frmRetrieveStatistics", [](QWidget& window) {
        Click(Control<QAbstractButton>(window, "cmdRetrieveStatistics"));
        EXPECT_EQ(Control<QLabel>(window, "lblResultCode").text(), "Success (0)");
        const QString report = Control<QPlainTextEdit>(window, "txtStatBuffString").toPlainText();
        EXPECT_TRUE(report.contains("\n         <Name>GoodScanCount</Name>\n")) << report.toStdString();
        Click(Control<QAbstractButton>(window, "cmdClose"));
    });
    Press("cmdDetailedRetrieveStatistics");
    Press("cmdDetailedClose");
    EXPECT_EQ(Text("lblDetailedState"), "Closed (1)");
}

TEST_F(TestViews, AProfileUnderTestCannotBeDeletedUntilTheTestEnds) {
    site_.SaveScanner("Lane", 1);
    const PseudoTerminal line(site_.ports, 1);
    Start(SimpleTestIndex);
    Press("cmdSimpleScannerBegin");
    (*window_)->ShowView(1);
    {
        const ExpectBox refused("Delete Error",
                                "The selected device (Lane) cannot be deleted because it is currently\r\n"
                                "being used within the Administrator.  Please close the device before\r\n"
                                "attempting to delete the profile.");
        Press("cmdExistingDelete");
    }
    (*window_)->ShowView(SimpleTestIndex);
    Press("cmdSimpleScannerEnd");
    (*window_)->ShowView(1);
    const ExpectBox question("Delete Profile?", "Are you sure you wish to delete this profile (Lane)?",
                             QMessageBox::Yes);
    const ExpectBox deleted("Profile Deleted", "Device profile successfully deleted.");
    Press("cmdExistingDelete");
    EXPECT_EQ(window_->List("lstSimpleDeviceName_0").ListCount(), 0);
}

TEST_F(TestViews, ClosingTheMainWindowGivesTheDevicesBack) {
    site_.SaveScanner("Lane", 1);
    site_.SaveScale("Scale", 2);
    const PseudoTerminal scannerLine(site_.ports, 1);
    const PseudoTerminal scaleLine(site_.ports, 2);
    Start(SimpleTestIndex);
    Press("cmdSimpleScannerBegin");
    Press("cmdSimpleScaleBegin");
    window_->Close();
    const auto scanner = site_.controls->CreateScanner();
    scanner->Open("Lane");
    EXPECT_EQ(scanner->ClaimDevice(0), 0);
    window_.reset();
    const auto scale = site_.controls->CreateScale();
    scale->Open("Scale");
    EXPECT_EQ(scale->ClaimDevice(0), 0);
}

TEST_F(TestViews, InformationIsShownAtTheStartWithoutClaimingADevice) {
    site_.SaveScanner("Lane", 1);
    const PseudoTerminal line(site_.ports, 1);
    const auto other = site_.controls->CreateScanner();
    other->Open("Lane");
    ASSERT_EQ(other->ClaimDevice(0), 0);
    Start(DeviceInformationIndex);
    EXPECT_FALSE(Text("lblInfoDeviceName").isEmpty());
    EXPECT_FALSE(Text("lblInfoDeviceName").startsWith("Unable"));
    EXPECT_FALSE(Text("lblInfoSOVersion").isEmpty());
    EXPECT_TRUE(other->Claimed());
}
