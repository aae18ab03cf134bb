#include "platform/opos/ScannerService.h"

#include "opos/OposConstants.h"
#include "platform/opos/LineState.h"

#include <algorithm>
#include <array>
#include <utility>

LabelFeed::LabelFeed(std::shared_ptr<EventQueue> queue, std::shared_ptr<DeviceCounters> counters)
    : queue_(std::move(queue)), counters_(std::move(counters)) {}

void LabelFeed::OnText(const std::string& text) {
    lastLine_ = text;
    Label label = ParseLabel(text);
    if (label.data.empty()) // framing without content
        return;
    const auto added = queue_->Add({0, std::move(label)}, [this] { counters_->Count(Counter::GoodScans); });
    if (added != EventQueue::Added::Full)
        return;
    counters_->Count(Counter::DiscardedLabels);
    queue_->AddError(OposResult::Failure);
}

void LabelFeed::OnTrouble(LineTrouble trouble) {
    counters_->Count(Counter::CommunicationErrors);
    queue_->AddError(trouble == LineTrouble::Lost ? OposResult::Offline : OposResult::Failure);
}

struct ScannerService::DirectIoRow {
    std::int32_t command;
    std::int32_t (ScannerService::*run)(std::int32_t& data, std::string& text);
};

const ScannerService::DirectIoRow* ScannerService::FindDirectIo(std::int32_t command) {
    static constexpr std::array Table = {
        DirectIoRow{1, &ScannerService::TellLineState},
        DirectIoRow{2, &ScannerService::TellLastLine},
    };
    const auto row = std::ranges::find(Table, command, &DirectIoRow::command);
    return row == Table.end() ? nullptr : &*row;
}

ScannerService::ScannerService(ServiceDescription description, Lines& lines, int port)
    : ServiceObject(std::move(description)), thread_(lines.Thread()), port_(port), line_(lines.OfPort(port)) {}

ScannerService::~ScannerService() {
    Stop();
}

std::int32_t ScannerService::Start(std::shared_ptr<EventQueue> queue) {
    auto feed = std::make_shared<LabelFeed>(std::move(queue), Counters());
    const auto result =
        thread_.Call([line = line_, feed] { return line->Attach(LineUser::Scanner, LineWiring::ScannersCable, feed); });
    if (result != OposResult::Success)
        return result.value_or(OposResult::Failure);
    feed_ = std::move(feed);
    BeginPoweredTime();
    return OposResult::Success;
}

void ScannerService::Stop() {
    if (feed_ == nullptr)
        return;
    feed_.reset();
    CountPoweredTime();
    // With the return no label comes any more; that a device hangs is no reason to wait longer.
    static_cast<void>(thread_.Call([line = line_] {
        line->Detach(LineUser::Scanner);
        return true;
    }));
}

bool ScannerService::KnowsDirectIO(std::int32_t command) const {
    return FindDirectIo(command) != nullptr;
}

std::int32_t ScannerService::DirectIO(std::int32_t command, std::int32_t& data, std::string& text, const WaitFor&) {
    return (this->*FindDirectIo(command)->run)(data, text);
}

std::vector<Statistic> ScannerService::Statistics() const {
    std::vector<Statistic> statistics = CommonStatistics();
    statistics.push_back(Standard("GoodScanCount", Counter::GoodScans));
    statistics.push_back(Makers("DiscardedLabelCount", Counter::DiscardedLabels));
    return statistics;
}

std::int32_t ScannerService::TellLineState(std::int32_t& data, std::string& text) {
    return LineState(thread_, line_, port_, data, text);
}

std::int32_t ScannerService::TellLastLine(std::int32_t& data, std::string& text) {
    const auto line = thread_.Call([feed = feed_] { return feed->LastLine(); });
    if (!line)
        return OposResult::Failure;
    data = static_cast<std::int32_t>(line->size());
    text = HexText(*line);
    return OposResult::Success;
}
