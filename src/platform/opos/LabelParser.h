// From a scanner's line to the label it tells of.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// One char per character the scanner sent.
struct Label {
    std::string data;           // as received, without what frames it
    std::string label;          // with its check digit, which is computed where the scanner did not send it
    std::int32_t symbology = 0; // OposSymbology
    bool operator==(const Label&) const = default;
};

// line: `[STX][prefix]data[ETX]`, the prefix an AIM symbology identifier (`]`, code letter, modifier), without the line
// end. Any bytes are a label: without a prefix the symbology is unknown, with one that says nothing it is "other".
[[nodiscard]] Label ParseLabel(std::string_view line);
