#include "app/QtEventDispatcher.h"

#include "app/RavlinApplication.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <utility>

namespace {

constexpr std::chrono::milliseconds Slice(8); // less than a frame

} // namespace

QtEventDispatcher::QtEventDispatcher() {
    nextTurn_.setSingleShot(true);
    connect(&nextTurn_, &QTimer::timeout, this, &QtEventDispatcher::RunPosted);
}

void QtEventDispatcher::Post(std::function<void()> function) {
    const std::scoped_lock lock(mutex_);
    posted_.push_back(std::move(function));
    if (!std::exchange(scheduled_, true))
        QMetaObject::invokeMethod(this, &QtEventDispatcher::RunPosted, Qt::QueuedConnection);
}

std::function<void()> QtEventDispatcher::TakeNext() {
    const std::scoped_lock lock(mutex_);
    if (posted_.empty())
        return {};
    std::function<void()> function = std::move(posted_.front());
    posted_.pop_front();
    return function;
}

void QtEventDispatcher::RunPosted() {
    const std::uint64_t before = runs_;
    for (const QDeadlineTimer slice(Slice, Qt::PreciseTimer); !slice.hasExpired();) {
        const std::function<void()> function = TakeNext();
        if (!function)
            break;
        RunReported(function);
        ++runs_;
    }
    const std::scoped_lock lock(mutex_);
    scheduled_ = runs_ != before || !posted_.empty();
    // What follows waits for a timer of no time: a posted event would go before all others as long as more are posted.
    if (scheduled_)
        nextTurn_.start(0);
}

void QtEventDispatcher::Wait(std::chrono::milliseconds limit) {
    {
        // The function that waits may have been posted itself: the next ones are not to wait for its end.
        const std::scoped_lock lock(mutex_);
        scheduled_ = !posted_.empty();
        if (scheduled_)
            QMetaObject::invokeMethod(this, &QtEventDispatcher::RunPosted, Qt::QueuedConnection);
    }
    const std::uint64_t before = runs_;
    const QDeadlineTimer deadline(limit, Qt::PreciseTimer);
    QTimer wake; // ends the wait for events
    wake.setSingleShot(true);
    wake.start(limit);
    do
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    while (runs_ == before && !deadline.hasExpired());
}
