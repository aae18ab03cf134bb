// The conversation with a scale: asks, waits, asks again until there is a weight to report.
#pragma once

#include "platform/opos/DeviceCounters.h"
#include "platform/opos/ScaleProtocol.h"
#include "platform/opos/SharedLine.h"

#include <asio/steady_timer.hpp>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

struct ScaleOutcome {
    std::int32_t result = 0;   // OposResult
    std::int32_t extended = 0; // OposScaleExtended
    std::int32_t weight = 0;   // thousandths
    std::string text;          // the answer as it came, of SendRaw
};

// One request at a time. Used on the line thread only; lives in a shared_ptr.
class ScaleReader : public LineListener, public std::enable_shared_from_this<ScaleReader> {
public:
    // What a scale that works takes to answer, with much to spare.
    static constexpr std::chrono::milliseconds ReplyLimit{500};
    static constexpr std::chrono::milliseconds PollInterval{150};
    // The heaviest weight that is reported.
    static constexpr std::int32_t MaximumWeight = 30000;

    using Done = std::function<void(const ScaleOutcome& outcome)>;

    ScaleReader(asio::io_context& context, std::shared_ptr<SharedLine> line, std::shared_ptr<DeviceCounters> counters);

    // The first stable weight within so many milliseconds (0 asks once, -1 has no limit): Timeout when there is none,
    // Extended when the scale is overloaded, Offline when it is silent, Failure when its answers cannot be read. With
    // rejectZero a weight of zero is none. done is called on the line thread, once, and not after Cancel.
    void Read(std::int32_t timeout, bool rejectZero, Done done);
    // Sets the empty scale to zero: Failure when the scale cannot.
    void Zero(Done done);
    // Sends "W" or "Z" once and gives the answer as it comes.
    void SendRaw(std::string command, Done done);
    void Cancel();

    // The last status byte (its five defined bits), -1 before the first.
    [[nodiscard]] std::int32_t LastStatus() const { return lastStatus_; }

    void OnText(const std::string& text) override;
    void OnTrouble(LineTrouble trouble) override;

private:
    enum class Wish { Weight, Zero, Raw };
    using Clock = std::chrono::steady_clock;

    void Begin(Wish wish, std::string command, Done done);
    void Ask();
    void WaitThen(Clock::duration time, void (ScaleReader::*next)());
    void OnSilence();
    void OnWeight(std::int32_t weight);
    void OnStatus(unsigned status);
    void OnUnreadable();
    void PollAgain();
    void Finish(const ScaleOutcome& outcome);

    std::shared_ptr<SharedLine> line_;
    std::shared_ptr<DeviceCounters> counters_;
    asio::steady_timer timer_;
    Wish wish_ = Wish::Weight;
    std::string command_;
    Done done_; // of the request; empty for none
    std::optional<Clock::time_point> deadline_;
    bool once_ = false;
    bool rejectZero_ = false;
    bool retried_ = false;
    bool asking_ = false;
    std::int32_t lastStatus_ = -1;
};
