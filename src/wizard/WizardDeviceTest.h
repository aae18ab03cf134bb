// What the wizard's tests of both device classes do alike.
#pragma once

#include <cstdint>
#include <string>

class CDevice;
class OposControl;
class QWidget;

// Opens the device of the profile. While that fails, the user is asked whether to retry; false once they give up.
// owner is a widget in the window that the question belongs to.
[[nodiscard]] bool OpenForTest(OposControl& device, const CDevice& profile, QWidget& owner);

// Claims and enables the open device. The result is that of the first step that failed (OposResult).
[[nodiscard]] std::int32_t ClaimAndEnable(OposControl& device);

// Says to the user (UTF-8) that the profile's device is not ready and why; empty for success.
[[nodiscard]] std::string Readiness(const CDevice& profile, std::int32_t resultCode);
