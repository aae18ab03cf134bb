#include "platform/opos/EventQueue.h"

#include "opos/OposConstants.h"

#include <utility>

namespace {

std::size_t SizeOf(const DataEvent& event) {
    return event.label.data.size() + event.label.label.size();
}

} // namespace

EventQueue::EventQueue(std::function<void()> wake) : wake_(std::move(wake)) {}

void EventQueue::Accept(bool accept) {
    const std::lock_guard lock(mutex_);
    accepting_ = accept;
}

bool EventQueue::Accepting() const {
    const std::lock_guard lock(mutex_);
    return accepting_;
}

void EventQueue::AutoDisable(bool disable) {
    const std::lock_guard lock(mutex_);
    autoDisable_ = disable;
}

EventQueue::Added EventQueue::Add(DataEvent event, const std::function<void()>& onAdded) {
    std::unique_lock lock(mutex_);
    if (!accepting_)
        return Added::NotAccepting;
    if (data_.size() >= MostEvents || bytes_ + SizeOf(event) > MostBytes)
        return Added::Full;
    bytes_ += SizeOf(event);
    data_.push_back(std::move(event));
    if (autoDisable_)
        accepting_ = false;
    if (onAdded)
        onAdded();
    Wake(std::move(lock));
    return Added::Yes;
}

EventQueue::Added EventQueue::AddError(std::int32_t resultCode, std::int32_t resultCodeExtended) {
    std::unique_lock lock(mutex_);
    if (!accepting_)
        return Added::NotAccepting;
    inError_ = true;
    if (!data_.empty() && !early_)
        early_ = ErrorEvent{resultCode, resultCodeExtended, OposErrorLocus::InputData};
    if (!late_) {
        late_ = ErrorEvent{resultCode, resultCodeExtended, OposErrorLocus::Input};
        dataBeforeLate_ = data_.size();
    }
    Wake(std::move(lock));
    return Added::Yes;
}

void EventQueue::Awake() {
    const std::lock_guard lock(mutex_);
    wakePending_ = false;
}

std::optional<EventQueue::Event> EventQueue::Take() {
    const std::lock_guard lock(mutex_);
    if (early_)
        return *std::exchange(early_, std::nullopt);
    if (late_ && dataBeforeLate_ == 0)
        return *std::exchange(late_, std::nullopt);
    if (data_.empty())
        return std::nullopt;
    return TakeData();
}

DataEvent EventQueue::TakeData() {
    DataEvent event = std::move(data_.front());
    data_.pop_front();
    bytes_ -= SizeOf(event);
    if (late_)
        --dataBeforeLate_;
    return event;
}

std::int32_t EventQueue::DataCount() const {
    const std::lock_guard lock(mutex_);
    return static_cast<std::int32_t>(data_.size());
}

bool EventQueue::InError() const {
    const std::lock_guard lock(mutex_);
    return inError_;
}

void EventQueue::LeaveError() {
    const std::lock_guard lock(mutex_);
    inError_ = late_.has_value();
}

void EventQueue::ClearFailedInput() {
    const std::lock_guard lock(mutex_);
    while (late_ && dataBeforeLate_ > 0)
        static_cast<void>(TakeData());
    early_.reset();
    late_.reset();
    inError_ = false;
}

void EventQueue::Clear() {
    const std::lock_guard lock(mutex_);
    early_.reset();
    late_.reset();
    data_.clear();
    bytes_ = 0;
    inError_ = false;
}

void EventQueue::Wake(std::unique_lock<std::mutex> lock) {
    if (std::exchange(wakePending_, true))
        return;
    lock.unlock();
    wake_();
}
