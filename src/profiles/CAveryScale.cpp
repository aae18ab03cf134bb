#include "profiles/CAveryScale.h"

#include "profiles/ProfileKey.h"
#include "profiles/RegistryPaths.h"

#include <array>

bool CAveryScale::LoadDevice() {
    ProfileReader key(SystemRegistry(), RegistryPaths::ScaleFolder, DeviceName());
    SerialPort(key.Port("PORT"));
    Display(key.Number("Display"));
    WeightUnit(key.Number("WeightUnit"));
    return false;
}

bool CAveryScale::SaveDevice(bool blnUpdate) {
    const std::array values = {
        NamedText{"", ProgId::AveryScale},
        NamedText{"Description", "Service Object For A702 Scale"},
        NamedText{"PORT", "COM" + std::to_string(SerialPort())},
        NamedText{"Display", std::to_string(Display())},
        NamedText{"WeightUnit", std::to_string(WeightUnit())},
        NamedText{"Service", "a702so.dll"},
        NamedText{"Version", "1.5.0"},
    };
    SaveProfile(SystemRegistry(), RegistryPaths::ScaleFolder, DeviceName(), blnUpdate, values);
    return false;
}
