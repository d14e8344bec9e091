// Benchmarks of windows run on a screen in memory.
#include <QApplication>

#include <benchmark/benchmark.h>

int main(int Count, char** Words)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication Toolkit(Count, Words);
    benchmark::Initialize(&Count, Words);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
