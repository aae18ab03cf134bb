// How long a programming session takes, against what a line of 9600 baud needs for its bytes alone: ten bits a byte,
// and the next byte is not sent before the one that it answers has come. The pause that class 6 needs is left out.
#include "lane/LaneRunner.h"
#include "lane/ScannerTraits.h"
#include "platform/serial/SerlinkPort.h"
#include "profiles/CGenericScanner.h"
#include "programming/ProgrammingSession.h"
#include "support/PseudoTerminal.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace {

constexpr std::int16_t Port = 1;

class BenchedScanner final : public CGenericScanner {
public:
    explicit BenchedScanner(std::int32_t configurationType) : configurationType_(configurationType) {}
    [[nodiscard]] std::int32_t ConfigurationType() const override { return configurationType_; }
    using CGenericScanner::SerialPort;
    [[nodiscard]] std::int16_t SerialPort() const override { return Port; }

private:
    std::int32_t configurationType_;
};

// Every byte of a session, in both directions.
std::size_t BytesOfSession(int programmingClass) {
    const ScannerTraits traits = TraitsOf(programmingClass).value();
    const std::size_t digits = 2 * traits.blockSize;
    constexpr std::size_t Firmware = 6;
    constexpr std::size_t End = 1; // the CR behind a command
    const std::size_t entry = traits.wokenByCommand ? 4 + End + 2 : 1;
    const std::size_t request = traits.sendsAtOnce ? digits + Firmware + End : 2 + End; // an echo, or PM
    const std::size_t reply = 1 + digits + Firmware + 1;
    const std::size_t written = traits.prefix.size() + (traits.takesApm ? 3 : 0) + digits + End;
    return entry + request + reply + written + 1;
}

bool RunSession(LaneRunner& lane, const CDevice& device) {
    SerlinkPort serlink;
    ProgrammingSession session(serlink, {.showRecyclePower = [&lane] { static_cast<void>(lane.Execute("power 1")); },
                                         .processPendingEvents = [] {},
                                         .wait = [](std::chrono::milliseconds) {},
                                         .stepBegins = [](ProgrammingStep) {}});
    return session.ProgramDevice(device).succeeded;
}

void ProgramOverSlowLine(benchmark::State& state) {
    using Seconds = std::chrono::duration<double>;
    const int programmingClass = static_cast<int>(state.range(0));
    const TemporaryPorts ports;
    LaneRunner lane({.directory = ports.Directory(), .paced = true, .preparation = std::chrono::milliseconds(0)},
                    [](const std::string&) {});
    static_cast<void>(lane.Execute("scanner 1 " + std::to_string(programmingClass)));

    const double limit = static_cast<double>(BytesOfSession(programmingClass)) * 10 / 9600;
    std::vector<double> sessions;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        if (!RunSession(lane, BenchedScanner(programmingClass)))
            state.SkipWithError("the session failed");
        const Seconds taken = std::chrono::steady_clock::now() - begin;
        state.SetIterationTime(taken.count());
        sessions.push_back(taken.count());
    }
    state.counters["limit_s"] = limit;
    const auto median = sessions.begin() + static_cast<std::ptrdiff_t>(sessions.size() / 2);
    std::ranges::nth_element(sessions, median);
    state.counters["median_s"] = *median;
    state.counters["ratio"] = *median / limit;
}

} // namespace

BENCHMARK(ProgramOverSlowLine)
    ->ArgName("class")
    ->Arg(1)
    ->Arg(3)
    ->Arg(6)
    ->Arg(31)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
