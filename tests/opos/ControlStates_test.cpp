// What every method and every property write of a control object gives in every state it can be in.
#include "opos/ContractLane.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <vector>

namespace {

enum class ControlState { Closed, Opened, ClaimedByAnother, Claimed, Enabled };
constexpr std::array ControlStates = {ControlState::Closed, ControlState::Opened, ControlState::ClaimedByAnother,
                                      ControlState::Claimed, ControlState::Enabled};
constexpr std::array StateNames = {"Closed", "Opened", "ClaimedByAnother", "Claimed", "Enabled"};

// Results in the order of ControlStates.
template<class Control>
struct Call {
    const char* name;
    std::int32_t (*run)(Control& control);
    std::array<std::int32_t, 5> results;
};

template<class Control>
std::ostream& operator<<(std::ostream& out, const Call<Control>& call) {
    return out << call.name;
}

// A property write, whose result is in ResultCode.
template<class Control, class Owner, void (Owner::*Write)(bool), bool Value>
std::int32_t Set(Control& control) {
    (control.*Write)(Value);
    return control.ResultCode();
}

template<class Control>
std::int32_t RetrieveStatistics(Control& control) {
    std::string buffer;
    return control.RetrieveStatistics(buffer);
}

template<class Control>
std::int32_t UnknownDirectIO(Control& control) {
    std::int32_t data = 0;
    std::string text;
    return control.DirectIO(987654, data, text);
}

// The rows that both classes share; name is the profile that a closed control opens.
template<class Control>
std::vector<Call<Control>> CommonCalls(std::int32_t (*open)(Control&)) {
    return {
        {"Open", open, {0, 106, 106, 106, 106}},
        {"Close", [](Control& c) { return c.Close(); }, {101, 0, 0, 0, 0}},
        {"ClaimAtOnce", [](Control& c) { return c.ClaimDevice(0); }, {101, 0, 112, 0, 0}},
        {"ClaimFor30Milliseconds", [](Control& c) { return c.ClaimDevice(30); }, {101, 0, 112, 0, 0}},
        {"ClaimBelowForever", [](Control& c) { return c.ClaimDevice(-2); }, {101, 106, 106, 106, 106}},
        {"Release", [](Control& c) { return c.ReleaseDevice(); }, {101, 106, 106, 0, 0}},
        {"ClearInput", [](Control& c) { return c.ClearInput(); }, {101, 103, 102, 0, 0}},
        {"UnknownDirectIO", UnknownDirectIO<Control>, {101, 106, 106, 106, 106}},
        {"RetrieveStatistics", RetrieveStatistics<Control>, {101, 103, 102, 105, 0}},
        {"Enable", Set<Control, OposControl, &OposControl::DeviceEnabled, true>, {101, 103, 102, 0, 0}},
        {"Disable", Set<Control, OposControl, &OposControl::DeviceEnabled, false>, {101, 103, 102, 0, 0}},
        {"EnableDataEvents", Set<Control, OposControl, &OposControl::DataEventEnabled, true>, {101, 0, 0, 0, 0}},
        {"DisableDataEvents", Set<Control, OposControl, &OposControl::DataEventEnabled, false>, {101, 0, 0, 0, 0}},
        {"AutoDisable", Set<Control, OposControl, &OposControl::AutoDisable, true>, {101, 0, 0, 0, 0}},
        {"Freeze", Set<Control, OposControl, &OposControl::FreezeEvents, true>, {101, 0, 0, 0, 0}},
        {"Unfreeze", Set<Control, OposControl, &OposControl::FreezeEvents, false>, {101, 0, 0, 0, 0}},
    };
}

std::int32_t ReadWeight(OPOSScale& scale, std::int32_t timeout) {
    std::int32_t weight = -1;
    return scale.ReadWeight(weight, timeout);
}

std::vector<Call<OPOSScanner>> ScannerCalls() {
    auto calls = CommonCalls<OPOSScanner>([](OPOSScanner& c) { return c.Open(ContractLane::ScannerName); });
    calls.push_back({"DecodeData", Set<OPOSScanner, OPOSScanner, &OPOSScanner::DecodeData, true>, {101, 0, 0, 0, 0}});
    return calls;
}

std::vector<Call<OPOSScale>> ScaleCalls() {
    auto calls = CommonCalls<OPOSScale>([](OPOSScale& c) { return c.Open(ContractLane::ScaleName); });
    calls.push_back({"AsyncMode", Set<OPOSScale, OPOSScale, &OPOSScale::AsyncMode, true>, {101, 0, 0, 0, 0}});
    calls.push_back({"ReadWeight", [](OPOSScale& c) { return ReadWeight(c, 1000); }, {101, 103, 102, 105, 0}});
    calls.push_back(
        {"ReadWeightBelowForever", [](OPOSScale& c) { return ReadWeight(c, -2); }, {101, 103, 102, 105, 106}});
    calls.push_back({"ZeroScale", [](OPOSScale& c) { return c.ZeroScale(); }, {101, 103, 102, 105, 0}});
    return calls;
}

// A control in a state, and another one that holds the device where the state says so.
template<class Control>
struct InState {
    std::unique_ptr<Control> control;
    std::unique_ptr<Control> another;

    InState(ControlState state, const char* profile, std::unique_ptr<Control> made, std::unique_ptr<Control> other)
        : control(std::move(made)), another(std::move(other)) {
        if (state == ControlState::Closed)
            return;
        EXPECT_EQ(control->Open(profile), 0);
        if (state == ControlState::ClaimedByAnother) {
            EXPECT_EQ(another->Open(profile), 0);
            EXPECT_EQ(another->ClaimDevice(0), 0);
        }
        if (state == ControlState::Claimed || state == ControlState::Enabled) {
            EXPECT_EQ(control->ClaimDevice(0), 0);
        }
        if (state == ControlState::Enabled) {
            control->DeviceEnabled(true);
            EXPECT_EQ(control->ResultCode(), 0);
        }
    }
};

template<class Control>
void CheckCall(Control& control, ControlState state, const Call<Control>& call) {
    const auto expected = call.results[static_cast<std::size_t>(state)];
    EXPECT_EQ(call.run(control), expected);
    EXPECT_EQ(control.ResultCode(), control.State() == OposState::Closed ? OposResult::Closed : expected);
}

class ScannerStates : public ::testing::TestWithParam<std::tuple<ControlState, Call<OPOSScanner>>> {};
class ScaleStates : public ::testing::TestWithParam<std::tuple<ControlState, Call<OPOSScale>>> {};

const auto NameOf = [](const auto& info) {
    return std::string(std::get<1>(info.param).name) + "While" +
           StateNames[static_cast<std::size_t>(std::get<0>(info.param))];
};

} // namespace

TEST_P(ScannerStates, GiveTheResultOfTheStandard) {
    const auto lane = MakeContractLane();
    const auto& [state, call] = GetParam();
    const InState<OPOSScanner> scanner(state, ContractLane::ScannerName, lane->Controls().CreateScanner(),
                                       lane->Controls().CreateScanner());
    CheckCall(*scanner.control, state, call);
}

TEST_P(ScaleStates, GiveTheResultOfTheStandard) {
    const auto lane = MakeContractLane();
    lane->Weigh(1235);
    const auto& [state, call] = GetParam();
    const InState<OPOSScale> scale(state, ContractLane::ScaleName, lane->Controls().CreateScale(),
                                   lane->Controls().CreateScale());
    CheckCall(*scale.control, state, call);
}

INSTANTIATE_TEST_SUITE_P(OposContract, ScannerStates,
                         ::testing::Combine(::testing::ValuesIn(ControlStates), ::testing::ValuesIn(ScannerCalls())),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(OposContract, ScaleStates,
                         ::testing::Combine(::testing::ValuesIn(ControlStates), ::testing::ValuesIn(ScaleCalls())),
                         NameOf);
