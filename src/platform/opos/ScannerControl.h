// The control object of a scanner.
#pragma once

#include "opos/OPOSScanner.h"
#include "platform/opos/ControlObject.h"
#include "platform/opos/Lines.h"
#include "platform/opos/NativeControl.h"

class Registry;

class ScannerControl final : public ControlObject {
public:
    ScannerControl(Registry& registry, EventDispatcher& dispatcher, Lines& lines);

    [[nodiscard]] bool DecodeData() const { return IsOpen() && decodeData_; }
    void DecodeData(bool decode);
    [[nodiscard]] std::string ScanData() const;
    [[nodiscard]] std::string ScanDataLabel() const;
    [[nodiscard]] std::int32_t ScanDataType() const { return IsOpen() ? label_.symbology : 0; }

protected:
    OpenOutcome OpenService(const std::string& deviceName) override;
    void ResetProperties() override;
    void TakeData(DataEvent event) override;

private:
    Registry& registry_;
    Lines& lines_;
    bool decodeData_ = false;
    Label label_; // as the properties show it
};

class NativeScanner final : public NativeControl<OPOSScanner, ScannerControl> {
public:
    using NativeControl::NativeControl;

    [[nodiscard]] bool DecodeData() const override { return Hold()->DecodeData(); }
    void DecodeData(bool decode) override { Hold()->DecodeData(decode); }
    [[nodiscard]] std::string ScanData() const override { return Hold()->ScanData(); }
    [[nodiscard]] std::string ScanDataLabel() const override { return Hold()->ScanDataLabel(); }
    [[nodiscard]] std::int32_t ScanDataType() const override { return Hold()->ScanDataType(); }
};
