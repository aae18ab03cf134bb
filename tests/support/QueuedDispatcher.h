// The event loop of a test: runs what was posted when the test waits.
#pragma once

#include "opos/EventDispatcher.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

class QueuedDispatcher final : public EventDispatcher {
public:
    void Post(std::function<void()> function) override {
        const std::lock_guard lock(mutex_);
        functions_.push_back(std::move(function));
        posted_.notify_one();
    }

    void Wait(std::chrono::milliseconds limit) override {
        std::unique_lock lock(mutex_);
        posted_.wait_for(lock, limit, [this] { return !functions_.empty(); });
        for (auto pending = std::exchange(functions_, {}); !pending.empty(); pending.pop_front()) {
            lock.unlock();
            pending.front()();
            lock.lock();
        }
    }

    // Runs what is posted until the condition holds; false when it does not within the limit.
    bool RunUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!condition()) {
            if (std::chrono::steady_clock::now() >= end)
                return false;
            Wait(std::chrono::milliseconds(5));
        }
        return true;
    }

private:
    std::mutex mutex_;
    std::condition_variable posted_;
    std::deque<std::function<void()>> functions_;
};
