// The registry with all its value types, for the tools that show, move and repair what is in it. The program proper
// uses RegistryStore.
#pragma once

#include "profiles/RegistryStore.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The value types that have a meaning of their own; any other number may be stored as well.
namespace RegistryType {
inline constexpr std::uint32_t None = 0;
inline constexpr std::uint32_t String = 1;
inline constexpr std::uint32_t ExpandString = 2;
inline constexpr std::uint32_t Binary = 3;
inline constexpr std::uint32_t Number32 = 4;
inline constexpr std::uint32_t MultiString = 7;
inline constexpr std::uint32_t Number64 = 11;

// Whether the data of a value of this type is text.
[[nodiscard]] constexpr bool IsText(std::uint32_t type) {
    return type == String || type == ExpandString;
}
} // namespace RegistryType

// The name is UTF-8, "" for the default value. The data is UTF-8 text without a terminator where IsText(type), else
// the bytes as they are (numbers little-endian, several strings as UTF-16LE with their terminators).
struct RegistryValue {
    std::string name;
    std::uint32_t type = RegistryType::String;
    std::string data;

    bool operator==(const RegistryValue&) const = default;
};

// The number in a Number32 or Number64; nothing for another type and where the data has not the length of its type.
[[nodiscard]] std::optional<std::uint64_t> NumberOf(const RegistryValue& value);

// One sequence of operations, seen by others all at once at Commit or, destroyed without it, not at all. (Where both
// hives were written, one is committed right behind the other.) What it reads is one state per hive, its own changes
// included. Names and paths as in RegistryStore; every operation raises RegistryError where it fails.
class RegistryTree {
public:
    virtual ~RegistryTree() = default;
    RegistryTree(const RegistryTree&) = delete;
    RegistryTree& operator=(const RegistryTree&) = delete;

    // The empty path is the hive itself, which always exists.
    [[nodiscard]] virtual bool HasKey(RegistryRoot root, std::string_view path) = 0;
    // In the order of the names without case; nothing for a missing key.
    [[nodiscard]] virtual std::vector<std::string> SubKeys(RegistryRoot root, std::string_view path) = 0;
    // In the order in which they were made; nothing for a missing key.
    [[nodiscard]] virtual std::vector<RegistryValue> Values(RegistryRoot root, std::string_view path) = 0;
    // Nothing for a missing key or value.
    [[nodiscard]] virtual std::optional<RegistryValue> Value(RegistryRoot root, std::string_view path,
                                                             std::string_view name) = 0;

    // Makes the key and those above it where they are missing.
    virtual void CreateKey(RegistryRoot root, std::string_view path) = 0;
    // Makes the key as well; replaces a value of that name, whose place and case of name stay.
    virtual void SetValue(RegistryRoot root, std::string_view path, const RegistryValue& value) = 0;
    // False where there was nothing to delete.
    virtual bool DeleteValue(RegistryRoot root, std::string_view path, std::string_view name) = 0;
    // Deletes the key with all below it; false where there was none. The hive itself (the empty path) raises DeleteKey.
    virtual bool DeleteKey(RegistryRoot root, std::string_view path) = 0;

    virtual void Commit() = 0;

protected:
    RegistryTree() = default;
};

// A tree over the registry of this system. Opens nothing yet.
[[nodiscard]] std::unique_ptr<RegistryTree> OpenSystemRegistryTree();
