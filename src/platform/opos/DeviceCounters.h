// What a device's statistics count.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

enum class Counter {
    PoweredSeconds,
    CommunicationErrors,
    GoodScans,
    DiscardedLabels,
    GoodWeightReads,
    UnreadableReplies,
};
inline constexpr std::size_t CounterCount = 6;

// The counts of one device through all runs of the program. Any thread may count.
class DeviceCounters {
public:
    // file: where they are kept; an empty path keeps them in memory only.
    explicit DeviceCounters(std::filesystem::path file) : file_(std::move(file)) {}

    void Count(Counter counter, std::uint64_t by = 1);
    [[nodiscard]] std::uint64_t Value(Counter counter) const;

    // Takes over what the file holds; what it does not hold, or holds in another form, counts as 0.
    void Load();
    // Replaces the file, whole or not at all. False when that failed: the counts stand for the next time.
    bool Save() const;

    // The file for a device: in the folder statistics of $XDG_STATE_HOME/ravlin, where that is not set of
    // ~/.local/state/ravlin. Empty where there is neither.
    [[nodiscard]] static std::filesystem::path FileOf(std::string_view deviceClass, std::string_view deviceName);

private:
    mutable std::mutex mutex_;
    std::filesystem::path file_;
    std::array<std::uint64_t, CounterCount> values_{};
};
