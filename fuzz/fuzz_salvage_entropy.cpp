// Entropy data under the own decoders and encoder. An input is a file with a header that stands; its data may be anything.
// By hand: build/fuzz/fuzz/fuzz_salvage_entropy -max_len=4000 CORPUS_FOLDER samples
#include "FuzzRun.h"

#include "salvage/entropy/PictureReader.h"

#include <algorithm>

using namespace salvage;

namespace {

constexpr quint32 kMostMcus = 5000; // what an input can fill; the size of a frame costs nothing to claim

qint16 clipped(qint16 value, bool dc)
{
    return std::clamp<qint16>(value, dc ? -1024 : -1023, 1023);
}

/// What was read can be written, and reads the same.
void checkRoundTrip(const Header &header, const Fit &fit, const std::vector<qint16> &values)
{
    Header one = header;
    one.width = one.height = 8;
    Coefficients picture(one);
    picture.mcusWide = fit.done;
    picture.mcusHigh = 1;
    picture.values = values;
    const QByteArray data = encode(picture);
    demand(nextMarker(view(data), 0) == size_t(data.size()), "a marker was written into the data");
    useStandardTables(one);
    std::vector<qint16> again;
    DecodeWish wish;
    wish.mcus = fit.done;
    wish.values = &again;
    Budget budget;
    demand(decode(one, view(data), budget, wish).perfect, "what was written isn't used up");
    demand(again.size() == values.size(), "fewer values than were written");
    for (size_t i = 0; i < values.size(); ++i)
        demand(again[i] == clipped(values[i], i % 64 == 0), "not the value that was written");
}

void checkBaseline(const Header &header, ByteView data)
{
    Budget budget;
    const Fit counted = decode(header, data, budget);
    demand(counted.done <= counted.total && counted.end <= data.size(), "more than there is");
    demand((counted.error == Fit::Error::None) == (counted.done == counted.total), "an end without an error");

    DecodeWish wish;
    wish.mcus = std::min(std::max(1U, header.mcuCount()), kMostMcus);
    std::vector<qint16> values;
    wish.values = &values;
    const Fit kept = decode(header, data, budget, wish);
    demand(kept.done == std::min(counted.done, wish.mcus), "keeping the values changes how far the data go");
    const size_t perMcu = kept.done ? values.size() / kept.done : 0;
    demand(values.size() == perMcu * kept.done && perMcu % 64 == 0, "values of half an MCU");
    if (kept.done) checkRoundTrip(header, kept, values);

    std::vector<qint16> all;
    std::vector<bool> bad;
    const quint32 done = decodeTolerantly(header, data, wish.mcus, budget, all, bad);
    demand(done >= kept.done && done <= wish.mcus && bad.size() == done, "going on gets less far than stopping");
    demand(std::equal(values.begin(), values.end(), all.begin()), "other values in front of the first error");
    demand(std::find(bad.begin(), bad.begin() + qptrdiff(kept.done), true) == bad.begin() + qptrdiff(kept.done),
           "an error in front of the first one");
    wish.followRestarts = true;
    demand(decode(header, data, budget, wish).done <= wish.mcus, "more than was asked for");
}

bool inOrder(const Header &header)
{
    if (header.scan.size() != header.components.size()) return false;
    for (size_t i = 0; i < header.scan.size(); ++i) {
        if (header.scan[i].id != header.components[i].id) return false;
        for (size_t k = 0; k < i; ++k)
            if (header.scan[k].id == header.scan[i].id) return false;
    }
    return true;
}

/// The two readers agree on a picture that comes in one scan.
void checkScans(const Header &header, ByteView data)
{
    constexpr quint64 kSmall = 1'000'000; // zeroing more for each input would be all that the target does
    const quint64 pixels = quint64(header.width) * header.height;
    Budget budget;
    if (pixels > kSmall && pixels < 1000 * kSmall) return;
    const ScansReading reading = readScans(header, data, budget);
    demand(reading.done <= reading.total && reading.end <= data.size(), "more than there is");
    demand(reading.picture.values.size()
               == size_t(reading.picture.mcuCount()) * size_t(reading.picture.blocksPerMcu()) * 64,
           "not the shape of the frame");
    demand(pixels <= kSmall || reading.picture.values.empty(), "memory for a size that is only claimed");
    // With restart markers the reader of a whole scan forgives bytes in front of them.
    if (header.progressive() || header.restartInterval || !inOrder(header) || reading.scans != 1) return;
    std::vector<qint16> values;
    DecodeWish wish;
    wish.values = &values;
    const Fit fit = decode(header, slice(data, 0, nextMarker(data, 0)), budget, wish);
    if (fit.perfect) demand(reading.done == reading.total && values == reading.picture.values, "the readers disagree");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const ByteView file(data, size);
    size_t dataAt = 0;
    const std::optional<Header> header = readHeader(file, dataAt);
    if (!header) return 0;
    demand(dataAt <= size && header->decodable(), "a header that can't be used");
    const ByteView entropy = slice(file, dataAt, size);
    checkBaseline(*header, entropy);
    checkScans(*header, entropy);
    for (const bool keepRestarts : {false, true}) {
        int changed = 0;
        const QByteArray clean = cleanScan(entropy, keepRestarts, changed);
        demand(size_t(clean.size()) == entropy.size(), "cleaning changes the length");
        demand(nextMarker(view(clean), 0) == entropy.size(), "a marker is left");
        int again = 0;
        demand(cleanScan(view(clean), keepRestarts, again) == clean && again == 0, "cleaning twice changes something");
    }
    return 0;
}
