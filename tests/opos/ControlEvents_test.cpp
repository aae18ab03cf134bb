// How a control object delivers what its device reads.
#include "opos/ContractLane.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct ReportedError {
    std::int32_t resultCode;
    std::int32_t extended;
    std::int32_t locus;
    std::int32_t response;
    bool operator==(const ReportedError&) const = default;
};

class ScannerEvents : public ::testing::Test {
protected:
    ScannerEvents() {
        scanner_->Open(ContractLane::ScannerName);
        scanner_->ClaimDevice(0);
        scanner_->DeviceEnabled(true);
        EXPECT_EQ(scanner_->ResultCode(), 0);
        scanner_->OnDataEvent([this](std::int32_t status) {
            EXPECT_EQ(status, 0);
            EXPECT_FALSE(scanner_->DataEventEnabled());
            labels_.push_back(scanner_->ScanData());
        });
    }

    bool ScanAndQueue(const std::string& symbol) {
        const std::int32_t before = scanner_->DataCount();
        lane_->Scan(symbol);
        return lane_->RunUntil([this, before] { return scanner_->DataCount() == before + 1; });
    }

    std::unique_ptr<ContractLane> lane_ = MakeContractLane();
    std::unique_ptr<OPOSScanner> scanner_ = lane_->Controls().CreateScanner();
    std::vector<std::string> labels_;
};

class ScaleEvents : public ::testing::Test {
protected:
    ScaleEvents() {
        scale_->Open(ContractLane::ScaleName);
        scale_->ClaimDevice(0);
        scale_->DeviceEnabled(true);
        EXPECT_EQ(scale_->ResultCode(), 0);
        scale_->OnDataEvent([this](std::int32_t status) { weights_.push_back(status); });
        scale_->OnErrorEvent(
            [this](std::int32_t code, std::int32_t extended, std::int32_t locus, std::int32_t& response) {
                EXPECT_EQ(scale_->State(), OposState::Error);
                errors_.push_back({code, extended, locus, response});
            });
    }

    std::unique_ptr<ContractLane> lane_ = MakeContractLane();
    std::unique_ptr<OPOSScale> scale_ = lane_->Controls().CreateScale();
    std::vector<std::int32_t> weights_;
    std::vector<ReportedError> errors_;
    std::int32_t weight_ = -1;
};

} // namespace

TEST_F(ScannerEvents, WaitUntilDataEventsAreEnabled) {
    ASSERT_TRUE(ScanAndQueue("]C0FIRST"));
    EXPECT_TRUE(labels_.empty());
    EXPECT_EQ(scanner_->ScanData(), "");
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(labels_, std::vector<std::string>{"FIRST"});
    EXPECT_EQ(scanner_->DataCount(), 0);
    EXPECT_FALSE(scanner_->DataEventEnabled());
}

TEST_F(ScannerEvents, ComeOneForEachEnablingInOrder) {
    ASSERT_TRUE(ScanAndQueue("]C0FIRST") && ScanAndQueue("]C0SECOND"));
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(labels_, std::vector<std::string>{"FIRST"});
    EXPECT_EQ(scanner_->DataCount(), 1);
    EXPECT_EQ(scanner_->ScanData(), "FIRST");
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(labels_, (std::vector<std::string>{"FIRST", "SECOND"}));
}

TEST_F(ScannerEvents, NeverNestWhenAHandlerEnablesThem) {
    int depth = 0;
    scanner_->OnDataEvent([&](std::int32_t) {
        ++depth;
        EXPECT_EQ(depth, 1);
        labels_.push_back(scanner_->ScanData());
        scanner_->DataEventEnabled(true);
        --depth;
    });
    ASSERT_TRUE(ScanAndQueue("]C0A") && ScanAndQueue("]C0B") && ScanAndQueue("]C0C"));
    scanner_->DataEventEnabled(true);
    ASSERT_TRUE(lane_->RunUntil([this] { return labels_.size() == 3; }));
    EXPECT_EQ(labels_, (std::vector<std::string>{"A", "B", "C"}));
}

TEST_F(ScannerEvents, AreHeldBackWhileFrozen) {
    scanner_->FreezeEvents(true);
    scanner_->DataEventEnabled(true);
    ASSERT_TRUE(ScanAndQueue("]C0FIRST"));
    EXPECT_TRUE(labels_.empty());
    scanner_->FreezeEvents(false);
    EXPECT_EQ(labels_.size(), 1U);
}

TEST_F(ScannerEvents, DisableTheDeviceWithAutoDisable) {
    scanner_->AutoDisable(true);
    ASSERT_TRUE(ScanAndQueue("]C0FIRST"));
    EXPECT_FALSE(scanner_->DeviceEnabled());
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(labels_.size(), 1U);
    scanner_->DeviceEnabled(true);
    EXPECT_EQ(scanner_->ResultCode(), 0);
    ASSERT_TRUE(ScanAndQueue("]C0SECOND"));
}

TEST_F(ScannerEvents, QueuedBeforeDisablingAreDeliveredAfterIt) {
    ASSERT_TRUE(ScanAndQueue("]C0FIRST"));
    scanner_->DeviceEnabled(false);
    EXPECT_EQ(scanner_->DataCount(), 1);
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(labels_.size(), 1U);
}

TEST_F(ScannerEvents, DoNotComeFromADisabledDevice) {
    scanner_->DeviceEnabled(false);
    lane_->Scan("]C0LOST");
    scanner_->DeviceEnabled(true);
    ASSERT_TRUE(ScanAndQueue("]C0SEEN"));
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(labels_, std::vector<std::string>{"SEEN"});
}

TEST_F(ScannerEvents, AreDroppedByClearInput) {
    ASSERT_TRUE(ScanAndQueue("]C0FIRST"));
    EXPECT_EQ(scanner_->ClearInput(), 0);
    EXPECT_EQ(scanner_->DataCount(), 0);
    scanner_->DataEventEnabled(true);
    EXPECT_TRUE(labels_.empty());
}

TEST_F(ScannerEvents, LeaveLabelAndTypeEmptyWithoutDecoding) {
    ASSERT_TRUE(ScanAndQueue("]E00012345678905"));
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(scanner_->ScanData(), "0012345678905");
    EXPECT_EQ(scanner_->ScanDataLabel(), "");
    EXPECT_EQ(scanner_->ScanDataType(), 0);
}

TEST_F(ScannerEvents, FillLabelAndTypeWithDecoding) {
    scanner_->DecodeData(true);
    ASSERT_TRUE(ScanAndQueue("]E00012345678905"));
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(scanner_->ScanData(), "0012345678905");
    EXPECT_EQ(scanner_->ScanDataLabel(), "012345678905");
    EXPECT_EQ(scanner_->ScanDataType(), OposSymbology::UpcA);
}

TEST_F(ScannerEvents, MayCloseTheControl) {
    scanner_->OnDataEvent([this](std::int32_t) { scanner_->Close(); });
    ASSERT_TRUE(ScanAndQueue("]C0A") && ScanAndQueue("]C0B"));
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(scanner_->State(), OposState::Closed);
}

TEST_F(ScannerEvents, MayDestroyTheControl) {
    scanner_->OnDataEvent([this](std::int32_t) { scanner_.reset(); });
    ASSERT_TRUE(ScanAndQueue("]C0A") && ScanAndQueue("]C0B"));
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(scanner_, nullptr);
}

TEST_F(ScaleEvents, DoNotComeFromSynchronousReads) {
    lane_->Weigh(1235);
    scale_->DataEventEnabled(true);
    EXPECT_EQ(scale_->ReadWeight(weight_, 1000), 0);
    EXPECT_EQ(weight_, 1235);
    EXPECT_TRUE(scale_->DataEventEnabled());
    EXPECT_TRUE(weights_.empty());
}

TEST_F(ScaleEvents, BringTheWeightOfAsynchronousReads) {
    lane_->Weigh(1235);
    scale_->AsyncMode(true);
    scale_->DataEventEnabled(true);
    EXPECT_EQ(scale_->ReadWeight(weight_, -1), 0);
    ASSERT_TRUE(lane_->RunUntil([this] { return !weights_.empty(); }));
    EXPECT_EQ(weights_, std::vector<std::int32_t>{1235});
    EXPECT_FALSE(scale_->DataEventEnabled());
    EXPECT_EQ(scale_->State(), OposState::Idle);
}

TEST_F(ScaleEvents, ComeFromOneReadAtATime) {
    lane_->Weigh(-1);
    scale_->AsyncMode(true);
    EXPECT_EQ(scale_->ReadWeight(weight_, -1), 0);
    EXPECT_EQ(scale_->ReadWeight(weight_, -1), OposResult::Busy);
    EXPECT_EQ(scale_->ZeroScale(), OposResult::Busy);
    scale_->DataEventEnabled(true);
    lane_->Weigh(500);
    ASSERT_TRUE(lane_->RunUntil([this] { return !weights_.empty(); }));
    EXPECT_EQ(scale_->ReadWeight(weight_, -1), 0);
}

TEST_F(ScaleEvents, TimeOutWithoutStableWeight) {
    lane_->Weigh(-1);
    EXPECT_EQ(scale_->ReadWeight(weight_, 400), OposResult::Timeout);
    EXPECT_EQ(weight_, 0);
    EXPECT_EQ(scale_->ReadWeight(weight_, 0), OposResult::Timeout);
    scale_->AsyncMode(true);
    scale_->DataEventEnabled(true);
    EXPECT_EQ(scale_->ReadWeight(weight_, 400), 0);
    ASSERT_TRUE(lane_->RunUntil([this] { return !errors_.empty(); }));
    EXPECT_EQ(errors_,
              (std::vector<ReportedError>{{OposResult::Timeout, 0, OposErrorLocus::Input, OposErrorResponse::Clear}}));
    EXPECT_EQ(scale_->State(), OposState::Idle);
}

TEST_F(ScaleEvents, TellOfAnOverload) {
    lane_->Overload();
    EXPECT_EQ(scale_->ReadWeight(weight_, 1000), OposResult::Extended);
    EXPECT_EQ(scale_->ResultCodeExtended(), OposScaleExtended::OverWeight);
    scale_->AsyncMode(true);
    scale_->DataEventEnabled(true);
    scale_->ReadWeight(weight_, 1000);
    ASSERT_TRUE(lane_->RunUntil([this] { return !errors_.empty(); }));
    EXPECT_EQ(errors_[0].resultCode, OposResult::Extended);
    EXPECT_EQ(errors_[0].extended, OposScaleExtended::OverWeight);
}

TEST_F(ScaleEvents, TellOfASilentScale) {
    lane_->MuteScales();
    EXPECT_EQ(scale_->ReadWeight(weight_, 5000), OposResult::Offline);
    EXPECT_EQ(scale_->ZeroScale(), OposResult::Offline);
}

TEST_F(ScaleEvents, LeaveTheErrorStateWithClearInput) {
    lane_->Overload();
    scale_->AsyncMode(true);
    scale_->ReadWeight(weight_, 1000);
    ASSERT_TRUE(lane_->RunUntil([this] { return scale_->State() == OposState::Error; }));
    EXPECT_EQ(scale_->ClearInput(), 0);
    EXPECT_EQ(scale_->State(), OposState::Idle);
    scale_->DataEventEnabled(true);
    EXPECT_TRUE(errors_.empty());
}

TEST_F(ScaleEvents, EndWithTheDeviceDisabled) {
    lane_->Weigh(-1);
    scale_->AsyncMode(true);
    scale_->DataEventEnabled(true);
    EXPECT_EQ(scale_->ReadWeight(weight_, -1), 0);
    scale_->DeviceEnabled(false);
    scale_->DeviceEnabled(true);
    lane_->Weigh(700);
    EXPECT_EQ(scale_->ReadWeight(weight_, -1), 0);
    ASSERT_TRUE(lane_->RunUntil([this] { return !weights_.empty(); }));
    EXPECT_EQ(weights_, std::vector<std::int32_t>{700});
}

TEST_F(ScaleEvents, ASynchronousReadWithoutLimitEndsWhenTheControlIsClosed) {
    lane_->Weigh(-1);
    lane_->Dispatcher().Post([this] { scale_->Close(); });
    EXPECT_EQ(scale_->ReadWeight(weight_, -1), OposResult::Closed);
}

TEST_F(ScaleEvents, AReadIsTriedAgainWhenTheHandlerAsksForIt) {
    lane_->Overload();
    scale_->OnErrorEvent([this](std::int32_t, std::int32_t, std::int32_t, std::int32_t& response) {
        lane_->Weigh(250);
        response = OposErrorResponse::Retry;
    });
    scale_->AsyncMode(true);
    scale_->DataEventEnabled(true);
    scale_->ReadWeight(weight_, -1);
    ASSERT_TRUE(lane_->RunUntil([this] { return !weights_.empty(); }));
    EXPECT_EQ(weights_, std::vector<std::int32_t>{250});
}
