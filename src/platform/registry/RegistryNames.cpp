#include "platform/registry/RegistryNames.h"

#include "platform/registry/UpperCase.h"
#include "profiles/Unicode.h"

namespace {

constexpr std::size_t LongestKeyName = 255;
constexpr std::size_t LongestValueName = 16383;

bool IsAscii(std::string_view text) {
    for (const char c : text)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}

// The length of a name as the limits count it.
std::size_t CheckedLength(std::string_view name, RegistryErrorNumber number) {
    if (IsAscii(name))
        return name.size();
    const auto codePoints = DecodeUtf8(name);
    if (!codePoints)
        throw RegistryError(number, "A name is not valid UTF-8 text.");
    return EncodeUtf16(*codePoints).size();
}

} // namespace

std::string FoldedName(std::string_view name) {
    if (IsAscii(name)) {
        std::string folded(name);
        for (char& c : folded)
            if (c >= 'a' && c <= 'z')
                c = static_cast<char>(c - 'a' + 'A');
        return folded;
    }
    auto codePoints = DecodeUtf8(name).value_or(U"");
    for (char32_t& codePoint : codePoints)
        codePoint = UpperCase(codePoint);
    return EncodeUtf8(codePoints);
}

std::vector<std::string_view> PathNames(std::string_view path) {
    std::vector<std::string_view> names;
    while (true) {
        const CutPath cut = CutLastName(path);
        if (cut.name.empty())
            return {names.rbegin(), names.rend()};
        names.push_back(cut.name);
        path = cut.parent;
    }
}

CutPath CutLastName(std::string_view path) {
    const auto trim = [](std::string_view text) {
        const auto last = text.find_last_not_of('\\');
        return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
    };
    path = trim(path);
    const auto separator = path.rfind('\\');
    if (separator == std::string_view::npos)
        return {{}, path};
    return {trim(path.substr(0, separator)), path.substr(separator + 1)};
}

void CheckKeyName(std::string_view name, RegistryErrorNumber number) {
    const std::size_t length = CheckedLength(name, number);
    if (length == 0 || length > LongestKeyName)
        throw RegistryError(number, "The name of a key has 1 to 255 characters, but this one has " +
                                        std::to_string(length) + ". Choose a shorter name.");
}

void CheckValueName(std::string_view name, RegistryErrorNumber number) {
    const std::size_t length = CheckedLength(name, number);
    if (length > LongestValueName)
        throw RegistryError(number, "The name of a value has at most 16383 characters, but this one has " +
                                        std::to_string(length) + ". Choose a shorter name.");
}

void CheckText(std::string_view text, RegistryErrorNumber number) {
    if (!IsAscii(text) && !DecodeUtf8(text))
        throw RegistryError(number, "A text is not valid UTF-8.");
}
