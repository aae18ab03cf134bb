#include "views/SimpleTestView.h"

#include "profiles/RegistryPaths.h"
#include "profiles/ZeroWeight.h"
#include "support_widgets/BoxWatcher.h"
#include "views/TestSite.h"

#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::string>;

const QString OpenError = "An error occured while attempting to open the specified device.\r\nResult Code: ";
const QString ScannerClaimError = "An error occured while attempting to claim the specified device.\r\nResult Code: ";
const QString ScaleClaimError = "An error occured while attempting to claim the specifed device.\r\nResult Code: ";
const QString EnableError = "An error occured while attempting to enable the specified device.\r\nResult Code: ";

class SimpleTest : public ::testing::Test {
protected:
    SimpleTest() {
        for (const DropDownList* list : page_.NameLists())
            EXPECT_EQ(list->ListIndex(), -1);
        page_.NameLists()[0]->AddItem("Lane");
        page_.NameLists()[0]->AddItem("Other");
        page_.NameLists()[1]->AddItem("Scale");
        page_.NameLists()[1]->AddItem("Avery");
        page_.NameLists()[1]->AddItem("Foreign");
        page_.SelectFirstNames();
        page_.show();
        page_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page_));
    }

    // Whether the page is as it is without a test of that device.
    [[nodiscard]] bool ScannerIdle() const {
        return c_.Button("cmdSimpleScannerBegin").isEnabled() && !c_.Button("cmdSimpleScannerEnd").isEnabled() &&
               c_.Text("lblSimpleScanData").isEmpty() && c_.Text("lblSimpleDataType").isEmpty();
    }
    [[nodiscard]] bool ScaleIdle() const {
        return c_.Button("cmdSimpleScaleBegin").isEnabled() && !c_.Button("cmdSimpleScaleEnd").isEnabled() &&
               c_.Text("lblSimpleScaleWeight").isEmpty() && c_.Label("lblSimpleZeroWeightNotice").isHidden();
    }

    TestSite site_;
    std::shared_ptr<CDevice> lane_ = site_.Add<CScanner2>("Lane");
    std::shared_ptr<CDevice> scaleProfile_ = site_.Add<CScale2>("Scale");
    std::shared_ptr<CDevice> avery_ = site_.Add<CAveryScale>("Avery");
    SimpleTestView page_{site_.services};
    PageControls c_{page_};
    ScriptedScanner& scanner_ = *site_.controls.scanners.at(0);
    ScriptedScale& scale_ = *site_.controls.scales.at(0);
};

} // namespace

TEST_F(SimpleTest, StartsIdle) {
    EXPECT_TRUE(ScannerIdle());
    EXPECT_TRUE(ScaleIdle());
    EXPECT_EQ(c_.Text("lblSimpleZeroWeightNotice"),
              "Note, Zero (0) Weight responses are currently prohibited for Single-Cable Scale by the value of Global "
              "Configuration setting Zero Weight Suppression (Single-Cable Scale).");
    EXPECT_EQ(c_.Timer("tmrSimpleScale").interval(), 350);
    EXPECT_FALSE(c_.Timer("tmrSimpleScale").isActive());
    c_.ExpectUniqueMnemonics();
}

TEST_F(SimpleTest, BeginOpensClaimsAndEnablesTheScannerOfTheChosenProfile) {
    scanner_.onClaim = [] {
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    };
    c_.Press("cmdSimpleScannerBegin");
    EXPECT_EQ(scanner_.calls,
              (Calls{"Open Lane", "ClaimDevice 1000", "DeviceEnabled 1", "DecodeData 1", "DataEventEnabled 1"}));
    EXPECT_TRUE(lane_->InUse());
    EXPECT_TRUE(c_.Button("cmdSimpleScannerEnd").isEnabled());
    EXPECT_FALSE(c_.Button("cmdSimpleScannerBegin").isEnabled());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SimpleTest, ShowsEachLabelWithItsSymbologyAndAsksForTheNext) {
    c_.Press("cmdSimpleScannerBegin");
    scanner_.calls.clear();
    scanner_.Scan("]E05018374827715", "5018374827715", 104);
    EXPECT_EQ(c_.Text("lblSimpleScanData"), "5018374827715");
    EXPECT_EQ(c_.Text("lblSimpleDataType"), "EAN/JAN 13 (104)");
    EXPECT_EQ(scanner_.calls, Calls{"DataEventEnabled 1"});
    scanner_.Scan("x", "\xE4<b>&c", 121);
    EXPECT_EQ(c_.Text("lblSimpleScanData"), QString::fromUtf8("\xC3\xA4<b>&c"));
    EXPECT_EQ(c_.Text("lblSimpleDataType"), "OCR \"A\" (121)");
}

TEST_F(SimpleTest, EndClosesTheScannerAndMakesBeginActive) {
    c_.Press("cmdSimpleScannerBegin");
    scanner_.Scan("x", "x", 0);
    scanner_.calls.clear();
    c_.Press("cmdSimpleScannerEnd");
    EXPECT_EQ(scanner_.calls, Calls{"Close"});
    EXPECT_FALSE(lane_->InUse());
    EXPECT_TRUE(ScannerIdle());
    EXPECT_TRUE(c_.Button("cmdSimpleScannerBegin").hasFocus());
}

TEST_F(SimpleTest, EndFreesTheProfileThatWasTestedAlsoWhenAnotherIsChosenMeanwhile) {
    c_.Press("cmdSimpleScannerBegin");
    Choose(c_.List("lstSimpleDeviceName_0"), "Other");
    EXPECT_TRUE(lane_->InUse());
    c_.Press("cmdSimpleScannerEnd");
    EXPECT_FALSE(lane_->InUse());
}

TEST_F(SimpleTest, AFailedOpenIsReportedAndClosesTheScanner) {
    scanner_.results["Open"] = OposResult::NoExist;
    const ExpectBox box("OPOS Error", OpenError + "109");
    c_.Press("cmdSimpleScannerBegin");
    EXPECT_EQ(scanner_.calls, (Calls{"Open Lane", "Close"}));
    EXPECT_TRUE(ScannerIdle());
    EXPECT_FALSE(lane_->InUse());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SimpleTest, AFailedClaimIsReportedAndClosesTheScanner) {
    scanner_.results["ClaimDevice"] = OposResult::Timeout;
    const ExpectBox box("OPOS Error", ScannerClaimError + "112");
    c_.Press("cmdSimpleScannerBegin");
    EXPECT_EQ(scanner_.calls, (Calls{"Open Lane", "ClaimDevice 1000", "Close"}));
    EXPECT_TRUE(ScannerIdle());
}

TEST_F(SimpleTest, AFailedEnableIsReportedAndClosesTheScanner) {
    scanner_.results["DeviceEnabled"] = OposResult::NoHardware;
    const ExpectBox box("OPOS Error", EnableError + "107");
    c_.Press("cmdSimpleScannerBegin");
    EXPECT_EQ(scanner_.calls, (Calls{"Open Lane", "ClaimDevice 1000", "DeviceEnabled 1", "Close"}));
    EXPECT_TRUE(ScannerIdle());
}

TEST_F(SimpleTest, AProfileThatIsNotHeldEndsInTheSameMessage) {
    Choose(c_.List("lstSimpleDeviceName_0"), "Other");
    const ExpectBox box("OPOS Error", "Invalid procedure call or argument (there is no Scanner profile Other)\r\n"
                                      "Result Code: 0");
    c_.Press("cmdSimpleScannerBegin");
    EXPECT_EQ(scanner_.calls.back(), "Close");
    EXPECT_TRUE(ScannerIdle());
}

TEST_F(SimpleTest, AMessageNamesAProfileAsItStands) {
    page_.NameLists()[0]->AddItem("100%2");
    Choose(c_.List("lstSimpleDeviceName_0"), "100%2");
    const ExpectBox box("OPOS Error", "Invalid procedure call or argument (there is no Scanner profile 100%2)\r\n"
                                      "Result Code: 0");
    c_.Press("cmdSimpleScannerBegin");
}

TEST_F(SimpleTest, BeginWithoutAProfileIsAFailedOpen) {
    for (DropDownList* list : page_.NameLists())
        list->SetListIndex(-1);
    scanner_.results["Open"] = OposResult::NoExist;
    scale_.results["Open"] = OposResult::NoExist;
    const ExpectBox scannerBox("OPOS Error", OpenError + "109");
    c_.Press("cmdSimpleScannerBegin");
    const ExpectBox scaleBox("OPOS Error", OpenError + "0");
    c_.Press("cmdSimpleScaleBegin");
    EXPECT_EQ(scale_.calls, (Calls{"Open", "Close"}));
}

TEST_F(SimpleTest, BeginReadsTheScaleInAsynchronousMode) {
    c_.Press("cmdSimpleScaleBegin");
    EXPECT_EQ(scale_.calls, (Calls{"Open Scale", "ClaimDevice 1000", "DeviceEnabled 1", "AsyncMode 1",
                                   "DataEventEnabled 1", "ReadWeight -1"}));
    EXPECT_TRUE(scaleProfile_->InUse());
    EXPECT_TRUE(c_.Button("cmdSimpleScaleEnd").isEnabled());
    EXPECT_FALSE(c_.Button("cmdSimpleScaleBegin").isEnabled());
    EXPECT_FALSE(c_.Timer("tmrSimpleScale").isActive());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SimpleTest, ShowsWeightsInPoundsOrKilograms) {
    c_.Press("cmdSimpleScaleBegin");
    scale_.weightUnit = OposWeightUnit::Pound;
    scale_.Weigh(1234);
    EXPECT_EQ(c_.Text("lblSimpleScaleWeight"), "1.23 lb");
    scale_.weightUnit = OposWeightUnit::Gram;
    scale_.Weigh(1234);
    EXPECT_EQ(c_.Text("lblSimpleScaleWeight"), "1.234 kg");
}

TEST_F(SimpleTest, DoesNotPaintTheSameWeightAgain) {
    struct PaintCounter : QObject {
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } counter;
    c_.Press("cmdSimpleScaleBegin");
    scale_.Weigh(1234);
    QCoreApplication::processEvents();
    c_.Label("lblSimpleScaleWeight").installEventFilter(&counter);
    scale_.Weigh(1234);
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.paints, 0);
    scale_.Weigh(1235);
    EXPECT_TRUE(WaitUntil([&counter] { return counter.paints > 0; }));
}

TEST_F(SimpleTest, TheTimerAsksForTheNextWeightWithTheLastOne) {
    c_.Press("cmdSimpleScaleBegin");
    scale_.calls.clear();
    scale_.Weigh(777);
    EXPECT_TRUE(c_.Timer("tmrSimpleScale").isActive());
    EXPECT_TRUE(scale_.calls.empty());
    EXPECT_TRUE(WaitUntil([this] { return !scale_.calls.empty(); }));
    EXPECT_EQ(scale_.calls, (Calls{"DataEventEnabled 1", "ReadWeight -1"}));
    EXPECT_EQ(scale_.weightIn, 777);
    EXPECT_FALSE(c_.Timer("tmrSimpleScale").isActive());
}

TEST_F(SimpleTest, EndClosesTheScaleStopsTheTimerAndMakesBeginActive) {
    site_.RejectZeroWeight("1");
    c_.Press("cmdSimpleScaleBegin");
    scale_.Weigh(1234);
    scale_.calls.clear();
    c_.Press("cmdSimpleScaleEnd");
    EXPECT_EQ(scale_.calls, Calls{"Close"});
    EXPECT_FALSE(c_.Timer("tmrSimpleScale").isActive());
    EXPECT_FALSE(scaleProfile_->InUse());
    EXPECT_TRUE(ScaleIdle());
    EXPECT_TRUE(c_.Button("cmdSimpleScaleBegin").hasFocus());
}

TEST_F(SimpleTest, AScaleFailureShowsTheResultCodeOfTheScanner) {
    scanner_.results["Open"] = OposResult::Busy;
    {
        const ExpectBox box("OPOS Error", OpenError + "113");
        c_.Press("cmdSimpleScannerBegin");
    }
    scanner_.results["Open"] = OposResult::Success;
    scanner_.results["Close"] = OposResult::Exists;
    scanner_.Close();
    scanner_.calls.clear();
    scale_.results["ClaimDevice"] = OposResult::Claimed;
    const ExpectBox box("OPOS Error", ScaleClaimError + "110");
    c_.Press("cmdSimpleScaleBegin");
    EXPECT_EQ(scale_.calls, (Calls{"Open Scale", "ClaimDevice 1000", "Close"}));
    EXPECT_TRUE(scanner_.calls.empty());
    EXPECT_TRUE(ScaleIdle());
}

TEST_F(SimpleTest, AFailedOpenOrEnableOfTheScaleIsReported) {
    scale_.results["DeviceEnabled"] = OposResult::Offline;
    {
        const ExpectBox box("OPOS Error", EnableError + "0");
        c_.Press("cmdSimpleScaleBegin");
    }
    scale_.results["Open"] = OposResult::NoService;
    const ExpectBox box("OPOS Error", OpenError + "0");
    c_.Press("cmdSimpleScaleBegin");
    EXPECT_TRUE(ScaleIdle());
    EXPECT_FALSE(scaleProfile_->InUse());
}

TEST_F(SimpleTest, AnAveryScaleIsNotOpened) {
    Choose(c_.List("lstSimpleDeviceName_1"), "Avery");
    const ExpectBox box("Kalder Notification",
                        "The Avery Scale Driver -- used with an Avery Scale in Dual-Cable Configuration of Scale and "
                        "Scanner -- does NOT support asynchronous mode, the mode used by Simple Test.  You may test "
                        "your Avery Scale through the Detailed Test feature of this program, or you may reconfigure "
                        "and reprofile your Scale and Scanner for Single-Cable Configuration.");
    c_.Press("cmdSimpleScaleBegin");
    EXPECT_TRUE(scale_.calls.empty());
    EXPECT_TRUE(ScaleIdle());
    EXPECT_FALSE(avery_->InUse());
}

TEST_F(SimpleTest, AForeignScaleWithoutAsynchronousModeIsReportedInsteadOfHoldingUpTheWindow) {
    scale_.results["AsyncMode"] = OposResult::Illegal;
    const ExpectBox box("OPOS Error", "The specified device does not support asynchronous mode, the mode used by "
                                      "Simple Test.\r\nResult Code: 0");
    c_.Press("cmdSimpleScaleBegin");
    EXPECT_EQ(scale_.calls.back(), "Close");
    EXPECT_TRUE(ScaleIdle());
}

TEST_F(SimpleTest, NoticesSuppressedZeroWeightsOfTheMakersSingleCableScaleOnly) {
    site_.RejectZeroWeight("1");
    c_.Press("cmdSimpleScaleBegin");
    EXPECT_TRUE(IsShown(c_.Label("lblSimpleZeroWeightNotice")));
    c_.Press("cmdSimpleScaleEnd");
    site_.registry.Put(std::string(RegistryPaths::ScaleFolder) + "Foreign", "", "Kalder.Scale.SO");
    site_.devices.Add(DeviceClass::Scale, "Foreign", std::make_shared<CScale2>(site_.registry));
    Choose(c_.List("lstSimpleDeviceName_1"), "Foreign");
    c_.Press("cmdSimpleScaleBegin");
    EXPECT_FALSE(c_.Button("cmdSimpleScaleBegin").isEnabled());
    EXPECT_FALSE(IsShown(c_.Label("lblSimpleZeroWeightNotice")));
}

TEST_F(SimpleTest, TheNoticeNeedsTheSettingToBeOne) {
    for (const char* value : {"", "0", "2", "01"}) {
        site_.RejectZeroWeight(value);
        c_.Press("cmdSimpleScaleBegin");
        EXPECT_EQ(IsShown(c_.Label("lblSimpleZeroWeightNotice")), std::string(value) == "01") << value;
        c_.Press("cmdSimpleScaleEnd");
    }
}

TEST_F(SimpleTest, ASettingThatIsNoNumberIsReportedAndClosesTheScale) {
    site_.RejectZeroWeight("yes");
    const ExpectBox box("OPOS Error", "Type mismatch (\"0yes\" is not a number)\r\nResult Code: 0");
    c_.Press("cmdSimpleScaleBegin");
    EXPECT_EQ(scale_.calls.back(), "Close");
    EXPECT_TRUE(ScaleIdle());
}

TEST_F(SimpleTest, ScannerAndScaleAreTestedAtTheSameTime) {
    c_.Press("cmdSimpleScannerBegin");
    c_.Press("cmdSimpleScaleBegin");
    scanner_.Scan("a", "a", 110);
    scale_.Weigh(5);
    EXPECT_EQ(c_.Text("lblSimpleScanData"), "a");
    EXPECT_EQ(c_.Text("lblSimpleScaleWeight"), "0.005 kg");
    c_.Press("cmdSimpleScannerEnd");
    EXPECT_EQ(c_.Text("lblSimpleScaleWeight"), "0.005 kg");
    EXPECT_TRUE(scaleProfile_->InUse());
}
