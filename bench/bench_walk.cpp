// Analysis of an intact 100 MB JPEG against one memchr pass over the same file and against the loop that seeks to every
// position and reads two bytes there. Prints the ratios of this run.
#include "BenchFiles.h"

#include "app/StopFlag.h"
#include "engine/jpg_repair.h"

#include <QFile>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Looks at `positions` places of the file, each by a seek and a read; bytes a second.
double steppingPace(const QByteArray &path, long positions)
{
    FILE *file = std::fopen(path.constData(), "rb");
    const auto begin = Clock::now();
    unsigned char word[2];
    unsigned sum = 0;
    for (long at = 0; at < positions; ++at) {
        std::fseek(file, at, SEEK_SET);
        if (std::fread(word, 1, 1, file) != 1) break;
        std::fseek(file, at, SEEK_SET);
        if (std::fread(word, 1, 2, file) != 2) break;
        sum += word[0];
    }
    benchmark::DoNotOptimize(sum);
    const double pace = double(positions) / seconds(begin);
    std::fclose(file);
    return pace;
}

void analyse(const QString &path)
{
    FileWindow file(path);
    jpg_repair engine;
    setFlag(pApp->bRepairRunning, true);
    pApp->nFileSize = file.size();
    pApp->pCurrentFile = &file;
    engine.TraverseExistingJpgFile(path, &file, 0);
    pApp->pCurrentFile = nullptr;
    engine.EmptyMemoryAllocation();
}

void walkAgainstPlainPasses(benchmark::State &state)
{
    const QString path = largeJpeg();
    const QByteArray name = QFile::encodeName(path);
    const auto size = double(QFile(path).size());
    double walk = 1e9;
    double plain = 1e9;
    for (auto _ : state) {
        const auto begin = Clock::now();
        analyse(path);
        walk = std::min(walk, seconds(begin));
        state.PauseTiming();
        const auto plainBegin = Clock::now();
        benchmark::DoNotOptimize(memchrPass(name));
        plain = std::min(plain, seconds(plainBegin));
        state.ResumeTiming();
    }
    const double stepping = steppingPace(name, long(std::min(size, 2e6)));
    state.counters["walk_MB_s"] = size / walk / 1e6;
    state.counters["walk_to_memchr"] = plain / walk;
    state.counters["walk_to_stepping"] = size / walk / stepping;
}

} // namespace

BENCHMARK(walkAgainstPlainPasses)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
