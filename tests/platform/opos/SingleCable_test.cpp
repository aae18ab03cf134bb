// A scanner and a scale on one line.
#include "platform/opos/OposSite.h"
#include "platform/opos/SimulatedScale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <vector>

namespace {

using Simulated = SimulatedScale;

class SingleCable : public ::testing::Test {
protected:
    SingleCable() {
        site_.SaveScanner("Scanner", 1);
        site_.SaveScale("Scale", 1);
        for (OposControl* control :
             {static_cast<OposControl*>(scanner_.get()), static_cast<OposControl*>(scale_.get())}) {
            EXPECT_EQ(control->Open(control == scanner_.get() ? "Scanner" : "Scale"), 0);
            EXPECT_EQ(control->ClaimDevice(0), 0);
            control->DeviceEnabled(true);
            EXPECT_EQ(control->ResultCode(), 0);
        }
        scanner_->OnDataEvent([this](std::int32_t) {
            labels_.push_back(scanner_->ScanData());
            scanner_->DataEventEnabled(true);
        });
        scanner_->DataEventEnabled(true);
    }

    std::int32_t Read(std::int32_t timeout = 1000) { return scale_->ReadWeight(weight_, timeout); }
    bool HasLabels(const std::vector<std::string>& expected) {
        return site_.dispatcher.RunUntil([&] { return labels_.size() >= expected.size(); }) && labels_ == expected;
    }

    OposSite site_;
    PseudoTerminal line_{site_.ports, 1};
    Simulated device_{line_, [](char) { return Simulated::Frame("01.235"); }};
    std::unique_ptr<OPOSScanner> scanner_ = site_.controls->CreateScanner();
    std::unique_ptr<OPOSScale> scale_ = site_.controls->CreateScale();
    std::vector<std::string> labels_;
    std::int32_t weight_ = -1;
};

} // namespace

TEST_F(SingleCable, CarriesLabelsAndWeights) {
    line_.Send("]C0FIRST\r");
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(weight_, 1235);
    line_.Send("]C0SECOND\r");
    EXPECT_TRUE(HasLabels({"FIRST", "SECOND"}));
}

TEST_F(SingleCable, LosesNoLabelBetweenAQuestionAndItsAnswer) {
    device_.AnswerWith([](char) {
        return "]E05018374827715\r\x02]C0WITH STX\r\x02"
               "5018374827715\r" +
               Simulated::Frame("02.500") + "NEXT\r";
    });
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(weight_, 2500);
    EXPECT_TRUE(HasLabels({"5018374827715", "WITH STX", "5018374827715", "NEXT"}));
}

TEST_F(SingleCable, TakesAnAnswerLikeLineForALabelWhenNobodyAsked) {
    line_.Send(Simulated::Frame("12.34"));
    EXPECT_TRUE(HasLabels({"12.34"}));
}

TEST_F(SingleCable, AsksAgainForADamagedAnswer) {
    std::atomic<int> asked = 0;
    device_.AnswerWith([&asked](char) { return Simulated::Frame(++asked == 1 ? "0#.500" : "02.500"); });
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(weight_, 2500);
    line_.Send("LABEL\r");
    EXPECT_TRUE(HasLabels({"LABEL"}));
}

TEST_F(SingleCable, MakesNoLabelOfALateAnswer) {
    device_.AnswerWith([](char) { return std::string(); });
    EXPECT_EQ(Read(20), OposResult::Timeout);
    line_.Send(Simulated::Frame("02.500") + "LABEL\r");
    EXPECT_TRUE(HasLabels({"LABEL"}));
}

TEST_F(SingleCable, KeepsTheScannerWhenTheScaleCloses) {
    scale_->Close();
    line_.Send("LABEL\r");
    EXPECT_TRUE(HasLabels({"LABEL"}));
}

TEST_F(SingleCable, KeepsTheScaleWhenTheScannerIsDisabled) {
    scanner_->DeviceEnabled(false);
    EXPECT_EQ(Read(), 0);
    scanner_->DeviceEnabled(true);
    scanner_->DataEventEnabled(true);
    line_.Send("LABEL\r");
    EXPECT_TRUE(HasLabels({"LABEL"}));
}

TEST_F(SingleCable, LosesAndRepeatsNothingUnderLoad) {
    constexpr std::size_t Count = 2000;
    std::vector<std::string> expected;
    for (std::size_t number = 0; number < Count; ++number)
        expected.push_back("LABEL" + std::to_string(number));
    std::vector<std::int32_t> weights;
    scale_->AsyncMode(true);
    scale_->OnDataEvent([&](std::int32_t status) {
        weights.push_back(status);
        scale_->DataEventEnabled(true);
        scale_->ReadWeight(weight_, -1);
    });
    scale_->DataEventEnabled(true);
    scale_->ReadWeight(weight_, -1);
    std::jthread device([this, &expected] {
        for (const std::string& label : expected)
            line_.Send(label + "\r");
    });
    ASSERT_TRUE(site_.dispatcher.RunUntil([&] { return labels_.size() >= Count && weights.size() >= 10; }));
    EXPECT_EQ(labels_, expected);
    EXPECT_TRUE(std::ranges::all_of(weights, [](std::int32_t weight) { return weight == 1235; }));
}

TEST_F(SingleCable, TellsBothWhenItIsUnplugged) {
    std::vector<std::int32_t> errors;
    scanner_->OnErrorEvent(
        [&](std::int32_t code, std::int32_t, std::int32_t, std::int32_t&) { errors.push_back(code); });
    device_.AnswerWith([](char) { return Simulated::Status(1); });
    site_.dispatcher.Post([this] {
        device_.Stop();
        line_.Unplug();
    });
    EXPECT_EQ(Read(-1), OposResult::Offline);
    ASSERT_TRUE(site_.dispatcher.RunUntil([&] { return !errors.empty(); }));
    EXPECT_EQ(errors, std::vector<std::int32_t>{OposResult::Offline});
}
