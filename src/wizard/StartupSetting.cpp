#include "wizard/StartupSetting.h"

#include "profiles/Numbers.h"
#include "profiles/RegistryPaths.h"
#include "profiles/RegistryStore.h"

namespace {
constexpr const char* ValueName = "StartupWizard";
}

bool HidesWizardAtStartup(Registry& registry) {
    const auto store = registry.CreateStore();
    store->CreateMissing(false);
    store->RootKey(RegistryRoot::CurrentUser);
    store->KeyPath(RegistryPaths::Settings);
    return StoredNumber(store->ReadValue(RegistryValueType::String, ValueName)) != 0;
}

void HideWizardAtStartup(Registry& registry, bool hide) {
    const auto store = registry.CreateStore();
    store->RootKey(RegistryRoot::CurrentUser);
    store->KeyPath(RegistryPaths::Settings);
    store->WriteValue(ValueName, hide ? "1" : "0");
    store->Release();
}
