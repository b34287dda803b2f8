// Analysis of a file of 100 MB that holds no tile, so that all of it is searched, against one memchr pass over the same
// file. Prints the ratio of this run.
#include "BenchFiles.h"

#include "engine/jpg_repair.h"

#include <QFile>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Bytes as random as the data of tiles.
QString fileWithoutTile()
{
    const QString path = benchFolder() + "/no_tile.heic";
    QFile file(path);
    if (file.exists() || !file.open(QIODevice::WriteOnly)) return path;
    const int blocks = qEnvironmentVariableIsSet("KESMIRA_BENCH_SMALL") ? 8 : 400;
    std::vector<quint64> block(32 * 1024);
    quint64 state = 1;
    for (int i = 0; i < blocks; ++i) {
        for (quint64 &word : block) {
            state = state * 6364136223846793005u + 1442695040888963407u;
            word = state ^ state >> 29;
        }
        file.write(reinterpret_cast<const char *>(block.data()), qint64(block.size() * sizeof(quint64)));
    }
    return path;
}

void analysisAgainstPlainPass(benchmark::State &state)
{
    const QString path = fileWithoutTile();
    const QByteArray name = QFile::encodeName(path);
    double analysis = 1e9;
    double plain = 1e9;
    for (auto _ : state) {
        const auto begin = Clock::now();
        if (jpg_repair().Heic(path)) state.SkipWithError("a tile where none is");
        analysis = std::min(analysis, seconds(begin));
        state.PauseTiming();
        const auto plainBegin = Clock::now();
        benchmark::DoNotOptimize(memchrPass(name, 0x28));
        plain = std::min(plain, seconds(plainBegin));
        state.ResumeTiming();
    }
    state.counters["analysis_MB_s"] = double(QFile(path).size()) / analysis / 1e6;
    state.counters["analysis_to_memchr"] = plain / analysis;
}

} // namespace

BENCHMARK(analysisAgainstPlainPass)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
