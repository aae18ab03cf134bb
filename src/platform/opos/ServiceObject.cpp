#include "platform/opos/ServiceObject.h"

#include <utility>

namespace {

constexpr std::uint64_t SecondsPerHour = 3600;

} // namespace

ServiceObject::ServiceObject(ServiceDescription description)
    : description_(std::move(description)), counters_(std::make_shared<DeviceCounters>(description_.countersFile)) {}

void ServiceObject::CountPoweredTime() {
    const auto passed = std::chrono::steady_clock::now() - poweredSince_;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(passed);
    counters_->Count(Counter::PoweredSeconds, static_cast<std::uint64_t>(seconds.count()));
    poweredSince_ += seconds;
}

Statistic ServiceObject::Standard(std::string_view name, Counter counter) const {
    return {name, false, std::to_string(counters_->Value(counter))};
}

Statistic ServiceObject::Makers(std::string_view name, Counter counter) const {
    return {name, true, std::to_string(counters_->Value(counter))};
}

std::vector<Statistic> ServiceObject::CommonStatistics() const {
    return {
        {"HoursPoweredCount", false, std::to_string(counters_->Value(Counter::PoweredSeconds) / SecondsPerHour)},
        Standard("CommunicationErrorCount", Counter::CommunicationErrors),
    };
}
