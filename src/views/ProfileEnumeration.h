// Reads every profile of the registry into the collection, once, at start.
#pragma once

class DeviceCollection;
class QWidget;
class Registry;

// Adds a profile object per scanner key, in the registry's order; the class follows from the key's default value. An
// error ends in a message box of owner; what was read before it stays.
void LoadScannerProfiles(Registry& registry, DeviceCollection& devices, QWidget* owner);

// The same for scales, without a message of its own. Errors: RegistryError, NumberedError.
void LoadScaleProfiles(Registry& registry, DeviceCollection& devices);
