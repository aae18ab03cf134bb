// The scanner models on offer, in the order of the model lists.
#pragma once

#include <array>
#include <string_view>

struct CatalogueEntry {
    std::string_view label;
    int pictureId; // ":/pictures/<id>.png"
};

inline constexpr std::array<CatalogueEntry, 29> ModelCatalogue = {{
    {"Vanta/2315", 1019},
    {"Pelerin/3172", 1000},
    {"Pelerin/3256", 1000},
    {"Corvale/4619", 1017},
    {"CorvaleT/4637", 1021},
    {"Lirret/4683", 1020},
    {"Dunmere/5274", 1023},
    {"Bremlet/6018", 1001},
    {"Kavit/7301", 1002},
    {"7339", 1003},
    {"7346", 1003},
    {"Selvo/8112", 1004},
    {"Marrin/8125", 1005},
    {"Vendral/8137", 1006},
    {"Sorvel/8154", 1025},
    {"Tamrel/8168", 1007},
    {"Ambriel/8171", 1022},
    {"Rovane/1443", 1008},
    {"Rovane/1448", 1016},
    {"Rovane/1462", 1009},
    {"Rovane/1476", 1010},
    {"Rovane/1479", 1011},
    {"RovaneGS/1495", 1024},
    {"Engine FL (5416FL)", 1018},
    {"Handmount(5427/5438)", 1012},
    {"Handmount FL(5427FL)", 1012},
    {"612i Series", 1013},
    {"758", 1014},
    {"815 Series", 1015},
}};

// The picture of a scale, and of a scanner with a scale built in.
inline constexpr int ScalePictureId = 1000;
