// What the scanners of the programming classes are like, seen from the device.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

struct ScannerTraits {
    int firstClass;
    int lastClass;
    bool wokenByCommand; // by SSET; the others announce themselves when they are switched on
    bool sendsAtOnce;    // its configuration, when it is woken; the others are asked by PM
    std::string_view prefix;
    bool takesApm;
    bool hasScale;         // built in, on the scanner's line
    std::size_t blockSize; // bytes
    std::string_view firmware;
    std::string_view description;
    std::string_view model; // a catalogue label of such a scanner; empty where the catalogue has none
};

// Nothing where no scanner has the programming class.
[[nodiscard]] std::optional<ScannerTraits> TraitsOf(int programmingClass);

// One entry per kind, by class.
[[nodiscard]] std::span<const ScannerTraits> AllScannerTraits();
