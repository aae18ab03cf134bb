// When names are the same off Windows, which has rules of its own.
#include "platform/registry/RegistryNames.h"

#include <gtest/gtest.h>

TEST(RegistryNames, FoldingMapsEachLetterToOneLetter) {
    EXPECT_EQ(FoldedName("Lane 1_\xC3\xBC"), "LANE 1_\xC3\x9C");
    EXPECT_EQ(FoldedName("\xC3\x9F"), "\xC3\x9F") << "sharp s has no single capital";
    EXPECT_EQ(FoldedName("\xCF\x82\xCF\x83"), "\xCE\xA3\xCE\xA3") << "both small sigmas";
    EXPECT_EQ(FoldedName("\xF0\x90\x90\xA8"), "\xF0\x90\x90\x80") << "beyond the sixteen-bit letters";
    EXPECT_EQ(FoldedName("\xF0\x9F\x98\x80"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(FoldedName(""), "");
}
