#include "platform/opos/ProfileLookup.h"

#include "profiles/CDevice.h"
#include "profiles/CScanner1.h"
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"

#include <algorithm>
#include <regex>
#include <vector>

namespace {

constexpr std::ptrdiff_t NameTooLong = 256;

std::string FolderOf(std::int32_t deviceClass) {
    return deviceClass == DeviceClass::Scanner ? RegistryPaths::ScannerFolder : RegistryPaths::ScaleFolder;
}

std::unique_ptr<RegistryStore> Reader(Registry& registry, std::string_view key) {
    auto store = registry.CreateStore();
    store->CreateMissing(false);
    store->RootKey(RegistryRoot::LocalMachine);
    store->KeyPath(key);
    return store;
}

std::ptrdiff_t CharactersIn(std::string_view utf8) {
    return std::ranges::count_if(utf8, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; });
}

std::vector<std::string> ProfileNames(RegistryStore& store) {
    std::vector<std::string> names;
    const std::int32_t count = store.SubKeyCount();
    for (std::int32_t index = 0; index < count; ++index)
        names.push_back(store.SubKeyName(index));
    return names;
}

bool SameName(std::string_view left, std::string_view right) {
    const auto lower = [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    };
    return std::ranges::equal(left, right, {}, lower, lower);
}

template<class Profile>
std::int16_t PortOf(Registry& registry, const std::string& name) {
    Profile profile(registry);
    profile.DeviceName(name);
    profile.LoadDevice();
    return profile.SerialPort();
}

} // namespace

std::optional<FoundProfile> FindProfile(Registry& registry, std::int32_t deviceClass, const std::string& name) {
    if (name.empty() || CharactersIn(name) >= NameTooLong)
        return std::nullopt;
    const std::string folder = FolderOf(deviceClass);
    const auto store = Reader(registry, folder);
    const std::string pointedTo = store->ReadValue(RegistryValueType::String, name);
    const std::string wanted = pointedTo.empty() ? name : pointedTo;
    const auto names = ProfileNames(*store);
    auto found = std::ranges::find(names, wanted);
    if (found == names.end())
        found = std::ranges::find_if(names, [&wanted](const std::string& key) { return SameName(key, wanted); });
    if (found == names.end())
        return std::nullopt;
    store->KeyPath(folder + *found);
    return FoundProfile{*found, store->ReadValue(RegistryValueType::String, "")};
}

bool ScannerUsesPort(Registry& registry, int port) {
    const auto store = Reader(registry, RegistryPaths::ScannerFolder);
    for (const std::string& name : ProfileNames(*store)) {
        store->KeyPath(RegistryPaths::ScannerFolder + name);
        const std::string progId = store->ReadValue(RegistryValueType::String, "");
        try {
            if ((progId == ProgId::Scanner1 && PortOf<CScanner1>(registry, name) == port) ||
                (progId == ProgId::Scanner2 && PortOf<CScanner2>(registry, name) == port))
                return true;
        } catch (const RegistryError&) {
            throw;
        } catch (const NumberedError&) { // a profile that cannot be read uses no port
            continue;
        }
    }
    return false;
}

std::string ReadMachineValue(Registry& registry, std::string_view key, std::string_view value) {
    return Reader(registry, key)->ReadValue(RegistryValueType::String, value);
}

std::string CreationDate(Registry& registry, std::int32_t deviceClass, const std::string& profile) {
    const std::string description = ReadMachineValue(registry, FolderOf(deviceClass) + profile, "Description");
    static const std::regex date(R"(created (\d{4}-\d{2}-\d{2})\b)");
    std::smatch match;
    return std::regex_search(description, match, date) ? match[1].str() : std::string();
}
