#include "platform/opos/FileNames.h"

#include <cstdint>

namespace {

constexpr std::size_t LongestName = 200;
constexpr std::size_t KeptOfLongName = 180;
constexpr char HexDigits[] = "0123456789abcdef";

bool StandsForItself(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '-';
}

// FNV-1a, so that the name stays the same from one start of the program to the next.
std::uint64_t NumberOf(std::string_view name) {
    std::uint64_t number = 14695981039346656037U;
    for (const char character : name)
        number = (number ^ static_cast<unsigned char>(character)) * 1099511628211U;
    return number;
}

} // namespace

std::string FileNameFor(std::string_view name) {
    std::string result;
    for (const char character : name) {
        if (StandsForItself(character)) {
            result += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        result += '%';
        result += HexDigits[byte >> 4U];
        result += HexDigits[byte & 15U];
    }
    if (result.size() > LongestName)
        result = result.substr(0, KeptOfLongName) + '-' + std::to_string(NumberOf(name) % 10000000000000000000U);
    return result;
}
