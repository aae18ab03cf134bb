// The way of device events to the thread of the user interface, whose event loop the control objects do not know.
#pragma once

#include <chrono>
#include <functional>

// Outlives the controls and everything that posts.
class EventDispatcher {
public:
    virtual ~EventDispatcher() = default;
    EventDispatcher(const EventDispatcher&) = delete;
    EventDispatcher& operator=(const EventDispatcher&) = delete;

    // Runs the function soon on the user interface's thread, in the order of posting and never from within Post. Any
    // thread may call it; it does not block. What is still pending when the dispatcher ends is dropped.
    virtual void Post(std::function<void()> function) = 0;

    // Waits, on the user interface's thread, until something was posted and run or the limit is over. Controls call it
    // again and again while one of their methods waits for a device or a claim, so that windows stay painted. What it
    // runs may call the waiting control's Close: that is how a wait without limit is ended early.
    virtual void Wait(std::chrono::milliseconds limit) = 0;

protected:
    EventDispatcher() = default;
};
