// Writes the text of a registry file, "Windows Registry Editor Version 5.00".
#pragma once

#include "profiles/RegistryTree.h"
#include "reg/KeyReference.h"

#include <string>
#include <string_view>

inline constexpr std::string_view RegFileHeader = "Windows Registry Editor Version 5.00";

// The key with all below it as UTF-8 text with CR LF. A text with line breaks is written as bytes, since editors and
// regedit do not agree on them within quotation marks. Errors: RegistryError; CommandError for a key whose name has a
// line break, which no registry file can hold.
[[nodiscard]] std::string WriteRegFile(RegistryTree& tree, const KeyReference& key);
