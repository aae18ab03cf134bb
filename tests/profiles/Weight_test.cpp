#include "profiles/Weight.h"

#include <gtest/gtest.h>

#include <limits>

TEST(Weight, PoundsHaveTwoDecimals) {
    EXPECT_EQ(FormatWeight(1234, 4), "1.23 lb");
}

TEST(Weight, AnyOtherUnitIsShownAsKilogramsWithThreeDecimals) {
    for (const int unit : {0, 1, 2, 3, 5})
        EXPECT_EQ(FormatWeight(1234, unit), "1.234 kg");
}

TEST(Weight, HalfAHundredthOfAPoundRoundsAwayFromZero) {
    EXPECT_EQ(FormatWeight(1235, 4), "1.24 lb");
    EXPECT_EQ(FormatWeight(1005, 4), "1.01 lb");
    EXPECT_EQ(FormatWeight(1234, 4), "1.23 lb");
    EXPECT_EQ(FormatWeight(-1235, 4), "-1.24 lb");
}

TEST(Weight, SmallWeightsKeepTheirLeadingZero) {
    EXPECT_EQ(FormatWeight(0, 2), "0.000 kg");
    EXPECT_EQ(FormatWeight(7, 2), "0.007 kg");
    EXPECT_EQ(FormatWeight(7, 4), "0.01 lb");
    EXPECT_EQ(FormatWeight(4, 4), "0.00 lb");
}

TEST(Weight, TheLargestAndSmallestNumbersAreShownWhole) {
    EXPECT_EQ(FormatThousandths(std::numeric_limits<std::int32_t>::max()), "2147483.647");
    EXPECT_EQ(FormatThousandths(std::numeric_limits<std::int32_t>::min()), "-2147483.648");
    EXPECT_EQ(FormatWeight(std::numeric_limits<std::int32_t>::max(), 4), "2147483.65 lb");
}
