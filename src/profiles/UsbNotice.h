// What a user of a USB scanner is told, who has to configure it with bar codes.
#pragma once

#include <string>

// The title of both notices.
inline constexpr const char* UsbNoticeTitle = "Kalder Information";

// Instead of programming. interfaceIndex is the index of the interface list, not 0.
[[nodiscard]] std::string UsbProgramNotice(int interfaceIndex);

// After a profile was stored; says more for "POS USB" (index 2).
[[nodiscard]] std::string UsbSetupNotice(int interfaceIndex);
