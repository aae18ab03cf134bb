#include "views/DeviceNameLists.h"

#include "views/DeviceCollection.h"

DeviceNameLists::DeviceNameLists(const Families& families) : families_(families) {}

std::array<DropDownList*, 4> DeviceNameLists::Lists(std::int32_t deviceType) const {
    const auto i = static_cast<std::size_t>(deviceType);
    return {families_.existing.at(i), families_.simple.at(i), families_.detailed.at(i), families_.info.at(i)};
}

void DeviceNameLists::FillDeviceNameLists(const DeviceCollection& devices) {
    for (const std::int32_t type : {DeviceClass::Scanner, DeviceClass::Scale})
        for (DropDownList* list : Lists(type))
            list->Clear();
    for (const DeviceCollection::Entry& entry : devices.Entries()) {
        const bool foreign = entry.device->ClassName().find("Generic") != std::string::npos;
        for (DropDownList* list : Lists(entry.deviceType))
            if (!foreign || list != families_.existing.at(static_cast<std::size_t>(entry.deviceType)))
                list->AddItem(entry.name);
    }
}

void DeviceNameLists::AddDeviceName(std::int32_t deviceType, const QString& name) {
    for (DropDownList* list : Lists(deviceType))
        list->AddItem(name);
}

void DeviceNameLists::SelectOnlyItems(std::int32_t deviceType) {
    for (DropDownList* list : Lists(deviceType))
        if (list->ListCount() == 1)
            list->SetListIndex(0);
}

void DeviceNameLists::RemoveDeviceName(std::int32_t deviceType, const QString& name) {
    for (DropDownList* list : Lists(deviceType))
        RemoveDeviceNameItem(*list, name);
}

void DeviceNameLists::RemoveDeviceNameItem(DropDownList& list, const QString& name) {
    list.RemoveItem(list.FindPrefix(name));
    if (list.ListCount() > 0)
        list.SetListIndex(0);
}
