// The thread in the background that reads serial lines.
#pragma once

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/post.hpp>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

// Nothing that runs here waits for the user interface's thread, so that thread may wait for what it asks here.
class LineThread {
public:
    // Longer than anything that is called takes, unless the system itself hangs in a device's driver.
    static constexpr std::chrono::seconds CallLimit{5};

    LineThread() : work_(asio::make_work_guard(context_)), thread_([this] { context_.run(); }) {}
    // Ends after what is running; what is pending is dropped.
    ~LineThread() {
        context_.stop();
        thread_.join();
    }
    LineThread(const LineThread&) = delete;
    LineThread& operator=(const LineThread&) = delete;

    [[nodiscard]] asio::io_context& Context() { return context_; }

    void Post(std::function<void()> function) { asio::post(context_, std::move(function)); }

    // Runs the function on the line thread and gives its result; nothing when that took longer than the limit. It may
    // run later then: it shares ownership of what it uses.
    template<class Function>
    [[nodiscard]] auto Call(Function function) -> std::optional<decltype(function())> {
        using Result = decltype(function());
        auto result = std::make_shared<std::promise<Result>>();
        std::future<Result> future = result->get_future();
        Post([function = std::move(function), result]() mutable { result->set_value(function()); });
        if (future.wait_for(CallLimit) != std::future_status::ready)
            return std::nullopt;
        return future.get();
    }

private:
    asio::io_context context_;
    asio::executor_work_guard<asio::io_context::executor_type> work_;
    std::thread thread_;
};
