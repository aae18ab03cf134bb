#include "platform/registry/RegistryKey.h"

#include "platform/windows/WideText.h"
#include "platform/windows/WindowsError.h"

#include <array>
#include <utility>

namespace {

constexpr DWORD LongestKeyName = 255;
constexpr std::size_t LongestValueName = 16383;

std::string Explanation(LSTATUS status, HKEY hive, const std::string& path) {
    const std::string key = std::string(hive == HKEY_CURRENT_USER ? "HKEY_CURRENT_USER" : "HKEY_LOCAL_MACHINE") +
                            (path.empty() ? "" : "\\") + path;
    const std::string cause = " (" + WindowsErrorText(static_cast<DWORD>(status)) + "). ";
    if (status == ERROR_ACCESS_DENIED || status == ERROR_PRIVILEGE_NOT_HELD)
        return "The registry key \"" + key + "\" may not be used in this way by this user" + cause +
               "Administrator rights are needed: start the program by \"Run as administrator\" and do it again.";
    return "The registry key \"" + key + "\" could not be used" + cause + "Nothing of this save was kept.";
}

// The data of a value as the rest of the program has it, from the bytes that the system gives.
std::string FromSystem(DWORD type, const std::string& bytes) {
    if (!RegistryType::IsText(type))
        return bytes;
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
    while (!text.empty() && text.back() == L'\0')
        text.pop_back();
    return Utf8(text);
}

std::string ToSystem(const RegistryValue& value) {
    if (!RegistryType::IsText(value.type))
        return value.data;
    const std::wstring text = Wide(value.data);
    return {reinterpret_cast<const char*>(text.c_str()), (text.size() + 1) * sizeof(wchar_t)};
}

} // namespace

WindowsFailure::WindowsFailure(LSTATUS status, HKEY hive, const std::string& path)
    : HiveFailure(static_cast<int>(status), Explanation(status, hive, path)) {}

RegistryKey::RegistryKey(HKEY key, HKEY hive, std::string path) : key_(key), hive_(hive), path_(std::move(path)) {}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept
    : key_(std::exchange(other.key_, nullptr)), hive_(other.hive_), path_(std::move(other.path_)) {}

RegistryKey::~RegistryKey() {
    if (key_ != nullptr)
        RegCloseKey(key_);
}

void RegistryKey::Check(LSTATUS status) const {
    if (status != ERROR_SUCCESS)
        throw WindowsFailure(status, hive_, path_);
}

std::optional<RegistryKey> RegistryKey::Open(HKEY hive, const std::string& path, REGSAM access) {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(hive, Wide(path).c_str(), 0, access | KEY_WOW64_32KEY, &key);
    if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND || status == ERROR_KEY_DELETED)
        return std::nullopt;
    if (status != ERROR_SUCCESS)
        throw WindowsFailure(status, hive, path);
    return RegistryKey(key, hive, path);
}

RegistryKey RegistryKey::Make(HKEY hive, const std::string& path, bool& made) {
    HKEY key = nullptr;
    DWORD disposition = 0;
    const LSTATUS status =
        RegCreateKeyExW(hive, Wide(path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_QUERY_VALUE | KEY_SET_VALUE | KEY_WOW64_32KEY, nullptr, &key, &disposition);
    if (status != ERROR_SUCCESS)
        throw WindowsFailure(status, hive, path);
    made = disposition == REG_CREATED_NEW_KEY;
    return {key, hive, path};
}

void RegistryKey::Drop(HKEY hive, const std::string& path) {
    const auto key = Open(hive, path, KEY_READ | KEY_SET_VALUE | DELETE);
    if (!key)
        return;
    key->Check(RegDeleteTreeW(key->key_, nullptr)); // all below, and the values
    const LSTATUS status = RegDeleteKeyExW(hive, Wide(path).c_str(), KEY_WOW64_32KEY, 0);
    if (status != ERROR_FILE_NOT_FOUND)
        key->Check(status);
}

std::vector<std::string> RegistryKey::SubKeys() const {
    std::vector<std::string> names;
    std::array<wchar_t, LongestKeyName + 1> name{};
    for (DWORD i = 0;; ++i) {
        auto length = static_cast<DWORD>(name.size());
        const LSTATUS status = RegEnumKeyExW(key_, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (status == ERROR_NO_MORE_ITEMS || status == ERROR_KEY_DELETED)
            return names;
        Check(status);
        names.push_back(Utf8({name.data(), length}));
    }
}

std::vector<RegistryValue> RegistryKey::Values() const {
    std::vector<RegistryValue> values;
    std::vector<wchar_t> name(LongestValueName + 1);
    std::string data(1024, '\0');
    for (DWORD i = 0;;) {
        auto nameLength = static_cast<DWORD>(name.size());
        auto dataLength = static_cast<DWORD>(data.size());
        DWORD type = REG_NONE;
        const LSTATUS status = RegEnumValueW(key_, i, name.data(), &nameLength, nullptr, &type,
                                             reinterpret_cast<BYTE*>(data.data()), &dataLength);
        if (status == ERROR_NO_MORE_ITEMS || status == ERROR_KEY_DELETED)
            return values;
        if (status == ERROR_MORE_DATA) {
            data.resize(std::max<std::size_t>(dataLength, data.size() * 2));
            continue;
        }
        Check(status);
        values.push_back({Utf8({name.data(), nameLength}), type, FromSystem(type, data.substr(0, dataLength))});
        ++i;
    }
}

std::optional<RegistryValue> RegistryKey::Value(const std::string& name) const {
    const std::wstring wide = Wide(name);
    std::string data(1024, '\0');
    while (true) {
        auto length = static_cast<DWORD>(data.size());
        DWORD type = REG_NONE;
        const LSTATUS status =
            RegQueryValueExW(key_, wide.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(data.data()), &length);
        if (status == ERROR_FILE_NOT_FOUND || status == ERROR_KEY_DELETED)
            return std::nullopt;
        if (status == ERROR_MORE_DATA) {
            data.resize(std::max<std::size_t>(length, data.size() * 2));
            continue;
        }
        Check(status);
        return RegistryValue{name, type, FromSystem(type, data.substr(0, length))};
    }
}

void RegistryKey::Put(const RegistryValue& value) const {
    std::string data = ToSystem(value);
    const auto length = static_cast<DWORD>(data.size());
    data += "\x01\x01"; // a zero here would be taken for the end that a list of texts lacks, and be stored with it
    Check(RegSetValueExW(key_, Wide(value.name).c_str(), 0, value.type, reinterpret_cast<const BYTE*>(data.data()),
                         length));
}

void RegistryKey::DropValue(const std::string& name) const {
    const LSTATUS status = RegDeleteValueW(key_, Wide(name).c_str());
    if (status != ERROR_FILE_NOT_FOUND)
        Check(status);
}

void RegistryKey::Flush() const {
    Check(RegFlushKey(key_));
}
