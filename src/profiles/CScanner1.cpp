#include "profiles/CScanner1.h"

#include "profiles/ModelCatalogue.h"
#include "profiles/ProfileKey.h"
#include "profiles/RegistryPaths.h"

#include <array>

bool CScanner1::LoadDevice() {
    ProfileReader key(SystemRegistry(), RegistryPaths::ScannerFolder, DeviceName());
    Model(std::string(ModelLabelOfCode(key.Text("ModelNumber"))));
    LoggingLevel(key.Number("LogVerbosity"));
    SerialPort(key.Port("SerialPort"));
    return false;
}

bool CScanner1::SaveDevice(bool blnUpdate) {
    const std::array values = {
        NamedText{"", ProgId::Scanner1},
        NamedText{"Description", InstanceDescription()},
        NamedText{"LogVerbosity", std::to_string(LoggingLevel())},
        NamedText{"SerialPort", "COM" + std::to_string(SerialPort())},
        NamedText{"Service", "TVRNScan.dll"},
        NamedText{"ModelNumber", std::string(ModelCodeOfLabel(Model()))},
    };
    SaveProfile(SystemRegistry(), RegistryPaths::ScannerFolder, DeviceName(), blnUpdate, values);
    return false;
}

std::int32_t CScanner1::ConfigurationType() const {
    return ClassOfModel(Model()).scanner1;
}
