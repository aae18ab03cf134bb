// A scanner of the current generation ("RavlinSO.dll"): serial or USB, with or without a scale attached.
#pragma once

#include "profiles/StoredScanner.h"

class CScanner2 final : public StoredScanner {
public:
    using StoredScanner::StoredScanner;

    bool LoadDevice() override;
    bool SaveDevice(bool blnUpdate) override;
    // For the scale-capable models a set of flags over base 16 or 32, so that a scanner with a scale gives 17 or more.
    [[nodiscard]] std::int32_t ConfigurationType() const override;
    [[nodiscard]] std::string ClassName() const override { return "CScanner2"; }
};
