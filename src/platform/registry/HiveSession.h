// One sequence of operations on a hive and what is known within it.
#pragma once

#include "profiles/RegistryTree.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// What the system answered; a Hive makes a RegistryError of it where the operation is known.
class HiveFailure : public std::runtime_error {
public:
    HiveFailure(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
    // A number of the system's.
    [[nodiscard]] int Code() const noexcept { return code_; }

private:
    int code_;
};

// A key within the session that found or made it.
using KeyId = std::int64_t;
inline constexpr KeyId HiveKey = 0;

struct StoredValue {
    RegistryValue value;
    std::string folded;
};
using StoredValues = std::vector<StoredValue>;
using KeyNames = std::vector<std::string>;

// A reading session is one state of the hive and may be shared; a writing one keeps other writers out. Ends without
// Commit as if it had never been. Errors: HiveFailure; RegistryError for names that are not allowed.
class HiveSession {
public:
    virtual ~HiveSession() = default;
    HiveSession(const HiveSession&) = delete;
    HiveSession& operator=(const HiveSession&) = delete;

    [[nodiscard]] virtual bool MayWrite() const = 0;

    [[nodiscard]] virtual std::optional<KeyId> FindKey(std::string_view path) = 0;
    // Finds or makes the key and those above it.
    [[nodiscard]] virtual KeyId MakeKey(std::string_view path) = 0;
    [[nodiscard]] virtual std::optional<KeyId> FindSubKey(KeyId parent, std::string_view name) = 0;

    // In the order of their names without case, and in the order in which they were made. What was returned stays as
    // it is when the session changes the key.
    [[nodiscard]] virtual std::shared_ptr<const KeyNames> SubKeys(KeyId key) = 0;
    [[nodiscard]] virtual std::shared_ptr<const StoredValues> Values(KeyId key) = 0;

    virtual void PutValue(KeyId key, const RegistryValue& value) = 0;
    virtual bool DropValue(KeyId key, std::string_view name) = 0;
    // With all that lies below it.
    virtual void DropKey(KeyId key) = 0;

    virtual void Commit() = 0;

protected:
    HiveSession() = default;
};
