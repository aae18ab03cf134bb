#include "views/ProfileInUse.h"

#include "views/DeviceCollection.h"

#include <utility>

void ProfileInUse::Hold(const QString& name) {
    devices_.Item(deviceType_, name)->InUse(true);
    held_ = name;
}

void ProfileInUse::Release() {
    const std::optional<QString> held = std::exchange(held_, std::nullopt);
    if (held && devices_.Contains(deviceType_, *held))
        devices_.Item(deviceType_, *held)->InUse(false);
}
