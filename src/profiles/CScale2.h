// A scale served by the maker's own service object ("RavlinSO.dll"), on a scanner's cable or on USB.
#pragma once

#include "profiles/StoredScale.h"

class CScale2 final : public StoredScale {
public:
    using StoredScale::StoredScale;

    bool LoadDevice() override;
    bool SaveDevice(bool blnUpdate) override;
    [[nodiscard]] std::int32_t ConfigurationType() const override { return 5; }
    [[nodiscard]] std::int16_t ScaleType() const override { return 1; }
    [[nodiscard]] std::string ClassName() const override { return "CScale2"; }
};
