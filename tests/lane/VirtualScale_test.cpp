#include "lane/VirtualScale.h"

#include "lane/LaneError.h"

#include <gtest/gtest.h>

namespace {

using Unit = VirtualScale::Unit;

struct Bench {
    std::string sent;
    VirtualScale scale{[this](const std::string& bytes) { sent += bytes; }, [](const std::string&) {}};

    std::string Ask(char command) {
        sent.clear();
        scale.Receive(command);
        return sent;
    }
};

std::string Frame(const std::string& text) {
    return "\x02" + text + "\r";
}

std::string Status(int bits) {
    return Frame(std::string("?") + static_cast<char>(0x40 | bits));
}

TEST(VirtualScale, SendsKilogramsWithThreeDecimals) {
    Bench bench;
    bench.scale.Weigh("1.235", Unit::Kilogram);
    EXPECT_EQ(bench.Ask('W'), Frame("01.235"));
    EXPECT_EQ(bench.scale.Display(), "1.235 kg");
    bench.scale.Weigh("12.5", Unit::Kilogram);
    EXPECT_EQ(bench.Ask('W'), Frame("12.500"));
}

TEST(VirtualScale, SendsPoundsWithTwoDecimals) {
    Bench bench;
    bench.scale.Weigh("1.25", Unit::Pound);
    EXPECT_EQ(bench.Ask('W'), Frame("001.25"));
    EXPECT_EQ(bench.scale.Display(), "1.25 lb");
    bench.scale.Weigh("29", Unit::Pound);
    EXPECT_EQ(bench.Ask('W'), Frame("029.00"));
}

TEST(VirtualScale, SendsZeroWhileEmpty) {
    Bench bench;
    EXPECT_EQ(bench.Ask('W'), Frame("00.000"));
}

TEST(VirtualScale, SendsItsStatusWhereThereIsNoWeight) {
    Bench bench;
    bench.scale.BecomeUnstable();
    EXPECT_EQ(bench.Ask('W'), Status(0x01));
    bench.scale.Weigh("30.001", Unit::Kilogram);
    EXPECT_EQ(bench.Ask('W'), Status(0x02));
    bench.scale.Weigh("30", Unit::Kilogram);
    EXPECT_EQ(bench.Ask('W'), Frame("30.000"));
    bench.scale.Weigh("-0.001", Unit::Kilogram);
    EXPECT_EQ(bench.Ask('W'), Status(0x04));
    EXPECT_EQ(bench.scale.Display(), "-0.001 kg");
}

TEST(VirtualScale, ComesToRestWithTheNextWeight) {
    Bench bench;
    bench.scale.BecomeUnstable();
    EXPECT_TRUE(bench.scale.Unstable());
    bench.scale.Weigh("1", Unit::Kilogram);
    EXPECT_FALSE(bench.scale.Unstable());
    EXPECT_EQ(bench.Ask('W'), Frame("01.000"));
}

TEST(VirtualScale, ZeroesASmallWeight) {
    Bench bench;
    bench.scale.Weigh("0.6", Unit::Kilogram);
    EXPECT_EQ(bench.Ask('Z'), Status(0x10));
    EXPECT_EQ(bench.Ask('W'), Frame("00.000"));
    bench.scale.Weigh("0.601", Unit::Kilogram);
    EXPECT_EQ(bench.Ask('Z'), Status(0x08));
    EXPECT_EQ(bench.Ask('W'), Frame("00.601"));
    bench.scale.BecomeUnstable();
    EXPECT_EQ(bench.Ask('Z'), Status(0x01));
}

TEST(VirtualScale, IgnoresWhatIsNoCommand) {
    Bench bench;
    for (const char byte : {'w', 'z', '\r', '\0', 'S'}) {
        EXPECT_FALSE(VirtualScale::IsCommand(byte));
        EXPECT_EQ(bench.Ask(byte), "");
    }
}

TEST(VirtualScale, RefusesWhatIsNoWeight) {
    Bench bench;
    bench.scale.Weigh("2", Unit::Kilogram);
    for (const char* text : {"", "-", ".", ".5", "1.", "1,5", "abc", "1.2.3", "1e3", "0x1", "12345", "+1", "1.2345",
                             "nan", "99999999999999999999"}) {
        EXPECT_THROW(bench.scale.Weigh(text, Unit::Kilogram), LaneError) << text;
    }
    EXPECT_THROW(bench.scale.Weigh("1.235", Unit::Pound), LaneError);
    EXPECT_EQ(bench.Ask('W'), Frame("02.000")) << "the former weight stays";
}

} // namespace
