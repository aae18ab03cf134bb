#include "lane/ScannerTraits.h"

#include "profiles/ModelCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(ScannerTraits, NameAModelOfTheCatalogueThatIsProgrammedAsTheirClass) {
    for (const ScannerTraits& traits : AllScannerTraits()) {
        if (traits.model.empty())
            continue;
        EXPECT_NE(std::ranges::find(ModelCatalogue, traits.model, &CatalogueEntry::label), ModelCatalogue.end());
        EXPECT_EQ(ClassOfModel(traits.model).scanner2, traits.firstClass) << traits.model;
    }
}

TEST(ScannerTraits, ServeEveryClassOfTheCatalogue) {
    for (const CatalogueEntry& entry : ModelCatalogue)
        EXPECT_TRUE(TraitsOf(ClassOfModel(entry.label).scanner2).has_value()) << entry.label;
}
