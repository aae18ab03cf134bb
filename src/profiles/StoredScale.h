// The fields that both kinds of scale profiles keep.
#pragma once

#include "profiles/CGenericScale.h"

class Registry;

class StoredScale : public CGenericScale {
public:
    // The registry outlives the profile.
    explicit StoredScale(Registry& registry) : registry_(registry) {}

    void DeviceName(const std::string& name) override { deviceName_ = name; }
    [[nodiscard]] std::string DeviceName() const override { return deviceName_; }
    [[nodiscard]] std::int32_t DeviceType() const override { return DeviceClass::Scale; }
    [[nodiscard]] bool InUse() const override { return inUse_; }
    void InUse(bool inUse) override { inUse_ = inUse; }

    [[nodiscard]] std::int16_t SerialPort() const override { return serialPort_; }
    void SerialPort(std::int16_t port) override { serialPort_ = port; }
    [[nodiscard]] std::int16_t LoggingLevel() const override { return loggingLevel_; }
    void LoggingLevel(std::int16_t level) override { loggingLevel_ = level; }
    [[nodiscard]] std::int16_t VendorEnforcement() const override { return vendorEnforcement_; }
    void VendorEnforcement(std::int16_t enforcement) override { vendorEnforcement_ = enforcement; }
    [[nodiscard]] std::int16_t Display() const override { return display_; }
    void Display(std::int16_t display) override { display_ = display; }
    [[nodiscard]] std::int16_t WeightUnit() const override { return weightUnit_; }
    void WeightUnit(std::int16_t unit) override { weightUnit_ = unit; }

protected:
    [[nodiscard]] Registry& SystemRegistry() const { return registry_; }

private:
    Registry& registry_;
    std::string deviceName_;
    std::int16_t serialPort_ = 0;
    std::int16_t loggingLevel_ = 0;
    std::int16_t vendorEnforcement_ = 0;
    std::int16_t display_ = 0;
    std::int16_t weightUnit_ = 0;
    bool inUse_ = false;
};
