#include "profiles/ZeroWeight.h"

#include "profiles/NumberedError.h"
#include "profiles/RegistryPaths.h"
#include "support/TemporaryRegistry.h"

#include <gtest/gtest.h>

namespace {

void PutOption(TemporaryRegistry& registry, const std::string& value) {
    registry.Put(RegistryPaths::DriverOptions, "ZeroWeightReject", value);
}

void PutScale(TemporaryRegistry& registry, const std::string& name, const std::string& progId) {
    registry.Put(RegistryPaths::ScaleFolder + name, "", progId);
}

} // namespace

TEST(ZeroWeight, IsRejectedWhereTheOptionReadsOne) {
    TemporaryRegistry registry;
    EXPECT_FALSE(RejectsZeroWeight(registry)) << "missing";
    for (const auto& [value, rejects] : {std::pair{"1", true}, {"01", true}, {"", false}, {"0", false}, {"2", false}}) {
        PutOption(registry, value);
        EXPECT_EQ(RejectsZeroWeight(registry), rejects) << value;
    }
    PutOption(registry, "on");
    EXPECT_THROW((void)RejectsZeroWeight(registry), NumberedError);
}

TEST(ZeroWeight, IsProhibitedForTheMakersSingleCableScaleAlone) {
    TemporaryRegistry registry;
    PutOption(registry, "1");
    PutScale(registry, "Single", "Tavrin.Opos.Scale");
    PutScale(registry, "Dual", "OPOS.A702.SCALE.SO");
    PutScale(registry, "Other", "TAVRIN.OPOS.SCALE");
    EXPECT_TRUE(ProhibitsZeroWeight(registry, "Single"));
    EXPECT_FALSE(ProhibitsZeroWeight(registry, "Dual"));
    EXPECT_FALSE(ProhibitsZeroWeight(registry, "Other"));
    EXPECT_FALSE(ProhibitsZeroWeight(registry, "Missing"));
    PutOption(registry, "0");
    EXPECT_FALSE(ProhibitsZeroWeight(registry, "Single"));
}

TEST(ScaleProgId, IsTheDefaultValueOfTheProfile) {
    TemporaryRegistry registry;
    PutScale(registry, "Lane", "OPOS.A702.SCALE.SO");
    EXPECT_EQ(ScaleProgId(registry, "Lane"), "OPOS.A702.SCALE.SO");
    EXPECT_EQ(ScaleProgId(registry, "Missing"), "");
    EXPECT_FALSE(registry.HasKey(std::string(RegistryPaths::ScaleFolder) + "Missing"));
}
