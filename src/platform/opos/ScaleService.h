// The service object of a scale on a serial line, its own or a scanner's.
#pragma once

#include "platform/opos/Lines.h"
#include "platform/opos/ScaleReader.h"
#include "platform/opos/ServiceObject.h"

#include <atomic>
#include <functional>

// What one kind of scale does unlike another.
struct ScaleTraits {
    LineWiring wiring = LineWiring::ScalesCable;
    bool asynchronous = true;    // whether AsyncMode can be set
    std::int32_t weightUnit = 0; // OposWeightUnit
    // Whether an empty scale is answered like one that is not stable, asked with each start. By the standard it is; the
    // maker's driver reports a weight of zero unless the driver option ZeroWeightReject forbids it.
    std::function<bool()> rejectsZero;
};

class ScaleService final : public ServiceObject {
public:
    // Called on the line thread.
    using Done = ScaleReader::Done;

    // port: n of "COMn", 0 for a scale that is not served (claiming it finds no hardware).
    ScaleService(ServiceDescription description, Lines& lines, int port, ScaleTraits traits);
    ~ScaleService() override;

    [[nodiscard]] const ScaleTraits& Traits() const { return traits_; }
    // Whether a request is running; no other can be made then.
    [[nodiscard]] bool Busy() const { return *busy_; }
    // Requests of ScaleReader. done is not called when the device is stopped first.
    void ReadWeight(std::int32_t timeout, Done done);
    void ZeroScale(Done done);

    std::int32_t Start(std::shared_ptr<EventQueue> queue) override;
    void Stop() override;
    [[nodiscard]] bool KnowsDirectIO(std::int32_t command) const override;
    std::int32_t DirectIO(std::int32_t command, std::int32_t& data, std::string& text, const WaitFor& wait) override;
    [[nodiscard]] std::vector<Statistic> Statistics() const override;

private:
    std::int32_t TellLineState(std::int32_t& data, std::string& text, const WaitFor& wait);
    std::int32_t SendRaw(std::int32_t& data, std::string& text, const WaitFor& wait);
    std::int32_t TellLastStatus(std::int32_t& data, std::string& text, const WaitFor& wait);
    // Runs the request on the line thread, with a done that also ends being busy.
    void Request(std::function<void(ScaleReader& reader, Done done)> request, Done done);

    struct DirectIoRow;
    static const DirectIoRow* FindDirectIo(std::int32_t command);

    LineThread& thread_;
    int port_;
    std::shared_ptr<SharedLine> line_;
    ScaleTraits traits_;
    bool rejectZero_ = false;
    std::shared_ptr<ScaleReader> reader_; // while started
    std::shared_ptr<std::atomic<bool>> busy_ = std::make_shared<std::atomic<bool>>(false);
};

// Asks on the line thread and waits for the outcome. A control that was closed meanwhile gives Closed.
[[nodiscard]] ScaleOutcome WaitForOutcome(const std::function<void(ScaleService::Done done)>& request,
                                          const WaitFor& wait);
