// Runs a lane on a thread of its own, so that the lane answers its lines whatever the rest of the program does.
#pragma once

#include "lane/Lane.h"

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/signal_set.hpp>

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <signal.h>

class LaneRunner {
public:
    // report is called on the lane's thread. Interrupting or terminating the program takes the ports away first.
    LaneRunner(LaneOptions options, std::function<void(const std::string& event)> report);
    // Takes all ports away.
    ~LaneRunner();
    LaneRunner(const LaneRunner&) = delete;
    LaneRunner& operator=(const LaneRunner&) = delete;

    // Carries out a line of the command language; returns its answer.
    [[nodiscard]] std::string Execute(const std::string& command);
    [[nodiscard]] std::vector<LanePortState> State();

private:
    void Run();
    void OnLaneThread(const std::function<void()>& work);

    // Of the thread that made this. Signals go to the lane's thread alone, for they would break off what others read.
    sigset_t formerMask_{};
    asio::io_context context_{1};
    asio::executor_work_guard<asio::io_context::executor_type> work_{context_.get_executor()};
    asio::signal_set signals_;
    Lane lane_;
    std::thread thread_;
};
