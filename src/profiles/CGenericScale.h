// What a scale profile offers. As a class of its own it stands for a profile of a foreign service object: it holds,
// reads and writes nothing.
#pragma once

#include "profiles/CDevice.h"

class CGenericScale : public CDevice {
public:
    CGenericScale() = default;

    void DeviceName(const std::string& /*name*/) override {}
    [[nodiscard]] std::string DeviceName() const override { return {}; }
    [[nodiscard]] std::int32_t DeviceType() const override { return 0; }
    bool LoadDevice() override { return false; }
    bool SaveDevice(bool /*blnUpdate*/) override { return false; }
    [[nodiscard]] std::int32_t ConfigurationType() const override { return 0; }
    [[nodiscard]] bool InUse() const override { return false; }
    void InUse(bool /*inUse*/) override {}
    [[nodiscard]] std::string ClassName() const override { return "CGenericScale"; }

    // COM port number; less than 1 for none.
    [[nodiscard]] virtual std::int16_t SerialPort() const { return 0; }
    virtual void SerialPort(std::int16_t /*port*/) {}
    [[nodiscard]] virtual std::int16_t LoggingLevel() const { return 0; }
    virtual void LoggingLevel(std::int16_t /*level*/) {}
    [[nodiscard]] virtual std::int16_t VendorEnforcement() const { return 0; }
    virtual void VendorEnforcement(std::int16_t /*enforcement*/) {}
    // 1 single-cable, 2 dual-cable; fixed by the class.
    [[nodiscard]] virtual std::int16_t ScaleType() const { return 0; }
    // Index of the display list: 0 no, 1 yes.
    [[nodiscard]] virtual std::int16_t Display() const { return 0; }
    virtual void Display(std::int16_t /*display*/) {}
    // Index of the weight-unit list: 0 English, 1 metric.
    [[nodiscard]] virtual std::int16_t WeightUnit() const { return 0; }
    virtual void WeightUnit(std::int16_t /*unit*/) {}
};
