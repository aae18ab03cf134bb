// Marks the profile whose device a page holds, which keeps it from being deleted.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

class DeviceCollection;

class ProfileInUse {
public:
    // The collection outlives the object; what is still held at its end stays marked.
    ProfileInUse(DeviceCollection& devices, std::int32_t deviceType) : devices_(devices), deviceType_(deviceType) {}

    // Errors: NumberedError InvalidArgument for a profile that the collection does not hold.
    void Hold(const QString& name);
    // Unmarks the held profile, if there is one and the collection still has it.
    void Release();

private:
    DeviceCollection& devices_;
    std::int32_t deviceType_;
    std::optional<QString> held_; // by name: a profile that is stored anew becomes another object
};
