// The events of one control object between the line's thread, which finds them, and the user interface's, which
// delivers.
#pragma once

#include "platform/opos/LabelParser.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <variant>

struct DataEvent {
    std::int32_t status = 0;
    Label label; // of a scanner
};

struct ErrorEvent {
    std::int32_t resultCode = 0;
    std::int32_t resultCodeExtended = 0;
    std::int32_t locus = 0;
};

// First in, first out. An error that comes while data is queued shows twice: at once, before that data, so that the
// application can choose to drop it, and behind it. Any thread may call every member.
//
// What waits is bounded: MostEvents data events and MostBytes of labels, beyond which data is refused, and one error at
// each of the two places.
class EventQueue {
public:
    static constexpr std::size_t MostEvents = 16384;
    static constexpr std::size_t MostBytes = std::size_t{8} * 1024 * 1024;

    using Event = std::variant<DataEvent, ErrorEvent>;
    enum class Added { Yes, NotAccepting, Full };

    // wake is called, on the thread that adds, when there is something to deliver; not again until Awake.
    explicit EventQueue(std::function<void()> wake);

    // While not accepting, new events are refused; those queued stay.
    void Accept(bool accept);
    [[nodiscard]] bool Accepting() const;
    // Whether accepting ends with the next data event.
    void AutoDisable(bool disable);

    // onAdded is called before the event can be seen, unless that is refused; it does not call the queue.
    Added Add(DataEvent event, const std::function<void()>& onAdded = {});
    // An error is refused while not accepting, and left out where one waits at the same place already.
    Added AddError(std::int32_t resultCode, std::int32_t resultCodeExtended = 0);

    void Awake();
    // The next event in order, taken off the queue.
    [[nodiscard]] std::optional<Event> Take();
    [[nodiscard]] std::int32_t DataCount() const;
    // From the arrival of an error until LeaveError or Clear.
    [[nodiscard]] bool InError() const;
    void LeaveError();
    // Drops the error and the data that came before it; ends being in error.
    void ClearFailedInput();
    void Clear();

private:
    void Wake(std::unique_lock<std::mutex> lock);
    [[nodiscard]] DataEvent TakeData();

    mutable std::mutex mutex_;
    std::function<void()> wake_;
    std::optional<ErrorEvent> early_; // before all data
    std::deque<DataEvent> data_;
    std::optional<ErrorEvent> late_; // behind the data that came before it
    std::size_t dataBeforeLate_ = 0;
    std::size_t bytes_ = 0;
    bool accepting_ = false;
    bool autoDisable_ = false;
    bool inError_ = false;
    bool wakePending_ = false;
};
