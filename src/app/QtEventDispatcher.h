// Brings device events into the event loop of the windows.
#pragma once

#include "opos/EventDispatcher.h"

#include <QObject>
#include <QTimer>

#include <deque>
#include <mutex>

// Lives on the thread of the user interface. Even a flood of events leaves timers and windows their turn. A wait keeps
// windows painted and timers running but holds back keys and mouse. An error out of a function ends in a message box.
class QtEventDispatcher final : public QObject, public EventDispatcher {
    Q_OBJECT

public:
    QtEventDispatcher();

    void Post(std::function<void()> function) override;
    void Wait(std::chrono::milliseconds limit) override;

private:
    // Runs what was posted, for a short while only: the rest has its turn after the other events.
    void RunPosted();
    [[nodiscard]] std::function<void()> TakeNext();

    std::mutex mutex_;
    std::deque<std::function<void()>> posted_; // guarded
    bool scheduled_ = false;                   // guarded: RunPosted will be called
    std::uint64_t runs_ = 0;
    QTimer nextTurn_;
};
