#include "platform/opos/ScaleReader.h"

#include "opos/OposConstants.h"

#include <algorithm>
#include <utility>

using ScaleProtocol::Reply;

ScaleReader::ScaleReader(asio::io_context& context, std::shared_ptr<SharedLine> line,
                         std::shared_ptr<DeviceCounters> counters)
    : line_(std::move(line)), counters_(std::move(counters)), timer_(context) {}

void ScaleReader::Read(std::int32_t timeout, bool rejectZero, Done done) {
    once_ = timeout == 0;
    rejectZero_ = rejectZero;
    deadline_.reset();
    if (timeout > 0)
        deadline_ = Clock::now() + std::chrono::milliseconds(timeout);
    Begin(Wish::Weight, std::string(ScaleProtocol::WeightCommand), std::move(done));
}

void ScaleReader::Zero(Done done) {
    deadline_.reset();
    Begin(Wish::Zero, std::string(ScaleProtocol::ZeroCommand), std::move(done));
}

void ScaleReader::SendRaw(std::string command, Done done) {
    deadline_.reset();
    Begin(Wish::Raw, std::move(command), std::move(done));
}

void ScaleReader::Cancel() {
    timer_.cancel();
    asking_ = false;
    done_ = {};
}

void ScaleReader::Begin(Wish wish, std::string command, Done done) {
    wish_ = wish;
    command_ = std::move(command);
    done_ = std::move(done);
    retried_ = false;
    Ask();
}

void ScaleReader::Ask() {
    if (!line_->Ask(command_)) {
        Finish({.result = OposResult::Offline, .text = {}});
        return;
    }
    asking_ = true;
    Clock::duration limit = ReplyLimit;
    if (deadline_)
        limit = std::min(limit, *deadline_ - Clock::now());
    WaitThen(limit, &ScaleReader::OnSilence);
}

void ScaleReader::WaitThen(Clock::duration time, void (ScaleReader::*next)()) {
    timer_.expires_after(time);
    timer_.async_wait([self = weak_from_this(), next](const std::error_code& error) {
        const auto reader = self.lock();
        // A timer that was set anew while this call was on its way has not expired.
        if (!error && reader && reader->done_ && reader->timer_.expiry() <= Clock::now())
            ((*reader).*next)();
    });
}

void ScaleReader::OnSilence() {
    const bool outOfTime = deadline_ && *deadline_ <= Clock::now();
    Finish({.result = outOfTime ? OposResult::Timeout : OposResult::Offline, .text = {}});
}

void ScaleReader::OnText(const std::string& text) {
    const Reply reply = ScaleProtocol::ParseReply(text);
    if (reply.kind == Reply::Kind::Status)
        lastStatus_ = static_cast<std::int32_t>(reply.status);
    if (!asking_) // late: nobody waits for it any more
        return;
    asking_ = false;
    line_->AnswerArrived();
    if (wish_ == Wish::Raw)
        Finish({.text = text});
    else if (reply.kind == Reply::Kind::Unreadable || (wish_ == Wish::Zero && reply.kind == Reply::Kind::Weight))
        OnUnreadable();
    else if (reply.kind == Reply::Kind::Weight)
        OnWeight(reply.weight);
    else
        OnStatus(reply.status);
}

void ScaleReader::OnTrouble(LineTrouble trouble) {
    if (trouble != LineTrouble::Lost)
        return;
    counters_->Count(Counter::CommunicationErrors);
    if (done_)
        Finish({.result = OposResult::Offline, .text = {}});
}

void ScaleReader::OnWeight(std::int32_t weight) {
    if (weight > MaximumWeight)
        Finish({.result = OposResult::Extended, .extended = OposScaleExtended::OverWeight, .text = {}});
    else if (weight == 0 && rejectZero_)
        PollAgain();
    else
        Finish({.weight = weight, .text = {}});
}

void ScaleReader::OnStatus(unsigned status) {
    using namespace ScaleProtocol;
    if (wish_ == Wish::Zero) {
        const bool refused = (status & (Motion | OverCapacity | UnderZero | OutsideZeroCapture)) != 0;
        Finish({.result = refused ? OposResult::Failure : OposResult::Success, .text = {}});
    } else if ((status & OverCapacity) != 0) {
        Finish({.result = OposResult::Extended, .extended = OposScaleExtended::OverWeight, .text = {}});
    } else if (status == CentreOfZero) {
        OnWeight(0);
    } else {
        PollAgain();
    }
}

void ScaleReader::OnUnreadable() {
    counters_->Count(Counter::UnreadableReplies);
    counters_->Count(Counter::CommunicationErrors);
    if (std::exchange(retried_, true))
        Finish({.result = OposResult::Failure, .text = {}});
    else
        Ask();
}

void ScaleReader::PollAgain() {
    const auto now = Clock::now();
    if (once_ || (deadline_ && *deadline_ <= now)) {
        Finish({.result = OposResult::Timeout, .text = {}});
        return;
    }
    retried_ = false;
    if (deadline_ && *deadline_ - now <= PollInterval)
        WaitThen(*deadline_ - now, &ScaleReader::OnSilence);
    else
        WaitThen(PollInterval, &ScaleReader::Ask);
}

void ScaleReader::Finish(const ScaleOutcome& outcome) {
    const Done done = std::exchange(done_, {});
    Cancel();
    // Silence is counted here, where it ends a request: a scale that is late is not in trouble.
    if (outcome.result == OposResult::Offline && line_->IsOpen())
        counters_->Count(Counter::CommunicationErrors);
    if (wish_ == Wish::Weight && outcome.result == OposResult::Success)
        counters_->Count(Counter::GoodWeightReads);
    if (done)
        done(outcome);
}
