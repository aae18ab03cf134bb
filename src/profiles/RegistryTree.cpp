#include "profiles/RegistryTree.h"

std::optional<std::uint64_t> NumberOf(const RegistryValue& value) {
    const bool whole = (value.type == RegistryType::Number32 && value.data.size() == 4) ||
                       (value.type == RegistryType::Number64 && value.data.size() == 8);
    if (!whole)
        return std::nullopt;
    std::uint64_t number = 0;
    for (std::size_t i = value.data.size(); i > 0; --i) // the low byte comes first
        number = number << 8 | static_cast<unsigned char>(value.data[i - 1]);
    return number;
}
