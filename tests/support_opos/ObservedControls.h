// The system's control objects with somebody looking on.
#pragma once

#include "opos/OposControls.h"

#include <utility>

// Passes everything on to another scanner. Once the handler of a data event has returned, the observer is called.
class ObservedScanner final : public OPOSScanner {
public:
    using Observer = std::function<void()>;

    ObservedScanner(std::unique_ptr<OPOSScanner> scanner, const Observer& observer)
        : scanner_(std::move(scanner)), observer_(observer) {}

    void OnDataEvent(DataHandler handler) override {
        scanner_->OnDataEvent([this, handler = std::move(handler)](std::int32_t status) {
            handler(status);
            observer_();
        });
    }

    std::int32_t Open(const std::string& deviceName) override { return scanner_->Open(deviceName); }
    std::int32_t Close() override { return scanner_->Close(); }
    std::int32_t ClaimDevice(std::int32_t timeout) override { return scanner_->ClaimDevice(timeout); }
    std::int32_t ReleaseDevice() override { return scanner_->ReleaseDevice(); }
    std::int32_t ClearInput() override { return scanner_->ClearInput(); }
    std::int32_t DirectIO(std::int32_t command, std::int32_t& data, std::string& text) override {
        return scanner_->DirectIO(command, data, text);
    }
    std::int32_t RetrieveStatistics(std::string& buffer) override { return scanner_->RetrieveStatistics(buffer); }
    bool Claimed() const override { return scanner_->Claimed(); }
    bool DeviceEnabled() const override { return scanner_->DeviceEnabled(); }
    void DeviceEnabled(bool on) override { scanner_->DeviceEnabled(on); }
    bool DataEventEnabled() const override { return scanner_->DataEventEnabled(); }
    void DataEventEnabled(bool on) override { scanner_->DataEventEnabled(on); }
    bool AutoDisable() const override { return scanner_->AutoDisable(); }
    void AutoDisable(bool on) override { scanner_->AutoDisable(on); }
    bool FreezeEvents() const override { return scanner_->FreezeEvents(); }
    void FreezeEvents(bool on) override { scanner_->FreezeEvents(on); }
    std::int32_t DataCount() const override { return scanner_->DataCount(); }
    std::int32_t State() const override { return scanner_->State(); }
    std::int32_t ResultCode() const override { return scanner_->ResultCode(); }
    std::int32_t ResultCodeExtended() const override { return scanner_->ResultCodeExtended(); }
    std::int32_t OpenResult() const override { return scanner_->OpenResult(); }
    std::string DeviceName() const override { return scanner_->DeviceName(); }
    std::string DeviceDescription() const override { return scanner_->DeviceDescription(); }
    std::int32_t ServiceObjectVersion() const override { return scanner_->ServiceObjectVersion(); }
    std::string ServiceObjectDescription() const override { return scanner_->ServiceObjectDescription(); }
    std::int32_t ControlObjectVersion() const override { return scanner_->ControlObjectVersion(); }
    std::string ControlObjectDescription() const override { return scanner_->ControlObjectDescription(); }
    void OnErrorEvent(ErrorHandler handler) override { scanner_->OnErrorEvent(std::move(handler)); }
    void OnDirectIOEvent(DirectIOHandler handler) override { scanner_->OnDirectIOEvent(std::move(handler)); }
    void OnStatusUpdateEvent(StatusUpdateHandler handler) override {
        scanner_->OnStatusUpdateEvent(std::move(handler));
    }
    bool DecodeData() const override { return scanner_->DecodeData(); }
    void DecodeData(bool on) override { scanner_->DecodeData(on); }
    std::string ScanData() const override { return scanner_->ScanData(); }
    std::string ScanDataLabel() const override { return scanner_->ScanDataLabel(); }
    std::int32_t ScanDataType() const override { return scanner_->ScanDataType(); }

private:
    std::unique_ptr<OPOSScanner> scanner_;
    const Observer& observer_;
};

class ObservedControls final : public OposControls {
public:
    explicit ObservedControls(OposControls& controls) : controls_(controls) {}

    // Called behind each data event of each scanner.
    ObservedScanner::Observer observer = [] {};

    std::unique_ptr<OPOSScanner> CreateScanner() override {
        return std::make_unique<ObservedScanner>(controls_.CreateScanner(), observer);
    }
    std::unique_ptr<OPOSScale> CreateScale() override { return controls_.CreateScale(); }

private:
    OposControls& controls_;
};
