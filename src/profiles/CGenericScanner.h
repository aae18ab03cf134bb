// What a scanner profile offers. As a class of its own it stands for a profile of a foreign service object: it holds,
// reads and writes nothing.
#pragma once

#include "profiles/CDevice.h"

class CGenericScanner : public CDevice {
public:
    CGenericScanner() = default;

    void DeviceName(const std::string& /*name*/) override {}
    [[nodiscard]] std::string DeviceName() const override { return {}; }
    [[nodiscard]] std::int32_t DeviceType() const override { return DeviceClass::Scanner; }
    bool LoadDevice() override { return false; }
    bool SaveDevice(bool /*blnUpdate*/) override { return false; }
    [[nodiscard]] std::int32_t ConfigurationType() const override { return 0; }
    [[nodiscard]] bool InUse() const override { return false; }
    void InUse(bool /*inUse*/) override {}
    [[nodiscard]] std::string ClassName() const override { return "CGenericScanner"; }

    // COM port number; less than 1 for none.
    [[nodiscard]] virtual std::int16_t SerialPort() const { return 0; }
    virtual void SerialPort(std::int16_t /*port*/) {}
    // Interface code: 0 serial with a scale-capable model, 1 serial with any other, 2 and 3 the USB interfaces.
    [[nodiscard]] virtual std::int16_t ScannerType() const { return 0; }
    virtual void ScannerType(std::int16_t /*type*/) {}
    // Catalogue label.
    [[nodiscard]] virtual std::string Model() const { return {}; }
    virtual void Model(const std::string& /*label*/) {}
    [[nodiscard]] virtual std::int16_t LoggingLevel() const { return 0; }
    virtual void LoggingLevel(std::int16_t /*level*/) {}
    [[nodiscard]] virtual std::int16_t VendorEnforcement() const { return 0; }
    virtual void VendorEnforcement(std::int16_t /*enforcement*/) {}
    [[nodiscard]] virtual std::int16_t RX415Handling() const { return 0; }
    virtual void RX415Handling(std::int16_t /*handling*/) {}
    // The scale attached to the scanner, each the index of its option list.
    virtual void SScaleType(std::int16_t /*type*/) {}
    [[nodiscard]] virtual std::int16_t SScaleType() const { return 0; }
    virtual void SWeightUnit(std::int16_t /*unit*/) {}
    [[nodiscard]] virtual std::int16_t SWeightUnit() const { return 0; }
    virtual void SDisplay(std::int16_t /*display*/) {}
    [[nodiscard]] virtual std::int16_t SDisplay() const { return 0; }
};
