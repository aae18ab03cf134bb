// A device profile: the named entry that tells a point-of-sale application which service object drives which device.
#pragma once

#include <cstdint>
#include <string>

// The device class of a profile; also the index into every array of controls that has one element per class.
namespace DeviceClass {
inline constexpr std::int32_t Scanner = 0;
inline constexpr std::int32_t Scale = 1;
} // namespace DeviceClass

// The word that names a device class, in registry folders and in collection keys: "Scanner" or "Scale".
[[nodiscard]] inline std::string DeviceClassWord(std::int32_t deviceType) {
    return deviceType == DeviceClass::Scanner ? "Scanner" : "Scale";
}

class CDevice {
public:
    virtual ~CDevice() = default;
    CDevice(const CDevice&) = delete;
    CDevice& operator=(const CDevice&) = delete;

    // The profile (logical device) name, UTF-8, exactly as the user typed it.
    virtual void DeviceName(const std::string& name) = 0;
    [[nodiscard]] virtual std::string DeviceName() const = 0;
    // DeviceClass::Scanner or DeviceClass::Scale.
    [[nodiscard]] virtual std::int32_t DeviceType() const = 0;

    // Fills the object from the profile key named DeviceName. The result carries no meaning: it is always false.
    // Errors: RegistryError; NumberedError TypeMismatch or Overflow for a number that cannot be read.
    virtual bool LoadDevice() = 0;
    // Writes the object to the profile key named DeviceName, whole or not at all. An update wipes whatever the key
    // held; a save without it leaves foreign values in place. The result is always false. Errors: RegistryError.
    virtual bool SaveDevice(bool blnUpdate) = 0;

    // The programming class of the profile's device, 0 for none.
    [[nodiscard]] virtual std::int32_t ConfigurationType() const = 0;

    // Whether a test holds the device; never stored.
    [[nodiscard]] virtual bool InUse() const = 0;
    virtual void InUse(bool inUse) = 0;

    // The name of the profile's class, "CScanner2" for one.
    [[nodiscard]] virtual std::string ClassName() const = 0;

protected:
    CDevice() = default;
};
