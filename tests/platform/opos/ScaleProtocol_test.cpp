#include "platform/opos/ScaleProtocol.h"

#include <gtest/gtest.h>

#include <string>

using ScaleProtocol::ParseReply;
using ScaleProtocol::Reply;
using ScaleProtocol::ReplyText;
using ScaleProtocol::ResemblesReply;

TEST(ScaleProtocol, WeightsAreReadAsDecimalText) {
    EXPECT_EQ(ParseReply("01.235"), (Reply{Reply::Kind::Weight, 1235, 0}));
    EXPECT_EQ(ParseReply("01.25"), (Reply{Reply::Kind::Weight, 1250, 0}));
    EXPECT_EQ(ParseReply("012.34"), (Reply{Reply::Kind::Weight, 12340, 0}));
    EXPECT_EQ(ParseReply("00.000"), (Reply{Reply::Kind::Weight, 0, 0}));
    EXPECT_EQ(ParseReply("29.999"), (Reply{Reply::Kind::Weight, 29999, 0}));
}

TEST(ScaleProtocol, EveryWeightFromZeroToCapacityIsReadExactly) {
    for (std::int32_t weight = 0; weight <= 30000; ++weight) {
        char text[16];
        std::snprintf(text, sizeof text, "%02d.%03d", weight / 1000, weight % 1000);
        ASSERT_EQ(ParseReply(text).weight, weight) << text;
    }
}

TEST(ScaleProtocol, TheStatusIsItsFiveDefinedBits) {
    for (unsigned bits = 0; bits < 256; ++bits)
        EXPECT_EQ(ParseReply(std::string("?") + static_cast<char>(bits)), (Reply{Reply::Kind::Status, 0, bits & 31U}));
}

TEST(ScaleProtocol, AnythingElseIsUnreadable) {
    for (const char* text : {"", "?", "?ab", "1.235", "01.2", "01.2345", "0001.25", "-1.235", "01,235", "01.23a",
                             "+1.25", "01235", " 1.235", "01.235 ", "..", "01..25"})
        EXPECT_EQ(ParseReply(text).kind, Reply::Kind::Unreadable) << text;
}

TEST(ScaleProtocol, AReplyStartsBehindTheFirstStx) {
    EXPECT_EQ(ReplyText("\x02"
                        "01.235"),
              "01.235");
    EXPECT_EQ(ReplyText("noise\x02?\x02"), "?\x02");
    EXPECT_EQ(ReplyText("01.235"), std::nullopt);
}

TEST(ScaleProtocol, ADamagedAnswerIsToldFromALabel) {
    EXPECT_TRUE(ResemblesReply("0#.235"));
    EXPECT_TRUE(ResemblesReply("?"));
    EXPECT_FALSE(ResemblesReply("5018374827715"));
    EXPECT_FALSE(ResemblesReply("]C0A.B"));
    EXPECT_FALSE(ResemblesReply("ABC123"));
    EXPECT_FALSE(ResemblesReply("01.2345678"));
}
