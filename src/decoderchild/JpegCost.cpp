#include "decoderchild/JpegCost.h"

#include "engine/Markers.h"

#include <algorithm>

namespace {

// A picture of one colour takes a bit for a block at the least, so 512 pixels for a byte, of four bytes each. A picture of
// which little is left still opens as far as it goes: the start is what 128 megapixels take.
constexpr quint64 kMemoryForAnyFile = quint64(512) << 20;
constexpr quint64 kMemoryForAByte = 2048;
// A picture comes in a dozen scans; each costs 5 ns for a block even where it brings nothing.
constexpr quint64 kScansForAnyFile = 64;
constexpr quint64 kBlockVisits = 400'000'000;
// The list of notes is gone through from its front for each that is added. 64 KiB each are 512 MiB of notes.
constexpr quint64 kMostNotes = 8192;

bool isAnyFrameHeader(quint16 word)
{
    return word >= jpeg::SOF0 && word <= 0xFFCF && word != jpeg::DHT && word != 0xFFC8 && word != 0xFFCC;
}

/// No decoder goes on behind a code that is reserved, and none that counts announces frames within frames.
bool endsDecoding(quint16 word)
{
    const bool reserved = (word >= 0xFF02 && word <= 0xFFBF) || (word >= 0xFFF0 && word <= 0xFFFD);
    return word == jpeg::EOI || reserved || word == 0xFFDE || word == 0xFFDF;
}

quint64 roundedUp(quint64 value, quint64 unit)
{
    return (value + unit - 1) / unit * unit;
}

struct Frame
{
    quint16 word = 0;
    quint64 width = 0, height = 0;
    int components = 0;
    quint64 blocks = 0;
};

/// The frame header at `at`; blocks are counted as a decoder keeps them, in whole MCUs (T.81, A.2).
Frame readFrame(FileWindow &file, quint64 at)
{
    Frame frame;
    frame.word = file.wordAt(at);
    frame.height = file.wordAt(at + 5);
    frame.width = file.wordAt(at + 7);
    frame.components = file.byteAt(at + 9);
    const auto sampling = [&file, at](int component, bool across) {
        const quint8 both = file.byteAt(at + 11 + 3 * quint64(component));
        return std::clamp<quint64>(across ? both >> 4 : both & 15, 1, 4);
    };
    quint64 widest = 1, highest = 1;
    for (int i = 0; i < frame.components; ++i) {
        widest = std::max(widest, sampling(i, true));
        highest = std::max(highest, sampling(i, false));
    }
    const quint64 mcusAcross = roundedUp(frame.width, 8 * widest) / (8 * widest);
    const quint64 mcusDown = roundedUp(frame.height, 8 * highest) / (8 * highest);
    for (int i = 0; i < frame.components; ++i) {
        const quint64 ofMcu = frame.components == 1 ? widest * highest : sampling(i, true) * sampling(i, false);
        frame.blocks += mcusAcross * mcusDown * ofMcu;
    }
    return frame;
}

/// The decoder keeps all coefficients where a picture comes in more than one scan.
bool keepsCoefficients(const Frame &frame, int componentsOfFirstScan)
{
    const int kind = frame.word & 15;
    const bool progressive = kind == 2 || kind == 6 || kind == 10 || kind == 14;
    return progressive || componentsOfFirstScan < frame.components;
}

JpegCost priceOf(const Frame &frame, bool coefficients)
{
    JpegCost cost;
    cost.severalScans = coefficients;
    cost.size = QSize(int(frame.width), int(frame.height));
    cost.blocks = frame.blocks;
    const quint64 pixelBytes = frame.components == 1 ? 1 : 4;
    cost.memory = frame.width * frame.height * pixelBytes + (coefficients ? frame.blocks * 64 * 2 : 0);
    return cost;
}

bool isKeptNote(quint16 word)
{
    return word == jpeg::COM || word == jpeg::APP1 || word == jpeg::APP2;
}

} // namespace

JpegCost costOf(FileWindow &file)
{
    Frame frame;
    JpegCost cost;
    const quint64 size = file.size();
    if (file.wordAt(0) != jpeg::SOI) return cost;
    quint64 scans = 0, notes = 0;
    for (quint64 at = file.nextFF(2, size); at + 1 < size; at = file.nextFF(at, size)) {
        const quint16 word = file.wordAt(at);
        if (endsDecoding(word)) break;
        const bool standsAlone = word <= 0xFF01 || (word >= jpeg::RST0 && word <= jpeg::SOI);
        if (word == 0xFFFF || standsAlone) {
            at += word == 0xFFFF ? 1 : 2;
            continue;
        }
        if (isAnyFrameHeader(word) && frame.word == 0) {
            if (file.wordAt(at + 2) != 8 + 3 * file.byteAt(at + 9)) break; // refused by its length alone
            frame = readFrame(file, at);
            cost = priceOf(frame, keepsCoefficients(frame, frame.components));
        }
        if (word == jpeg::SOS && ++scans == 1 && frame.word != 0)
            cost = priceOf(frame, keepsCoefficients(frame, file.byteAt(at + 4)));
        if (isKeptNote(word)) ++notes;
        at += 2 + quint64(std::max<quint16>(file.wordAt(at + 2), 2));
    }
    cost.scans = scans;
    cost.keptNotes = notes;
    return cost;
}

QString refusal(const JpegCost &cost, quint64 fileBytes, quint64 memory)
{
    const quint64 hopedFor = kMemoryForAnyFile + kMemoryForAByte * fileBytes;
    if (cost.memory > std::min(memory, hopedFor)) {
        return QStringLiteral("the header claims %1 x %2 pixels, more than there %3")
            .arg(cost.size.width())
            .arg(cost.size.height())
            .arg(cost.memory > memory ? QStringLiteral("is memory for") : QStringLiteral("can be in so short a file"));
    }
    if (cost.scans > kScansForAnyFile && cost.scans * cost.blocks > kBlockVisits)
        return QStringLiteral("the picture comes in %1 scans, more than any camera makes").arg(cost.scans);
    if (cost.keptNotes > kMostNotes)
        return QStringLiteral("%1 notes stand beside the picture, more than any program writes").arg(cost.keptNotes);
    return {};
}
