// The control object of a scale.
#pragma once

#include "opos/OPOSScale.h"
#include "platform/opos/ControlObject.h"
#include "platform/opos/Lines.h"
#include "platform/opos/NativeControl.h"
#include "platform/opos/ScaleService.h"

class Registry;

class ScaleControl final : public ControlObject {
public:
    ScaleControl(Registry& registry, EventDispatcher& dispatcher, Lines& lines);

    [[nodiscard]] bool AsyncMode() const { return IsOpen() && asyncMode_; }
    void AsyncMode(bool async);
    [[nodiscard]] std::int32_t MaximumWeight() const { return IsOpen() ? ScaleReader::MaximumWeight : 0; }
    [[nodiscard]] std::int32_t WeightUnit() const { return IsOpen() ? scale_->Traits().weightUnit : 0; }
    std::int32_t ReadWeight(std::int32_t& weight, std::int32_t timeout);
    std::int32_t ZeroScale();

protected:
    OpenOutcome OpenService(const std::string& deviceName) override;
    void ResetProperties() override { asyncMode_ = false; }
    void TakeData(DataEvent) override {}
    void RetryInput() override;

private:
    void ReadInBackground(std::int32_t timeout);

    Registry& registry_;
    Lines& lines_;
    ScaleService* scale_ = nullptr; // the base's service object, while open
    bool asyncMode_ = false;
    std::int32_t backgroundTimeout_ = 0; // of the last asynchronous read
};

class NativeScale final : public NativeControl<OPOSScale, ScaleControl> {
public:
    using NativeControl::NativeControl;

    [[nodiscard]] bool AsyncMode() const override { return Hold()->AsyncMode(); }
    void AsyncMode(bool async) override { Hold()->AsyncMode(async); }
    [[nodiscard]] std::int32_t MaximumWeight() const override { return Hold()->MaximumWeight(); }
    [[nodiscard]] std::int32_t WeightUnit() const override { return Hold()->WeightUnit(); }
    std::int32_t ReadWeight(std::int32_t& weight, std::int32_t timeout) override {
        return Hold()->ReadWeight(weight, timeout);
    }
    std::int32_t ZeroScale() override { return Hold()->ZeroScale(); }
};
