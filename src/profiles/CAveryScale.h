// An Avery A702 scale on a cable of its own, served by the A702 service object ("a702so.dll").
#pragma once

#include "profiles/StoredScale.h"

class CAveryScale final : public StoredScale {
public:
    using StoredScale::StoredScale;

    bool LoadDevice() override;
    bool SaveDevice(bool blnUpdate) override;
    [[nodiscard]] std::int32_t ConfigurationType() const override { return 0; }
    [[nodiscard]] std::int16_t ScaleType() const override { return 2; }
    [[nodiscard]] std::string ClassName() const override { return "CAveryScale"; }
};
