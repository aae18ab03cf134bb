#include "wizard/WizardDeviceTest.h"

#include "opos/DeviceTest.h"
#include "opos/OposControl.h"
#include "profiles/CDevice.h"
#include "profiles/modOpos.h"
#include "widgets/MessageBox.h"

#include <QWidget>

namespace {

std::string DeviceNoun(const CDevice& profile) {
    return profile.DeviceType() == DeviceClass::Scanner ? "scanner" : "scale";
}

QString CannotBeTested(const CDevice& profile) {
    return QStringLiteral("The %1 cannot be tested because the OPOS driver could not communicate to the %1.\r\n"
                          "Please make sure you have the %1 connected to the system.  If you do not wish to test\r\n"
                          "the %1 at this time, press Cancel.  You can use the Simple Test option to test the %1 \r\n"
                          "at a later time.")
        .arg(QString::fromStdString(DeviceNoun(profile)));
}

} // namespace

bool OpenForTest(OposControl& device, const CDevice& profile, QWidget& owner) {
    do {
        device.Open(profile.DeviceName());
        if (device.OpenResult() == OposOpenResult::Success)
            return true;
    } while (MsgBox(owner.window(), CannotBeTested(profile), MsgBoxButtons::RetryCancel) == MsgBoxResult::Retry);
    return false;
}

std::int32_t ClaimAndEnable(OposControl& device) {
    const std::int32_t claimed = device.ClaimDevice(DeviceTest::ClaimTimeout);
    device.DeviceEnabled(true);
    return claimed != OposResult::Success ? claimed : device.ResultCode();
}

std::string Readiness(const CDevice& profile, std::int32_t resultCode) {
    if (resultCode == OposResult::Success)
        return {};
    return "The " + DeviceNoun(profile) + " is not ready: " + ResultCodeName(resultCode);
}
