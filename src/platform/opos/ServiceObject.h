// What a control object drives a device with.
#pragma once

#include "platform/opos/DeviceCounters.h"
#include "platform/opos/EventQueue.h"
#include "platform/opos/StatisticsReport.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

// What a profile says about its device, in the words shown to users.
struct ServiceDescription {
    std::string deviceName;
    std::string deviceDescription;
    std::string serviceDescription;
    std::string claimName; // tells the device from every other on this machine; empty when there is no such device
    std::filesystem::path countersFile;
    Equipment equipment;
};

// Waits until the condition holds; false when the control was closed first.
using WaitFor = std::function<bool(const std::function<bool()>& condition)>;

// Lives while its control is open; used on the user interface's thread. Results are OposResult.
class ServiceObject {
public:
    // 1.8.1
    static constexpr std::int32_t Version = 1008001;

    explicit ServiceObject(ServiceDescription description);
    virtual ~ServiceObject() = default;
    ServiceObject(const ServiceObject&) = delete;
    ServiceObject& operator=(const ServiceObject&) = delete;

    [[nodiscard]] const ServiceDescription& Description() const { return description_; }

    // Starts the device, whose events go to the queue from now on.
    [[nodiscard]] virtual std::int32_t Start(std::shared_ptr<EventQueue> queue) = 0;
    // Ends input and drops a request that is still running.
    virtual void Stop() = 0;
    [[nodiscard]] virtual bool KnowsDirectIO(std::int32_t command) const = 0;
    // The device is enabled and the command known.
    virtual std::int32_t DirectIO(std::int32_t command, std::int32_t& data, std::string& text, const WaitFor& wait) = 0;
    // The statistics this kind of device has.
    [[nodiscard]] virtual std::vector<Statistic> Statistics() const = 0;

    [[nodiscard]] const std::shared_ptr<DeviceCounters>& Counters() const { return counters_; }
    // Adds the time since the device was started, or since this was last called, to the time it was powered.
    void CountPoweredTime();

protected:
    void BeginPoweredTime() { poweredSince_ = std::chrono::steady_clock::now(); }
    [[nodiscard]] Statistic Standard(std::string_view name, Counter counter) const;
    [[nodiscard]] Statistic Makers(std::string_view name, Counter counter) const;
    // HoursPoweredCount and CommunicationErrorCount, which every class has.
    [[nodiscard]] std::vector<Statistic> CommonStatistics() const;

private:
    ServiceDescription description_;
    std::shared_ptr<DeviceCounters> counters_;
    std::chrono::steady_clock::time_point poweredSince_{};
};
