#include "reg/RegFileEncoding.h"

#include "profiles/Unicode.h"
#include "reg/HexData.h"

#include <stdexcept>

namespace {

constexpr std::string_view Utf16LeMark = "\xFF\xFE";
constexpr std::string_view Utf16BeMark = "\xFE\xFF";
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

// A registry file begins with an ASCII letter, a comment or a line end, so its second byte tells.
bool LooksLikeUtf16Le(std::string_view bytes) {
    return bytes.size() >= 2 && bytes[0] != '\0' && bytes[1] == '\0';
}

} // namespace

std::string DecodeRegFile(std::string_view bytes) {
    if (bytes.starts_with(Utf16BeMark))
        throw std::invalid_argument("it is UTF-16 with the high byte first; save it as UTF-16LE or UTF-8");
    const bool marked = bytes.starts_with(Utf16LeMark);
    if (marked || LooksLikeUtf16Le(bytes)) {
        auto text = Utf8OfUtf16Le(bytes.substr(marked ? Utf16LeMark.size() : 0));
        if (!text)
            throw std::invalid_argument("it is not well-formed UTF-16LE");
        return *text;
    }
    if (bytes.starts_with(Utf8Mark))
        bytes.remove_prefix(Utf8Mark.size());
    if (!DecodeUtf8(bytes))
        throw std::invalid_argument("it is neither UTF-16LE nor well-formed UTF-8; save it as one of the two");
    return std::string(bytes);
}

std::string EncodeRegFile(std::string_view text) {
    return std::string(Utf16LeMark) + Utf16LeOfUtf8(text).value_or("");
}
