#include "reg/HexData.h"

#include "profiles/Unicode.h"

#include <algorithm>

namespace {

constexpr std::string_view Digits = "0123456789abcdef";

} // namespace

std::string WindowsBytes(const RegistryValue& value) {
    if (!RegistryType::IsText(value.type))
        return value.data;
    return Utf16LeOfUtf8(value.data).value_or("") + std::string(2, '\0');
}

std::optional<std::string> DataOfWindowsBytes(std::uint32_t type, std::string_view bytes) {
    if (!RegistryType::IsText(type))
        return std::string(bytes);
    auto text = Utf8OfUtf16Le(bytes);
    if (text && text->ends_with('\0'))
        text->pop_back();
    return text;
}

std::string HexByte(char byte) {
    return HexNumber(static_cast<unsigned char>(byte), 2);
}

std::string HexNumber(std::uint64_t number, std::size_t digits) {
    std::string text;
    while (number != 0 || text.size() < digits) {
        text += Digits[number & 0xF];
        number >>= 4;
    }
    std::ranges::reverse(text);
    return text;
}

std::optional<std::string> Utf16LeOfUtf8(std::string_view text) {
    const auto codePoints = DecodeUtf8(text);
    if (!codePoints)
        return std::nullopt;
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (const char16_t unit : EncodeUtf16(*codePoints)) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

std::optional<std::string> Utf8OfUtf16Le(std::string_view bytes) {
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    std::u16string units;
    units.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        units +=
            static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1]) << 8);
    const auto codePoints = DecodeUtf16(units);
    if (!codePoints)
        return std::nullopt;
    return EncodeUtf8(*codePoints);
}
