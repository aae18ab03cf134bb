#include "profiles/Numbers.h"

#include "profiles/NumberedError.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

// The number of the error that is raised, 0 for none.
std::uint32_t Raised(const std::function<void()>& operation) {
    try {
        operation();
        return 0;
    } catch (const NumberedError& error) {
        return error.Number();
    }
}

constexpr std::uint32_t InvalidArgument = 5;
constexpr std::uint32_t Overflow = 6;
constexpr std::uint32_t TypeMismatch = 13;

} // namespace

TEST(Numbers, AStoredNumberIsReadBehindAZero) {
    EXPECT_EQ(StoredNumber(""), 0);
    EXPECT_EQ(StoredNumber("5"), 5);
    EXPECT_EQ(StoredNumber("07"), 7);
    EXPECT_EQ(StoredNumber("32767"), 32767);
    EXPECT_EQ(Raised([] { (void)StoredNumber("32768"); }), Overflow);
    EXPECT_EQ(Raised([] { (void)StoredNumber("x"); }), TypeMismatch);
    EXPECT_EQ(Raised([] { (void)StoredNumber("-1"); }), TypeMismatch) << "\"0-1\" is no number";
}

TEST(Numbers, TextIsRoundedHalvesToEven) {
    EXPECT_EQ(ToInt16("2.5"), 2);
    EXPECT_EQ(ToInt16("3.5"), 4);
    EXPECT_EQ(ToInt16("-0.5"), 0);
    EXPECT_EQ(ToInt16("1e2"), 100);
    EXPECT_EQ(ToInt16(" +12 "), 12);
    EXPECT_EQ(ToInt16("-32768"), -32768);
    EXPECT_EQ(Raised([] { (void)ToInt16("32767.5"); }), Overflow);
    EXPECT_EQ(ToInt16("32767.4"), 32767);
}

TEST(Numbers, WhatIsNoNumberIsATypeMismatch) {
    for (const char* const text : {"", " ", "x", "1x", "+-1", "++1", "1 2", "inf", "nan", "0x10", "1,5"})
        EXPECT_EQ(Raised([&] { (void)ToInt32(text); }), TypeMismatch) << text;
}

TEST(Numbers, LongNumbersHaveThirtyTwoBits) {
    EXPECT_EQ(ToInt32("2147483647"), 2147483647);
    EXPECT_EQ(ToInt32("-2147483648"), -2147483647 - 1);
    EXPECT_EQ(Raised([] { (void)ToInt32("2147483648"); }), Overflow);
    EXPECT_EQ(Raised([] { (void)ToInt32("99999999999999999999"); }), Overflow);
}

TEST(Numbers, ASingleReadsNothingAsZero) {
    EXPECT_EQ(ToSingle(""), 0.0F);
    EXPECT_EQ(ToSingle("12.25"), 12.25F);
    EXPECT_EQ(ToSingle("-3"), -3.0F);
    EXPECT_EQ(Raised([] { (void)ToSingle("1e39"); }), Overflow);
    EXPECT_EQ(Raised([] { (void)ToSingle("left"); }), TypeMismatch);
}

TEST(Numbers, APortIsNumberedBehindThreeCharacters) {
    EXPECT_EQ(PortNumber("COM12"), 12);
    EXPECT_EQ(PortNumber("xyz3"), 3);
    EXPECT_EQ(Raised([] { (void)PortNumber("CO"); }), InvalidArgument);
    EXPECT_EQ(Raised([] { (void)PortNumber("COM"); }), TypeMismatch);
    EXPECT_EQ(Raised([] { (void)PortNumber("COM99999"); }), Overflow);
}
