// The four families of drop-down lists that show the profiles' names, kept in step item by item.
#pragma once

#include "widgets/DropDownList.h"

#include <QString>

#include <array>
#include <cstdint>

class DeviceCollection;

// One view's lists: element 0 holds scanner profiles, element 1 scale profiles.
using DeviceNameList = std::array<DropDownList*, 2>;

class DeviceNameLists {
public:
    // The views' lists, in the order in which they are brought up to date.
    struct Families {
        DeviceNameList existing; // Modify Profile: without the profiles of foreign service objects
        DeviceNameList simple;   // Simple Test
        DeviceNameList detailed; // Detailed Test
        DeviceNameList info;     // Device Information
    };
    explicit DeviceNameLists(const Families& families);

    // Clears all lists and fills them from the collection, in its order. Selects nothing.
    void FillDeviceNameLists(const DeviceCollection& devices);
    // Appends the name to all four lists of the device class.
    void AddDeviceName(std::int32_t deviceType, const QString& name);
    // Selects the only item of each list of the class that holds just one.
    void SelectOnlyItems(std::int32_t deviceType);
    // Takes a deleted profile's name out of all four lists of the class.
    void RemoveDeviceName(std::int32_t deviceType, const QString& name);

private:
    // Removes the first item that begins with the name, whatever follows it there, and selects the first of what is
    // left. Errors: NumberedError InvalidArgument where none begins with it.
    static void RemoveDeviceNameItem(DropDownList& list, const QString& name);

    [[nodiscard]] std::array<DropDownList*, 4> Lists(std::int32_t deviceType) const;

    Families families_;
};
