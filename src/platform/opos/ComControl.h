// A control object of the system's, as the rest of the program knows control objects.
#pragma once

#include "platform/opos/ComDevice.h"

#include <string>
#include <utility>
#include <vector>

// The members that OPOSScanner and OPOSScale have in common, on a ComDevice.
template<typename Control>
class ComControl : public Control {
public:
    ComControl(const wchar_t* progId, EventDispatcher& dispatcher) : device_(progId, dispatcher) {}
    ~ComControl() override { device_.Call(L"Close"); }

    std::int32_t Open(const std::string& deviceName) override { return device_.Open(deviceName); }
    std::int32_t Close() override { return device_.Call(L"Close"); }
    std::int32_t ClaimDevice(std::int32_t timeout) override { return Call(L"ClaimDevice", timeout); }
    std::int32_t ReleaseDevice() override { return device_.Call(L"ReleaseDevice"); }
    std::int32_t ClearInput() override { return device_.Call(L"ClearInput"); }
    std::int32_t DirectIO(std::int32_t command, std::int32_t& data, std::string& text) override {
        LONG changed = data;
        std::vector<ComValue> arguments;
        arguments.emplace_back(command);
        arguments.push_back(ComValue::Reference(changed));
        const std::int32_t result = device_.CallWithText(L"DirectIO", std::move(arguments), text);
        data = changed;
        return result;
    }
    std::int32_t RetrieveStatistics(std::string& statisticsBuffer) override {
        return device_.CallWithText(L"RetrieveStatistics", {}, statisticsBuffer);
    }

    [[nodiscard]] bool Claimed() const override { return device_.Flag(L"Claimed"); }
    [[nodiscard]] bool DeviceEnabled() const override { return device_.Flag(L"DeviceEnabled"); }
    void DeviceEnabled(bool enabled) override { device_.Put(L"DeviceEnabled", enabled); }
    [[nodiscard]] bool DataEventEnabled() const override { return device_.Flag(L"DataEventEnabled"); }
    void DataEventEnabled(bool enabled) override { device_.Put(L"DataEventEnabled", enabled); }
    [[nodiscard]] bool AutoDisable() const override { return device_.Flag(L"AutoDisable"); }
    void AutoDisable(bool disable) override { device_.Put(L"AutoDisable", disable); }
    [[nodiscard]] bool FreezeEvents() const override { return device_.Flag(L"FreezeEvents"); }
    void FreezeEvents(bool freeze) override { device_.Put(L"FreezeEvents", freeze); }
    [[nodiscard]] std::int32_t DataCount() const override { return device_.Number(L"DataCount"); }
    [[nodiscard]] std::int32_t State() const override { return device_.Number(L"State", OposState::Closed); }
    [[nodiscard]] std::int32_t ResultCode() const override { return device_.ResultCode(); }
    [[nodiscard]] std::int32_t ResultCodeExtended() const override { return device_.Number(L"ResultCodeExtended"); }
    [[nodiscard]] std::int32_t OpenResult() const override { return device_.OpenResult(); }
    [[nodiscard]] std::string DeviceName() const override { return device_.Text(L"DeviceName"); }
    [[nodiscard]] std::string DeviceDescription() const override { return device_.Text(L"DeviceDescription"); }
    [[nodiscard]] std::int32_t ServiceObjectVersion() const override { return device_.Number(L"ServiceObjectVersion"); }
    [[nodiscard]] std::string ServiceObjectDescription() const override {
        return device_.Text(L"ServiceObjectDescription");
    }
    [[nodiscard]] std::int32_t ControlObjectVersion() const override { return device_.Number(L"ControlObjectVersion"); }
    [[nodiscard]] std::string ControlObjectDescription() const override {
        return device_.Text(L"ControlObjectDescription");
    }

    void OnDataEvent(OposControl::DataHandler handler) override { device_.onData = std::move(handler); }
    void OnErrorEvent(OposControl::ErrorHandler handler) override { device_.onError = std::move(handler); }
    void OnDirectIOEvent(OposControl::DirectIOHandler handler) override { device_.onDirectIO = std::move(handler); }
    void OnStatusUpdateEvent(OposControl::StatusUpdateHandler handler) override {
        device_.onStatusUpdate = std::move(handler);
    }

protected:
    template<typename Argument>
    std::int32_t Call(const wchar_t* method, Argument argument) {
        std::vector<ComValue> arguments;
        arguments.emplace_back(argument);
        return device_.Call(method, std::move(arguments));
    }

    mutable ComDevice device_; // reading makes the object where there is none yet
};
