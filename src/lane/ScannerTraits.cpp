#include "lane/ScannerTraits.h"

#include <array>

namespace {

constexpr std::array Scanners{
    // classes, woken, at once, prefix, APM, scale, bytes, firmware, description, model
    ScannerTraits{1, 1, false, false, "", true, false, 32, "10105", "small, programmed at power-up", "815 Series"},
    ScannerTraits{2, 2, false, false, "!@#3,", true, false, 32, "20107", "small, prefixed, programmed at power-up",
                  "7339"},
    ScannerTraits{3, 3, true, false, "!@#3,", true, false, 512, "30112", "prefixed", "Corvale/4619"},
    ScannerTraits{4, 4, true, false, "", true, false, 512, "41010", "plain", ""},
    ScannerTraits{6, 6, true, true, "", false, false, 512, "60021", "sends by itself", "Vanta/2315"},
    ScannerTraits{16, 31, true, false, "", true, true, 512, "35160", "with a scale built in", "Pelerin/3172"},
    ScannerTraits{32, 47, true, false, "", true, true, 512, "40200", "with a scale built in", "Pelerin/3256"},
};

} // namespace

std::optional<ScannerTraits> TraitsOf(int programmingClass) {
    for (const ScannerTraits& traits : Scanners) {
        if (programmingClass >= traits.firstClass && programmingClass <= traits.lastClass) {
            return traits;
        }
    }
    return std::nullopt;
}

std::span<const ScannerTraits> AllScannerTraits() {
    return Scanners;
}
