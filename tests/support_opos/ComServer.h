// Control objects of the tests' own, in this process: late bound, with events by a connection point, as the OPOS
// control objects are.
#pragma once

#include "platform/opos/ComObject.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <ocidl.h>

// What an object holds and does behind COM.
class ServedControl {
public:
    ServedControl() = default;
    virtual ~ServedControl() = default;
    ServedControl(const ServedControl&) = delete;
    ServedControl& operator=(const ServedControl&) = delete;

    [[nodiscard]] virtual bool IsProperty(const std::wstring& name) const = 0;
    [[nodiscard]] virtual bool IsMethod(const std::wstring& name) const = 0;
    [[nodiscard]] virtual ComValue Get(const std::wstring& property) = 0;
    // All properties that programs write are flags.
    virtual void Put(const std::wstring& property, bool flag) = 0;
    // Arguments in the order of declaration.
    virtual std::int32_t Call(const std::wstring& method, std::vector<VARIANT*>& arguments) = 0;

    // Fires an event as a control object does: the sink is asked for the id first, and any answer but E_NOTIMPL and an
    // id drops the event. Arguments in the order of declaration. False where nobody listened. Whoever listens may let
    // go of this object.
    bool Fire(DISPID id, const wchar_t* name, std::vector<VARIANT> arguments);

    ComReference<IDispatch> sink;
    HRESULT refusal = S_OK; // what every call answers
    int alive = 0;          // objects that were made and not released
    int connected = 0;      // sinks that listen
};

// Makes objects known under the ProgID, in this process alone, as long as it lives; of several the newest counts. make
// gives what is behind an object.
class ServedClass {
public:
    using Factory = std::function<std::shared_ptr<ServedControl>()>;

    ServedClass(const std::wstring& progId, Factory make);
    ~ServedClass();
    ServedClass(const ServedClass&) = delete;
    ServedClass& operator=(const ServedClass&) = delete;

private:
    void Name(const std::wstring& type) const;

    std::wstring key_;
    std::optional<std::wstring> former_; // the class of that ProgID before
    DWORD cookie_ = 0;
};

// Values as events carry them.
[[nodiscard]] VARIANT Long(std::int32_t number);
[[nodiscard]] VARIANT Reference(LONG& number);
[[nodiscard]] VARIANT Reference(BSTR& text);
