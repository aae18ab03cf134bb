#include "profiles/CScanner2.h"

#include "profiles/ModelCatalogue.h"
#include "profiles/ProfileKey.h"
#include "profiles/RegistryPaths.h"

#include <vector>

bool CScanner2::LoadDevice() {
    ProfileReader key(SystemRegistry(), RegistryPaths::ScannerFolder, DeviceName());
    Model(key.Text("Model"));
    ScannerType(key.Number("Scanner Version"));
    const bool usb = ScannerType() == 2 || ScannerType() == 3;
    SerialPort(usb ? std::int16_t{-1} : key.Number("Serial Port"));
    SScaleType(key.Number("ScaleType"));
    SWeightUnit(key.Number("WeightUnit"));
    SDisplay(key.Number("Display"));
    return false;
}

bool CScanner2::SaveDevice(bool blnUpdate) {
    std::vector<NamedText> values = {
        {"", ProgId::Scanner2}, {"Description", InstanceDescription()}, {"Model", Model()}, {"Service", "RavlinSO.dll"},
        {"Version", "1.0.0.1"},
    };
    if (SerialPort() > 0)
        values.push_back({"Serial Port", std::to_string(SerialPort())});
    values.push_back({"Scanner Version", std::to_string(ScannerType())});
    values.push_back({"ScaleType", std::to_string(SScaleType())});
    values.push_back({"WeightUnit", std::to_string(SWeightUnit())});
    values.push_back({"Display", std::to_string(SDisplay())});
    SaveProfile(SystemRegistry(), RegistryPaths::ScannerFolder, DeviceName(), blnUpdate, values);
    return false;
}

std::int32_t CScanner2::ConfigurationType() const {
    const std::int32_t base = ClassOfModel(Model()).scanner2;
    if (base < 16)
        return base;
    return base + (SScaleType() > 0 ? 1 : 0) + (SScaleType() == 2 ? 2 : 0) + (SWeightUnit() == 1 ? 4 : 0) +
           (SDisplay() == 1 ? 8 : 0);
}
