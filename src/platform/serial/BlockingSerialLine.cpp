#include "platform/serial/BlockingSerialLine.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds Slice{15};
// What a device may send while nobody reads; the rest is lost, as in a full receive buffer.
constexpr std::size_t UnreadLimit = std::size_t{64} * 1024;

} // namespace

BlockingSerialLine::BlockingSerialLine(IdleFunction idle) : idle_(std::move(idle)), line_(context_) {}

void BlockingSerialLine::Open(int port, const SerialSettings& settings) {
    Close();
    port_ = port;
    line_.Open(port, settings);
    line_.Read(
        [this](const std::string& bytes) {
            if (unread_.size() < UnreadLimit) {
                unread_ += bytes;
            }
        },
        [this](const SerialError& error) { failure_ = error; });
}

void BlockingSerialLine::Close() noexcept {
    line_.Close();
    unread_.clear();
    failure_.reset();
}

std::string BlockingSerialLine::Read(milliseconds limit) {
    WaitUntil([this] { return !unread_.empty(); }, limit);
    return std::exchange(unread_, {});
}

void BlockingSerialLine::Write(const std::string& bytes, milliseconds limit) {
    RaiseFailure();
    // Shared, for the line may report after an exception has ended this wait.
    const auto written = std::make_shared<bool>(false);
    line_.Write(bytes, limit, [written] { *written = true; });
    WaitUntil([&written] { return *written; }, limit);
    if (!*written) {
        Close();
        throw SerialError::TimedOut(port_);
    }
}

void BlockingSerialLine::DropUnreadInput() {
    RaiseFailure();
    line_.DropUnreadInput();
    // The read under way may hold bytes already. A device that never stops must not keep this busy.
    for (std::size_t turn = 0; turn < 64; ++turn) {
        unread_.clear();
        context_.restart();
        context_.poll();
        if (unread_.empty()) {
            break;
        }
    }
    unread_.clear();
    RaiseFailure();
}

void BlockingSerialLine::RaiseFailure() {
    if (failure_) {
        throw SerialError(*std::exchange(failure_, std::nullopt));
    }
    if (!line_.IsOpen()) {
        throw SerialError::Lost(port_);
    }
}

void BlockingSerialLine::WaitUntil(const std::function<bool()>& done, milliseconds limit) {
    const auto deadline = Clock::now() + limit;
    for (;;) {
        if (done()) {
            return;
        }
        RaiseFailure();
        const auto left = std::chrono::ceil<milliseconds>(deadline - Clock::now());
        if (left <= milliseconds::zero()) {
            return;
        }
        context_.restart();
        context_.run_one_for(std::min(left, Slice));
        if (idle_) {
            idle_();
        }
    }
}
