// A control object of the tests' own, in this process: late bound, with events by a connection point, as the OPOS
// control objects are.
#pragma once

#include "platform/opos/ComObject.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <ocidl.h>

// What a control object holds and does; tests look into it and change it. A name that is in none of the maps is no
// member of the object.
struct SimulatedDevice {
    std::map<std::wstring, std::int32_t> numbers;
    std::map<std::wstring, bool> flags;
    std::map<std::wstring, std::wstring> texts;
    // Arguments in the order of declaration.
    using Method = std::function<std::int32_t(std::vector<VARIANT*>&)>;
    std::map<std::wstring, Method> methods;
    // Called behind the write of a property.
    std::function<void(const std::wstring&)> written;
    std::vector<std::string> log; // calls and writes
    HRESULT refusal = S_OK;       // what every call answers
    int alive = 0;                // objects that were made and not released
    int connected = 0;            // sinks that listen

    // Fires an event as a control object does: the sink is asked for the id first, and any answer but E_NOTIMPL and an
    // id drops the event. Arguments in the order of declaration. False where nobody listened.
    bool Fire(DISPID id, const wchar_t* name, std::vector<VARIANT> arguments);

    ComReference<IDispatch> sink;
};

// Makes the device's objects known under the ProgID, in this process alone, as long as it lives.
class SimulatedControl {
public:
    SimulatedControl(std::wstring progId, SimulatedDevice& device);
    ~SimulatedControl();
    SimulatedControl(const SimulatedControl&) = delete;
    SimulatedControl& operator=(const SimulatedControl&) = delete;

private:
    std::wstring key_;
    DWORD cookie_ = 0;
};
