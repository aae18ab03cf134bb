// The state machine behind a control object: what is allowed when, and the delivery of events.
#pragma once

#include "opos/EventDispatcher.h"
#include "opos/OposControl.h"
#include "platform/opos/ClaimLock.h"
#include "platform/opos/ServiceObject.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

// Members are those of OposControl. Lives in a shared_ptr: whoever calls it holds it, so that a handler may destroy the
// control that it belongs to.
class ControlObject : public std::enable_shared_from_this<ControlObject> {
public:
    virtual ~ControlObject();
    ControlObject(const ControlObject&) = delete;
    ControlObject& operator=(const ControlObject&) = delete;

    std::int32_t Open(const std::string& deviceName);
    std::int32_t Close();
    std::int32_t ClaimDevice(std::int32_t timeout);
    std::int32_t ReleaseDevice();
    std::int32_t ClearInput();
    std::int32_t DirectIO(std::int32_t command, std::int32_t& data, std::string& text);
    std::int32_t RetrieveStatistics(std::string& statisticsBuffer);

    [[nodiscard]] bool Claimed() const { return IsOpen() && claimed_; }
    [[nodiscard]] bool DeviceEnabled() const { return IsOpen() && queue_->Accepting(); }
    void DeviceEnabled(bool enabled);
    [[nodiscard]] bool DataEventEnabled() const { return IsOpen() && dataEventEnabled_; }
    void DataEventEnabled(bool enabled);
    [[nodiscard]] bool AutoDisable() const { return IsOpen() && autoDisable_; }
    void AutoDisable(bool disable);
    [[nodiscard]] bool FreezeEvents() const { return IsOpen() && freezeEvents_; }
    void FreezeEvents(bool freeze);
    [[nodiscard]] std::int32_t DataCount() const { return IsOpen() ? queue_->DataCount() : 0; }
    [[nodiscard]] std::int32_t State() const;
    [[nodiscard]] std::int32_t ResultCode() const { return IsOpen() ? resultCode_ : OposResult::Closed; }
    [[nodiscard]] std::int32_t ResultCodeExtended() const { return IsOpen() ? resultCodeExtended_ : 0; }
    [[nodiscard]] std::int32_t OpenResult() const { return openResult_; }
    [[nodiscard]] std::string DeviceName() const;
    [[nodiscard]] std::string DeviceDescription() const;
    [[nodiscard]] std::int32_t ServiceObjectVersion() const { return IsOpen() ? ServiceObject::Version : 0; }
    [[nodiscard]] std::string ServiceObjectDescription() const;

    OposControl::DataHandler onDataEvent;
    OposControl::ErrorHandler onErrorEvent;

    // Ends the control: closes, and no handler is called any more.
    void Destroy();

protected:
    static constexpr std::int32_t Forever = -1;
    // What texts read while closed.
    static constexpr const char* ClosedText = "[Error]";

    explicit ControlObject(EventDispatcher& dispatcher) : dispatcher_(dispatcher) {}

    // Makes the service object of the profile; null with the results (OposResult, OposOpenResult) set when there is
    // none.
    struct OpenOutcome {
        std::unique_ptr<ServiceObject> service;
        std::int32_t result = 0;
        std::int32_t openResult = 0;
    };
    virtual OpenOutcome OpenService(const std::string& deviceName) = 0;
    // The class's own properties as they are after an Open.
    virtual void ResetProperties() = 0;
    // Called before the handler of a data event.
    virtual void TakeData(DataEvent event) = 0;
    // The application wants the failed input tried again.
    virtual void RetryInput() {}

    [[nodiscard]] bool IsOpen() const { return service_ != nullptr; }
    [[nodiscard]] const std::shared_ptr<EventQueue>& Queue() const { return queue_; }
    // Success, or the first of Closed, Claimed, NotClaimed and Disabled that holds.
    [[nodiscard]] std::int32_t CheckEnabled() const;
    // Leaves the result in ResultCode and gives it.
    std::int32_t Done(std::int32_t result, std::int32_t extended = 0);
    // Waits until the condition holds; false when the device was disabled or closed first.
    [[nodiscard]] bool WaitFor(const std::function<bool()>& condition);
    // What a call gives whose wait was interrupted so.
    [[nodiscard]] std::int32_t Interrupted() const { return IsOpen() ? OposResult::Disabled : OposResult::Closed; }

private:
    enum class Waited { Over, TimedOut, Interrupted };
    Waited WaitUntil(const std::function<bool()>& condition, std::int32_t timeout);
    [[nodiscard]] std::int32_t CheckClaimed() const;
    std::int32_t EnableDevice();
    void DisableDevice();
    void GiveUpClaim();
    void Deliver();
    void DeliverData(DataEvent event);
    void DeliverError(const ErrorEvent& event);

    EventDispatcher& dispatcher_;
    std::shared_ptr<EventQueue> queue_;
    std::unique_ptr<ServiceObject> service_; // while open
    ClaimLock claim_;
    bool claimed_ = false;
    bool started_ = false; // what the service object was told; the queue knows DeviceEnabled
    bool dataEventEnabled_ = false;
    bool autoDisable_ = false;
    bool freezeEvents_ = false;
    bool delivering_ = false;
    std::int32_t resultCode_ = 0;
    std::int32_t resultCodeExtended_ = 0;
    std::int32_t openResult_ = 0;
    unsigned interruptions_ = 0;
    std::chrono::steady_clock::time_point savedCounters_{};
};
