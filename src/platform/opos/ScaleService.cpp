#include "platform/opos/ScaleService.h"

#include "opos/OposConstants.h"
#include "platform/opos/LineState.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <optional>
#include <utility>

struct ScaleService::DirectIoRow {
    std::int32_t command;
    std::int32_t (ScaleService::*run)(std::int32_t& data, std::string& text, const WaitFor& wait);
};

const ScaleService::DirectIoRow* ScaleService::FindDirectIo(std::int32_t command) {
    static constexpr std::array Table = {
        DirectIoRow{1, &ScaleService::TellLineState},
        DirectIoRow{2, &ScaleService::SendRaw},
        DirectIoRow{3, &ScaleService::TellLastStatus},
    };
    const auto row = std::ranges::find(Table, command, &DirectIoRow::command);
    return row == Table.end() ? nullptr : &*row;
}

ScaleService::ScaleService(ServiceDescription description, Lines& lines, int port, ScaleTraits traits)
    : ServiceObject(std::move(description)),
      thread_(lines.Thread()),
      port_(port),
      line_(lines.OfPort(port)),
      traits_(std::move(traits)) {}

ScaleService::~ScaleService() {
    Stop();
}

std::int32_t ScaleService::Start(std::shared_ptr<EventQueue>) {
    auto reader = std::make_shared<ScaleReader>(thread_.Context(), line_, Counters());
    const auto result = thread_.Call(
        [line = line_, wiring = traits_.wiring, reader] { return line->Attach(LineUser::Scale, wiring, reader); });
    if (result != OposResult::Success)
        return result.value_or(OposResult::Failure);
    reader_ = std::move(reader);
    rejectZero_ = traits_.rejectsZero();
    BeginPoweredTime();
    return OposResult::Success;
}

void ScaleService::Stop() {
    if (reader_ == nullptr)
        return;
    CountPoweredTime();
    static_cast<void>(thread_.Call([line = line_, reader = std::exchange(reader_, nullptr)] {
        reader->Cancel();
        line->Detach(LineUser::Scale);
        return true;
    }));
    *busy_ = false;
}

void ScaleService::ReadWeight(std::int32_t timeout, Done done) {
    Request([timeout, reject = rejectZero_](ScaleReader& reader,
                                            Done finished) { reader.Read(timeout, reject, std::move(finished)); },
            std::move(done));
}

void ScaleService::ZeroScale(Done done) {
    Request([](ScaleReader& reader, Done finished) { reader.Zero(std::move(finished)); }, std::move(done));
}

void ScaleService::Request(std::function<void(ScaleReader&, Done)> request, Done done) {
    *busy_ = true;
    Done finished = [busy = busy_, done = std::move(done)](const ScaleOutcome& outcome) {
        *busy = false;
        done(outcome);
    };
    thread_.Post([reader = reader_, request = std::move(request), finished = std::move(finished)] {
        request(*reader, finished);
    });
}

bool ScaleService::KnowsDirectIO(std::int32_t command) const {
    return FindDirectIo(command) != nullptr;
}

std::int32_t ScaleService::DirectIO(std::int32_t command, std::int32_t& data, std::string& text, const WaitFor& wait) {
    return (this->*FindDirectIo(command)->run)(data, text, wait);
}

std::vector<Statistic> ScaleService::Statistics() const {
    std::vector<Statistic> statistics = CommonStatistics();
    statistics.push_back(Standard("GoodWeightReadCount", Counter::GoodWeightReads));
    statistics.push_back(Makers("UnreadableReplyCount", Counter::UnreadableReplies));
    return statistics;
}

std::int32_t ScaleService::TellLineState(std::int32_t& data, std::string& text, const WaitFor&) {
    return LineState(thread_, line_, port_, data, text);
}

std::int32_t ScaleService::SendRaw(std::int32_t&, std::string& text, const WaitFor& wait) {
    if (text != ScaleProtocol::WeightCommand && text != ScaleProtocol::ZeroCommand)
        return OposResult::Illegal;
    if (Busy())
        return OposResult::Busy;
    const auto outcome = WaitForOutcome(
        [this, &text](Done done) {
            Request(
                [command = text](ScaleReader& reader, Done finished) { reader.SendRaw(command, std::move(finished)); },
                std::move(done));
        },
        wait);
    if (outcome.result == OposResult::Success)
        text = HexText(outcome.text);
    return outcome.result;
}

std::int32_t ScaleService::TellLastStatus(std::int32_t& data, std::string&, const WaitFor&) {
    const auto status = thread_.Call([reader = reader_] { return reader->LastStatus(); });
    if (!status)
        return OposResult::Failure;
    data = *status;
    return OposResult::Success;
}

ScaleOutcome WaitForOutcome(const std::function<void(ScaleService::Done)>& request, const WaitFor& wait) {
    struct Shared {
        std::mutex mutex;
        std::optional<ScaleOutcome> outcome;
    };
    const auto shared = std::make_shared<Shared>();
    request([shared](const ScaleOutcome& outcome) {
        const std::lock_guard lock(shared->mutex);
        shared->outcome = outcome;
    });
    const bool arrived = wait([&shared] {
        const std::lock_guard lock(shared->mutex);
        return shared->outcome.has_value();
    });
    if (!arrived)
        return {.result = OposResult::Closed, .text = {}};
    const std::lock_guard lock(shared->mutex);
    return *shared->outcome;
}
