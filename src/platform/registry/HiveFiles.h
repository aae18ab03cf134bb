// Where the two hives lie on a system without a registry of its own.
#pragma once

#include <filesystem>

// An empty path stands for a place that the environment does not tell; using that hive raises OpenKey.
struct HiveFiles {
    std::filesystem::path machine;
    std::filesystem::path user;
};

// RAVLIN_MACHINE_HIVE and RAVLIN_USER_HIVE where set. Otherwise the machine's hive is "machine.db" in /var/lib/ravlin
// where that is a directory to write in, else in ravlin/ under $XDG_DATA_HOME (~/.local/share); the user's is
// "user.db" in ravlin/ under $XDG_CONFIG_HOME (~/.config).
[[nodiscard]] HiveFiles SystemHiveFiles();
