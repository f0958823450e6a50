// Writes and reads back a 100,000-step script with the real SaveData and
// ReadData over the in-memory grid and real files in a temporary folder.
#include <benchmark/benchmark.h>

#include "fakes/test_app.h"
#include "script/script_file.h"

namespace {

constexpr int kSteps = 100000;

void FillGrid(StepGrid& grid) {
    grid.Clear();
    for (int row = 1; row <= kSteps; ++row) {
        std::string number = std::to_string(row);
        AppendStep(grid, {number, number, "300", "Left Click", "hello%{TAB}world", "0", "1.5", "2"}, row % 7 != 0);
    }
}

void BM_SaveData(benchmark::State& state) {
    TestApp t;
    FillGrid(t.grid);
    bool purge = state.range(0) != 0;
    for (auto _ : state) {
        if (!SaveData(t.app, purge)) state.SkipWithError("SaveData failed");
    }
    state.counters["bytes"] = static_cast<double>(t.ReadFile("Data.dat").size());
}

void BM_ReadData(benchmark::State& state) {
    TestApp t;
    FillGrid(t.grid);
    SaveData(t.app, false);
    for (auto _ : state) {
        state.PauseTiming();
        t.grid.Clear();
        state.ResumeTiming();
        if (!ReadData(t.app, "", false)) state.SkipWithError("ReadData failed");
    }
    if (t.grid.RowCount() != kSteps) state.SkipWithError("rows lost");
}

}  // namespace

BENCHMARK(BM_SaveData)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_ReadData)->Unit(benchmark::kMillisecond)->MinTime(1.0);

BENCHMARK_MAIN();
