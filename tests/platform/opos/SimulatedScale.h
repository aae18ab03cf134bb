// A scale at the far end of a pseudo terminal.
#pragma once

#include "support/PseudoTerminal.h"

#include <functional>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>
#include <utility>

// Answers each byte that comes with what answer gives for it; "" leaves it unanswered. answer runs on a thread of its
// own.
class SimulatedScale {
public:
    using Answer = std::function<std::string(char command)>;

    SimulatedScale(const PseudoTerminal& line, Answer answer)
        : line_(line), answer_(std::move(answer)), thread_([this](const std::stop_token& stop) { Serve(stop); }) {}

    // Leaves the line alone from now on, so that it can be unplugged.
    void Stop() { thread_ = {}; }
    void AnswerWith(Answer answer) {
        const std::lock_guard lock(mutex_);
        answer_ = std::move(answer);
    }

    // "STX text CR".
    static std::string Frame(const std::string& text) { return '\x02' + text + '\r'; }
    // The answer with a status byte as real scales send it, with the bits set that make it printable.
    static std::string Status(unsigned bits) { return Frame(std::string("?") + static_cast<char>(bits | 0x60U)); }

private:
    void Serve(const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            for (const char command : line_.Receive(1, std::chrono::milliseconds(5))) {
                std::string reply;
                {
                    const std::lock_guard lock(mutex_);
                    reply = answer_(command);
                }
                if (!reply.empty())
                    line_.Send(reply);
            }
        }
    }

    const PseudoTerminal& line_;
    std::mutex mutex_;
    Answer answer_;
    std::jthread thread_;
};
