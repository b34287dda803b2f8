// The own decoder and encoder of a 12-megapixel photograph against one QImage::load of the same file, and salvages of files
// that are made to cost much: how long they take, and for how long they don't ask whether to stop.
#include "BenchFiles.h"

#include "engine/DeepRoad.h"
#include "salvage/Salvage.h"
#include "salvage/entropy/PictureReader.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;
using namespace salvage;

double seconds(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// The photograph, its header and its entropy data.
struct Photograph
{
    QByteArray file;
    Header header;
    ByteView data;

    Photograph()
    {
        QFile source(photograph());
        if (source.open(QIODevice::ReadOnly)) file = source.readAll();
        size_t dataAt = 0;
        header = readHeader(view(file), dataAt).value_or(Header());
        data = slice(view(file), dataAt, size_t(std::max(2, file.size())) - 2);
    }
};

/// Runs `work` in every iteration, and a load of the photograph beside it; counts the ratio of the shortest times.
template<typename Work>
void againstLoad(benchmark::State &state, Work work)
{
    double own = 1e9;
    double load = 1e9;
    for (auto _ : state) {
        const auto begin = Clock::now();
        if (!work()) return state.SkipWithError("not read to its end");
        own = std::min(own, seconds(begin));
        state.PauseTiming();
        const auto loadBegin = Clock::now();
        QImage image;
        image.load(photograph(), "JPG");
        load = std::min(load, seconds(loadBegin));
        state.ResumeTiming();
    }
    state.counters["own_ms"] = own * 1e3;
    state.counters["to_load"] = own / load;
}

void decodeCounting(benchmark::State &state)
{
    const Photograph photo;
    againstLoad(state, [&] {
        Budget budget;
        return decode(photo.header, photo.data, budget).perfect;
    });
}

void decodeKeeping(benchmark::State &state)
{
    const Photograph photo;
    std::vector<qint16> values;
    DecodeWish wish;
    wish.values = &values;
    againstLoad(state, [&] {
        Budget budget;
        return decode(photo.header, photo.data, budget, wish).perfect;
    });
}

void encoding(benchmark::State &state)
{
    const Photograph photo;
    Coefficients picture(photo.header);
    Budget budget;
    DecodeWish wish;
    wish.values = &picture.values;
    if (!decode(photo.header, photo.data, budget, wish).perfect) return state.SkipWithError("not read to its end");
    againstLoad(state, [&] { return encode(picture).size() > photo.file.size() / 4; });
}

QByteArray repeated(const QByteArray &what)
{
    const int bytes = qEnvironmentVariableIsSet("KESMIRA_BENCH_SMALL") ? 200'000 : 100'000'000;
    QByteArray all = what.repeated(bytes / what.size() + 1);
    all.truncate(bytes);
    return all;
}

/// A file of which every part asks for a look, without giving anything.
struct Hostile
{
    const char *name;
    QByteArray front;
    QByteArray repeated;
    QByteArray back;
};

const QByteArray kScanHeader("\xFF\xDA\0\x0C\x03\x01\0\x02\x11\x03\x11\0\x3F\0", 14);

/// The header of the photograph, in the kind of frame that `frame` says.
QByteArray headerOf(quint16 interval, quint8 frame = 0xC0)
{
    Header header = Photograph().header;
    header.restartInterval = interval;
    header.frame = frame;
    if (frame == 0xC2) header.spectral = {0, 0, 0};
    return header.bytes(false);
}

/// A scan of the first component's AC values: runs of end-of-band, as long as can be.
QByteArray emptyScan(quint8 approximation)
{
    QByteArray scan("\xFF\xC4\0\x15\x10\0\x02\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xE0\0", 23);
    scan += QByteArray("\xFF\xDA\0\x08\x01\x01\0\x01\x3F", 9) + char(approximation);
    return scan + QByteArray(60, '\x3F');
}

/// An MCU of a flat picture by the tables that QImage writes: size 0 and end of block, for six blocks.
QByteArray goodMcu()
{
    return QByteArray("\x28\xA2\x8A\x00", 4);
}

QByteArray goodIntervals()
{
    QByteArray data;
    for (int i = 0; i < 8; ++i) data.append("\xFF").append(char(0xD0 + i)).append(goodMcu());
    return data;
}

QByteArray restartsInTurn()
{
    QByteArray markers;
    for (int i = 0; i < 8; ++i) markers.append("\x5A\xC3\xFF").append(char(0xD0 + i));
    return markers;
}

const std::vector<Hostile> &hostileFiles()
{
    const QByteArray tail = kScanHeader + QByteArray("\x5A\xC3\x71", 3).repeated(60);
    static const std::vector<Hostile> all = {
        {"FF DA", {}, QByteArray("\xFF\xDA"), {}},
        {"FF D8 FF", {}, QByteArray("\xFF\xD8\xFF"), {}},
        {"FF D9", kScanHeader, QByteArray("\xFF\xD9"), {}},
        {"zeros", {}, QByteArray(1, '\0'), {}},
        {"FF FF", {}, QByteArray("\xFF"), {}},
        {"FF D0 in a scan", kScanHeader, QByteArray("\xFF\xD0"), {}},
        {"FF FF in a scan", kScanHeader, QByteArray("\xFF"), {}},
        {"zeros in a scan", kScanHeader, QByteArray(1, '\0'), {}},
        {"scan headers", {}, kScanHeader, {}},
        {"scans", {}, kScanHeader + QByteArray(30, 'Z'), {}},
        {"unmarked scan headers", {}, kScanHeader.mid(2), {}},
        {"DHT heads", {}, QByteArray("\xFF\xC4\x04\0", 4), tail},
        {"DHT heads in a scan", kScanHeader, QByteArray("\xFF\xC4\x04\0", 4), {}},
        {"DHT heads of a kilobyte", {}, QByteArray("\xFF\xC4\x03\xE7\0\x10\x01", 7), tail},
        {"DQT heads", {}, QByteArray("\xFF\xDB\0\x43\0", 5), tail},
        {"DQT heads in a scan", kScanHeader, QByteArray("\xFF\xDB\0\x43\0", 5), {}},
        {"DQT heads, four tables", kScanHeader, QByteArray("\xFF\xDB\x01\x06\0\x01\x02\x03", 8), {}},
        {"frames", {}, QByteArray("\xFF\xC0\0\x11\x08\0\x40\0\x40\x03\x01\x22\0\x02\x11\x01\x03\x11\x01", 19), tail},
        {"comments", "\xFF\xD8", QByteArray("\xFF\xFE\0\x02", 4), tail},
        {"APP heads", {}, QByteArray("\xFF\xE1\x01\0", 4), tail},
        {"intervals", {}, QByteArray("\xFF\xDD\0\x04\0\x01", 6), tail},
        {"gaps", {}, QByteArray("\xFF\xD8", 2) + QByteArray("\x43\0\x10\x0B", 4).repeated(100), tail},
        {"TIFF heads", {}, QByteArray("II*\0", 4), tail},
        {"picture of FF D0", headerOf(0), QByteArray("\xFF\xD0"), {}},
        {"intervals of FF D0", headerOf(1), QByteArray("\xFF\xD0"), {}},
        {"intervals in turn", headerOf(1), restartsInTurn(), {}},
        {"long intervals in turn", headerOf(1000), restartsInTurn(), {}},
        {"intervals behind a good one", headerOf(1) + goodMcu(), QByteArray("\xFF\xD0"), {}},
        {"intervals behind good ones", headerOf(1) + goodMcu(), goodIntervals(), {}},
        {"hits", headerOf(0) + goodMcu(), QByteArray(300, '\x2A') + QByteArray("\xFF\x12", 2), {}},
        {"picture of zeros", headerOf(0), QByteArray(1, '\0'), {}},
        {"picture of FF FF", headerOf(0), QByteArray("\xFF"), {}},
        {"picture of noise", headerOf(0), QByteArray("\x5A\xC3\x71\x12\xE9\x7F\x0D", 7), {}},
        {"progressive zeros", headerOf(0, 0xC2), QByteArray(1, '\0'), {}},
        {"progressive scans", headerOf(0, 0xC2) + QByteArray(2000, '\x5A'), emptyScan(1), {}},
        {"progressive refinements", headerOf(0, 0xC2) + QByteArray(2000, '\x5A'), emptyScan(0x10), {}},
        {"Exif sizes",
         {},
         QByteArray("\x02\xA0\x04\0\x01\0\0\0\x40\x06\0\0\x03\xA0\x04\0\x01\0\0\0\xB0\x04\0\0", 24),
         tail},
    };
    return all;
}

void hostile(benchmark::State &state, const Hostile *kind)
{
    const QByteArray file = kind->front + repeated(kind->repeated) + kind->back;
    knownTables();
    double silence = 0;
    double longest = 0;
    for (auto _ : state) {
        auto asked = Clock::now();
        const auto begin = asked;
        const auto ask = [&] {
            silence = std::max(silence, seconds(asked));
            asked = Clock::now();
            return false;
        };
        Budget budget(ask);
        const auto result = salvage::salvage(view(file), knownTables(), budget);
        ask();
        longest = std::max(longest, seconds(begin));
        state.counters["found"] = result ? 1 : 0;
        state.counters["decodes"] = budget.decodes();
    }
    state.counters["s"] = longest;
    state.counters["silent_ms"] = silence * 1e3;
}

} // namespace

BENCHMARK(decodeCounting)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeKeeping)->Unit(benchmark::kMillisecond);
BENCHMARK(encoding)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    for (const Hostile &kind : hostileFiles())
        benchmark::RegisterBenchmark((std::string("hostile/") + kind.name).c_str(), hostile, &kind)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
