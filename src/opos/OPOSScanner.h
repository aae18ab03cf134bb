// The control object of a bar-code scanner.
#pragma once

#include "opos/OposControl.h"

// The data event's status is 0; the label it tells of is in the properties until the next one.
//
// ScanData and ScanDataLabel hold one char per character the scanner sent, codes 0 to 255 (show them as Latin-1): they
// are the only texts that are not UTF-8.
class OPOSScanner : public OposControl {
public:
    // Whether ScanDataLabel and ScanDataType are filled in.
    [[nodiscard]] virtual bool DecodeData() const = 0;
    virtual void DecodeData(bool decode) = 0;
    // The label as received, without what frames it.
    [[nodiscard]] virtual std::string ScanData() const = 0;
    // The label without symbology prefix, with its check digit.
    [[nodiscard]] virtual std::string ScanDataLabel() const = 0;
    // OposSymbology.
    [[nodiscard]] virtual std::int32_t ScanDataType() const = 0;
};
