// What the program knows of each scanner model, one row a model; docs/models.md tells how to add one.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// The programming class of a model for either generation of profiles, 0 for none. 16 and 32 are the bases of the scale
// flags.
struct ModelClass {
    std::int32_t scanner1;
    std::int32_t scanner2;
};

enum class ScaleCapability { None, BuiltIn };

struct CatalogueEntry {
    std::string_view label;
    int pictureId; // ":/pictures/<id>.png"
    ModelClass classes;
    // The codes under which the older generation stores the model: it writes the first and reads all of them. Empty
    // where it does not know the model.
    std::array<std::string_view, 3> codes = {};
    ScaleCapability scale = ScaleCapability::None;
};

// The models on offer, in the order of the model lists.
inline constexpr std::array<CatalogueEntry, 29> ModelCatalogue = {{
    {"Vanta/2315", 1019, {0, 6}},
    {"Pelerin/3172", 1000, {3, 16}, {"QX3172"}, ScaleCapability::BuiltIn},
    {"Pelerin/3256", 1000, {0, 32}, {}, ScaleCapability::BuiltIn},
    {"Corvale/4619", 1017, {3, 3}, {"QX4619"}},
    {"CorvaleT/4637", 1021, {0, 3}},
    {"Lirret/4683", 1020, {0, 3}},
    {"Dunmere/5274", 1023, {0, 6}},
    {"Bremlet/6018", 1001, {3, 3}, {"QX6018"}},
    {"Kavit/7301", 1002, {3, 3}, {"QX7301"}},
    {"7339", 1003, {2, 2}, {"QX7339"}},
    {"7346", 1003, {3, 3}, {"QX7346"}},
    {"Selvo/8112", 1004, {3, 3}, {"QX8112"}},
    {"Marrin/8125", 1005, {3, 3}, {"QX8125"}},
    {"Vendral/8137", 1006, {3, 3}, {"QX8137"}},
    {"Sorvel/8154", 1025, {0, 6}},
    {"Tamrel/8168", 1007, {3, 3}, {"QX8168"}},
    {"Ambriel/8171", 1022, {0, 3}},
    {"Rovane/1443", 1008, {3, 3}, {"QX1443"}},
    {"Rovane/1448", 1016, {0, 3}, {"QX1448"}}, // has a code of the older generation but no class in it
    {"Rovane/1462", 1009, {6, 6}, {"QX1462"}},
    {"Rovane/1476", 1010, {3, 3}, {"QX1476"}},
    {"Rovane/1479", 1011, {3, 3}, {"QX1479"}},
    {"RovaneGS/1495", 1024, {0, 3}},
    {"Engine FL (5416FL)", 1018, {0, 3}},
    {"Handmount(5427/5438)", 1012, {1, 1}, {"QE5427", "QE5416", "QE5438"}},
    {"Handmount FL(5427FL)", 1012, {0, 3}},
    {"612i Series", 1013, {2, 2}, {"QX612", "QX627", "QX634"}},
    {"758", 1014, {2, 2}, {"QX758"}},
    {"815 Series", 1015, {1, 1}, {"QX846", "QX869"}},
}};

// The picture of a scale, and of a scanner with a scale built in.
inline constexpr int ScalePictureId = 1000;

// The code under which the older generation stores a model's label; "" for a label it does not know.
[[nodiscard]] std::string_view ModelCodeOfLabel(std::string_view label);

// The label of a stored code; the codes of sibling models give one label. "" for an unknown code.
[[nodiscard]] std::string_view ModelLabelOfCode(std::string_view code);

// Both classes 0 for a label of no model.
[[nodiscard]] ModelClass ClassOfModel(std::string_view label);

// Whether a scale can be built into the model; false for a label of no model. The label must match exactly.
[[nodiscard]] bool IsScaleCapable(std::string_view label);

// The interface code that a scanner profile stores for an index of the interface list: 0 for a serial line with a
// scale-capable model, 1 for a serial line with any other, 2 for index 1, 3 for any other index.
[[nodiscard]] std::int16_t ScannerTypeOf(int interfaceIndex, std::string_view modelLabel);
