// Pages of a long table of functions against ten tables of a tenth of its length.
#include "views/report/cReportTable.h"

#include <benchmark/benchmark.h>

namespace {
constexpr int LongTable = 4200;

cReportTable MakeTable(int Count)
{
    std::vector<ReportLine> Lines;
    for (int i = 0; i < Count; ++i) {
        ReportLine Line{"Row " + std::to_string(i), {}, {i / 8 % 2 ? "Force" : "Length", "N"}, {}};
        for (const char* Key : {"MinY", "MaxY", "DelY"})
            if (i / 8 % 3 > 0 || Key[2] == 'n') Line.Values.push_back({"", Key, 1.0 * i});
        Lines.push_back(std::move(Line));
    }
    return cReportTable(std::move(Lines));
}

void Pages(const cReportTable& Table)
{
    for (std::size_t From = 0; From < Table.Count();)
        benchmark::DoNotOptimize(From = Table.EndFor(From, 912, 1274));
}

void Report(benchmark::State& State)
{
    const cReportTable Table = MakeTable(LongTable);
    for (auto _ : State)
        Pages(Table);
}

void Reference(benchmark::State& State)
{
    const cReportTable Table = MakeTable(LongTable / 10);
    for (auto _ : State)
        for (int i = 0; i < 10; ++i)
            Pages(Table);
}
BENCHMARK(Report)->Name("report")->Unit(benchmark::kMillisecond);
BENCHMARK(Reference)->Name("report/reference")->Unit(benchmark::kMillisecond);
} // namespace
