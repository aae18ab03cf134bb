// A control object of the system's, as the rest of the program knows control objects.
#pragma once

#include "opos/EventDispatcher.h"
#include "opos/OposControl.h"
#include "platform/opos/ComEvents.h"
#include "platform/opos/ComObject.h"

#include <memory>
#include <string>
#include <vector>

// What the controls of all device classes do alike: the object, made when first needed, its events, and what stands in
// for it where the system has none or it fails.
class ComDevice {
public:
    // Creates nothing yet.
    ComDevice(const wchar_t* progId, EventDispatcher& dispatcher) : progId_(progId), dispatcher_(dispatcher) {}

    std::int32_t Open(const std::string& deviceName);
    // Every method: its result; Closed without an object, Failure where the object refuses the call.
    std::int32_t Call(const wchar_t* method, std::vector<ComValue> arguments = {});
    std::int32_t CallWithText(const wchar_t* method, std::vector<ComValue> arguments, std::string& text);

    [[nodiscard]] std::int32_t Number(const wchar_t* property, std::int32_t otherwise = 0);
    [[nodiscard]] bool Flag(const wchar_t* property);
    // UTF-8; "[Error]" where it cannot be had.
    [[nodiscard]] std::string Text(const wchar_t* property);
    // A char for each character, those beyond 255 as question marks.
    [[nodiscard]] std::string Bytes(const wchar_t* property);
    void Put(const wchar_t* property, bool flag);
    [[nodiscard]] std::int32_t ResultCode();
    [[nodiscard]] std::int32_t OpenResult();

    OposControl::DataHandler onData;
    OposControl::ErrorHandler onError;
    OposControl::DirectIOHandler onDirectIO;
    OposControl::StatusUpdateHandler onStatusUpdate;

private:
    // Null where the system has no such object; openResult_ says why.
    ComObject* Object();
    void Create();
    void Deliver(ComEvent& event);

    const wchar_t* progId_;
    EventDispatcher& dispatcher_;
    // Shared with the calls that are under way: an event that comes in one may destroy the control.
    std::shared_ptr<ComObject> object_;
    std::unique_ptr<ComEvents> events_;
    bool tried_ = false;
    std::int32_t openResult_ = OposOpenResult::Success;
    std::shared_ptr<bool> refused_ = std::make_shared<bool>(false); // whether the object refused the last call
};

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
