// A whole repair of a 12-megapixel photograph, from open to rows, against one QImage::load of the same file; and what the
// search of its tables costs. Prints the ratios of this run.
#include "BenchFiles.h"

#include "app/KesmiraApp.h"
#include "app/WorkingRoot.h"
#include "decoder/Client.h"
#include "engine/BlockSource.h"
#include "engine/Judge.h"
#include "engine/OutputRows.h"
#include "tables/Hoffmann.h"
#include "tables/Quantization.h"
#include "tables/TableLibrary.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

void repairAgainstLoad(benchmark::State &state)
{
    const QString path = photograph();
    QDir().mkpath(benchFolder() + QStringLiteral("/root"));
    setWorkingRoot(benchFolder() + QStringLiteral("/root"));
    if (!prepareWorkingRoot().isEmpty()) return state.SkipWithError("no working root");
    checkBuiltInTables();
    double repair = 1e9;
    double load = 1e9;
    for (auto _ : state) {
        if (!beginRun()) return state.SkipWithError("no working folder");
        const auto begin = Clock::now();
        const OutputRows rows = makeRows(repairOneFile(path));
        repair = std::min(repair, seconds(begin));
        if (rows.rows.size() != 1) return state.SkipWithError("not repaired");
        state.PauseTiming();
        const auto loadBegin = Clock::now();
        QImage image;
        image.load(path, "JPG");
        load = std::min(load, seconds(loadBegin));
        state.ResumeTiming();
    }
    state.counters["repair_ms"] = repair * 1e3;
    state.counters["repair_to_load"] = repair / load;
}

double middle(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + qint64(values.size() / 2), values.end());
    return values[values.size() / 2];
}

/// Seconds of the processor that a process has taken, this one and its decoder.
double worked(pid_t process)
{
    clockid_t clock = {};
    timespec time = {};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0) return 0;
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// The decoder process's answer against a load of the same file in this process.
void judgeAgainstLoad(benchmark::State &state)
{
    const FileSource file(photograph());
    decoder::Client client;
    const decoder::Terms terms{pictureMemoryLimit(), {}, 0};
    std::vector<double> judge, load, judgeWork, loadWork;
    for (auto _ : state) {
        const double before = worked(0) + worked(client.pid());
        const auto begin = Clock::now();
        if (!client.judge(file.descriptor(), terms).opens) return state.SkipWithError("not judged");
        judge.push_back(seconds(begin));
        judgeWork.push_back(worked(0) + worked(client.pid()) - before);
        state.PauseTiming();
        const double loadBefore = worked(0);
        const auto loadBegin = Clock::now();
        QImage().load(photograph(), "JPG"); // and let go, as the decoder process has to
        load.push_back(seconds(loadBegin));
        loadWork.push_back(worked(0) - loadBefore);
        state.ResumeTiming();
    }
    state.counters["judge_ms"] = middle(judge) * 1e3;
    state.counters["judge_to_load"] = middle(judge) / middle(load);
    state.counters["judge_to_load_cpu"] = middle(judgeWork) / middle(loadWork);
}

/// The dearest searches that a file can ask for: heads that agree with no row beyond their first value.
void tableSearch(benchmark::State &state)
{
    checkBuiltInTables();
    for (auto _ : state) {
        pApp->nDqt67Count = 3;
        for (quint32 index = 0; index < 3; ++index) {
            for (quint8 *head : {pApp->aQuantHead1, pApp->aQuantHead2, pApp->aQuantHead3}) {
                std::fill(head, head + 25, quint8(251));
                head[0] = 1;
            }
            pApp->bQuantNotFound = true;
            pApp->nDqtLength = 67;
            pApp->nDqtIndex = index;
            benchmark::DoNotOptimize(Quantization().Quantization_table());
        }
        quint8 head[32] = {0xFF, 0xC4, 0x01, 0xA2};
        for (int i = 0; i < 4; ++i) benchmark::DoNotOptimize(Hoffmann().Hoffmann_table(head, 418));
    }
    pApp->bQuantNotFound = true;
}

} // namespace

BENCHMARK(repairAgainstLoad)->Unit(benchmark::kMillisecond);
BENCHMARK(judgeAgainstLoad)->Unit(benchmark::kMillisecond);
BENCHMARK(tableSearch)->Unit(benchmark::kMicrosecond);

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
