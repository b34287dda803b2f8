// jpg_repair: the two ways for a JPEG whose header is lost, without help and with a healthy sample.

#include "app/StopFlag.h"
#include "engine/Markers.h"
#include "engine/OneFile.h"
#include "engine/Wholeness.h"
#include "engine/jpg_repair.h"
#include "save/ScratchFile.h"

#include <QFile>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// The scan header of a picture with three components: marker, length 12 and ten parameters (ITU-T T.81, B.2.3).
constexpr quint64 kScanHeader = 14;

void setCurrentFile(std::unique_ptr<FileWindow> file)
{
    delete pApp->pCurrentFile;
    pApp->pCurrentFile = file.release();
}

/// Bytes from `offset` to the file's end, as they are.
void copyTail(FileWindow &in, quint64 offset, FILE *out)
{
    std::vector<char> block(FileWindow::kBlockSize);
    for (quint64 at = offset; at < in.size() && !stopRequested();) {
        const quint64 part = std::min<quint64>(block.size(), in.size() - at);
        in.read(at, block.data(), qint64(part));
        writeBytes(out, block.data(), qint64(part));
        at += part;
    }
}

/// Closes what was built and asks the judge.
bool judgeBuilt(FILE *built, RepairWay way, const QString &name)
{
    if (!closeFile(built)) {
        dropFile(pApp->strBuiltPath); // a full disk: half a picture would pass for a repaired one
        return false;
    }
    const Verdict verdict = judgeJpeg(pApp->strBuiltPath);
    if (pApp->report.decoderWarning.isEmpty()) pApp->report.decoderWarning = verdict.warning();
    if (!verdict.decodes) {
        if (!verdict.stopped) pApp->report.decoderRefused = true;
        return false;
    }
    pApp->lstResultNames.append(name);
    const Wholeness wholeness = wholenessOf(pApp->strBuiltPath, verdict);
    if (way == RepairWay::Sample && looksUnfit(wholeness)) pApp->report.reason = RepairReason::SampleUnfit;
    pApp->report.outputs.append({name, pApp->strBuiltPath, way, verdict.size, verdict.icon, wholeness});
    return true;
}

bool isEntryPoint(quint16 word)
{
    return word == jpeg::DQT || word == jpeg::DHT || word == jpeg::APP0;
}

bool leadsToEntry(quint16 word)
{
    return word == jpeg::APP0 || word == jpeg::APP1 || word == jpeg::APP2 || word == jpeg::APP12 || word == jpeg::APP13;
}

struct Entry
{
    bool found = false;
    bool sawSegment = false;
    quint64 offset = 0;
};

/// The first usable segment that lies right behind one of the metadata segments.
Entry findEntry(FileWindow &file)
{
    Entry entry;
    const quint64 size = file.size();
    for (quint64 at = file.nextFF(2, size); at < size && !stopRequested();) {
        quint64 next = at + 1;
        if (leadsToEntry(file.wordAt(at))) {
            entry.sawSegment = true;
            const quint64 length = file.wordAt(at + 2);
            if (length < size) {
                if (isEntryPoint(file.wordAt(at + length + 2))) {
                    entry.found = true;
                    entry.offset = at + length + 2;
                    return entry;
                }
                next = at + length + 1;
            }
        }
        at = file.nextFF(next, size);
    }
    return entry;
}

/// The last place at or behind 2 where `word` stands.
Entry findLast(FileWindow &file, quint16 word)
{
    Entry entry;
    constexpr quint64 kFirst = 2;
    for (quint64 at = file.previousFF(file.size(), kFirst); at >= kFirst && !stopRequested();
         at = file.previousFF(at - 1, kFirst)) {
        if (file.wordAt(at) == word) {
            entry.found = true;
            entry.offset = at;
            break;
        }
        if (at == kFirst) break;
    }
    return entry;
}

bool isGrafted(quint16 word)
{
    return word == jpeg::DQT || word == jpeg::SOF0 || word == jpeg::DHT || word == jpeg::SOS;
}

bool isPassedOver(quint16 word)
{
    return word == jpeg::APP2 || word == jpeg::APP11 || word == jpeg::APP5 || word == jpeg::APP0 || word == jpeg::APP4;
}

/// Tables, frame and scan header of the sample, whole and in its order. A progressive sample gives no frame header, and a
/// restart interval is left behind.
void graftHeader(FileWindow &sample, FILE *out)
{
    if (sample.wordAt(2) != jpeg::APP1) return;
    const quint64 size = sample.size();
    for (quint64 at = sample.nextFF(quint64(sample.wordAt(4)) + 4, size); at < size && !stopRequested();
         at = sample.nextFF(at + 1, size)) {
        quint16 word = sample.wordAt(at);
        if (isPassedOver(word)) {
            const quint16 length = sample.wordAt(at + 2);
            at += 1 + quint64(length);
            word = length; // the code in hand is now the length itself, which is hardly ever one of the four below
        }
        if (!isGrafted(word)) continue;
        const quint16 length = sample.wordAt(at + 2);
        const quint8 marker[] = {quint8(word >> 8), quint8(word)};
        writeBytes(out, marker, sizeof marker);
        std::vector<quint8> segment(length);
        sample.read(at + 2, segment.data(), length);
        writeBytes(out, segment.data(), length);
        at += 1 + quint64(length);
        if (word == jpeg::SOS) return;
    }
}

constexpr quint8 kStart[] = {0xFF, 0xD8};

} // namespace

bool jpg_repair::reRepairing(const QString &path)
{
    auto file = std::make_unique<FileWindow>(path);
    if (!file->isOpen()) return false;
    FileWindow &in = *file;
    setCurrentFile(std::move(file));
    pApp->strFileName = QLatin1Char('/') + workingName(path);
    pApp->strBuiltPath = pApp->strTempDir + pApp->strFileName;

    Entry entry = findEntry(in);
    if (!entry.found && !entry.sawSegment) entry = findLast(in, jpeg::DQT);
    bool loads = false;
    if (entry.found) {
        if (FileGuard out = guarded(createOutput(pApp->strBuiltPath))) {
            writeBytes(out.get(), kStart, sizeof kStart);
            copyTail(in, entry.offset, out.get());
            loads = judgeBuilt(out.release(), RepairWay::SecondWay, pApp->strFileName);
        }
    }
    closeCurrentFile();
    return loads;
}

bool jpg_repair::ScanRefFile(const QString &samplePath, const QString &damagedPath)
{
    FileWindow sample(samplePath);
    auto file = std::make_unique<FileWindow>(damagedPath);
    const bool bothOpen = sample.isOpen() && file->isOpen();
    FileWindow &damaged = *file;
    setCurrentFile(std::move(file));
    pApp->strFileName = workingName(damagedPath);
    pApp->strBuiltPath = pApp->strTempDir + QLatin1Char('/') + pApp->strFileName;
    if (!damaged.isOpen()) pApp->report.reason = RepairReason::Unreadable;

    bool loads = false;
    if (FileGuard out = guarded(createOutput(pApp->strBuiltPath))) {
        if (bothOpen) {
            writeBytes(out.get(), kStart, sizeof kStart);
            graftHeader(sample, out.get());
        }
        const Entry scan = damaged.isOpen() ? findLast(damaged, jpeg::SOS) : Entry();
        if (scan.found && scan.offset + kScanHeader < damaged.size()) {
            copyTail(damaged, scan.offset + kScanHeader, out.get());
            loads = judgeBuilt(out.release(), RepairWay::Sample, pApp->strFileName);
        } else {
            // Nothing but a header. The decoder would make a grey picture of it, and nothing of it was the user's.
            closeFile(out.release());
        }
    }
    closeCurrentFile();
    return loads;
}
