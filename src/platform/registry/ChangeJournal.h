// The changes of one save as bytes, to be kept while they are carried out.
#pragma once

#include "platform/registry/RegistryChange.h"

#include <optional>
#include <string>
#include <string_view>

[[nodiscard]] std::string EncodeChanges(const RegistryChanges& changes);
// Nothing for bytes that EncodeChanges did not make.
[[nodiscard]] std::optional<RegistryChanges> DecodeChanges(std::string_view bytes);
