// What the control objects of both device classes have in common: the life of a device and its events.
#pragma once

#include "opos/OposConstants.h"

#include <cstdint>
#include <functional>
#include <string>

// A control object opens a device by its profile's name and drives it through the profile's service object.
//
// Texts are UTF-8. Methods return their result (OposResult), which is also in ResultCode afterwards; a property write
// only leaves it there, a read changes nothing. While closed, writes do nothing, numbers read 0, flags false and texts
// "[Error]", State and ResultCode read Closed, and methods return Closed. No member raises an error.
//
// One thread, the user interface's, makes, calls and destroys a control and receives its events. Destruction closes.
// An event handler may call every member and may destroy the control. Events never nest within one control: what a
// handler sets loose is delivered when it has returned.
class OposControl {
public:
    using DataHandler = std::function<void(std::int32_t status)>;
    // errorResponse comes preset (OposErrorResponse) and may be changed.
    using ErrorHandler = std::function<void(std::int32_t resultCode, std::int32_t resultCodeExtended,
                                            std::int32_t errorLocus, std::int32_t& errorResponse)>;
    using DirectIOHandler = std::function<void(std::int32_t eventNumber, std::int32_t& data, std::string& text)>;
    using StatusUpdateHandler = std::function<void(std::int32_t status)>;

    virtual ~OposControl() = default;
    OposControl(const OposControl&) = delete;
    OposControl& operator=(const OposControl&) = delete;

    virtual std::int32_t Open(const std::string& deviceName) = 0;
    virtual std::int32_t Close() = 0;
    // Waits at most so many milliseconds for the device while another control, here or in another program, holds it;
    // 0 tries once, -1 waits for ever (EventDispatcher says how that wait can end).
    virtual std::int32_t ClaimDevice(std::int32_t timeout) = 0;
    virtual std::int32_t ReleaseDevice() = 0;
    // Drops queued data and input errors.
    virtual std::int32_t ClearInput() = 0;
    // Commands and the meaning of data and text are the service object's.
    virtual std::int32_t DirectIO(std::int32_t command, std::int32_t& data, std::string& text) = 0;
    // Replaces the request ("" all, "U_" standard, "M_" maker's, or names separated by commas) by an XML document.
    // After a failure the request is unchanged.
    virtual std::int32_t RetrieveStatistics(std::string& statisticsBuffer) = 0;

    [[nodiscard]] virtual bool Claimed() const = 0;
    [[nodiscard]] virtual bool DeviceEnabled() const = 0;
    virtual void DeviceEnabled(bool enabled) = 0;
    // Falls back to false with every data event. Setting it delivers what is queued before it returns.
    [[nodiscard]] virtual bool DataEventEnabled() const = 0;
    virtual void DataEventEnabled(bool enabled) = 0;
    [[nodiscard]] virtual bool AutoDisable() const = 0;
    virtual void AutoDisable(bool disable) = 0;
    [[nodiscard]] virtual bool FreezeEvents() const = 0;
    virtual void FreezeEvents(bool freeze) = 0;
    // Queued data events.
    [[nodiscard]] virtual std::int32_t DataCount() const = 0;

    [[nodiscard]] virtual std::int32_t State() const = 0;
    [[nodiscard]] virtual std::int32_t ResultCode() const = 0;
    [[nodiscard]] virtual std::int32_t ResultCodeExtended() const = 0;
    // Readable while closed, as are the control object's version and description.
    [[nodiscard]] virtual std::int32_t OpenResult() const = 0;

    [[nodiscard]] virtual std::string DeviceName() const = 0;
    [[nodiscard]] virtual std::string DeviceDescription() const = 0;
    // Versions: major x 1,000,000 + minor x 1,000 + build.
    [[nodiscard]] virtual std::int32_t ServiceObjectVersion() const = 0;
    [[nodiscard]] virtual std::string ServiceObjectDescription() const = 0;
    [[nodiscard]] virtual std::int32_t ControlObjectVersion() const = 0;
    [[nodiscard]] virtual std::string ControlObjectDescription() const = 0;

    // Sets who receives an event; a new handler replaces the one before, an empty one ends it.
    virtual void OnDataEvent(DataHandler handler) = 0;
    virtual void OnErrorEvent(ErrorHandler handler) = 0;
    virtual void OnDirectIOEvent(DirectIOHandler handler) = 0;
    virtual void OnStatusUpdateEvent(StatusUpdateHandler handler) = 0;

protected:
    OposControl() = default;
};
