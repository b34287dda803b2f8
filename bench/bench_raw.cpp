// A carve through 100 MB without a picture against one memchr pass over the same file, and the way by the pointers of a raw
// file of 50 MB. Prints the ratio and the times of this run.
#include "BenchFiles.h"

#include "engine/raw/Cr3Scan.h"
#include "engine/raw/RawFormats.h"
#include "support/Cr3Maker.h"
#include "support/RawMaker.h"

#include <QFile>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

void carveAgainstMemchr(benchmark::State &state, const char *suffix)
{
    static const QString path = rawFile({}, 100);
    double carving = 1e9;
    double plain = 1e9;
    for (auto _ : state) {
        const auto begin = Clock::now();
        FileWindow file(path);
        if (carve(file, rawFormat(QLatin1String(suffix))->carve) != RawImages()) return state.SkipWithError("a hit");
        carving = std::min(carving, seconds(begin));
        state.PauseTiming();
        const auto plainBegin = Clock::now();
        benchmark::DoNotOptimize(memchrPass(QFile::encodeName(path)));
        plain = std::min(plain, seconds(plainBegin));
        state.ResumeTiming();
    }
    state.counters["carve_MB_s"] = double(QFile(path).size()) / carving / 1e6;
    state.counters["carve_to_memchr"] = plain / carving;
}

/// Opening, pointers and confirmation; the copy is not made.
void pointers(benchmark::State &state, const RawSample *sample)
{
    const QString path = rawFile(sample->file, 50);
    for (auto _ : state) {
        FileWindow file(path);
        RepairWay way = RepairWay::Carve;
        findRawImages(file, *rawFormat(sample->suffix), way);
        if (way != RepairWay::Pointers) return state.SkipWithError("carved");
    }
}

void cr3Boxes(benchmark::State &state)
{
    const QString path =
        rawFile(makeCr3({.full = rawPicture(), .preview = rawPicture(), .thumbnail = rawThumbnail()}), 50);
    for (auto _ : state) {
        FileWindow file(path);
        quint32 position = 0;
        if (findCr3Images(file, position).carved) return state.SkipWithError("carved");
    }
}

} // namespace

int main(int argc, char **argv)
{
    for (const char *suffix : {"NEF", "CR2", "ERF"}) // MRW's start of three bytes turns up in any 100 MB
        benchmark::RegisterBenchmark((std::string("carve/") + suffix).c_str(), carveAgainstMemchr, suffix)
            ->Unit(benchmark::kMillisecond);
    for (const RawSample &sample : rawSamples()) {
        if (sample.suffix == "CRW") continue; // its directory lies at the file's end, where the filling is
        // A TIFF's thumbnail goes on to the last end of a picture in the file, which has to be searched.
        const std::string name = "pointers/" + std::string(sample.name.constData());
        benchmark::RegisterBenchmark(name.c_str(), pointers, &sample)->Unit(benchmark::kMillisecond);
    }
    benchmark::RegisterBenchmark("pointers/CR3", cr3Boxes)->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
