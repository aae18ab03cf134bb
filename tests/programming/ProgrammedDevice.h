// Profiles of any programming class, port and device type, for tests of the exchange.
#pragma once

#include "profiles/CGenericScale.h"
#include "profiles/CGenericScanner.h"

class ProgrammedScanner : public CGenericScanner {
public:
    explicit ProgrammedScanner(std::int32_t configurationType, std::int16_t port = 4, std::int32_t deviceType = 0)
        : configurationType_(configurationType), deviceType_(deviceType), port_(port) {}

    [[nodiscard]] std::int32_t ConfigurationType() const override { return configurationType_; }
    [[nodiscard]] std::int32_t DeviceType() const override { return deviceType_; }
    [[nodiscard]] std::int16_t SerialPort() const override { return port_; }
    void SerialPort(std::int16_t port) override { port_ = port; }

private:
    std::int32_t configurationType_;
    std::int32_t deviceType_;
    std::int16_t port_;
};

class ProgrammedScale : public CGenericScale {
public:
    explicit ProgrammedScale(std::int16_t port, std::int32_t deviceType = 1) : deviceType_(deviceType), port_(port) {}

    [[nodiscard]] std::int32_t DeviceType() const override { return deviceType_; }
    [[nodiscard]] std::int16_t SerialPort() const override { return port_; }
    void SerialPort(std::int16_t port) override { port_ = port; }

private:
    std::int32_t deviceType_;
    std::int16_t port_;
};
