// The registry as the rest of the program sees it: short-lived stores over one of the two hives.
#pragma once

#include "profiles/NumberedError.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

enum class RegistryRoot { LocalMachine, CurrentUser };

// Every value that the program reads or writes is a string.
enum class RegistryValueType { String };

// What a store operation failed at. The numbers are fixed: the profile enumeration chooses its message by them.
enum class RegistryErrorNumber : std::uint32_t {
    OpenKey = 0x80040201,
    CloseKey = 0x80040202,
    CreateKey = 0x80040203,
    ReadKey = 0x80040204,
    KeyMissing = 0x80040205,
    NoSubKeys = 0x80040206,
    WriteValue = 0x80040207,
    DeleteKey = 0x80040208,
    Unknown = 0x80040209,
};

// The description (UTF-8) says which key or file it was, what was wrong and, where there is one, the way out.
class RegistryError : public NumberedError {
public:
    RegistryError(RegistryErrorNumber number, const std::string& description)
        : NumberedError(static_cast<std::uint32_t>(number), description) {}
};

// One sequence of operations on a current root (LocalMachine unless set) and a current key. Made by Registry, used by
// one procedure and released before that returns.
//
// All texts are UTF-8. Paths are separated by backslashes; doubled ones count as one, leading and trailing ones as
// none. Keys and value names compare without case and keep the case they were made with; a key's name has 1 to 255
// UTF-16 units, a value's up to 16383. Every operation raises RegistryError where it fails.
//
// What a store reads is one consistent state, the same for all reading stores of a Registry that are open together.
// What it writes is one transaction per root: Release makes it durable, and a store destroyed without Release (an error
// on the way) leaves the registry as it was. From its first write on a store reads the newest state with its own
// changes, and other programs wait with their writes until it ends.
class RegistryStore {
public:
    virtual ~RegistryStore() = default;
    RegistryStore(const RegistryStore&) = delete;
    RegistryStore& operator=(const RegistryStore&) = delete;

    // Whether KeyPath creates a key that does not exist; true unless set. Readers set it to false first of all.
    virtual void CreateMissing(bool create) = 0;
    // Also leaves the current key.
    virtual void RootKey(RegistryRoot root) = 0;
    // Selects the current key. A missing key that may not be created is no error yet: it reads as a key that holds
    // nothing, and what cannot be done without it raises KeyMissing.
    virtual void KeyPath(std::string_view path) = 0;
    // Writes are meant to follow under this root: nobody else changes it from here to the end of the store, so that
    // what is read now still holds when it is acted upon. Raises OpenKey where the right to write is not to be had.
    virtual void BeginWriting() = 0;

    // The text of the named value of the current key ("" names the default value); "" where there is no such value.
    // A value of another type than a string reads as its text in decimal (a number) or raises ReadKey (bytes).
    virtual std::string ReadValue(RegistryValueType type, std::string_view name) = 0;
    // Creates or replaces a string value of the current key. Without a current key raises KeyMissing.
    virtual void WriteValue(std::string_view name, std::string_view text) = 0;
    virtual std::int32_t ValueCount() = 0;
    virtual std::int32_t SubKeyCount() = 0;
    // Values stand in the order in which they were made, subkeys in the order of their names without case. Names
    // by index, 0 to the count less one. ValueName gives "" for the index just behind the last; any other raises
    // ReadKey. SubKeyName raises NoSubKeys for a key without subkeys and ReadKey beyond the last.
    virtual std::string ValueName(std::int32_t index) = 0;
    virtual std::string SubKeyName(std::int32_t index) = 0;
    // Deletes that subkey of the current key with all it holds; KeyMissing where there is none. A name with
    // backslashes is a path below the current key, as in KeyPath.
    virtual void DeleteKey(std::string_view subKey) = 0;

    // Ends the sequence and makes what was written durable; where that fails raises CloseKey and keeps nothing of it.
    // Nothing may be called behind it.
    virtual void Release() = 0;

protected:
    RegistryStore() = default;
};

// Makes stores and outlives them; lives as long as the program. One thread uses a Registry and its stores.
class Registry {
public:
    virtual ~Registry() = default;
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    virtual std::unique_ptr<RegistryStore> CreateStore() = 0;

protected:
    Registry() = default;
};

// The registry of this system: the Windows registry, elsewhere a file per hive. Opens nothing yet; a hive that cannot
// be opened raises OpenKey from the first store operation that needs it.
[[nodiscard]] std::unique_ptr<Registry> OpenSystemRegistry();
