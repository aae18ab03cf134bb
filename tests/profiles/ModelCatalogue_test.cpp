#include "profiles/ModelCatalogue.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

const std::map<std::string, std::string> CodeOfLabel = {
    {"Pelerin/3172", "QX3172"}, {"Corvale/4619", "QX4619"},
    {"Bremlet/6018", "QX6018"}, {"Kavit/7301", "QX7301"},
    {"7339", "QX7339"},         {"7346", "QX7346"},
    {"Selvo/8112", "QX8112"},   {"Marrin/8125", "QX8125"},
    {"Vendral/8137", "QX8137"}, {"Tamrel/8168", "QX8168"},
    {"Rovane/1443", "QX1443"},  {"Rovane/1448", "QX1448"},
    {"Rovane/1462", "QX1462"},  {"Rovane/1476", "QX1476"},
    {"Rovane/1479", "QX1479"},  {"612i Series", "QX612"},
    {"758", "QX758"},           {"815 Series", "QX846"},
    {"Trek 3/4/5", "Trek-3"},   {"Handmount(5427/5438)", "QE5427"},
};

const std::map<std::string, std::string> LabelOfSibling = {
    {"QX627", "612i Series"},           {"QX634", "612i Series"},           {"QX869", "815 Series"},
    {"QE5416", "Handmount(5427/5438)"}, {"QE5438", "Handmount(5427/5438)"}, {"Trek-4", "Trek 3/4/5"},
    {"Trek-5", "Trek 3/4/5"},
};

struct Classes {
    int scanner1;
    int scanner2;
};

const std::map<std::string, Classes> ClassesOfLabel = {
    {"Vanta/2315", {0, 6}},
    {"Pelerin/3172", {3, 16}},
    {"Pelerin/3256", {0, 32}},
    {"Corvale/4619", {3, 3}},
    {"CorvaleT/4637", {0, 3}},
    {"Lirret/4683", {0, 3}},
    {"Dunmere/5274", {0, 6}},
    {"Bremlet/6018", {3, 3}},
    {"Kavit/7301", {3, 3}},
    {"7339", {2, 2}},
    {"7346", {3, 3}},
    {"Selvo/8112", {3, 3}},
    {"Marrin/8125", {3, 3}},
    {"Vendral/8137", {3, 3}},
    {"Tamrel/8168", {3, 3}},
    {"Sorvel/8154", {0, 6}},
    {"Ambriel/8171", {0, 3}},
    {"Rovane/1443", {3, 3}},
    {"Rovane/1476", {3, 3}},
    {"Rovane/1479", {3, 3}},
    {"Rovane/1448", {0, 3}},
    {"Rovane/1462", {6, 6}},
    {"RovaneGS/1495", {0, 3}},
    {"Engine FL (5416FL)", {0, 3}},
    {"Handmount FL(5427FL)", {0, 3}},
    {"612i Series", {2, 2}},
    {"758", {2, 2}},
    {"815 Series", {1, 1}},
    {"Handmount(5427/5438)", {1, 1}},
    {"Trek 3/4/5", {2, 2}},
};

} // namespace

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

TEST(ModelCatalogue, EachLabelOfTheOlderGenerationHasItsCode) {
    for (const auto& [label, classes] : ClassesOfLabel) {
        const auto code = CodeOfLabel.find(label);
        EXPECT_EQ(ModelCodeOfLabel(label), code == CodeOfLabel.end() ? "" : code->second) << label;
    }
    EXPECT_EQ(CodeOfLabel.size(), 20U);
}

TEST(ModelCatalogue, EachCodeGivesItsLabelBack) {
    for (const auto& [label, code] : CodeOfLabel)
        EXPECT_EQ(ModelLabelOfCode(code), label);
}

TEST(ModelCatalogue, CodesOfSiblingModelsFoldOntoOneLabel) {
    for (const auto& [code, label] : LabelOfSibling)
        EXPECT_EQ(ModelLabelOfCode(code), label);
}

TEST(ModelCatalogue, UnknownLabelsAndCodesGiveNothing) {
    for (const char* const text : {"", "Vanta/2315", "pelerin/3172", "QX3172"})
        EXPECT_EQ(ModelCodeOfLabel(text), "") << text;
    for (const char* const text : {"", "qx3172", "QX3256", "Pelerin/3172", "Trek-6"})
        EXPECT_EQ(ModelLabelOfCode(text), "") << text;
}

TEST(ModelCatalogue, EachModelHasItsProgrammingClassInEitherGeneration) {
    for (const auto& [label, classes] : ClassesOfLabel) {
        EXPECT_EQ(ClassOfModel(label).scanner1, classes.scanner1) << label;
        EXPECT_EQ(ClassOfModel(label).scanner2, classes.scanner2) << label;
    }
    EXPECT_EQ(ClassesOfLabel.size(), 30U);
}

TEST(ModelCatalogue, UnknownModelsHaveNoProgrammingClass) {
    for (const char* const text : {"", "vanta/2315", "Vanta/2315 ", "RX415"}) {
        EXPECT_EQ(ClassOfModel(text).scanner1, 0) << text;
        EXPECT_EQ(ClassOfModel(text).scanner2, 0) << text;
    }
}

TEST(ModelCatalogue, TwoModelsCanCarryAScale) {
    for (const auto& [label, classes] : ClassesOfLabel)
        EXPECT_EQ(IsScaleCapable(label), label == "Pelerin/3172" || label == "Pelerin/3256") << label;
    EXPECT_FALSE(IsScaleCapable(""));
    EXPECT_FALSE(IsScaleCapable("pelerin/3172"));
}
