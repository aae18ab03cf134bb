#include "platform/serial/ReplyParser.h"

#include <gtest/gtest.h>

using State = ReplyParser::State;

namespace {

State StateAfter(const std::string& bytes, std::size_t limit = ReplyParser::DefaultLimit) {
    ReplyParser parser(limit);
    parser.Take(bytes);
    return parser.Progress();
}

TEST(ReplyParser, TakesTheTextBetweenStxAndEtx) {
    ReplyParser parser;
    EXPECT_EQ(parser.Take("\x02"
                          "00 FF ab40200\r\x03"),
              16U);
    EXPECT_EQ(parser.Progress(), State::Complete);
    EXPECT_EQ(parser.Text(), "00 FF ab40200\r");
}

TEST(ReplyParser, TakesBytesOneByOneAsWellAsAllAtOnce) {
    const std::string reply = "\x02"
                              "0123456789ABCDEFabcdef 040200\x03";
    ReplyParser parser;
    for (const char byte : reply) {
        EXPECT_FALSE(parser.Ended());
        EXPECT_EQ(parser.Take(std::string(1, byte)), 1U);
    }
    EXPECT_EQ(parser.Progress(), State::Complete);
    EXPECT_EQ(parser.Text(), reply.substr(1, reply.size() - 2));
}

TEST(ReplyParser, PassesOverNoiseBeforeStx) {
    EXPECT_EQ(StateAfter("\x06\r]E0\x03\xFF\x02"
                         "40200 \x03"),
              State::Complete);
}

TEST(ReplyParser, StopsBehindTheReply) {
    ReplyParser parser;
    EXPECT_EQ(parser.Take("\x02"
                          "040200\x03rest"),
              8U);
    EXPECT_EQ(parser.Take("more"), 0U);
    EXPECT_EQ(parser.Progress(), State::Complete);
}

TEST(ReplyParser, NeedsTheSixCharactersOfTheFirmwareNumber) {
    EXPECT_EQ(StateAfter("\x02"
                         "12345\x03"),
              State::Malformed);
    EXPECT_EQ(StateAfter("\x02"
                         "123456\x03"),
              State::Complete);
    EXPECT_EQ(StateAfter("\x02\x03"), State::Malformed);
}

TEST(ReplyParser, AllowsOtherCharactersInTheFirmwareNumberOnly) {
    EXPECT_EQ(StateAfter("\x02"
                         "00FFV1.2-x\x03"),
              State::Complete);
    EXPECT_EQ(StateAfter("\x02"
                         "00FGV1.2-x\x03"),
              State::Malformed);
}

TEST(ReplyParser, KnowsAtOnceThatATextIsNoConfiguration) {
    EXPECT_EQ(StateAfter("\x02"
                         "hello, world"),
              State::Malformed);
    EXPECT_EQ(StateAfter("\x02"
                         "00\x01"),
              State::Malformed);
    EXPECT_EQ(StateAfter("\x02"
                         "00\x80"),
              State::Malformed);
    EXPECT_EQ(StateAfter("\x02"
                         "00\x02"),
              State::Malformed);
    EXPECT_EQ(StateAfter("\x02"
                         "00\n"),
              State::Malformed);
}

TEST(ReplyParser, EndsOnNakAnywhere) {
    EXPECT_EQ(StateAfter("\x15"), State::Refused);
    EXPECT_EQ(StateAfter("\x02"
                         "00FF\x15"),
              State::Refused);
}

TEST(ReplyParser, EndsWhenADeviceSendsTooMuch) {
    EXPECT_EQ(StateAfter(std::string(100, 'x'), 100), State::Waiting);
    EXPECT_EQ(StateAfter(std::string(101, 'x'), 100), State::Malformed);
    EXPECT_EQ(StateAfter('\x02' + std::string(99, '0') + '\x03', 100), State::Malformed);
    EXPECT_EQ(StateAfter('\x02' + std::string(98, '0') + '\x03', 100), State::Complete);
}

} // namespace
