#include "app/Settings.h"

#include "profiles/Numbers.h"
#include "profiles/RegistryPaths.h"
#include "profiles/RegistryStore.h"
#include "wizard/StartupSetting.h"

#include <charconv>

namespace {

std::unique_ptr<RegistryStore> OpenForReading(Registry& registry, RegistryRoot root, const char* path) {
    auto store = registry.CreateStore();
    store->CreateMissing(false);
    store->RootKey(root);
    store->KeyPath(path);
    return store;
}

std::string SingleText(float number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

} // namespace

std::string Settings::Read(const char* valueName) const {
    return OpenForReading(registry_, RegistryRoot::CurrentUser, RegistryPaths::Settings)
        ->ReadValue(RegistryValueType::String, valueName);
}

Settings::Position Settings::WindowPosition() const {
    return {ToSingle(Read("Left")), ToSingle(Read("Top"))};
}

std::int16_t Settings::ListBar() const {
    return StoredNumber(Read("ListBar"));
}

bool Settings::OpensWizard() const {
    return !HidesWizardAtStartup(registry_);
}

void Settings::SaveWindow(const Position& position, int listBar) const {
    const auto store = registry_.CreateStore();
    store->RootKey(RegistryRoot::CurrentUser);
    store->KeyPath(RegistryPaths::Settings);
    store->WriteValue("Left", SingleText(position.left));
    store->WriteValue("Top", SingleText(position.top));
    store->WriteValue("ListBar", std::to_string(listBar));
    store->Release();
}

std::string Settings::LogVerbosity() const {
    return OpenForReading(registry_, RegistryRoot::LocalMachine, RegistryPaths::DriverOptions)
        ->ReadValue(RegistryValueType::String, "LogVerbosity");
}

void Settings::SaveLogVerbosity(int level) const {
    const auto store = registry_.CreateStore();
    store->RootKey(RegistryRoot::LocalMachine);
    store->KeyPath(RegistryPaths::DriverOptions);
    store->WriteValue("LogVerbosity", std::to_string(level));
    store->Release();
}
