#include "programming/ScannerConfiguration.h"

#include "profiles/NumberedError.h"
#include "programming/ProgrammingClasses.h"

#include <charconv>
#include <cmath>

namespace {

constexpr std::size_t FirmwareLength = 6;
constexpr std::size_t DigitsPerByte = 2;

std::string FirmwareNumberOf(std::string_view trailer) {
    const auto first = trailer.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    std::string number(trailer.substr(first, trailer.find_last_not_of(' ') - first + 1));
    std::erase(number, '\r');
    return number;
}

std::size_t ByteCount(std::size_t digits) {
    const double lastIndex = static_cast<double>(digits) / DigitsPerByte - 1;
    return static_cast<std::size_t>(std::nearbyint(lastIndex) + 1);
}

std::uint8_t ByteOf(std::string_view digits) {
    std::uint8_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc{} || end != digits.data() + digits.size())
        throw NumberedError(ErrorNumber::TypeMismatch, '"' + std::string(digits) + "\" is not a hexadecimal number");
    return value;
}

void Apply(const BytePatch& patch, std::span<std::uint8_t> block) {
    if (patch.index >= block.size())
        throw NumberedError(ErrorNumber::SubscriptOutOfRange, "byte " + std::to_string(patch.index) +
                                                                  " of a configuration of " +
                                                                  std::to_string(block.size()) + " bytes");
    std::uint8_t& byte = block[patch.index];
    byte = static_cast<std::uint8_t>((byte & patch.keep) | patch.set);
}

} // namespace

ScannerReply DecodeReply(std::string_view reply) {
    if (reply.size() < FirmwareLength)
        throw NumberedError(ErrorNumber::InvalidArgument, "the scanner's reply of " + std::to_string(reply.size()) +
                                                              " characters has no firmware number");
    const std::size_t blockLength = reply.size() - FirmwareLength;
    std::string digits(reply.substr(0, blockLength));
    std::erase(digits, ' ');

    ScannerReply decoded{FirmwareNumberOf(reply.substr(blockLength)), {}};
    const std::size_t bytes = ByteCount(digits.size());
    decoded.block.reserve(bytes);
    for (std::size_t i = 0; i < bytes; ++i)
        decoded.block.push_back(ByteOf(std::string_view(digits).substr(i * DigitsPerByte, DigitsPerByte)));
    return decoded;
}

void PatchBlock(std::int32_t configurationType, std::span<std::uint8_t> block) {
    const ProgrammingClass& rules = FindProgrammingClass(configurationType);
    for (const BytePatch& patch : rules.patches)
        Apply(patch, block);
    for (const FlaggedPatch& patch : rules.scalePatches)
        Apply((configurationType & patch.flags) != 0 ? patch.with : patch.without, block);
}

std::string EncodeBlock(std::span<const std::uint8_t> block) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(block.size() * DigitsPerByte);
    for (const std::uint8_t byte : block) {
        text += Digits[byte >> 4U];
        text += Digits[byte & 0x0FU];
    }
    return text;
}
