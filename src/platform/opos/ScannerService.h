// The service object of a scanner on a serial line.
#pragma once

#include "platform/opos/Lines.h"
#include "platform/opos/ServiceObject.h"

// What the line thread does for a scanner: labels into the queue.
class LabelFeed : public LineListener {
public:
    LabelFeed(std::shared_ptr<EventQueue> queue, std::shared_ptr<DeviceCounters> counters);

    void OnText(const std::string& text) override;
    void OnTrouble(LineTrouble trouble) override;

    // The last line as it came.
    [[nodiscard]] const std::string& LastLine() const { return lastLine_; }

private:
    std::shared_ptr<EventQueue> queue_;
    std::shared_ptr<DeviceCounters> counters_;
    std::string lastLine_;
};

class ScannerService final : public ServiceObject {
public:
    // port: n of "COMn", 0 for a scanner that is not served (claiming it finds no hardware).
    ScannerService(ServiceDescription description, Lines& lines, int port);
    ~ScannerService() override;

    std::int32_t Start(std::shared_ptr<EventQueue> queue) override;
    void Stop() override;
    [[nodiscard]] bool KnowsDirectIO(std::int32_t command) const override;
    std::int32_t DirectIO(std::int32_t command, std::int32_t& data, std::string& text, const WaitFor& wait) override;
    [[nodiscard]] std::vector<Statistic> Statistics() const override;

private:
    std::int32_t TellLineState(std::int32_t& data, std::string& text);
    std::int32_t TellLastLine(std::int32_t& data, std::string& text);

    struct DirectIoRow;
    static const DirectIoRow* FindDirectIo(std::int32_t command);

    LineThread& thread_;
    int port_;
    std::shared_ptr<SharedLine> line_;
    std::shared_ptr<LabelFeed> feed_; // while started
};
