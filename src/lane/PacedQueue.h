// Bytes on their way at the speed of a line: handed over at 9600 baud, ten bits a byte, or at once.
#pragma once

#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

class PacedQueue {
public:
    // arrive is called on the loop's thread with what has arrived. It must not destroy the queue.
    PacedQueue(asio::io_context& context, std::function<void(const std::string& bytes)> arrive);

    // Off at first. What is on its way when the pace ends arrives at once.
    void Pace(bool paced);
    void Push(const std::string& bytes);
    // What is on its way never arrives.
    void Clear();

private:
    void Start();
    void Advance();

    asio::steady_timer timer_;
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true); // a turn may be due when the queue goes
    std::function<void(const std::string&)> arrive_;
    bool paced_ = false;
    std::string waiting_;
    std::chrono::steady_clock::time_point due_; // when the first waiting byte has passed the line
};
