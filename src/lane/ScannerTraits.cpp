#include "lane/ScannerTraits.h"

#include <array>

namespace {

constexpr std::array Scanners{
    // classes, woken, at once, prefix, APM, bytes, firmware
    ScannerTraits{1, 1, false, false, "", true, 32, "10105", "Small scanner, programmed at power-up"},
    ScannerTraits{2, 2, false, false, "!@#3,", true, 32, "20107", "Small scanner, prefixed, programmed at power-up"},
    ScannerTraits{3, 3, true, false, "!@#3,", true, 512, "30112", "Counter scanner, prefixed"},
    ScannerTraits{4, 4, true, false, "", true, 512, "41010", "Counter scanner"},
    ScannerTraits{6, 6, true, true, "", false, 512, "60021", "Counter scanner that sends by itself"},
    ScannerTraits{16, 31, true, false, "", true, 512, "35160", "Scanner with room for a scale, first model"},
    ScannerTraits{32, 47, true, false, "", true, 512, "40200", "Scanner with room for a scale, second model"},
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
