#include "views/DetailedTestView.h"

#include "dialogs/DigitsBox.h"
#include "profiles/RegistryPaths.h"
#include "support_widgets/BoxWatcher.h"
#include "views/TestSite.h"

#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::string>;

class DetailedTest : public ::testing::Test {
protected:
    DetailedTest() {
        for (const char* name : {"Lane", "Other"})
            page_.NameLists()[0]->AddItem(name);
        for (const char* name : {"Scale", "Second"})
            page_.NameLists()[1]->AddItem(name);
        page_.show();
        page_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page_));
    }
    void ChooseScanner() { Choose(c_.List("lstDetailedDeviceType"), "Scanner"); }
    void ChooseScale() { Choose(c_.List("lstDetailedDeviceType"), "Scale"); }
    [[nodiscard]] QString Result() const { return c_.Text("lblDetailedResultCode"); }
    [[nodiscard]] QString State() const { return c_.Text("lblDetailedState"); }

    TestSite site_;
    std::shared_ptr<CDevice> lane_ = site_.Add<CScanner2>("Lane");
    std::shared_ptr<CDevice> other_ = site_.Add<CScanner2>("Other");
    std::shared_ptr<CDevice> scaleProfile_ = site_.Add<CScale2>("Scale");
    std::shared_ptr<CDevice> second_ = site_.Add<CAveryScale>("Second");
    ScriptedScale simpleScale_;
    DetailedTestView page_{site_.services, simpleScale_};
    PageControls c_{page_};
    ScriptedScanner& scanner_ = *site_.controls.scanners.at(0);
    ScriptedScale& scale_ = *site_.controls.scales.at(0);
};

} // namespace

TEST_F(DetailedTest, ShowsNothingOfADeviceBeforeAClassIsChosen) {
    EXPECT_FALSE(IsShown(c_.List("lstDetailedDeviceName_0")));
    EXPECT_FALSE(IsShown(c_.List("lstDetailedDeviceName_1")));
    EXPECT_TRUE(Control<QWidget>(page_, "fraDetailedDeviceSpecific").isHidden());
    ChooseScanner();
    c_.List("lstDetailedDeviceType").SetListIndex(-1);
    EXPECT_TRUE(Control<QWidget>(page_, "fraDetailedDeviceSpecific").isHidden());
    EXPECT_FALSE(c_.Timer("tmrDetailedPollScanner").isActive());
    EXPECT_EQ(c_.Timer("tmrDetailedPollScanner").interval(), 250);
    EXPECT_EQ(c_.Timer("tmrDetailScale").interval(), 350);
}

TEST_F(DetailedTest, TheClassDecidesWhichControlsAreShown) {
    constexpr std::array ScannerOnly = {"chkDetailedDataEvent",     "chkDetailedDataEventAlways",
                                        "chkDetailedDecodeData",    "lblDetailedScanData",
                                        "lblDetailedScanDataLabel", "lblDetailedScanDataType",
                                        "lblDetailedScanDataCount", "lblDetailedScanDataASCII",
                                        "lstDetailedDeviceName_0",  "cmdDetailedRetrieveStatistics"};
    constexpr std::array ScaleOnly = {"chkDetailedAsyncScale", "lblDetailedWeightData",   "lblDetailedMaxWeight",
                                      "cmdDetailedZeroScale",  "lstDetailedDeviceName_1", "cmdDetailedScaleWeight"};
    for (const bool scanner : {true, false}) {
        scanner ? ChooseScanner() : ChooseScale();
        for (const char* name : ScannerOnly)
            EXPECT_EQ(IsShown(Control<QWidget>(page_, name)), scanner) << name;
        for (const char* name : ScaleOnly)
            EXPECT_EQ(IsShown(Control<QWidget>(page_, name)), !scanner) << name;
        EXPECT_TRUE(IsShown(Control<QWidget>(page_, "fraDetailedDeviceSpecific")));
        EXPECT_EQ(c_.List(scanner ? "lstDetailedDeviceName_0" : "lstDetailedDeviceName_1").ListIndex(), 0);
        c_.ExpectUniqueMnemonics();
    }
}

TEST_F(DetailedTest, OpenShowsOpenResultAndStateAndStartsCounting) {
    ChooseScanner();
    c_.Press("cmdDetailedOpen");
    EXPECT_EQ(scanner_.calls, Calls{"Open Lane"});
    EXPECT_EQ(Result(), "Success (0)");
    EXPECT_EQ(State(), "Idle (2)");
    EXPECT_TRUE(lane_->InUse());
    EXPECT_TRUE(c_.Timer("tmrDetailedPollScanner").isActive());
    scanner_.dataCount = 17;
    EXPECT_TRUE(WaitUntil([this] { return c_.Text("lblDetailedScanDataCount") == "17"; }));
}

TEST_F(DetailedTest, AFailedOpenIsShownAndLeavesTheProfileFree) {
    ChooseScanner();
    scanner_.openResult = OposOpenResult::BadProgId;
    c_.Press("cmdDetailedOpen");
    EXPECT_EQ(Result(), "Bad ProgID (303)");
    EXPECT_EQ(State(), "Closed (1)");
    EXPECT_FALSE(lane_->InUse());
}

TEST_F(DetailedTest, OpenClearsTheScanLabelsAndTheBoxes) {
    ChooseScanner();
    c_.Press("cmdDetailedOpen");
    scanner_.Scan("AB1", "AB1", 110);
    c_.Press("chkDetailedDecodeData");
    c_.Press("chkDetailedAutoDisable");
    c_.Press("chkDetailedDataEventAlways");
    scanner_.openResult = OposOpenResult::AlreadyOpen;
    scanner_.calls.clear();
    c_.Press("cmdDetailedOpen");
    EXPECT_EQ(scanner_.calls, Calls{"Open Lane"});
    for (const char* name : {"lblDetailedScanData", "lblDetailedScanDataLabel", "lblDetailedScanDataType",
                             "lblDetailedScanDataCount", "lblDetailedScanDataASCII"})
        EXPECT_EQ(c_.Text(name), "") << name;
    for (const char* name :
         {"chkDetailedDecodeData", "chkDetailedAutoDisable", "chkDetailedDataEvent", "chkDetailedDataEventAlways"})
        EXPECT_FALSE(c_.Checked(name)) << name;
    EXPECT_TRUE(c_.Button("chkDetailedDataEvent").isEnabled());
    EXPECT_EQ(Result(), "Already Open (301)");
}

TEST_F(DetailedTest, EachButtonMakesItsCallAndShowsItsResult) {
    struct Row {
        const char* button;
        const char* member;
        const char* call;
    };
    for (const bool scanner : {true, false}) {
        scanner ? ChooseScanner() : ChooseScale();
        auto& calls = scanner ? scanner_.calls : scale_.calls;
        auto& results = scanner ? scanner_.results : scale_.results;
        for (const Row& row :
             {Row{"cmdDetailedClaim", "ClaimDevice", "ClaimDevice 1000"},
              Row{"cmdDetailedEnable", "DeviceEnabled", "DeviceEnabled 1"},
              Row{"cmdDetailedDisable", "DeviceEnabled", "DeviceEnabled 0"},
              Row{"cmdDetailedRelease", "ReleaseDevice", "ReleaseDevice"},
              Row{"cmdDetailedClearInput", "ClearInput", "ClearInput"}, Row{"cmdDetailedClose", "Close", "Close"}}) {
            calls.clear();
            results[row.member] = OposResult::NotClaimed;
            c_.Press(row.button);
            EXPECT_EQ(calls, Calls{row.call});
            EXPECT_EQ(Result(), "Not Claimed (103)") << row.button;
            results[row.member] = 0;
            c_.Press(row.button);
            EXPECT_EQ(Result(), "Success (0)") << row.button;
        }
    }
    scale_.results["ZeroScale"] = OposResult::Failure;
    c_.Press("cmdDetailedZeroScale");
    EXPECT_EQ(scale_.calls.back(), "ZeroScale");
    EXPECT_EQ(Result(), "Failure (111)");
}

TEST_F(DetailedTest, EachBoxWritesItsPropertyAndShowsTheResult) {
    struct Row {
        const char* box;
        std::string property;
        bool scanner;
    };
    for (const Row& row :
         {Row{"chkDetailedDataEvent", "DataEventEnabled", true}, Row{"chkDetailedAutoDisable", "AutoDisable", true},
          Row{"chkDetailedFreezeEvents", "FreezeEvents", true}, Row{"chkDetailedDecodeData", "DecodeData", true},
          Row{"chkDetailedAsyncScale", "AsyncMode", false}, Row{"chkDetailedAutoDisable", "AutoDisable", false},
          Row{"chkDetailedFreezeEvents", "FreezeEvents", false}}) {
        row.scanner ? ChooseScanner() : ChooseScale();
        auto& calls = row.scanner ? scanner_.calls : scale_.calls;
        (row.scanner ? scanner_.results : scale_.results)[row.property] = OposResult::Disabled;
        calls.clear();
        c_.Press(row.box);
        EXPECT_EQ(calls, Calls{row.property + " 1"});
        EXPECT_EQ(Result(), "Disabled (105)") << row.box;
        c_.Press(row.box);
        EXPECT_EQ(calls, (Calls{row.property + " 1", row.property + " 0"}));
    }
}

TEST_F(DetailedTest, AlwaysEnablingDataEventsEnablesThemNowAndLocksTheirBox) {
    ChooseScanner();
    scanner_.calls.clear();
    c_.Press("chkDetailedDataEventAlways");
    EXPECT_TRUE(c_.Checked("chkDetailedDataEvent"));
    EXPECT_FALSE(c_.Button("chkDetailedDataEvent").isEnabled());
    EXPECT_EQ(scanner_.calls, Calls{"DataEventEnabled 1"});
    c_.Press("chkDetailedDataEventAlways");
    EXPECT_TRUE(c_.Checked("chkDetailedDataEvent"));
    EXPECT_TRUE(c_.Button("chkDetailedDataEvent").isEnabled());
    EXPECT_EQ(scanner_.calls, Calls{"DataEventEnabled 1"});
}

TEST_F(DetailedTest, ALabelIsShownWithItsCodesAndTheBoxUnchecksItself) {
    ChooseScanner();
    c_.Press("chkDetailedDataEvent");
    scanner_.calls.clear();
    scanner_.dataCount = 2;
    scanner_.Scan("AB1", "B1", 108);
    EXPECT_EQ(c_.Text("lblDetailedScanData"), "AB1");
    EXPECT_EQ(c_.Text("lblDetailedScanDataASCII"), "65 66 49");
    EXPECT_EQ(c_.Text("lblDetailedScanDataLabel"), "B1");
    EXPECT_EQ(c_.Text("lblDetailedScanDataType"), "Code 39 (108)");
    EXPECT_EQ(c_.Text("lblDetailedScanDataCount"), "2");
    EXPECT_FALSE(c_.Checked("chkDetailedDataEvent"));
    EXPECT_TRUE(scanner_.calls.empty());
}

TEST_F(DetailedTest, CodesOfNothingAreNothingAndOfOneCharacterOneNumber) {
    ChooseScanner();
    scanner_.Scan("", "", 0);
    EXPECT_EQ(c_.Text("lblDetailedScanDataASCII"), "");
    EXPECT_EQ(c_.Text("lblDetailedScanDataType"), "Unknown (0)");
    scanner_.Scan("\xFF", "", 0);
    EXPECT_EQ(c_.Text("lblDetailedScanDataASCII"), "255");
    scanner_.Scan(std::string("\0\x1D", 2), "", 0);
    EXPECT_EQ(c_.Text("lblDetailedScanDataASCII"), "0 29");
}

TEST_F(DetailedTest, DataEventsStayEnabledWhereThatIsAlwaysWanted) {
    ChooseScanner();
    c_.Press("chkDetailedDataEventAlways");
    scanner_.calls.clear();
    scanner_.Scan("x", "x", 0);
    EXPECT_EQ(scanner_.calls, Calls{"DataEventEnabled 1"});
    EXPECT_TRUE(c_.Checked("chkDetailedDataEvent"));
}

TEST_F(DetailedTest, CloseClearsWhatTheScannerShowed) {
    ChooseScanner();
    c_.Press("cmdDetailedOpen");
    scanner_.Scan("x", "x", 110);
    c_.Press("cmdDetailedClose");
    EXPECT_EQ(State(), "Closed (1)");
    for (const char* name : {"lblDetailedScanData", "lblDetailedScanDataLabel", "lblDetailedScanDataType",
                             "lblDetailedScanDataCount", "lblDetailedScanDataASCII"})
        EXPECT_EQ(c_.Text(name), "") << name;
    EXPECT_FALSE(c_.Timer("tmrDetailedPollScanner").isActive());
    EXPECT_FALSE(lane_->InUse());
}

TEST_F(DetailedTest, ChoosingAnotherProfileClosesTheDeviceFirst) {
    ChooseScanner();
    c_.Press("cmdDetailedOpen");
    scanner_.Scan("x", "x", 110);
    scanner_.calls.clear();
    Choose(c_.List("lstDetailedDeviceName_0"), "Other");
    EXPECT_EQ(scanner_.calls, Calls{"Close"});
    EXPECT_FALSE(lane_->InUse());
    EXPECT_EQ(Result(), "");
    EXPECT_EQ(State(), "");
    EXPECT_EQ(c_.Text("lblDetailedScanDataCount"), "");
    EXPECT_FALSE(c_.Timer("tmrDetailedPollScanner").isActive());
    scanner_.calls.clear();
    Choose(c_.List("lstDetailedDeviceName_0"), "Lane");
    EXPECT_TRUE(scanner_.calls.empty()) << "a closed device is not closed again";
}

TEST_F(DetailedTest, AScannerStaysOpenWhileTheScaleIsLookedAt) {
    ChooseScanner();
    c_.Press("cmdDetailedOpen");
    ChooseScale();
    EXPECT_EQ(scanner_.State(), OposState::Idle);
    EXPECT_TRUE(lane_->InUse());
    c_.Press("cmdDetailedOpen");
    // A scanner profile is deleted meanwhile: that list moves on to its first name.
    c_.List("lstDetailedDeviceName_0").SetListIndex(0);
    EXPECT_EQ(scanner_.State(), OposState::Closed);
    EXPECT_FALSE(lane_->InUse());
    EXPECT_EQ(scale_.State(), OposState::Idle);
    EXPECT_TRUE(scaleProfile_->InUse());
    EXPECT_EQ(State(), "Idle (2)");
}

TEST_F(DetailedTest, OpenShowsTheScalesMaximumAndCloseClearsIt) {
    ChooseScale();
    c_.Press("chkDetailedAsyncScale");
    scale_.Weigh(1);
    c_.Press("cmdDetailedOpen");
    EXPECT_EQ(c_.Text("lblDetailedMaxWeight"), "30.000");
    EXPECT_EQ(c_.Text("lblDetailedWeightData"), "");
    EXPECT_FALSE(c_.Checked("chkDetailedAsyncScale"));
    EXPECT_TRUE(scaleProfile_->InUse());
    EXPECT_FALSE(c_.Timer("tmrDetailedPollScanner").isActive());
    scale_.Weigh(1);
    c_.Press("cmdDetailedClose");
    EXPECT_EQ(c_.Text("lblDetailedMaxWeight"), "");
    EXPECT_EQ(c_.Text("lblDetailedWeightData"), "");
    EXPECT_FALSE(scaleProfile_->InUse());
}

TEST_F(DetailedTest, ReadWeightShowsTheWeightAndLocksItselfForAMoment) {
    ChooseScale();
    scale_.weight = 1234;
    scale_.weightUnit = OposWeightUnit::Pound;
    c_.Press("cmdDetailedScaleWeight");
    EXPECT_EQ(scale_.calls.back(), "ReadWeight 1000");
    EXPECT_EQ(c_.Text("lblDetailedWeightData"), "1.23 lb");
    EXPECT_EQ(Result(), "Success (0)");
    EXPECT_FALSE(c_.Button("cmdDetailedScaleWeight").isEnabled());
    EXPECT_TRUE(WaitUntil([this] { return c_.Button("cmdDetailedScaleWeight").isEnabled(); }));
    EXPECT_FALSE(c_.Timer("tmrDetailScale").isActive());
}

TEST_F(DetailedTest, ReadWeightNeverHandsTheKeyboardToZeroScale) {
    ChooseScale();
    c_.Button("cmdDetailedScaleWeight").setFocus();
    QTest::keyClick(&c_.Button("cmdDetailedScaleWeight"), Qt::Key_Space);
    EXPECT_EQ(page_.window()->focusWidget(), nullptr);
    EXPECT_TRUE(WaitUntil([this] { return page_.window()->focusWidget() == &c_.Button("cmdDetailedScaleWeight"); }));
}

TEST_F(DetailedTest, ReadWeightShowsATimeOutButAnyOtherFailureAsItsWeight) {
    ChooseScale();
    scale_.results["ReadWeight"] = OposResult::Timeout;
    c_.Press("cmdDetailedScaleWeight");
    EXPECT_EQ(c_.Text("lblDetailedWeightData"), "Timed Out (1000 milliseconds)");
    EXPECT_EQ(Result(), "Timeout (112)");
    EXPECT_TRUE(WaitUntil([this] { return c_.Button("cmdDetailedScaleWeight").isEnabled(); }));
    scale_.results["ReadWeight"] = OposResult::Offline;
    c_.Press("cmdDetailedScaleWeight");
    EXPECT_EQ(c_.Text("lblDetailedWeightData"), "0.000 kg");
    EXPECT_EQ(Result(), "Offline (108)");
}

TEST_F(DetailedTest, AnAsynchronousWeightComesAsAnEvent) {
    ChooseScale();
    c_.Press("chkDetailedAsyncScale");
    scale_.calls.clear();
    scale_.weight = 999;
    c_.Press("cmdDetailedScaleWeight");
    EXPECT_EQ(scale_.calls, (Calls{"ReadWeight 1000", "DataEventEnabled 1"}));
    EXPECT_EQ(c_.Text("lblDetailedWeightData"), "");
    scale_.Weigh(2500);
    EXPECT_EQ(c_.Text("lblDetailedWeightData"), "2.500 kg");
}

TEST_F(DetailedTest, AScaleErrorIsShownAsTimedOut) {
    ChooseScale();
    std::int32_t response = OposErrorResponse::Clear;
    scale_.errorHandler(OposResult::Extended, OposScaleExtended::OverWeight, OposErrorLocus::Input, response);
    EXPECT_EQ(Result(), "Extended (114)");
    EXPECT_EQ(c_.Text("lblDetailedWeightData"), "Timed Out (1000 milliseconds)");
    EXPECT_EQ(response, OposErrorResponse::Clear);
}

TEST_F(DetailedTest, EnableNoticesSuppressedZeroWeightsUntilDisable) {
    ChooseScale();
    site_.RejectZeroWeight("1");
    c_.Press("cmdDetailedEnable");
    EXPECT_TRUE(IsShown(c_.Label("lblDetailZeroWeightNotice")));
    EXPECT_TRUE(c_.Text("lblDetailZeroWeightNotice").startsWith("Note, Zero (0) Weight responses"));
    c_.Press("cmdDetailedDisable");
    EXPECT_FALSE(IsShown(c_.Label("lblDetailZeroWeightNotice")));
    Choose(c_.List("lstDetailedDeviceName_1"), "Second");
    c_.Press("cmdDetailedEnable");
    EXPECT_FALSE(IsShown(c_.Label("lblDetailZeroWeightNotice"))) << "not the maker's single-cable scale";
}

TEST_F(DetailedTest, DirectIOWorksOnTheDeviceOfTheClass) {
    ChooseScanner();
    scanner_.results["DirectIO"] = OposResult::Illegal;
    {
        const WhenShown dialog("frmDirectIO", [](QWidget& window) {
            Control<DigitsBox>(window, "txtEventNumber").setText("5");
            Click(Control<QAbstractButton>(window, "cmdSend"));
        });
        c_.Press("cmdDetailedDirectIO");
    }
    EXPECT_EQ(scanner_.command, 5);
    EXPECT_EQ(Result(), "Illegal (106)");
    ChooseScale();
    simpleScale_.results["Close"] = OposResult::Closed;
    simpleScale_.Close();
    const WhenShown dialog("frmDirectIO", [](QWidget& window) { Click(Control<QAbstractButton>(window, "cmdSend")); });
    c_.Press("cmdDetailedDirectIO");
    EXPECT_EQ(scale_.calls.back(), "DirectIO");
    EXPECT_EQ(Result(), "Closed (101)") << "the result code of the Simple Test page's scale";
}

TEST_F(DetailedTest, StatisticsComeFromTheScanner) {
    ChooseScanner();
    scanner_.reply = "<UPOSStat/>";
    scanner_.results["RetrieveStatistics"] = OposResult::Success;
    const WhenShown dialog("frmRetrieveStatistics", [this](QWidget& window) {
        Click(Control<QAbstractButton>(window, "cmdRetrieveStatistics"));
        EXPECT_EQ(Control<QPlainTextEdit>(window, "txtStatBuffString").toPlainText(), "<UPOSStat/>\n");
        EXPECT_EQ(Result(), "Success (0)");
        Click(Control<QAbstractButton>(window, "cmdClose"));
    });
    c_.Press("cmdDetailedRetrieveStatistics");
}
