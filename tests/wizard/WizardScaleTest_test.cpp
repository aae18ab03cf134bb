#include "WizardFixture.h"

#include "opos/OposConstants.h"

#include <QTimer>

#include <algorithm>

using Calls = std::vector<std::string>;

namespace {

QString SeenLabels(WizardWindow& window) {
    QString seen;
    for (const char* name : {"lblTestScale", "lblWeightCaption", "lblWeight", "lblWizardZeroWeightNotice",
                             "lblDualCableNote", "lblDualCableNext"})
        if (window.Sees(name))
            seen += QString(name).mid(3) + ' ';
    return seen.trimmed();
}

} // namespace

TEST_F(Wizard, ScaleUnderTestIsOpenedClaimedEnabledAndRead) {
    auto& window = OpenAtScaleTest();
    EXPECT_EQ(window.Page(), WizardPage::TestScale);
    Calls calls = Scale().calls;
    calls.erase(calls.begin(), std::ranges::find(calls, "Open LaneScale"));
    EXPECT_EQ(calls, Calls({"Open LaneScale", "ClaimDevice 1000", "DeviceEnabled 1", "AsyncMode 1",
                            "DataEventEnabled 1", "ReadWeight -1"}));
    EXPECT_EQ(window.Text("lblWeight"), "");
    EXPECT_EQ(SeenLabels(window), "TestScale WeightCaption Weight");
}

TEST_F(Wizard, ShowsTheWeightInItsUnit) {
    auto& window = OpenAtScaleTest();
    for (const auto& [unit, text] :
         std::vector<std::pair<std::int32_t, const char*>>{{OposWeightUnit::Pound, "1.23 lb"},
                                                           {OposWeightUnit::Kilogram, "1.234 kg"},
                                                           {OposWeightUnit::Gram, "1.234 kg"},
                                                           {OposWeightUnit::Ounce, "1.234 kg"}}) {
        Scale().weightUnit = unit;
        Scale().Weigh(1234);
        EXPECT_EQ(window.Text("lblWeight"), text);
    }
}

TEST_F(Wizard, ReadsTheNextWeightAfterAWhile) {
    OpenAtScaleTest();
    auto* timer = wizard_->findChild<QTimer*>("tmrWizardScale");
    ASSERT_NE(timer, nullptr);
    EXPECT_EQ(timer->interval(), 350);
    EXPECT_FALSE(timer->isActive());
    Scale().calls.clear();

    Scale().Weigh(1234);
    EXPECT_EQ(Scale().calls, Calls{"DataEventEnabled 1"});
    EXPECT_TRUE(timer->isActive());
    EXPECT_TRUE(WaitUntil([this] { return Scale().calls.size() > 1; }));
    EXPECT_EQ(Scale().calls, Calls({"DataEventEnabled 1", "ReadWeight -1"}));
    EXPECT_FALSE(timer->isActive());
}

TEST_F(Wizard, LeavingTheScaleTestStopsTheReading) {
    auto& window = OpenAtScaleTest();
    Scale().Weigh(1234);
    Scale().calls.clear();
    window.Next();
    EXPECT_FALSE(wizard_->findChild<QTimer*>("tmrWizardScale")->isActive());
    EXPECT_EQ(Scale().calls, Calls{"Close"});
}

TEST_F(Wizard, ClosingItClosesTheScaleUnderTest) {
    OpenAtScaleTest();
    Scale().Weigh(1234);
    Scale().calls.clear();
    wizard_->close();
    EXPECT_EQ(Scale().calls, Calls{"Close"});
    EXPECT_FALSE(wizard_->findChild<QTimer*>("tmrWizardScale")->isActive());
    EXPECT_FALSE(added_[1]->InUse());
}

TEST_F(Wizard, WeightOfAnEarlierTestIsGone) {
    auto& window = OpenAtScaleTest();
    Scale().Weigh(1234);
    window.Back();
    window.Next();
    EXPECT_EQ(window.Text("lblWeight"), "");
}

TEST_F(Wizard, SuppressedZeroWeightsAreTold) {
    for (const auto& [option, told] : std::vector<std::pair<const char*, bool>>{
             {"1", true}, {"01", true}, {"0", false}, {"2", false}, {"", false}}) {
        registry_.Put(DriverOptions, "ZeroWeightReject", option);
        auto& window = OpenAtScaleTest();
        EXPECT_EQ(window.Sees("lblWizardZeroWeightNotice"), told) << option;
    }
}

TEST_F(Wizard, DualCableScaleIsNotTestedHere) {
    registry_.Put(DriverOptions, "ZeroWeightReject", "1");
    auto& window = OpenAtScaleTest(2);
    EXPECT_EQ(window.Page(), WizardPage::TestScale);
    EXPECT_EQ(SeenLabels(window), "DualCableNote DualCableNext");
    EXPECT_EQ(std::ranges::count(Scale().calls, "Open LaneScale"), 0);
    EXPECT_FALSE(added_[1]->InUse());
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::Finished);
}

TEST_F(Wizard, ScaleThatDoesNotOpenIsTriedAgainOnRetry) {
    auto& window = OpenAtScannerTest(1);
    int opened = 0;
    Scale().onOpen = [&] { Scale().openResult = ++opened < 3 ? 401 : 0; };
    const ExpectBox first("Ravlin", WizardTexts::CannotTestScale, QMessageBox::Retry);
    const ExpectBox second("Ravlin", WizardTexts::CannotTestScale, QMessageBox::Retry);
    window.Next();
    EXPECT_EQ(opened, 3);
    EXPECT_EQ(window.Page(), WizardPage::TestScale);
    EXPECT_EQ(Scale().calls.back(), "ReadWeight -1");
}

TEST_F(Wizard, ScaleThatDoesNotOpenIsLeftOutOnCancel) {
    auto& window = OpenAtScannerTest(1);
    Scale().openResult = 401;
    const ExpectBox box("Ravlin", WizardTexts::CannotTestScale, QMessageBox::Cancel);
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::Finished);
    EXPECT_EQ(std::ranges::count(Scale().calls, "ClaimDevice 1000"), 0);
}

TEST_F(Wizard, ScaleThatIsNotReadySaysSo) {
    auto& window = OpenAtScannerTest(1);
    Scale().results["DeviceEnabled"] = OposResult::NoHardware;
    window.Next();
    EXPECT_EQ(window.Text("lblScaleState"), "The scale is not ready: No Hardware (107)");
}

TEST_F(Wizard, FailedReadIsToldAndRepeated) {
    auto& window = OpenAtScaleTest();
    Scale().calls.clear();
    Scale().Weigh(1234);
    EXPECT_TRUE(WaitUntil([this] { return Scale().calls.back() == "ReadWeight -1"; }));
    Scale().calls.clear();
    std::int32_t response = OposErrorResponse::Clear;
    Scale().errorHandler(OposResult::Offline, 0, OposErrorLocus::Input, response);
    EXPECT_EQ(response, OposErrorResponse::Clear);
    EXPECT_EQ(window.Text("lblScaleState"), "The scale is not ready: Offline (108)");
    EXPECT_EQ(window.Text("lblWeight"), "");
    EXPECT_TRUE(WaitUntil([this] { return !Scale().calls.empty(); }));
    EXPECT_EQ(Scale().calls, Calls{"ReadWeight -1"});
    Scale().Weigh(500);
    EXPECT_EQ(window.Text("lblScaleState"), "");
    EXPECT_EQ(window.Text("lblWeight"), "0.500 kg");
}

TEST_F(Wizard, ScaleWithoutAsynchronousModeDoesNotHoldUpTheWindow) {
    auto& window = OpenAtScannerTest(1);
    Scale().results["AsyncMode"] = OposResult::Illegal;
    window.Next();
    EXPECT_EQ(window.Page(), WizardPage::TestScale);
    EXPECT_EQ(std::ranges::count(Scale().calls, "ReadWeight -1"), 0);
}
