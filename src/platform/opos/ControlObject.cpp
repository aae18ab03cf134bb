#include "platform/opos/ControlObject.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

// A wait looks this often whether it is over.
constexpr Milliseconds WaitStep{5};
// Delivering goes on so long before the user interface has its turn.
constexpr Milliseconds DeliveryTurn{10};
// So much counting a crash can cost.
constexpr std::chrono::seconds CountersSaveInterval{60};

} // namespace

ControlObject::~ControlObject() = default;

void ControlObject::Destroy() {
    onDataEvent = {};
    onErrorEvent = {};
    Close();
}

std::int32_t ControlObject::Open(const std::string& deviceName) {
    if (IsOpen()) {
        openResult_ = OposOpenResult::AlreadyOpen;
        return Done(OposResult::Illegal);
    }
    OpenOutcome outcome = OpenService(deviceName);
    openResult_ = outcome.openResult;
    if (outcome.service == nullptr)
        return outcome.result;
    service_ = std::move(outcome.service);
    queue_ = std::make_shared<EventQueue>([self = weak_from_this(), &dispatcher = dispatcher_] {
        dispatcher.Post([self] {
            if (const auto control = self.lock())
                control->Deliver();
        });
    });
    dataEventEnabled_ = autoDisable_ = freezeEvents_ = false;
    ResetProperties();
    return Done(OposResult::Success);
}

std::int32_t ControlObject::Close() {
    if (!IsOpen())
        return OposResult::Closed;
    GiveUpClaim();
    ++interruptions_;
    service_.reset();
    return OposResult::Success;
}

std::int32_t ControlObject::ClaimDevice(std::int32_t timeout) {
    if (!IsOpen())
        return OposResult::Closed;
    if (timeout < Forever)
        return Done(OposResult::Illegal);
    if (claimed_)
        return Done(OposResult::Success);
    const std::string name = service_->Description().claimName;
    if (name.empty())
        return Done(OposResult::NoHardware);
    ClaimLock::Outcome outcome = ClaimLock::Outcome::HeldByAnother;
    const Waited waited = WaitUntil(
        [&] {
            outcome = ClaimLock::Outcome::Taken;
            if (!claim_.Held()) // by a call that was made while this one waited
                outcome = claim_.Take(name);
            return outcome != ClaimLock::Outcome::HeldByAnother;
        },
        timeout);
    if (waited == Waited::Interrupted)
        return Done(Interrupted());
    if (waited == Waited::TimedOut)
        return Done(OposResult::Timeout);
    if (outcome == ClaimLock::Outcome::Impossible)
        return Done(OposResult::Failure);
    if (!std::exchange(claimed_, true))
        service_->Counters()->Load();
    return Done(OposResult::Success);
}

std::int32_t ControlObject::ReleaseDevice() {
    if (!IsOpen())
        return OposResult::Closed;
    if (!claimed_)
        return Done(OposResult::Illegal);
    GiveUpClaim();
    return Done(OposResult::Success);
}

std::int32_t ControlObject::ClearInput() {
    if (const std::int32_t result = CheckClaimed(); result != OposResult::Success)
        return Done(result);
    queue_->Clear();
    return Done(OposResult::Success);
}

std::int32_t ControlObject::DirectIO(std::int32_t command, std::int32_t& data, std::string& text) {
    if (!IsOpen())
        return OposResult::Closed;
    if (!service_->KnowsDirectIO(command))
        return Done(OposResult::Illegal);
    if (const std::int32_t result = CheckEnabled(); result != OposResult::Success)
        return Done(result);
    std::int32_t result =
        service_->DirectIO(command, data, text, [this](const auto& condition) { return WaitFor(condition); });
    return Done(result == OposResult::Closed ? Interrupted() : result);
}

std::int32_t ControlObject::RetrieveStatistics(std::string& statisticsBuffer) {
    if (const std::int32_t result = CheckEnabled(); result != OposResult::Success)
        return Done(result);
    service_->CountPoweredTime();
    statisticsBuffer = StatisticsDocument(service_->Statistics(), service_->Description().equipment, statisticsBuffer);
    return Done(OposResult::Success);
}

void ControlObject::DeviceEnabled(bool enabled) {
    if (const std::int32_t result = CheckClaimed(); result != OposResult::Success) {
        Done(result);
        return;
    }
    if (!enabled)
        DisableDevice();
    Done(enabled ? EnableDevice() : OposResult::Success);
}

void ControlObject::DataEventEnabled(bool enabled) {
    if (!IsOpen())
        return;
    dataEventEnabled_ = enabled;
    Done(OposResult::Success);
    Deliver();
}

void ControlObject::AutoDisable(bool disable) {
    if (!IsOpen())
        return;
    autoDisable_ = disable;
    queue_->AutoDisable(disable);
    Done(OposResult::Success);
}

void ControlObject::FreezeEvents(bool freeze) {
    if (!IsOpen())
        return;
    freezeEvents_ = freeze;
    Done(OposResult::Success);
    Deliver();
}

std::int32_t ControlObject::State() const {
    if (!IsOpen())
        return OposState::Closed;
    return queue_->InError() ? OposState::Error : OposState::Idle;
}

std::string ControlObject::DeviceName() const {
    return IsOpen() ? service_->Description().deviceName : ClosedText;
}

std::string ControlObject::DeviceDescription() const {
    return IsOpen() ? service_->Description().deviceDescription : ClosedText;
}

std::string ControlObject::ServiceObjectDescription() const {
    return IsOpen() ? service_->Description().serviceDescription : ClosedText;
}

std::int32_t ControlObject::CheckClaimed() const {
    if (!IsOpen())
        return OposResult::Closed;
    if (claimed_)
        return OposResult::Success;
    const std::string& name = service_->Description().claimName;
    return !name.empty() && ClaimLock::HeldByAnother(name) ? OposResult::Claimed : OposResult::NotClaimed;
}

std::int32_t ControlObject::CheckEnabled() const {
    const std::int32_t result = CheckClaimed();
    if (result != OposResult::Success)
        return result;
    return queue_->Accepting() ? OposResult::Success : OposResult::Disabled;
}

std::int32_t ControlObject::Done(std::int32_t result, std::int32_t extended) {
    resultCode_ = result;
    resultCodeExtended_ = extended;
    return result;
}

bool ControlObject::WaitFor(const std::function<bool()>& condition) {
    return WaitUntil(condition, Forever) == Waited::Over;
}

ControlObject::Waited ControlObject::WaitUntil(const std::function<bool()>& condition, std::int32_t timeout) {
    const unsigned interruptions = interruptions_;
    const auto deadline = Clock::now() + Milliseconds(timeout);
    while (true) {
        if (interruptions != interruptions_)
            return Waited::Interrupted;
        if (condition())
            return Waited::Over;
        const auto now = Clock::now();
        if (timeout != Forever && now >= deadline)
            return Waited::TimedOut;
        Milliseconds step = WaitStep;
        if (timeout != Forever)
            step = std::clamp(std::chrono::ceil<Milliseconds>(deadline - now), Milliseconds(1), WaitStep);
        dispatcher_.Wait(step);
    }
}

std::int32_t ControlObject::EnableDevice() {
    if (queue_->Accepting())
        return OposResult::Success;
    queue_->Accept(true);
    if (started_) // disabled by a data event, but not stopped yet
        return OposResult::Success;
    const std::int32_t result = service_->Start(queue_);
    started_ = result == OposResult::Success;
    savedCounters_ = Clock::now();
    queue_->Accept(started_);
    return result;
}

void ControlObject::DisableDevice() {
    queue_->Accept(false);
    if (!std::exchange(started_, false))
        return;
    service_->Stop();
    ++interruptions_;
    service_->Counters()->Save();
}

void ControlObject::GiveUpClaim() {
    if (!claimed_)
        return;
    DisableDevice();
    queue_->Clear();
    claimed_ = false;
    claim_.Release();
}

// Takes what was loosed by a handler into its own turn, so that events never nest.
void ControlObject::Deliver() {
    if (!IsOpen())
        return;
    queue_->Awake();
    if (delivering_)
        return;
    const auto self = shared_from_this();
    struct Turn {
        bool& delivering;
        explicit Turn(bool& flag) : delivering(flag) { delivering = true; }
        ~Turn() { delivering = false; }
    } turn(delivering_);
    const auto end = Clock::now() + DeliveryTurn;
    while (IsOpen() && dataEventEnabled_ && !freezeEvents_) {
        if (Clock::now() >= end) {
            dispatcher_.Post([self] { self->Deliver(); });
            return;
        }
        auto event = queue_->Take();
        if (!event)
            break;
        if (auto* data = std::get_if<DataEvent>(&*event))
            DeliverData(std::move(*data));
        else
            DeliverError(std::get<ErrorEvent>(*event));
    }
    if (!IsOpen() || !started_)
        return;
    if (!queue_->Accepting())
        DisableDevice();
    else if (Clock::now() - savedCounters_ > CountersSaveInterval && service_->Counters()->Save())
        savedCounters_ = Clock::now();
}

void ControlObject::DeliverData(DataEvent event) {
    const std::int32_t status = event.status;
    dataEventEnabled_ = false;
    TakeData(std::move(event));
    if (const auto handler = onDataEvent)
        handler(status);
}

void ControlObject::DeliverError(const ErrorEvent& event) {
    const bool last = event.locus == OposErrorLocus::Input;
    std::int32_t response = last ? OposErrorResponse::Clear : OposErrorResponse::ContinueInput;
    const auto queue = queue_;
    if (const auto handler = onErrorEvent)
        handler(event.resultCode, event.resultCodeExtended, event.locus, response);
    if (queue != queue_ || !IsOpen()) // closed, and perhaps opened again, by the handler
        return;
    if (response == OposErrorResponse::Clear && !last)
        queue_->ClearFailedInput();
    if (last)
        queue_->LeaveError();
    if (response == OposErrorResponse::Retry)
        RetryInput();
}
