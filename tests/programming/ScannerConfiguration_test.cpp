#include "programming/ScannerConfiguration.h"

#include "ExpectedConfiguration.h"
#include "profiles/NumberedError.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

namespace {

using Block = std::vector<std::uint8_t>;

constexpr std::size_t BlockSize = 512;

Block Filled(std::uint8_t value, std::size_t size = BlockSize) {
    return Block(size, value);
}

Block Patched(std::int32_t configurationType, Block block) {
    PatchBlock(configurationType, block);
    return block;
}

void ExpectError(ErrorNumber number, const std::function<void()>& action) {
    try {
        action();
        ADD_FAILURE() << "no error was raised";
    } catch (const NumberedError& error) {
        EXPECT_EQ(error.Number(), static_cast<std::uint32_t>(number)) << error.Description();
    }
}

// The shortest block that a class can be patched in.
std::size_t ShortestBlock(std::int32_t configurationType) {
    if (configurationType == 1)
        return 25;
    if (configurationType == 2)
        return 20;
    if (configurationType == 4)
        return 415;
    return 507;
}

} // namespace

TEST(ScannerReply, EndsInTheSixCharactersOfTheFirmwareNumber) {
    const ScannerReply reply = DecodeReply("0102AB123456");
    EXPECT_EQ(reply.firmwareNumber, "123456");
    EXPECT_EQ(reply.block, (Block{0x01, 0x02, 0xAB}));
}

TEST(ScannerReply, FirmwareNumberHasNoBlanksAroundItAndNoCarriageReturns) {
    EXPECT_EQ(DecodeReply("01 40191").firmwareNumber, "40191");
    EXPECT_EQ(DecodeReply("0140191 ").firmwareNumber, "40191");
    EXPECT_EQ(DecodeReply("0140191\r").firmwareNumber, "40191");
    EXPECT_EQ(DecodeReply("01\r401\r2").firmwareNumber, "4012");
    EXPECT_EQ(DecodeReply("01 4019\r").firmwareNumber, "4019");
    EXPECT_EQ(DecodeReply("01      ").firmwareNumber, "");
    EXPECT_EQ(DecodeReply("01\r\r\r\r\r\r").firmwareNumber, "");
}

TEST(ScannerReply, BlanksAreTrimmedBeforeCarriageReturnsAreRemoved) {
    EXPECT_EQ(DecodeReply("01\r 4019").firmwareNumber, " 4019");
    EXPECT_EQ(DecodeReply("014019 \r").firmwareNumber, "4019 ");
    EXPECT_EQ(DecodeReply("0140 191").firmwareNumber, "40 191");
}

TEST(ScannerReply, BlanksInTheBlockDoNotCount) {
    EXPECT_EQ(DecodeReply(" 0 1 02  AB 123456").block, (Block{0x01, 0x02, 0xAB}));
    EXPECT_EQ(DecodeReply("       123456").block, Block{});
}

TEST(ScannerReply, DigitsOfEitherCaseAreRead) {
    EXPECT_EQ(DecodeReply("abCDeF123456").block, (Block{0xAB, 0xCD, 0xEF}));
}

TEST(ScannerReply, OfSixCharactersHasAnEmptyBlock) {
    const ScannerReply reply = DecodeReply("123456");
    EXPECT_EQ(reply.firmwareNumber, "123456");
    EXPECT_TRUE(reply.block.empty());
}

TEST(ScannerReply, OfFewerThanSixCharactersHasNoFirmwareNumber) {
    for (const char* reply : {"", "1", "12345", "     "})
        ExpectError(ErrorNumber::InvalidArgument, [reply] { static_cast<void>(DecodeReply(reply)); });
}

TEST(ScannerReply, LastSingleDigitIsAByteOrIsDroppedSoThatTheLastIndexIsEven) {
    EXPECT_EQ(DecodeReply("A123456").block, (Block{0x0A}));
    EXPECT_EQ(DecodeReply("ABC123456").block, (Block{0xAB}));
    EXPECT_EQ(DecodeReply("ABCDE123456").block, (Block{0xAB, 0xCD, 0x0E}));
    EXPECT_EQ(DecodeReply("ABCDEF7123456").block, (Block{0xAB, 0xCD, 0xEF}));
    EXPECT_EQ(DecodeReply("ABCDEF789123456").block, (Block{0xAB, 0xCD, 0xEF, 0x78, 0x09}));
}

TEST(ScannerReply, EvenNumberOfDigitsIsReadWhole) {
    for (std::size_t bytes = 0; bytes < 9; ++bytes)
        EXPECT_EQ(DecodeReply(std::string(2 * bytes, '7') + "123456").block, Filled(0x77, bytes));
}

TEST(ScannerReply, AnythingButDigitsIsATypeMismatch) {
    for (const char* block : {"G0", "0G", "0x", "-1", "+1", "\r0", "0\r", ".5", "\xC3\xA4", "zz"})
        ExpectError(ErrorNumber::TypeMismatch,
                    [block] { static_cast<void>(DecodeReply(std::string("00") + block + "00123456")); });
}

TEST(ScannerReply, WithCarriageReturnsBehindTheFirmwareNumberIsCutWithinIt) {
    const ScannerReply reply = DecodeReply("0102  4012\r\r");
    EXPECT_EQ(reply.firmwareNumber, "4012");
    EXPECT_EQ(reply.block, (Block{0x01, 0x02}));
}

TEST(ScannerBlock, OfEveryClassGetsExactlyTheBytesOfItsTable) {
    for (const std::int32_t type : InterestingClasses())
        for (const std::uint8_t fill : Block{0x00, 0xFF, 0xA5, 0x5A})
            EXPECT_EQ(Patched(type, Filled(fill)), ExpectedConfiguration(type, Filled(fill)))
                << "class " << type << ", filled with " << int(fill);
}

TEST(ScannerBlock, BehindTheLastPatchedByteIsLeftAlone) {
    Block block(4096);
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i] = static_cast<std::uint8_t>(i * 7);
    for (const std::int32_t type : InterestingClasses())
        EXPECT_EQ(Patched(type, block), ExpectedConfiguration(type, block)) << "class " << type;
}

TEST(ScannerBlock, OfClassWithoutPatchesIsLeftAlone) {
    for (const std::int32_t type : ClassesWithoutPatches()) {
        EXPECT_EQ(Patched(type, Filled(0xA5)), Filled(0xA5));
        EXPECT_EQ(Patched(type, {}), Block{});
    }
}

TEST(ScannerBlock, ScaleCapableScannerWithoutScaleTurnsTheScaleOff) {
    for (const std::int32_t type : {16, 32}) {
        const Block block = Patched(type, Filled(0xFF));
        EXPECT_EQ(block[409], 0);
        EXPECT_EQ(block[410], 0);
        EXPECT_EQ(block[414], 0x95);
    }
}

TEST(ScannerBlock, ScaleWithoutOptionsClearsOnlyItsOwnBits) {
    const Block block = Patched(17, Filled(0xFF));
    EXPECT_EQ(block[409], 0xE8);
    EXPECT_EQ(block[410], 0xFE);
    EXPECT_EQ(block[414], 0x95);
}

TEST(ScannerBlock, ScaleWithEveryOptionSetsOnlyItsOwnBits) {
    const Block block = Patched(31, Filled(0x00));
    EXPECT_EQ(block[409], 0x14);
    EXPECT_EQ(block[410], 0x01);
    EXPECT_EQ(block[414], 0x15);
}

TEST(ScannerBlock, TooShortForItsClassIsASubscriptOutOfRange) {
    for (const std::int32_t type : {1, 2, 3, 4, 6, 16, 17, 31, 32, 33, 47}) {
        const std::size_t shortest = ShortestBlock(type);
        EXPECT_NO_THROW(Patched(type, Filled(0, shortest)));
        for (const std::size_t size : {std::size_t{0}, shortest / 2, shortest - 1})
            ExpectError(ErrorNumber::SubscriptOutOfRange, [&] { Patched(type, Filled(0, size)); });
    }
}

TEST(ScannerBlock, IsWrittenAsTwoUpperCaseDigitsAByte) {
    EXPECT_EQ(EncodeBlock(Block{}), "");
    EXPECT_EQ(EncodeBlock(Block{0x00, 0x0A, 0xA0, 0xFF}), "000AA0FF");
    for (int value = 0; value < 256; ++value) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(value));
        EXPECT_EQ(EncodeBlock(Block{static_cast<std::uint8_t>(value)}), digits);
    }
}

TEST(ScannerBlock, LowerCaseReplyIsWrittenBackInUpperCaseWithoutItsFirmwareNumber) {
    EXPECT_EQ(EncodeBlock(DecodeReply("ab cd ef 040191").block), "ABCDEF");
}
