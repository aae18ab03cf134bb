#include "views/StartDevice.h"

#include "opos/DeviceTest.h"

namespace {

void Require(std::int32_t result, const StartErrors::Step& step) {
    if (result != OposResult::Success)
        throw ApplicationError(step.source, step.description);
}

} // namespace

void OpenClaimEnable(OposControl& device, const std::string& profileName, const StartErrors& errors) {
    Require(device.Open(profileName), errors.open);
    Require(device.ClaimDevice(DeviceTest::ClaimTimeout), errors.claim);
    device.DeviceEnabled(true);
    Require(device.ResultCode(), errors.enable);
}
