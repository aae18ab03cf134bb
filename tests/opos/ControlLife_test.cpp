// The life of a control object: opening, its properties, the claim.
#include "opos/ContractLane.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

class OposContract : public ::testing::Test {
protected:
    std::unique_ptr<ContractLane> lane_ = MakeContractLane();
    std::unique_ptr<OPOSScanner> scanner_ = lane_->Controls().CreateScanner();
    std::unique_ptr<OPOSScale> scale_ = lane_->Controls().CreateScale();
};

void ExpectClosed(const OposControl& control) {
    EXPECT_EQ(control.State(), OposState::Closed);
    EXPECT_EQ(control.ResultCode(), OposResult::Closed);
    EXPECT_EQ(control.ResultCodeExtended(), 0);
    EXPECT_EQ(control.DataCount(), 0);
    EXPECT_EQ(control.ServiceObjectVersion(), 0);
    EXPECT_EQ(control.DeviceName(), "[Error]");
    EXPECT_EQ(control.DeviceDescription(), "[Error]");
    EXPECT_EQ(control.ServiceObjectDescription(), "[Error]");
    EXPECT_FALSE(control.Claimed());
    EXPECT_FALSE(control.DeviceEnabled());
    EXPECT_FALSE(control.DataEventEnabled());
    EXPECT_FALSE(control.AutoDisable());
    EXPECT_FALSE(control.FreezeEvents());
}

void ExpectControlObjectDescribed(const OposControl& control) {
    EXPECT_EQ(control.ControlObjectVersion() / 1000, 1008);
    EXPECT_FALSE(control.ControlObjectDescription().empty());
    EXPECT_NE(control.ControlObjectDescription(), "[Error]");
}

void ExpectOpened(const OposControl& control) {
    EXPECT_EQ(control.OpenResult(), 0);
    EXPECT_EQ(control.State(), OposState::Idle);
    EXPECT_EQ(control.ResultCode(), 0);
    EXPECT_EQ(control.DataCount(), 0);
    EXPECT_EQ(control.ServiceObjectVersion() / 1000000, 1);
    EXPECT_FALSE(control.DeviceName().empty());
    EXPECT_FALSE(control.DeviceDescription().empty());
    EXPECT_FALSE(control.ServiceObjectDescription().empty());
    EXPECT_FALSE(control.Claimed());
    EXPECT_FALSE(control.DeviceEnabled());
    EXPECT_FALSE(control.DataEventEnabled());
    EXPECT_FALSE(control.AutoDisable());
    EXPECT_FALSE(control.FreezeEvents());
}

} // namespace

TEST_F(OposContract, AClosedScannerReadsAsNothing) {
    ExpectClosed(*scanner_);
    EXPECT_FALSE(scanner_->DecodeData());
    EXPECT_EQ(scanner_->ScanData(), "[Error]");
    EXPECT_EQ(scanner_->ScanDataLabel(), "[Error]");
    EXPECT_EQ(scanner_->ScanDataType(), 0);
    ExpectControlObjectDescribed(*scanner_);
}

TEST_F(OposContract, AClosedScaleReadsAsNothing) {
    ExpectClosed(*scale_);
    EXPECT_FALSE(scale_->AsyncMode());
    EXPECT_EQ(scale_->MaximumWeight(), 0);
    EXPECT_EQ(scale_->WeightUnit(), 0);
    ExpectControlObjectDescribed(*scale_);
}

TEST_F(OposContract, AnOpenedScannerHasTheDefaults) {
    EXPECT_EQ(scanner_->Open(ContractLane::ScannerName), 0);
    ExpectOpened(*scanner_);
    EXPECT_FALSE(scanner_->DecodeData());
    EXPECT_EQ(scanner_->ScanData(), "");
    EXPECT_EQ(scanner_->ScanDataLabel(), "");
    EXPECT_EQ(scanner_->ScanDataType(), 0);
    ExpectControlObjectDescribed(*scanner_);
}

TEST_F(OposContract, AnOpenedScaleHasTheDefaults) {
    EXPECT_EQ(scale_->Open(ContractLane::ScaleName), 0);
    ExpectOpened(*scale_);
    EXPECT_FALSE(scale_->AsyncMode());
    EXPECT_EQ(scale_->MaximumWeight(), 30000);
    EXPECT_EQ(scale_->WeightUnit(), OposWeightUnit::Kilogram);
}

TEST_F(OposContract, WhatWasSetIsBackAtTheDefaultsWithTheNextOpen) {
    scanner_->Open(ContractLane::ScannerName);
    scanner_->DataEventEnabled(true);
    scanner_->AutoDisable(true);
    scanner_->FreezeEvents(true);
    scanner_->DecodeData(true);
    EXPECT_TRUE(scanner_->DataEventEnabled() && scanner_->AutoDisable() && scanner_->FreezeEvents() &&
                scanner_->DecodeData());
    EXPECT_EQ(scanner_->Close(), 0);
    ExpectClosed(*scanner_);
    scanner_->Open(ContractLane::ScannerName);
    ExpectOpened(*scanner_);
    EXPECT_FALSE(scanner_->DecodeData());
}

TEST_F(OposContract, ANameWithoutProfileDoesNotExist) {
    for (const std::string& name : {std::string("Nobody"), std::string(), std::string(256, 'x')}) {
        EXPECT_EQ(scanner_->Open(name), OposResult::NoExist) << name;
        EXPECT_EQ(scanner_->OpenResult(), OposOpenResult::RegistryBadName) << name;
        ExpectClosed(*scanner_);
    }
}

TEST_F(OposContract, AProfileOfTheOtherClassDoesNotExist) {
    EXPECT_EQ(scale_->Open(ContractLane::ScannerName), OposResult::NoExist);
    EXPECT_EQ(scale_->OpenResult(), OposOpenResult::RegistryBadName);
}

TEST_F(OposContract, AForeignServiceObjectIsNoService) {
    EXPECT_EQ(scanner_->Open(ContractLane::ForeignScannerName), OposResult::NoService);
    EXPECT_EQ(scanner_->OpenResult(), OposOpenResult::BadProgId);
    ExpectClosed(*scanner_);
}

TEST_F(OposContract, OpeningAnOpenControlIsRecordedInItsOpenResult) {
    scanner_->Open(ContractLane::ScannerName);
    EXPECT_EQ(scanner_->Open(ContractLane::ScannerName), OposResult::Illegal);
    EXPECT_EQ(scanner_->OpenResult(), OposOpenResult::AlreadyOpen);
    EXPECT_EQ(scanner_->ResultCode(), OposResult::Illegal);
    EXPECT_EQ(scanner_->State(), OposState::Idle);
}

TEST_F(OposContract, AClaimedDeviceIsFreeAgainAfterReleaseCloseAndDestruction) {
    const auto other = lane_->Controls().CreateScanner();
    other->Open(ContractLane::ScannerName);
    scanner_->Open(ContractLane::ScannerName);
    scanner_->ClaimDevice(0);
    EXPECT_TRUE(scanner_->Claimed());
    EXPECT_EQ(other->ClaimDevice(0), OposResult::Timeout);
    scanner_->ReleaseDevice();
    EXPECT_EQ(other->ClaimDevice(0), 0);
    other->Close();
    EXPECT_EQ(scanner_->ClaimDevice(0), 0);
    scanner_.reset();
    other->Open(ContractLane::ScannerName);
    EXPECT_EQ(other->ClaimDevice(0), 0);
}

TEST_F(OposContract, AClaimWaitsUntilTheDeviceIsFree) {
    const auto other = lane_->Controls().CreateScanner();
    other->Open(ContractLane::ScannerName);
    scanner_->Open(ContractLane::ScannerName);
    for (const std::int32_t timeout : {-1, 10'000}) {
        other->ClaimDevice(0);
        lane_->Dispatcher().Post([&other] { other->ReleaseDevice(); });
        EXPECT_EQ(scanner_->ClaimDevice(timeout), 0);
        scanner_->ReleaseDevice();
    }
}

TEST_F(OposContract, AWrittenPropertyLeavesItsOwnResult) {
    scanner_->Open(ContractLane::ScannerName);
    const std::vector<std::function<void()>> writes = {
        [this] { scanner_->DataEventEnabled(true); }, [this] { scanner_->AutoDisable(true); },
        [this] { scanner_->FreezeEvents(true); }, [this] { scanner_->DecodeData(true); }};
    for (const auto& write : writes) {
        EXPECT_EQ(scanner_->ReleaseDevice(), OposResult::Illegal);
        write();
        EXPECT_EQ(scanner_->ResultCode(), OposResult::Success);
    }
}

TEST_F(OposContract, AClaimWithoutLimitEndsWhenItsControlIsClosed) {
    const auto other = lane_->Controls().CreateScanner();
    other->Open(ContractLane::ScannerName);
    other->ClaimDevice(0);
    scanner_->Open(ContractLane::ScannerName);
    lane_->Dispatcher().Post([this] { scanner_->Close(); });
    EXPECT_EQ(scanner_->ClaimDevice(-1), OposResult::Closed);
    EXPECT_EQ(other->ReleaseDevice(), 0);
}

TEST_F(OposContract, ReleaseDisablesAndForgetsInput) {
    scanner_->Open(ContractLane::ScannerName);
    scanner_->ClaimDevice(0);
    scanner_->DeviceEnabled(true);
    lane_->Scan("]E05018374827715");
    ASSERT_TRUE(lane_->RunUntil([this] { return scanner_->DataCount() == 1; }));
    scanner_->ReleaseDevice();
    EXPECT_FALSE(scanner_->Claimed());
    EXPECT_FALSE(scanner_->DeviceEnabled());
    EXPECT_EQ(scanner_->DataCount(), 0);
    EXPECT_EQ(scanner_->State(), OposState::Idle);
}

TEST_F(OposContract, AScaleWithoutAsynchronousModeRefusesIt) {
    scale_->Open(ContractLane::SynchronousScaleName);
    scale_->AsyncMode(true);
    EXPECT_EQ(scale_->ResultCode(), OposResult::Illegal);
    EXPECT_FALSE(scale_->AsyncMode());
    scale_->AsyncMode(false);
    EXPECT_EQ(scale_->ResultCode(), 0);
}
