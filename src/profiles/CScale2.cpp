#include "profiles/CScale2.h"

#include "profiles/ProfileKey.h"
#include "profiles/RegistryPaths.h"

#include <vector>

bool CScale2::LoadDevice() {
    ProfileReader key(SystemRegistry(), RegistryPaths::ScaleFolder, DeviceName());
    SerialPort(key.Number("Serial Port"));
    Display(key.Number("Display"));
    WeightUnit(key.Number("WeightUnit"));
    return false;
}

bool CScale2::SaveDevice(bool blnUpdate) {
    std::vector<NamedText> values = {
        {"", ProgId::Scale2},
        {"Description", InstanceDescription()},
        {"Display", std::to_string(Display())},
        {"WeightUnit", std::to_string(WeightUnit())},
        {"Service", "RavlinSO.dll"},
        {"Version", "1.0.0.1"},
    };
    if (SerialPort() < 1) {
        values.push_back({"Scale Version", "2"});
    } else {
        values.push_back({"Serial Port", std::to_string(SerialPort())});
        values.push_back({"Scale Version", "0"});
    }
    SaveProfile(SystemRegistry(), RegistryPaths::ScaleFolder, DeviceName(), blnUpdate, values);
    return false;
}
