// What the pages that test devices work on; all of it outlives them.
#pragma once

class DeviceCollection;
class OposControls;
class Registry;

struct TestServices {
    Registry& registry;
    DeviceCollection& devices;
    OposControls& controls;
};
