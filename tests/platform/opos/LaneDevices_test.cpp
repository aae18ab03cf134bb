// The native service objects against the devices of the virtual lane: both sides of the same line agree.
#include "lane/Lane.h"
#include "platform/opos/LineThread.h"
#include "platform/opos/OposSite.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Unit = VirtualScale::Unit;

class LaneDevices : public ::testing::Test {
protected:
    LaneDevices() {
        Do([this] {
            lane_ = std::make_unique<Lane>(loop_.Context(), LaneOptions{site_.ports.Directory()},
                                           [](const std::string&) {});
            lane_->PutScanner(1, 16, "");
            lane_->PutScale(1);
            lane_->PutScale(2);
        });
        site_.SaveScanner("Scanner", 1);
        site_.SaveScale("Single-cable", 1);
        site_.SaveScaleAs<CAveryScale>("Dual-cable", 2);
    }
    ~LaneDevices() override {
        Do([this] { lane_.reset(); });
    }

    // Does it where the lane lives.
    template<class Work>
    void Do(Work work) {
        const auto done = loop_.Call([&work] {
            work();
            return true;
        });
        EXPECT_TRUE(done.has_value());
    }
    static void Enable(OposControl& control, const std::string& profile) {
        ASSERT_EQ(control.Open(profile), 0);
        ASSERT_EQ(control.ClaimDevice(0), 0);
        control.DeviceEnabled(true);
        ASSERT_EQ(control.ResultCode(), 0);
    }
    void EnableScale(const std::string& profile) { Enable(*scale_, profile); }
    std::int32_t Read(std::int32_t timeout) { return scale_->ReadWeight(weight_, timeout); }

    OposSite site_;
    LineThread loop_;
    std::unique_ptr<Lane> lane_;
    std::unique_ptr<OPOSScanner> scanner_ = site_.controls->CreateScanner();
    std::unique_ptr<OPOSScale> scale_ = site_.controls->CreateScale();
    std::int32_t weight_ = -1;
};

} // namespace

TEST_F(LaneDevices, ScanAndWeighOnASingleCable) {
    Enable(*scanner_, "Scanner");
    EnableScale("Single-cable");
    scanner_->DecodeData(true);
    std::vector<std::string> labels;
    scanner_->OnDataEvent([&](std::int32_t) {
        labels.push_back(scanner_->ScanDataLabel());
        EXPECT_EQ(scanner_->ScanDataType(), OposSymbology::Ean13);
        scanner_->DataEventEnabled(true);
    });
    scanner_->DataEventEnabled(true);
    Do([this] { lane_->Weigh(1, "1.235", Unit::Kilogram); });
    for (int times = 0; times < 5; ++times) {
        Do([this] { lane_->Scan(1, "]E05018374827715"); });
        EXPECT_EQ(Read(1000), 0);
        EXPECT_EQ(weight_, 1235);
    }
    EXPECT_TRUE(site_.dispatcher.RunUntil([&] { return labels.size() == 5; }));
}

TEST_F(LaneDevices, WeighOnACableOfTheirOwn) {
    EnableScale("Dual-cable");
    Do([this] { lane_->Weigh(2, "12.34", Unit::Pound); });
    EXPECT_EQ(Read(1000), 0);
    EXPECT_EQ(weight_, 12340);
    Do([this] { lane_->Weigh(2, "30.001", Unit::Kilogram); });
    EXPECT_EQ(Read(1000), OposResult::Extended);
    Do([this] { lane_->Weigh(2, "-0.5", Unit::Kilogram); });
    EXPECT_EQ(Read(0), OposResult::Timeout);
    Do([this] { lane_->BecomeUnstable(2); });
    EXPECT_EQ(Read(200), OposResult::Timeout);
    Do([this] { lane_->Mute(2, true); });
    EXPECT_EQ(Read(-1), OposResult::Offline);
}

TEST_F(LaneDevices, AreZeroedWithinTheirRange) {
    EnableScale("Single-cable");
    Do([this] { lane_->Weigh(1, "0.1", Unit::Kilogram); });
    EXPECT_EQ(scale_->ZeroScale(), 0);
    EXPECT_EQ(Read(1000), 0);
    EXPECT_EQ(weight_, 0);
    Do([this] { lane_->Weigh(1, "5", Unit::Kilogram); });
    EXPECT_EQ(scale_->ZeroScale(), OposResult::Failure);
}

TEST_F(LaneDevices, ComeBackWhenTheyArePluggedInAgain) {
    Enable(*scanner_, "Scanner");
    std::int32_t error = 0;
    scanner_->OnErrorEvent([&](std::int32_t code, std::int32_t, std::int32_t, std::int32_t&) { error = code; });
    scanner_->DataEventEnabled(true);
    Do([this] { lane_->Unplug(1); });
    ASSERT_TRUE(site_.dispatcher.RunUntil([&] { return error == OposResult::Offline; }));
    Do([this] { lane_->Plug(1); });
    std::int32_t data = 0;
    std::string text;
    ASSERT_TRUE(site_.dispatcher.RunUntil([&] { return scanner_->DirectIO(1, data, text) == 0 && data == 1; }));
    Do([this] { lane_->Scan(1, "LABEL"); });
    ASSERT_TRUE(site_.dispatcher.RunUntil([this] { return scanner_->ScanData() == "LABEL"; }));
}
