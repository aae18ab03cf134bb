// The fields that both generations of scanner profiles keep.
#pragma once

#include "profiles/CGenericScanner.h"

class Registry;

class StoredScanner : public CGenericScanner {
public:
    // The registry outlives the profile.
    explicit StoredScanner(Registry& registry) : registry_(registry) {}

    void DeviceName(const std::string& name) override { deviceName_ = name; }
    [[nodiscard]] std::string DeviceName() const override { return deviceName_; }
    [[nodiscard]] bool InUse() const override { return inUse_; }
    void InUse(bool inUse) override { inUse_ = inUse; }

    [[nodiscard]] std::int16_t SerialPort() const override { return serialPort_; }
    void SerialPort(std::int16_t port) override { serialPort_ = port; }
    [[nodiscard]] std::int16_t ScannerType() const override { return scannerType_; }
    void ScannerType(std::int16_t type) override { scannerType_ = type; }
    [[nodiscard]] std::string Model() const override { return model_; }
    void Model(const std::string& label) override { model_ = label; }
    [[nodiscard]] std::int16_t LoggingLevel() const override { return loggingLevel_; }
    void LoggingLevel(std::int16_t level) override { loggingLevel_ = level; }
    [[nodiscard]] std::int16_t VendorEnforcement() const override { return vendorEnforcement_; }
    void VendorEnforcement(std::int16_t enforcement) override { vendorEnforcement_ = enforcement; }
    [[nodiscard]] std::int16_t RX415Handling() const override { return rx415Handling_; }
    void RX415Handling(std::int16_t handling) override { rx415Handling_ = handling; }
    void SScaleType(std::int16_t type) override { sScaleType_ = type; }
    [[nodiscard]] std::int16_t SScaleType() const override { return sScaleType_; }
    void SWeightUnit(std::int16_t unit) override { sWeightUnit_ = unit; }
    [[nodiscard]] std::int16_t SWeightUnit() const override { return sWeightUnit_; }
    void SDisplay(std::int16_t display) override { sDisplay_ = display; }
    [[nodiscard]] std::int16_t SDisplay() const override { return sDisplay_; }

protected:
    [[nodiscard]] Registry& SystemRegistry() const { return registry_; }

private:
    Registry& registry_;
    std::string deviceName_;
    std::string model_;
    std::int16_t serialPort_ = 0;
    std::int16_t scannerType_ = 0;
    std::int16_t loggingLevel_ = 0;
    std::int16_t vendorEnforcement_ = 0;
    std::int16_t rx415Handling_ = 0;
    std::int16_t sScaleType_ = 0;
    std::int16_t sWeightUnit_ = 0;
    std::int16_t sDisplay_ = 0;
    bool inUse_ = false;
};
