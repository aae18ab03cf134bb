// A scanner's configuration as it travels: hexadecimal text with the firmware number behind it when it is read,
// hexadecimal text alone when it is written back.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct ScannerReply {
    std::string firmwareNumber;
    std::vector<std::uint8_t> block;
};

// Takes a reply apart: its last 6 characters, without blanks around them and without carriage returns, are the firmware
// number; the rest, without blanks, is the block, two digits of either case a byte. The number of bytes is half the
// number of digits, rounded so that the last index becomes even: a last single digit is a byte of its own when there
// are 1, 5, 9, ... digits, and is dropped when there are 3, 7, 11, ... Errors: NumberedError InvalidArgument for a
// reply of fewer than 6 characters, TypeMismatch for anything but digits.
[[nodiscard]] ScannerReply DecodeReply(std::string_view reply);

// Changes the bytes that the programming class of a profile (its ConfigurationType) asks for; classes without changes
// leave the block as it is. Errors: NumberedError SubscriptOutOfRange for a block too short for them.
void PatchBlock(std::int32_t configurationType, std::span<std::uint8_t> block);

// Two upper-case digits a byte, nothing between them.
[[nodiscard]] std::string EncodeBlock(std::span<const std::uint8_t> block);
