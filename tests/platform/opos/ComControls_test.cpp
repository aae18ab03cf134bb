// The control objects of Windows, over one of the tests' own.
#include "SimulatedControl.h"
#include "opos/OposControls.h"
#include "support/QueuedDispatcher.h"
#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

namespace {

class ComControls : public testing::Test {
protected:
    ComControls() {
        device_.numbers = {{L"ResultCode", 101},     {L"OpenResult", 0},     {L"State", 1},
                           {L"DataCount", 3},        {L"ScanDataType", 104}, {L"WeightUnit", 4},
                           {L"MaximumWeight", 30000}};
        device_.flags = {{L"DeviceEnabled", false}, {L"DataEventEnabled", false}, {L"Claimed", true}};
        device_.texts = {{L"DeviceName", "Kasse \xC3\xBC"}, {L"ScanData", "A\xC3\xA9\xE2\x82\xAC"}};
        const auto success = [](std::vector<VARIANT*>&) { return 0; };
        device_.methods = {{L"Open", success}, {L"Close", success}, {L"ClaimDevice", success}};
    }

    QueuedDispatcher dispatcher_;
    TemporaryRegistry registry_;
    std::unique_ptr<OposControls> controls_ = OpenSystemControls(registry_, dispatcher_);
    SimulatedDevice device_;
};

class ComScanner : public ComControls {
protected:
    ComScanner() : scanner_(controls_->CreateScanner()) {}

    SimulatedControl installed_{L"OPOS.Scanner", device_};
    std::unique_ptr<OPOSScanner> scanner_;
};

} // namespace

TEST_F(ComControls, ThatAreNotInstalledAreAResultOfOpen) {
    const auto scanner = controls_->CreateScanner();
    EXPECT_EQ(scanner->State(), OposState::Closed);
    EXPECT_EQ(scanner->Open("Lane"), OposResult::NoService);
    EXPECT_EQ(scanner->OpenResult(), OposOpenResult::BadProgId);
    EXPECT_EQ(scanner->ResultCode(), OposResult::Closed);
    EXPECT_EQ(scanner->ClaimDevice(0), OposResult::Closed);
    EXPECT_EQ(scanner->DeviceName(), "[Error]");
    EXPECT_EQ(scanner->ScanData(), "[Error]");
    EXPECT_FALSE(scanner->Claimed());
    scanner->DeviceEnabled(true);
    EXPECT_EQ(scanner->Close(), OposResult::Closed);
}

TEST_F(ComControls, OfAnotherReleaseAreAResultOfOpen) {
    device_.methods.erase(L"ClaimDevice");
    const SimulatedControl installed(L"OPOS.Scale", device_);
    const auto scale = controls_->CreateScale();
    EXPECT_EQ(scale->Open("Lane"), OposResult::NoService);
    EXPECT_EQ(scale->OpenResult(), OposOpenResult::BadInterface);
}

TEST_F(ComControls, ThatAreInstalledMeanwhileAreFoundByTheNextOpen) {
    const auto scanner = controls_->CreateScanner();
    EXPECT_EQ(scanner->Open("Lane"), OposResult::NoService);
    const SimulatedControl installed(L"OPOS.Scanner", device_);
    EXPECT_EQ(scanner->Open("Lane"), OposResult::Success);
    EXPECT_EQ(scanner->OpenResult(), OposOpenResult::Success);
}

TEST_F(ComControls, ReadAWeightThroughAReference) {
    device_.methods[L"ReadWeight"] = [](std::vector<VARIANT*>& arguments) -> std::int32_t {
        if (arguments.size() != 2 || arguments[0]->vt != (VT_BYREF | VT_I4) || arguments[1]->vt != VT_I4)
            return 106;
        *arguments[0]->plVal = arguments[1]->lVal + 235;
        return 0;
    };
    const SimulatedControl installed(L"OPOS.Scale", device_);
    const auto scale = controls_->CreateScale();
    ASSERT_EQ(scale->Open("Lane"), OposResult::Success);
    std::int32_t weight = 0;
    EXPECT_EQ(scale->ReadWeight(weight, 1000), OposResult::Success);
    EXPECT_EQ(weight, 1235);
    EXPECT_EQ(scale->WeightUnit(), OposWeightUnit::Pound);
    EXPECT_EQ(scale->MaximumWeight(), 30000);
    EXPECT_EQ(scale->ZeroScale(), OposResult::Failure) << "this object has no such method";
}

TEST_F(ComScanner, OpensByTheProfilesNameAndReadsProperties) {
    std::wstring opened;
    device_.methods[L"Open"] = [&opened](std::vector<VARIANT*>& arguments) -> std::int32_t {
        opened = arguments.at(0)->bstrVal;
        return 109;
    };
    EXPECT_EQ(scanner_->Open("Kasse \xC3\xBC"), OposResult::NoExist);
    EXPECT_EQ(opened, L"Kasse \u00FC");
    EXPECT_EQ(scanner_->DeviceName(), "Kasse \xC3\xBC");
    EXPECT_EQ(scanner_->DataCount(), 3);
    EXPECT_EQ(scanner_->ScanDataType(), 104);
    EXPECT_TRUE(scanner_->Claimed());
    EXPECT_EQ(scanner_->ScanData(), "A\xE9?") << "one char for each character that a scanner can send";
    EXPECT_EQ(scanner_->ServiceObjectDescription(), "[Error]") << "this object has no such property";
}

TEST_F(ComScanner, WritesFlagsAsProperties) {
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    scanner_->DeviceEnabled(true);
    scanner_->DataEventEnabled(false);
    EXPECT_TRUE(scanner_->DeviceEnabled());
    EXPECT_EQ(device_.log, (std::vector<std::string>{"Open", "DeviceEnabled = true", "DataEventEnabled = false"}));
}

TEST_F(ComScanner, ChangesTheDataAndTheTextOfADirectIO) {
    device_.methods[L"DirectIO"] = [](std::vector<VARIANT*>& arguments) -> std::int32_t {
        *arguments.at(1)->plVal += arguments[0]->lVal;
        SysReAllocString(arguments.at(2)->pbstrVal, (std::wstring(L"<") + *arguments[2]->pbstrVal + L">").c_str());
        return 0;
    };
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    std::int32_t data = 2;
    std::string text = "\xC3\xBC";
    EXPECT_EQ(scanner_->DirectIO(40, data, text), OposResult::Success);
    EXPECT_EQ(data, 42);
    EXPECT_EQ(text, "<\xC3\xBC>");
}

TEST_F(ComScanner, KeepsTheRequestWhereStatisticsFail) {
    device_.methods[L"RetrieveStatistics"] = [](std::vector<VARIANT*>& arguments) -> std::int32_t {
        SysReAllocString(arguments.at(0)->pbstrVal, L"rubbish");
        return 106;
    };
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    std::string buffer = "U_";
    EXPECT_EQ(scanner_->RetrieveStatistics(buffer), OposResult::Illegal);
    EXPECT_EQ(buffer, "U_");
}

TEST_F(ComScanner, FailsWhereTheObjectRefusesTheCall) {
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    device_.refusal = RPC_E_SERVERFAULT;
    EXPECT_EQ(scanner_->ClaimDevice(0), OposResult::Failure);
    EXPECT_EQ(scanner_->ResultCode(), OposResult::Failure);
    EXPECT_EQ(scanner_->DeviceName(), "[Error]");
    device_.refusal = S_OK;
    EXPECT_EQ(scanner_->ClaimDevice(0), OposResult::Success);
    EXPECT_EQ(scanner_->ResultCode(), OposResult::Success);
}

TEST_F(ComScanner, DeliversDataAndStatusByTheIdsOfTheStandard) {
    std::vector<std::string> events;
    scanner_->OnDataEvent([&](std::int32_t status) { events.push_back("data " + std::to_string(status)); });
    scanner_->OnStatusUpdateEvent([&](std::int32_t status) { events.push_back("status " + std::to_string(status)); });
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    EXPECT_TRUE(device_.Fire(1, L"DataEvent", {Long(7)}));
    EXPECT_TRUE(device_.Fire(5, L"StatusUpdateEvent", {Long(2001)}));
    EXPECT_EQ(events, (std::vector<std::string>{"data 7", "status 2001"}));
}

TEST_F(ComScanner, GivesBackWhatAHandlerChanges) {
    scanner_->OnErrorEvent([](std::int32_t code, std::int32_t extended, std::int32_t locus, std::int32_t& response) {
        EXPECT_EQ(code, 114);
        EXPECT_EQ(extended, 201);
        EXPECT_EQ(locus, OposErrorLocus::Input);
        EXPECT_EQ(response, OposErrorResponse::Clear);
        response = OposErrorResponse::Retry;
    });
    scanner_->OnDirectIOEvent([](std::int32_t number, std::int32_t& data, std::string& text) {
        EXPECT_EQ(number, 9);
        ++data;
        text += "!";
    });
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    LONG response = OposErrorResponse::Clear;
    ASSERT_TRUE(device_.Fire(3, L"ErrorEvent", {Long(114), Long(201), Long(2), Reference(response)}));
    EXPECT_EQ(response, OposErrorResponse::Retry);
    LONG data = 1;
    BSTR text = SysAllocString(L"text");
    ASSERT_TRUE(device_.Fire(2, L"DirectIOEvent", {Long(9), Reference(data), Reference(text)}));
    EXPECT_EQ(data, 2);
    EXPECT_STREQ(text, L"text!");
    SysFreeString(text);
}

TEST_F(ComScanner, DeliversWhatAHandlerSetsLooseWhenItHasReturned) {
    std::vector<std::string> events;
    int left = 2;
    device_.written = [this, &left](const std::wstring& property) {
        if (property == L"DataEventEnabled" && left-- > 0)
            device_.Fire(1, L"DataEvent", {Long(0)});
    };
    scanner_->OnDataEvent([&](std::int32_t) {
        events.emplace_back("begin");
        scanner_->DataEventEnabled(true);
        events.emplace_back("end");
    });
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(events, (std::vector<std::string>{"begin", "end", "begin", "end"}));
}

TEST_F(ComScanner, MayBeDestroyedByTheHandlerOfAnEventThatItsOwnCallSetsLoose) {
    device_.written = [this](const std::wstring&) { device_.Fire(1, L"DataEvent", {Long(0)}); };
    scanner_->OnDataEvent([this](std::int32_t) { scanner_.reset(); });
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    scanner_->DataEventEnabled(true);
    EXPECT_EQ(scanner_, nullptr);
    EXPECT_EQ(device_.alive, 0);
    EXPECT_EQ(device_.connected, 0);
}

TEST_F(ComScanner, ReportsAnErrorOutOfAHandlerByTheEventLoop) {
    scanner_->OnDataEvent([](std::int32_t) { throw std::runtime_error("full"); });
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    EXPECT_TRUE(device_.Fire(1, L"DataEvent", {Long(0)}));
    EXPECT_THROW(dispatcher_.Wait(std::chrono::milliseconds(0)), std::runtime_error);
}

TEST_F(ComScanner, ClosesAndLetsGoOfTheObjectAtItsEnd) {
    ASSERT_EQ(scanner_->Open("Lane"), 0);
    EXPECT_EQ(device_.alive, 1);
    EXPECT_EQ(device_.connected, 1);
    scanner_.reset();
    EXPECT_EQ(device_.log.back(), "Close");
    EXPECT_EQ(device_.alive, 0);
    EXPECT_EQ(device_.connected, 0);
}
