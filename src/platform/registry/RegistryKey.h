// A key of the Windows registry, always of its 32-bit view, in which the service objects look.
#pragma once

#include "platform/registry/HiveSession.h"

#include <optional>
#include <string>
#include <vector>

#include <windows.h>

// What Windows answered, as whole sentences that name the key.
class WindowsFailure : public HiveFailure {
public:
    WindowsFailure(LSTATUS status, HKEY hive, const std::string& path);
};

// Paths are UTF-8, below the hive, without leading, trailing or doubled backslashes. Everything raises WindowsFailure
// where it fails.
class RegistryKey {
public:
    // Nothing where there is no such key.
    [[nodiscard]] static std::optional<RegistryKey> Open(HKEY hive, const std::string& path, REGSAM access);
    // Opens the key, with the right to write its values, and makes it and those above it where they are missing.
    [[nodiscard]] static RegistryKey Make(HKEY hive, const std::string& path, bool& made);
    // With all that lies below it; nothing where there is no such key.
    static void Drop(HKEY hive, const std::string& path);

    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey();

    // In the order in which the system lists them.
    [[nodiscard]] std::vector<std::string> SubKeys() const;
    [[nodiscard]] std::vector<RegistryValue> Values() const;
    [[nodiscard]] std::optional<RegistryValue> Value(const std::string& name) const;
    void Put(const RegistryValue& value) const;
    // Nothing where there is no such value.
    void DropValue(const std::string& name) const;
    // Makes what was written here and elsewhere in the same hive durable.
    void Flush() const;

private:
    RegistryKey(HKEY key, HKEY hive, std::string path);
    void Check(LSTATUS status) const;

    HKEY key_;
    HKEY hive_;
    std::string path_;
};
