#include "profiles/ModelCatalogue.h"

#include "profiles/ModelTables.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

TEST(ModelCatalogue, ListsTheModelsInTheirOrderWithTheirPictures) {
    const std::vector<std::pair<std::string, int>> wanted = {
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
    };
    ASSERT_EQ(ModelCatalogue.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_EQ(ModelCatalogue.at(i).label, wanted[i].first);
        EXPECT_EQ(ModelCatalogue.at(i).pictureId, wanted[i].second);
    }
}

TEST(ModelCatalogue, EveryModelHasAProgrammingClass) {
    for (const CatalogueEntry& entry : ModelCatalogue)
        EXPECT_GT(ClassOfModel(entry.label).scanner2, 0) << entry.label;
}

TEST(ModelCatalogue, ScalesShowTheScannerThatCarriesOne) {
    EXPECT_EQ(ScalePictureId, 1000);
}
