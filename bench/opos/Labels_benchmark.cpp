// How long a label takes from the last byte on its line to the data event's handler, and what many labels cost in
// memory.
#include "platform/opos/OposSite.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <thread>
#include <vector>

#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

// Whole time and one percentile of a label's way, in microseconds.
struct Times {
    std::vector<double> microseconds;

    [[nodiscard]] double Percentile(double part) {
        std::ranges::sort(microseconds);
        return microseconds[static_cast<std::size_t>(part * static_cast<double>(microseconds.size() - 1))];
    }
};

double ResidentMegabytes() {
    std::ifstream file("/proc/self/statm");
    double total = 0;
    double resident = 0;
    file >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

struct EnabledScanner {
    OposSite site;
    PseudoTerminal line{site.ports, 1};
    std::unique_ptr<OPOSScanner> scanner = site.controls->CreateScanner();
    std::size_t labels = 0;

    EnabledScanner() {
        site.SaveScanner("Lane", 1);
        scanner->Open("Lane");
        scanner->ClaimDevice(0);
        scanner->DeviceEnabled(true);
        scanner->DecodeData(true);
        scanner->OnDataEvent([this](std::int32_t) {
            ++labels;
            scanner->DataEventEnabled(true);
        });
        scanner->DataEventEnabled(true);
    }
};

// One label at a time, sent while the program waits for events as its window does.
void LabelToHandler(benchmark::State& state) {
    EnabledScanner lane;
    Times times;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        const std::size_t before = lane.labels;
        const auto sent = Clock::now();
        lane.line.Send("]E05018374827715\r");
        if (!lane.site.dispatcher.RunUntil([&] { return lane.labels > before; }))
            state.SkipWithError("a label was lost");
        times.microseconds.push_back(std::chrono::duration<double, std::micro>(Clock::now() - sent).count());
    }
    state.counters["median_us"] = times.Percentile(0.5);
    state.counters["p99_us"] = times.Percentile(0.99);
    state.counters["worst_us"] = times.Percentile(1.0);
}

void HundredThousandLabels(benchmark::State& state) {
    constexpr std::size_t Count = 100000;
    EnabledScanner lane;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        lane.labels = 0;
        const double before = ResidentMegabytes();
        std::jthread device([&lane] {
            for (std::size_t number = 0; number < Count; ++number)
                lane.line.Send("]E05018374827715\r");
        });
        if (!lane.site.dispatcher.RunUntil([&] { return lane.labels == Count; }, std::chrono::minutes(2)))
            state.SkipWithError("labels were lost");
        state.counters["rss_MiB"] = ResidentMegabytes();
        state.counters["rss_growth_MiB"] = ResidentMegabytes() - before;
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(Count) * state.iterations());
}

BENCHMARK(LabelToHandler)->Iterations(2000)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(HundredThousandLabels)->Iterations(2)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
