// The stopwatch's read against a bare steady-clock read, and the three page computations
// on samples of 30, 1,000 and 10,000 results.

#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "files/CsvFile.h"
#include "reaction/mStopWatch.h"
#include "stats/Averages.h"
#include "stats/GroupedData.h"
#include "stats/Spearman.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <random>

namespace {

void BM_SteadyClockNow(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(std::chrono::steady_clock::now());
}
BENCHMARK(BM_SteadyClockNow);

// The bare read with the conversion every reading must make: the exact difference in counts,
// divided in double precision and rounded once to a 32-bit float.
void BM_SteadyClockSeconds(benchmark::State &state)
{
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        const auto span = (std::chrono::steady_clock::now() - start).count();
        benchmark::DoNotOptimize(static_cast<float>(static_cast<double>(span) / 1e9));
    }
}
BENCHMARK(BM_SteadyClockSeconds);

void BM_SwElapsed(benchmark::State &state)
{
    std::int32_t slot = mStopWatch::SwNew();
    mStopWatch::SwStart(slot);
    for (auto _ : state)
        benchmark::DoNotOptimize(mStopWatch::SwElapsed(slot));
}
BENCHMARK(BM_SwElapsed);

// Reaction times as a class produces them: 0.15 s to 0.65 s, five decimal places, paired.
zrt::CollectedLists sample(int n)
{
    std::mt19937 rng(20261122);
    std::uniform_real_distribution<double> visual(0.15, 0.55), audio(0.18, 0.65);
    zrt::CollectedLists l;
    char buf[32];
    for (int i = 0; i < n; ++i) {
        std::snprintf(buf, sizeof buf, "%.5f", visual(rng));
        l.visual.emplace_back(buf);
        std::snprintf(buf, sizeof buf, "%.5f", audio(rng));
        l.audio.emplace_back(buf);
    }
    return l;
}

void BM_GetAverages(benchmark::State &state)
{
    const auto lists = sample(static_cast<int>(state.range(0)));
    zrt::AnalysisState s;
    for (auto _ : state)
        benchmark::DoNotOptimize(zrt::Get_Averages(zrt::AveragesInput{lists, 2, 0, 1}, s));
}
// 32,767 results is the largest file the pages take (the item counter is 16 bits).
BENCHMARK(BM_GetAverages)->Arg(30)->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMillisecond);

void BM_GroupedTables(benchmark::State &state)
{
    const auto lists = sample(static_cast<int>(state.range(0)));
    zrt::AnalysisState s;
    for (auto _ : state) {
        zrt::Get_Grouped_Data(zrt::GroupedInput{lists, 0, 1}, s);
        const auto table = zrt::BuildClassTable(s.GroupedData);
        benchmark::DoNotOptimize(zrt::EstimatedMeanText(table));
    }
}
BENCHMARK(BM_GroupedTables)->Arg(30)->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMillisecond);

// With many results in whole hundredths the ties grow long, and the 16-bit sum of a run's
// ranks overflows (run-time error 6) as it always did; the time is then the time to that failure.
void BM_CompareData(benchmark::State &state)
{
    const auto lists = sample(static_cast<int>(state.range(0)));
    zrt::AnalysisState s;
    int failures = 0;
    for (auto _ : state) {
        try {
            benchmark::DoNotOptimize(zrt::Get_Compare_Data(lists, s));
        } catch (const zrt::RunTimeError &) {
            ++failures;
        }
    }
    state.counters["overflowed"] = failures > 0 ? 1 : 0;
}
BENCHMARK(BM_CompareData)->Arg(30)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace

// CSV of a class: pairs of results as the Add buttons write them. The largest sample a data file
// can count is 32,767; at 100,000 rows the import reads every row and then refuses the file.
zrt::CollectedLists CsvLists(int rows)
{
    std::mt19937 random(5);
    std::uniform_int_distribution<int> hundredThousandths(15000, 170000);
    zrt::CollectedLists lists;
    for (int i = 0; i < rows; ++i) {
        lists.visual.push_back(zrt::GeneralText(hundredThousandths(random) / 100000.0));
        lists.audio.push_back(zrt::GeneralText(hundredThousandths(random) / 100000.0));
    }
    return lists;
}

void BM_CsvExport(benchmark::State &state)
{
    const zrt::CollectedLists lists = CsvLists(static_cast<int>(state.range(0)));
    size_t bytes = 0;
    for (auto _ : state) {
        const std::string csv = zrt::BuildCsv(lists, true);
        bytes += csv.size();
        benchmark::DoNotOptimize(csv.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(bytes));
}
BENCHMARK(BM_CsvExport)->Arg(32767)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_CsvImport(benchmark::State &state)
{
    const std::string csv = zrt::BuildCsv(CsvLists(static_cast<int>(state.range(0))), true);
    for (auto _ : state) {
        const zrt::CsvImport read = zrt::ParseCsv(csv);
        benchmark::DoNotOptimize(read.lists.visual.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * csv.size()));
}
BENCHMARK(BM_CsvImport)->Arg(32767)->Arg(100000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
