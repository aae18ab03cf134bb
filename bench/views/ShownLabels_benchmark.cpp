// How long a label takes from the last byte on its line until the Simple Test page has painted it.
#include "app/RavlinApplication.h"
#include "platform/opos/OposSite.h"
#include "profiles/RegistryPaths.h"
#include "support_app/MainWindow.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

// Notices when the label paints itself.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QLabel& label) : label_(label) { label.installEventFilter(this); }

    [[nodiscard]] const QString& Painted() const { return painted_; }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted_ = label_.text();
        return false;
    }

private:
    QLabel& label_;
    QString painted_;
};

void LabelToPaintedText(benchmark::State& state) {
    OposSite site;
    site.registry.Put(RegistryPaths::Settings, "StartupWizard", "1", RegistryRoot::CurrentUser);
    site.SaveScanner("Lane", 1);
    const PseudoTerminal line(site.ports, 1);
    MainWindow window(site.registry);
    window->ShowView(2);
    auto& label = Control<QLabel>(*window, "lblSimpleScanData");
    const PaintWatch watch(label);
    Click(Control<QPushButton>(*window, "cmdSimpleScannerBegin"));
    std::vector<double> microseconds;
    int number = 0;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        const QString text = QStringLiteral("50183748%1").arg(++number);
        const std::string sent = "]C0" + text.toStdString() + "\r";
        const auto start = Clock::now();
        line.Send(sent);
        while (watch.Painted() != text)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        microseconds.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    std::ranges::sort(microseconds);
    state.counters["median_us"] = microseconds[microseconds.size() / 2];
    state.counters["p99_us"] = microseconds[microseconds.size() * 99 / 100];
}

} // namespace

BENCHMARK(LabelToPaintedText)->Iterations(1000)->UseRealTime()->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    RavlinApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
