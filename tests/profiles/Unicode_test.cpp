#include "profiles/Unicode.h"

#include <gtest/gtest.h>

TEST(Unicode, Utf8IsDecodedAndEncodedAtEveryLength) {
    const std::string text = "a\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF";
    const std::u32string codePoints = {U'a', 0xFC, 0x20AC, 0x1F600, 0x10FFFF};
    EXPECT_EQ(DecodeUtf8(text), codePoints);
    EXPECT_EQ(EncodeUtf8(codePoints), text);
    EXPECT_EQ(DecodeUtf8(std::string_view("\0", 1)), std::u32string(1, 0));
    EXPECT_EQ(DecodeUtf8(""), U"");
}

TEST(Unicode, IllFormedUtf8IsNotDecoded) {
    for (const char* const text : {"\x80", "\xC3", "\xC3(", "\xC0\xAF", "\xE0\x80\x80", "\xED\xA0\x80",
                                   "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "a\xE2\x82"})
        EXPECT_EQ(DecodeUtf8(text), std::nullopt);
}

TEST(Unicode, Utf16PairsSurrogates) {
    const std::u16string text = {u'a', 0xD83D, 0xDE00, 0xFFFF};
    const std::u32string codePoints = {U'a', 0x1F600, 0xFFFF};
    EXPECT_EQ(DecodeUtf16(text), codePoints);
    EXPECT_EQ(EncodeUtf16(codePoints), text);
    for (const std::u16string& bad :
         {std::u16string{0xD83D}, std::u16string{0xDE00, 0xD83D}, std::u16string{0xD83D, u'a'}})
        EXPECT_EQ(DecodeUtf16(bad), std::nullopt);
}
