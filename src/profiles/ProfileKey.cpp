#include "profiles/ProfileKey.h"

#include "profiles/Numbers.h"

#include <ctime>

ProfileReader::ProfileReader(Registry& registry, std::string_view folder, const std::string& name)
    : store_(registry.CreateStore()) {
    store_->CreateMissing(false);
    store_->RootKey(RegistryRoot::LocalMachine);
    store_->KeyPath(std::string(folder) + name);
}

std::string ProfileReader::Text(std::string_view valueName) {
    return store_->ReadValue(RegistryValueType::String, valueName);
}

std::int16_t ProfileReader::Number(std::string_view valueName) {
    return StoredNumber(Text(valueName));
}

std::int16_t ProfileReader::Port(std::string_view valueName) {
    const std::string text = Text(valueName);
    return text.size() < 4 ? std::int16_t{0} : PortNumber(text);
}

void SaveProfile(Registry& registry, const std::string& folder, const std::string& name, bool wipe,
                 std::span<const NamedText> values) {
    const auto store = registry.CreateStore();
    store->RootKey(RegistryRoot::LocalMachine);
    store->BeginWriting();
    store->KeyPath(folder + name);
    const bool holdsAnything = store->ValueCount() > 0 || store->SubKeyCount() > 0;
    if (wipe && holdsAnything) {
        store->KeyPath(folder);
        store->DeleteKey(name);
        store->KeyPath(folder + name);
    }
    for (const NamedText& value : values)
        store->WriteValue(value.name, value.text);
    store->Release();
}

std::string InstanceDescription() {
    const std::time_t now = std::time(nullptr);
    char text[64] = "";
    const std::tm* local = std::localtime(&now); // NOLINT(concurrency-mt-unsafe): one thread
    (void)std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", local);
    return std::string("Tavrin Device Instance, created ") + text;
}
