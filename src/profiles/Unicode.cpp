#include "profiles/Unicode.h"

#include <array>
#include <cstddef>

namespace {

constexpr char32_t LastCodePoint = 0x10FFFF;

bool IsSurrogate(char32_t codePoint) {
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

// How many bytes follow the lead byte, which bits of it count and the first code point that needs this length.
struct SequenceForm {
    unsigned char mask;
    unsigned char lead;
    std::size_t following;
    char32_t first;
};

constexpr std::array SequenceForms = {
    SequenceForm{0x80, 0x00, 0, 0},
    SequenceForm{0xE0, 0xC0, 1, 0x80},
    SequenceForm{0xF0, 0xE0, 2, 0x800},
    SequenceForm{0xF8, 0xF0, 3, 0x10000},
};

// Takes one code point off the front of text.
std::optional<char32_t> TakeCodePoint(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    for (const SequenceForm& form : SequenceForms) {
        if ((lead & form.mask) != form.lead)
            continue;
        if (text.size() <= form.following)
            return std::nullopt;
        char32_t codePoint = lead & static_cast<unsigned char>(~form.mask);
        for (std::size_t i = 1; i <= form.following; ++i) {
            const auto next = static_cast<unsigned char>(text[i]);
            if ((next & 0xC0) != 0x80)
                return std::nullopt;
            codePoint = (codePoint << 6) | (next & 0x3FU);
        }
        if (codePoint < form.first || codePoint > LastCodePoint || IsSurrogate(codePoint))
            return std::nullopt;
        text.remove_prefix(form.following + 1);
        return codePoint;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::u32string> DecodeUtf8(std::string_view text) {
    std::u32string codePoints;
    codePoints.reserve(text.size());
    while (!text.empty()) {
        const auto codePoint = TakeCodePoint(text);
        if (!codePoint)
            return std::nullopt;
        codePoints += *codePoint;
    }
    return codePoints;
}

std::optional<std::u32string> DecodeUtf16(std::u16string_view text) {
    std::u32string codePoints;
    codePoints.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        if (!IsSurrogate(unit)) {
            codePoints += unit;
            continue;
        }
        const bool pair = unit < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
        if (!pair)
            return std::nullopt;
        codePoints += static_cast<char32_t>(0x10000 + ((unit - 0xD800) << 10) + (text[++i] - 0xDC00));
    }
    return codePoints;
}

std::string EncodeUtf8(std::u32string_view codePoints) {
    std::string text;
    text.reserve(codePoints.size());
    const auto follow = [&text](char32_t bits) { text += static_cast<char>(0x80 | (bits & 0x3F)); };
    for (const char32_t codePoint : codePoints) {
        if (codePoint < 0x80) {
            text += static_cast<char>(codePoint);
        } else if (codePoint < 0x800) {
            text += static_cast<char>(0xC0 | (codePoint >> 6));
            follow(codePoint);
        } else if (codePoint < 0x10000) {
            text += static_cast<char>(0xE0 | (codePoint >> 12));
            follow(codePoint >> 6);
            follow(codePoint);
        } else {
            text += static_cast<char>(0xF0 | (codePoint >> 18));
            follow(codePoint >> 12);
            follow(codePoint >> 6);
            follow(codePoint);
        }
    }
    return text;
}

std::u16string EncodeUtf16(std::u32string_view codePoints) {
    std::u16string text;
    text.reserve(codePoints.size());
    for (const char32_t codePoint : codePoints) {
        if (codePoint < 0x10000) {
            text += static_cast<char16_t>(codePoint);
        } else {
            text += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
        }
    }
    return text;
}
