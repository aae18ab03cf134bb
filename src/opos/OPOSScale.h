// The control object of a scale.
#pragma once

#include "opos/OposControl.h"

// Weights are in thousandths of WeightUnit. The data event's status is the weight of an asynchronous read.
class OPOSScale : public OposControl {
public:
    [[nodiscard]] virtual bool AsyncMode() const = 0;
    virtual void AsyncMode(bool async) = 0;
    [[nodiscard]] virtual std::int32_t MaximumWeight() const = 0;
    // OposWeightUnit.
    [[nodiscard]] virtual std::int32_t WeightUnit() const = 0;

    // Waits at most so many milliseconds for a stable weight; 0 tries once, -1 goes on until there is one or an error
    // (EventDispatcher says how that wait can end). In asynchronous mode it returns at once, weight is left alone and
    // the outcome is a data or error event. weight is 0 after a failure.
    virtual std::int32_t ReadWeight(std::int32_t& weight, std::int32_t timeout) = 0;
    virtual std::int32_t ZeroScale() = 0;
};
