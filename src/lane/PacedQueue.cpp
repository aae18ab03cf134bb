#include "lane/PacedQueue.h"

#include <algorithm>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

constexpr Clock::duration ByteTime = std::chrono::duration_cast<Clock::duration>(std::chrono::seconds(1)) / 960;
// Short against a label, long against the cost of a turn.
constexpr std::chrono::milliseconds Turn{4};

} // namespace

PacedQueue::PacedQueue(asio::io_context& context, std::function<void(const std::string&)> arrive)
    : timer_(context), arrive_(std::move(arrive)) {}

void PacedQueue::Pace(bool paced) {
    paced_ = paced;
    if (!paced_ && !waiting_.empty()) {
        timer_.cancel();
        arrive_(std::exchange(waiting_, {}));
    }
}

void PacedQueue::Push(const std::string& bytes) {
    if (!paced_) {
        arrive_(bytes);
        return;
    }
    const bool idle = waiting_.empty();
    waiting_ += bytes;
    if (idle && !waiting_.empty()) {
        due_ = Clock::now() + ByteTime;
        Start();
    }
}

void PacedQueue::Clear() {
    waiting_.clear();
    timer_.cancel();
}

void PacedQueue::Start() {
    timer_.expires_at(std::max(due_, Clock::now() + Turn));
    timer_.async_wait([this, life = std::weak_ptr(life_)](const asio::error_code& error) {
        if (!error && !life.expired()) {
            Advance();
        }
    });
}

void PacedQueue::Advance() {
    const auto late = Clock::now() - due_;
    if (late < Clock::duration::zero() || waiting_.empty()) {
        return;
    }
    const auto passed = std::min(waiting_.size(), static_cast<std::size_t>(late / ByteTime) + 1);
    const std::string arrived = waiting_.substr(0, passed);
    waiting_.erase(0, passed);
    due_ += ByteTime * static_cast<Clock::rep>(passed);
    if (!waiting_.empty()) {
        Start();
    }
    arrive_(arrived);
}
