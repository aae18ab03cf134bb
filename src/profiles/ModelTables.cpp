#include "profiles/ModelTables.h"

#include <algorithm>
#include <array>

namespace {

struct ModelCode {
    std::string_view label;
    std::string_view code;
};

// The first row of a label is the code it is written as; further rows are siblings that are only read.
constexpr std::array ModelCodes = {
    ModelCode{"Pelerin/3172", "QX3172"},
    ModelCode{"Corvale/4619", "QX4619"},
    ModelCode{"Bremlet/6018", "QX6018"},
    ModelCode{"Kavit/7301", "QX7301"},
    ModelCode{"7339", "QX7339"},
    ModelCode{"7346", "QX7346"},
    ModelCode{"Selvo/8112", "QX8112"},
    ModelCode{"Marrin/8125", "QX8125"},
    ModelCode{"Vendral/8137", "QX8137"},
    ModelCode{"Tamrel/8168", "QX8168"},
    ModelCode{"Rovane/1443", "QX1443"},
    ModelCode{"Rovane/1448", "QX1448"},
    ModelCode{"Rovane/1462", "QX1462"},
    ModelCode{"Rovane/1476", "QX1476"},
    ModelCode{"Rovane/1479", "QX1479"},
    ModelCode{"612i Series", "QX612"},
    ModelCode{"612i Series", "QX627"},
    ModelCode{"612i Series", "QX634"},
    ModelCode{"758", "QX758"},
    ModelCode{"815 Series", "QX846"},
    ModelCode{"815 Series", "QX869"},
    ModelCode{"Handmount(5427/5438)", "QE5427"},
    ModelCode{"Handmount(5427/5438)", "QE5416"},
    ModelCode{"Handmount(5427/5438)", "QE5438"},
    ModelCode{"Trek 3/4/5", "Trek-3"},
    ModelCode{"Trek 3/4/5", "Trek-4"},
    ModelCode{"Trek 3/4/5", "Trek-5"},
};

struct ModelClassRow {
    std::string_view label;
    ModelClass classes;
};

// "Rovane/1448" has a code of the older generation but no programming class in it.
constexpr std::array ModelClasses = {
    ModelClassRow{"Vanta/2315", {0, 6}},
    ModelClassRow{"Pelerin/3172", {3, 16}},
    ModelClassRow{"Pelerin/3256", {0, 32}},
    ModelClassRow{"Corvale/4619", {3, 3}},
    ModelClassRow{"CorvaleT/4637", {0, 3}},
    ModelClassRow{"Lirret/4683", {0, 3}},
    ModelClassRow{"Dunmere/5274", {0, 6}},
    ModelClassRow{"Bremlet/6018", {3, 3}},
    ModelClassRow{"Kavit/7301", {3, 3}},
    ModelClassRow{"7339", {2, 2}},
    ModelClassRow{"7346", {3, 3}},
    ModelClassRow{"Selvo/8112", {3, 3}},
    ModelClassRow{"Marrin/8125", {3, 3}},
    ModelClassRow{"Vendral/8137", {3, 3}},
    ModelClassRow{"Sorvel/8154", {0, 6}},
    ModelClassRow{"Tamrel/8168", {3, 3}},
    ModelClassRow{"Ambriel/8171", {0, 3}},
    ModelClassRow{"Rovane/1443", {3, 3}},
    ModelClassRow{"Rovane/1448", {0, 3}},
    ModelClassRow{"Rovane/1462", {6, 6}},
    ModelClassRow{"Rovane/1476", {3, 3}},
    ModelClassRow{"Rovane/1479", {3, 3}},
    ModelClassRow{"RovaneGS/1495", {0, 3}},
    ModelClassRow{"Engine FL (5416FL)", {0, 3}},
    ModelClassRow{"Handmount(5427/5438)", {1, 1}},
    ModelClassRow{"Handmount FL(5427FL)", {0, 3}},
    ModelClassRow{"612i Series", {2, 2}},
    ModelClassRow{"758", {2, 2}},
    ModelClassRow{"815 Series", {1, 1}},
    ModelClassRow{"Trek 3/4/5", {2, 2}},
};

} // namespace

std::string_view ModelCodeOfLabel(std::string_view label) {
    const auto row = std::ranges::find(ModelCodes, label, &ModelCode::label);
    return row == ModelCodes.end() ? std::string_view{} : row->code;
}

std::string_view ModelLabelOfCode(std::string_view code) {
    const auto row = std::ranges::find(ModelCodes, code, &ModelCode::code);
    return row == ModelCodes.end() ? std::string_view{} : row->label;
}

ModelClass ClassOfModel(std::string_view label) {
    const auto row = std::ranges::find(ModelClasses, label, &ModelClassRow::label);
    return row == ModelClasses.end() ? ModelClass{0, 0} : row->classes;
}

bool IsScaleCapable(std::string_view label) {
    return label == "Pelerin/3256" || label == "Pelerin/3172";
}

std::int16_t ScannerTypeOf(int interfaceIndex, std::string_view modelLabel) {
    if (interfaceIndex == 0)
        return IsScaleCapable(modelLabel) ? 0 : 1;
    return interfaceIndex == 1 ? 2 : 3;
}
