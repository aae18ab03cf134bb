// Deletes a profile: its registry key, its object and its name in the lists.
#pragma once

#include <QString>

#include <cstdint>

class DeviceCollection;
class DeviceNameLists;
class QWidget;
class Registry;

struct ProfileDeletion {
    Registry& registry;
    DeviceCollection& devices;
    DeviceNameLists& nameLists;

    // Asks the user first, in a message box of owner, and refuses while a test holds the device. Errors: RegistryError,
    // and NumberedError InvalidArgument for a profile that the collection or a list does not hold; the steps before the
    // failing one stay done.
    void Delete(QWidget* owner, std::int32_t deviceType, const QString& name) const;
};
