#include "platform/registry/RegistryNames.h"

#include <gtest/gtest.h>

TEST(RegistryNames, PathsAreCutAtBackslashesOfAnyNumber) {
    EXPECT_EQ(PathNames("\\\\a\\b \\\\c\\"), (std::vector<std::string_view>{"a", "b ", "c"}));
    EXPECT_TRUE(PathNames("\\\\").empty());
    const CutPath cut = CutLastName("\\a\\\\b\\\\\\c\\");
    EXPECT_EQ(cut.parent, "\\a\\\\b");
    EXPECT_EQ(cut.name, "c");
    EXPECT_EQ(CutLastName("").name, "");
    EXPECT_EQ(CutLastName("a").parent, "");
}
