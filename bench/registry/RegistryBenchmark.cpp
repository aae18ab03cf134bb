// How fast the registry gives and takes profiles, beside a bare SQLite read of the same rows.
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "support/TemporaryRegistry.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr auto Machine = RegistryRoot::LocalMachine;

std::string ProfileName(std::int64_t number) {
    return "Lane " + std::to_string(number);
}

// A registry with so many scanner profiles; each is made once for all benchmarks.
TemporaryRegistry& RegistryWith(std::int64_t profiles) {
    static std::map<std::int64_t, std::unique_ptr<TemporaryRegistry>> made;
    auto& registry = made[profiles];
    if (registry)
        return *registry;
    registry = std::make_unique<TemporaryRegistry>();
    const auto tree = registry->Tree();
    for (std::int64_t i = 0; i < profiles; ++i) {
        const std::string key = RegistryPaths::ScannerFolder + ProfileName(i);
        for (const auto& [name, text] : std::vector<std::pair<std::string, std::string>>{
                 {"", ProgId::Scanner2},
                 {"Description", "Tavrin Device Instance, created 2026-11-21 08:30:00"},
                 {"Model", "Pelerin/3172"},
                 {"Service", "RavlinSO.dll"},
                 {"Version", "1.0.0.1"},
                 {"Serial Port", std::to_string(i % 64 + 1)},
                 {"Scanner Version", "0"},
                 {"ScaleType", "2"},
                 {"WeightUnit", "1"},
                 {"Display", "1"}})
            tree->SetValue(Machine, key, {name, RegistryType::String, text});
    }
    tree->Commit();
    return *registry;
}

// As the administrator reads its profiles at start: one store over the folder, one over each key, and the one of
// LoadDevice.
void EnumerateProfiles(benchmark::State& state) {
    TemporaryRegistry& registry = RegistryWith(state.range(0));
    for (auto _ : state) {
        std::vector<std::unique_ptr<CDevice>> profiles;
        const auto folder = registry.CreateStore();
        folder->RootKey(Machine);
        const auto key = registry.CreateStore();
        key->CreateMissing(false);
        key->RootKey(Machine);
        folder->KeyPath(RegistryPaths::ScannerFolder);
        const std::int32_t count = folder->SubKeyCount();
        for (std::int32_t i = 0; i < count; ++i) {
            const std::string name = folder->SubKeyName(i);
            key->KeyPath(RegistryPaths::ScannerFolder + name);
            if (key->ReadValue(RegistryValueType::String, "") != ProgId::Scanner2)
                state.SkipWithError("another class");
            auto profile = std::make_unique<CScanner2>(registry);
            profile->DeviceName(name);
            profile->LoadDevice();
            profiles.push_back(std::move(profile));
        }
        folder->Release();
        key->Release();
        benchmark::DoNotOptimize(profiles);
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ReadRowsBare(benchmark::State& state) {
    TemporaryRegistry& registry = RegistryWith(state.range(0));
    sqlite3* connection = nullptr;
    sqlite3_open(registry.Files().machine.c_str(), &connection);
    sqlite3_stmt* rows = nullptr;
    sqlite3_prepare_v2(
        connection,
        "SELECT k.Name, v.Name, v.Type, v.Data FROM RegistryKey k JOIN RegistryValue v ON v.KeyId = k.Id "
        "WHERE k.Parent = (SELECT Id FROM RegistryKey WHERE Folded = 'SCANNER') "
        "ORDER BY k.Folded, v.Position",
        -1, &rows, nullptr);
    for (auto _ : state) {
        std::int64_t read = 0;
        while (sqlite3_step(rows) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_text(rows, 0));
            benchmark::DoNotOptimize(sqlite3_column_text(rows, 1));
            benchmark::DoNotOptimize(sqlite3_column_int64(rows, 2));
            benchmark::DoNotOptimize(sqlite3_column_blob(rows, 3));
            ++read;
        }
        if (read != state.range(0) * 10)
            state.SkipWithError("not the same rows");
        sqlite3_reset(rows);
    }
    sqlite3_finalize(rows);
    sqlite3_close(connection);
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void SaveOneProfile(benchmark::State& state) {
    TemporaryRegistry& registry = RegistryWith(state.range(0));
    CScanner2 scanner(registry);
    scanner.DeviceName("The one");
    scanner.Model("Pelerin/3172");
    for (auto _ : state)
        scanner.SaveDevice(true);
}

} // namespace

BENCHMARK(EnumerateProfiles)->Arg(100)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Complexity(benchmark::oN);
BENCHMARK(ReadRowsBare)->Arg(100)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Complexity(benchmark::oN);
BENCHMARK(SaveOneProfile)->Arg(0)->Arg(10'000)->Arg(100'000)->UseRealTime();
