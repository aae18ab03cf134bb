#include "views/ProfileDeletion.h"

#include "profiles/RegistryPaths.h"
#include "profiles/RegistryStore.h"
#include "views/DeviceCollection.h"
#include "views/DeviceNameLists.h"
#include "widgets/MessageBox.h"

namespace {

void DeleteProfileKey(Registry& registry, std::int32_t deviceType, const QString& name) {
    const auto store = registry.CreateStore(); // its root is the profiles' hive unless set
    store->CreateMissing(false);
    store->KeyPath(deviceType == DeviceClass::Scanner ? RegistryPaths::ScannerFolder : RegistryPaths::ScaleFolder);
    store->DeleteKey(name.toStdString());
    store->Release();
}

} // namespace

void ProfileDeletion::Delete(QWidget* owner, std::int32_t deviceType, const QString& name) const {
    if (devices.Item(deviceType, name)->InUse()) {
        MsgBox(owner,
               "The selected device (" + name +
                   ") cannot be deleted because it is currently\r\n"
                   "being used within the Administrator.  Please close the device before\r\n"
                   "attempting to delete the profile.",
               MsgBoxButtons::Ok, "Delete Error");
        return;
    }
    if (MsgBox(owner, "Are you sure you wish to delete this profile (" + name + ")?", MsgBoxButtons::YesNo,
               "Delete Profile?") != MsgBoxResult::Yes)
        return;
    DeleteProfileKey(registry, deviceType, name);
    MsgBox(owner, "Device profile successfully deleted.", MsgBoxButtons::Ok, "Profile Deleted");
    devices.Remove(deviceType, name);
    nameLists.RemoveDeviceName(deviceType, name);
}
