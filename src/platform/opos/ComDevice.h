// A control object of the system's: what the controls of all device classes do alike.
#pragma once

#include "opos/EventDispatcher.h"
#include "opos/OposControl.h"
#include "platform/opos/ComEvents.h"
#include "platform/opos/ComObject.h"

#include <memory>
#include <string>
#include <vector>

// The object, made when first needed, its events, and what stands in for it where the system has none or it fails.
class ComDevice {
public:
    // Creates nothing yet.
    ComDevice(const wchar_t* progId, EventDispatcher& dispatcher) : progId_(progId), dispatcher_(dispatcher) {}

    std::int32_t Open(const std::string& deviceName);
    // Every method: its result; Closed without an object, Failure where the object refuses the call.
    std::int32_t Call(const wchar_t* method, std::vector<ComValue> arguments = {});
    std::int32_t CallWithText(const wchar_t* method, std::vector<ComValue> arguments, std::string& text);

    [[nodiscard]] std::int32_t Number(const wchar_t* property, std::int32_t otherwise = 0);
    [[nodiscard]] bool Flag(const wchar_t* property);
    // UTF-8; "[Error]" where it cannot be had.
    [[nodiscard]] std::string Text(const wchar_t* property);
    // A char for each character, those beyond 255 as question marks.
    [[nodiscard]] std::string Bytes(const wchar_t* property);
    void Put(const wchar_t* property, bool flag);
    [[nodiscard]] std::int32_t ResultCode();
    [[nodiscard]] std::int32_t OpenResult();

    OposControl::DataHandler onData;
    OposControl::ErrorHandler onError;
    OposControl::DirectIOHandler onDirectIO;
    OposControl::StatusUpdateHandler onStatusUpdate;

private:
    // Null where the system has no such object; openResult_ says why.
    ComObject* Object();
    void Create();
    void Deliver(ComEvent& event);

    const wchar_t* progId_;
    EventDispatcher& dispatcher_;
    // Shared with the calls that are under way: an event that comes in one may destroy the control.
    std::shared_ptr<ComObject> object_;
    std::unique_ptr<ComEvents> events_;
    bool tried_ = false;
    std::int32_t openResult_ = OposOpenResult::Success;
    std::shared_ptr<bool> refused_ = std::make_shared<bool>(false); // whether the object refused the last call
};
