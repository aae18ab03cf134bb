#include "reg/KeyReference.h"

#include <algorithm>
#include <array>

namespace {

struct HiveName {
    std::string_view full;
    std::string_view abbreviation;
    RegistryRoot root;
};

constexpr std::array HiveNames = {
    HiveName{"HKEY_LOCAL_MACHINE", "HKLM", RegistryRoot::LocalMachine},
    HiveName{"HKEY_CURRENT_USER", "HKCU", RegistryRoot::CurrentUser},
};

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

std::string KeyReference::FullName() const {
    const auto* const hive = std::ranges::find(HiveNames, root, &HiveName::root);
    return std::string(hive->full) + (path.empty() ? "" : "\\" + path);
}

KeyReference KeyReference::Below(std::string_view subKey) const {
    return {root, path.empty() ? std::string(subKey) : path + '\\' + std::string(subKey)};
}

std::optional<KeyReference> ParseKeyReference(std::string_view text) {
    const auto separator = std::min(text.find('\\'), text.size());
    const std::string_view name = text.substr(0, separator);
    for (const HiveName& hive : HiveNames) {
        if (!SameWord(name, hive.full) && !SameWord(name, hive.abbreviation))
            continue;
        KeyReference key{hive.root, ""};
        text.remove_prefix(separator);
        while (!text.empty()) {
            const auto end = std::min(text.find('\\'), text.size());
            if (end > 0)
                key = key.Below(text.substr(0, end));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        return key;
    }
    return std::nullopt;
}

bool SameWord(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, [](char a, char b) { return Lower(a) == Lower(b); });
}
