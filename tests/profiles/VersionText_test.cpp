#include "profiles/VersionText.h"

#include <gtest/gtest.h>

TEST(FormatVersion, PlacesTheDigitsFromTheRight) {
    EXPECT_EQ(FormatVersion(1008000), "1.008.000");
    EXPECT_EQ(FormatVersion(12003001), "12.003.001");
    EXPECT_EQ(FormatVersion(123456789), "123.456.789");
}

TEST(FormatVersion, KeepsThePointsOfAShortNumberAndTheDigitsOfALongOne) {
    EXPECT_EQ(FormatVersion(8001), ".8.001");
    EXPECT_EQ(FormatVersion(0), "..0");
    EXPECT_EQ(FormatVersion(2147483647), "2147.483.647");
}
