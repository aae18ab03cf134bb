#include "profiles/RegistryTree.h"

#include <ranges>

std::optional<std::uint64_t> NumberOf(const RegistryValue& value) {
    const bool whole = (value.type == RegistryType::Number32 && value.data.size() == 4) ||
                       (value.type == RegistryType::Number64 && value.data.size() == 8);
    if (!whole)
        return std::nullopt;
    std::uint64_t number = 0;
    for (const char byte : value.data | std::views::reverse)
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}
