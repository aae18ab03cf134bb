#include "profiles/VersionText.h"

#include <algorithm>

std::string FormatVersion(std::int32_t version) {
    constexpr std::size_t Places = 9;
    constexpr std::size_t Group = 3;
    const std::string digits = std::to_string(version);
    // Right-aligned in the nine places, so that the points can be set by position; the blanks go again.
    std::string text = std::string(Places - std::min(digits.size(), Places), ' ') + digits;
    text.insert(text.size() - Group, 1, '.');
    text.insert(text.size() - (2 * Group + 1), 1, '.');
    std::erase(text, ' ');
    return text;
}
