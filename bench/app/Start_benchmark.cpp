// How long the main window takes to become usable, beside reading the profiles alone.
#include "app/RavlinApplication.h"
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"
#include "views/DeviceCollection.h"
#include "views/ProfileEnumeration.h"

#include <benchmark/benchmark.h>

#include <map>

namespace {

// One store for each number of profiles, made once.
TemporaryRegistry& StoreOf(std::int64_t profiles) {
    static std::map<std::int64_t, std::unique_ptr<TemporaryRegistry>> stores;
    auto& store = stores[profiles];
    if (store)
        return *store;
    store = std::make_unique<TemporaryRegistry>();
    store->Put(RegistryPaths::Settings, "StartupWizard", "1", RegistryRoot::CurrentUser);
    for (std::int64_t i = 0; i < profiles; ++i) {
        CScanner2 scanner(*store);
        scanner.DeviceName("Lane " + std::to_string(i));
        scanner.Model("7346");
        scanner.SerialPort(1);
        scanner.SaveDevice(false);
    }
    return *store;
}

void ReadProfiles(benchmark::State& state) {
    TemporaryRegistry& store = StoreOf(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        const auto registry = store.OtherProgram();
        DeviceCollection devices;
        LoadScannerProfiles(*registry, devices, nullptr);
        LoadScaleProfiles(*registry, devices);
    }
}

void StartToUsableWindow(benchmark::State& state) {
    TemporaryRegistry& store = StoreOf(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        const auto registry = store.OtherProgram();
        const MainWindow window(*registry);
    }
}

} // namespace

BENCHMARK(ReadProfiles)->Arg(0)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(StartToUsableWindow)->Arg(0)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    RavlinApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
