// What the scanner profiles know of each model: its stored code and its programming class.
#pragma once

#include <cstdint>
#include <string_view>

// The code under which the older generation stores a catalogue label; "" for a label it does not know.
[[nodiscard]] std::string_view ModelCodeOfLabel(std::string_view label);

// The label of a stored code; the codes of sibling models give one label. "" for an unknown code.
[[nodiscard]] std::string_view ModelLabelOfCode(std::string_view code);

// The programming class of a model for either generation, 0 for none. 16 and 32 are the bases of the scale flags.
struct ModelClass {
    std::int32_t scanner1;
    std::int32_t scanner2;
};
// Both 0 for a label outside the table.
[[nodiscard]] ModelClass ClassOfModel(std::string_view label);

// Whether a scale can be built into the model: "Pelerin/3256" or "Pelerin/3172", exactly.
[[nodiscard]] bool IsScaleCapable(std::string_view label);

// The interface code that a scanner profile stores for an index of the interface list: 0 for a serial line with a
// scale-capable model, 1 for a serial line with any other, 2 for index 1, 3 for any other index.
[[nodiscard]] std::int16_t ScannerTypeOf(int interfaceIndex, std::string_view modelLabel);
