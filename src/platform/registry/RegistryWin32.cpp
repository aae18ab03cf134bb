#include "platform/registry/RegistryWin32.h"

#include "platform/registry/Hives.h"
#include "platform/registry/SystemHive.h"

namespace {

// The journals lie beside what the program keeps there anyhow, where whoever may save may write too.
RegistryPlaces SystemPlaces() {
    return {{RegistryRoot::LocalMachine, "", "SOFTWARE\\OLEForRetail\\ServiceInfo\\Tavrin\\Unfinished save"},
            {RegistryRoot::CurrentUser, "", "Software\\Tavrin Instruments\\Ravlin 2\\Unfinished save"}};
}

Hives OpenHives(const RegistryPlaces& places, std::chrono::milliseconds lockLimit) {
    return {std::make_unique<SystemHive>(places.machine, lockLimit),
            std::make_unique<SystemHive>(places.user, lockLimit)};
}

} // namespace

std::unique_ptr<Registry> OpenWindowsRegistry(const RegistryPlaces& places, std::chrono::milliseconds lockLimit) {
    return MakeRegistry(OpenHives(places, lockLimit));
}

std::unique_ptr<RegistryTree> OpenWindowsTree(const RegistryPlaces& places, std::chrono::milliseconds lockLimit) {
    return MakeTree(OpenHives(places, lockLimit));
}

std::unique_ptr<Registry> OpenSystemRegistry() {
    return OpenWindowsRegistry(SystemPlaces());
}

std::unique_ptr<RegistryTree> OpenSystemRegistryTree() {
    return OpenWindowsTree(SystemPlaces());
}
