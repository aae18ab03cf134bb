// The fixed option lists of the profile views. A list's index is what a profile stores.
#pragma once

#include <array>
#include <string_view>

namespace OptionLists {

inline constexpr std::array<std::string_view, 2> DeviceClasses = {"Scanner", "Scale"};
inline constexpr std::array<std::string_view, 3> Interfaces = {"RS232", "Full Speed USB", "POS USB"};
inline constexpr std::array<std::string_view, 3> AttachedScales = {"None", "Single-Cable", "Dual-Cable"};
inline constexpr std::array<std::string_view, 2> ScaleTypes = {"Single-Cable", "Dual-Cable"};
inline constexpr std::array<std::string_view, 2> WeightUnits = {"English", "Metric"};
inline constexpr std::array<std::string_view, 2> ScaleDisplays = {"No", "Yes"};
// The stored level is the index less one.
inline constexpr std::array<std::string_view, 6> LogLevels = {"None",        "Errors",         "Warnings",
                                                              "Information", "Function Trace", "Function Data"};

// Ports are numbered 1 to this.
inline constexpr int LastComPort = 64;

// The interface that is a serial line.
inline constexpr int SerialInterface = 0;

// What messages call a USB interface, whatever its list calls it.
[[nodiscard]] constexpr std::string_view UsbInterfaceWord(int interfaceIndex) {
    return interfaceIndex == 1 ? "IBM OEM USB" : "POS USB";
}

} // namespace OptionLists
