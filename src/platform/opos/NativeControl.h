// The members that both kinds of control objects have, over the state machine behind them.
#pragma once

#include "opos/OposControls.h"
#include "platform/opos/ControlObject.h"

#include <memory>
#include <string>
#include <utility>

// Interface: OPOSScanner or OPOSScale; Object: the ControlObject of that class. Every call holds the object: a handler
// may destroy the control.
template<class Interface, class Object>
class NativeControl : public Interface {
public:
    NativeControl(std::shared_ptr<Object> object, std::string description)
        : object_(std::move(object)), description_(std::move(description)) {}
    ~NativeControl() override { Hold()->Destroy(); }

    std::int32_t Open(const std::string& deviceName) override { return Hold()->Open(deviceName); }
    std::int32_t Close() override { return Hold()->Close(); }
    std::int32_t ClaimDevice(std::int32_t timeout) override { return Hold()->ClaimDevice(timeout); }
    std::int32_t ReleaseDevice() override { return Hold()->ReleaseDevice(); }
    std::int32_t ClearInput() override { return Hold()->ClearInput(); }
    std::int32_t DirectIO(std::int32_t command, std::int32_t& data, std::string& text) override {
        return Hold()->DirectIO(command, data, text);
    }
    std::int32_t RetrieveStatistics(std::string& statisticsBuffer) override {
        return Hold()->RetrieveStatistics(statisticsBuffer);
    }

    [[nodiscard]] bool Claimed() const override { return object_->Claimed(); }
    [[nodiscard]] bool DeviceEnabled() const override { return object_->DeviceEnabled(); }
    void DeviceEnabled(bool enabled) override { Hold()->DeviceEnabled(enabled); }
    [[nodiscard]] bool DataEventEnabled() const override { return object_->DataEventEnabled(); }
    void DataEventEnabled(bool enabled) override { Hold()->DataEventEnabled(enabled); }
    [[nodiscard]] bool AutoDisable() const override { return object_->AutoDisable(); }
    void AutoDisable(bool disable) override { Hold()->AutoDisable(disable); }
    [[nodiscard]] bool FreezeEvents() const override { return object_->FreezeEvents(); }
    void FreezeEvents(bool freeze) override { Hold()->FreezeEvents(freeze); }
    [[nodiscard]] std::int32_t DataCount() const override { return object_->DataCount(); }
    [[nodiscard]] std::int32_t State() const override { return object_->State(); }
    [[nodiscard]] std::int32_t ResultCode() const override { return object_->ResultCode(); }
    [[nodiscard]] std::int32_t ResultCodeExtended() const override { return object_->ResultCodeExtended(); }
    [[nodiscard]] std::int32_t OpenResult() const override { return object_->OpenResult(); }
    [[nodiscard]] std::string DeviceName() const override { return object_->DeviceName(); }
    [[nodiscard]] std::string DeviceDescription() const override { return object_->DeviceDescription(); }
    [[nodiscard]] std::int32_t ServiceObjectVersion() const override { return object_->ServiceObjectVersion(); }
    [[nodiscard]] std::string ServiceObjectDescription() const override { return object_->ServiceObjectDescription(); }
    [[nodiscard]] std::int32_t ControlObjectVersion() const override { return ServiceObject::Version; }
    [[nodiscard]] std::string ControlObjectDescription() const override { return description_; }

    void OnDataEvent(OposControl::DataHandler handler) override { object_->onDataEvent = std::move(handler); }
    void OnErrorEvent(OposControl::ErrorHandler handler) override { object_->onErrorEvent = std::move(handler); }
    // The service objects here have no such events.
    void OnDirectIOEvent(OposControl::DirectIOHandler /*handler*/) override {}
    void OnStatusUpdateEvent(OposControl::StatusUpdateHandler /*handler*/) override {}

protected:
    [[nodiscard]] std::shared_ptr<Object> Hold() const { return object_; }

private:
    std::shared_ptr<Object> object_;
    std::string description_;
};
