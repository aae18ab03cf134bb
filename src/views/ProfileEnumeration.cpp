#include "views/ProfileEnumeration.h"

#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner1.h"
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "profiles/RegistryStore.h"
#include "views/DeviceCollection.h"
#include "widgets/MessageBox.h"

#include <QString>

#include <memory>
#include <string>

namespace {

std::shared_ptr<CDevice> NewScanner(Registry& registry, const std::string& progId) {
    if (progId == ProgId::Scanner2)
        return std::make_shared<CScanner2>(registry);
    if (progId == ProgId::Scanner1)
        return std::make_shared<CScanner1>(registry);
    return std::make_shared<CGenericScanner>();
}

std::shared_ptr<CDevice> NewScale(Registry& registry, const std::string& progId) {
    if (progId == ProgId::Scale2)
        return std::make_shared<CScale2>(registry);
    if (progId == ProgId::AveryScale)
        return std::make_shared<CAveryScale>(registry);
    return std::make_shared<CGenericScale>();
}

struct ProfileFolder {
    std::int32_t deviceType;
    std::string path;      // the folder whose subkeys are the profiles
    std::string keyPrefix; // what stands before a profile's name in the path of its key
    std::shared_ptr<CDevice> (*newDevice)(Registry&, const std::string& progId);
};

// name is the subkey read last, for the message of an error.
void LoadFolder(Registry& registry, DeviceCollection& devices, const ProfileFolder& folder, std::string& name) {
    const auto folderStore = registry.CreateStore();
    folderStore->RootKey(RegistryRoot::LocalMachine);
    const auto profileStore = registry.CreateStore();
    profileStore->CreateMissing(false);
    profileStore->RootKey(RegistryRoot::LocalMachine);
    folderStore->KeyPath(folder.path);
    const std::int32_t count = folderStore->SubKeyCount();
    for (std::int32_t i = 0; i < count; ++i) {
        name = folderStore->SubKeyName(i);
        profileStore->KeyPath(folder.keyPrefix + name);
        const auto device = folder.newDevice(registry, profileStore->ReadValue(RegistryValueType::String, ""));
        device->DeviceName(name);
        device->LoadDevice();
        devices.Add(folder.deviceType, QString::fromStdString(name), device);
    }
    profileStore->Release();
    folderStore->Release();
}

QString LoadErrorText(std::uint32_t number) {
    switch (static_cast<RegistryErrorNumber>(number)) {
    case RegistryErrorNumber::OpenKey:
        return "Unable to open scanner registry key.";
    case RegistryErrorNumber::CloseKey:
        return "Unable to close scanner registry key.";
    case RegistryErrorNumber::CreateKey:
        return "Unable to create scanner registry key.";
    case RegistryErrorNumber::ReadKey:
        return "Unable to read from the scanner registry key.";
    case RegistryErrorNumber::KeyMissing:
        return "The scanner registry key does not exist.";
    case RegistryErrorNumber::NoSubKeys:
        return "The scanner registry key does not have any sub keys.";
    case RegistryErrorNumber::Unknown:
        return "An unknown error occured while loading the scanner registry keys.";
    case RegistryErrorNumber::WriteValue:
    case RegistryErrorNumber::DeleteKey:
        break;
    }
    return "An error occured while loading OPOS scanner devices.";
}

} // namespace

void LoadScannerProfiles(Registry& registry, DeviceCollection& devices, QWidget* owner) {
    std::string name;
    try {
        LoadFolder(registry, devices,
                   {DeviceClass::Scanner, RegistryPaths::ScannerFolder, RegistryPaths::ScannerFolder, NewScanner},
                   name);
    } catch (const NumberedError& error) {
        MsgBox(owner,
               LoadErrorText(error.Number()) + QStringLiteral("\r\nError Number: %1").arg(error.SignedNumber()) +
                   "\r\nError Description: " + QString::fromStdString(error.Description()),
               MsgBoxButtons::Ok, "Error loading [" + QString::fromStdString(name) + ']');
    }
}

void LoadScaleProfiles(Registry& registry, DeviceCollection& devices) {
    std::string name;
    // The keys of scales are read by a path with one more backslash.
    LoadFolder(
        registry, devices,
        {DeviceClass::Scale, RegistryPaths::ScaleFolder, std::string(RegistryPaths::ScaleFolder) + '\\', NewScale},
        name);
}
