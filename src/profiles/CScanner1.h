// A scanner of the older, serial-only generation ("TVRNScan.dll").
#pragma once

#include "profiles/StoredScanner.h"

class CScanner1 final : public StoredScanner {
public:
    using StoredScanner::StoredScanner;

    bool LoadDevice() override;
    bool SaveDevice(bool blnUpdate) override;
    [[nodiscard]] std::int32_t ConfigurationType() const override;
    [[nodiscard]] std::string ClassName() const override { return "CScanner1"; }
    // This generation has one interface: always -1, whatever was set.
    [[nodiscard]] std::int16_t ScannerType() const override { return -1; }
    void ScannerType(std::int16_t /*type*/) override {}
};
