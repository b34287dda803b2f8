#include "engine/Wholeness.h"

#include "app/StopFlag.h"
#include "engine/FileWindow.h"
#include "engine/WholeFile.h"
#include "salvage/entropy/McuCount.h"

#include <algorithm>

namespace {

constexpr qint64 kFileLimit = qint64(256) << 20;

Wholeness fromCount(const salvage::McuCount &count)
{
    if (!count.counted) return {Completeness::Doubtful, kUncounted};
    // Wrong codes read on to the end, too, and come out there a few MCUs too early: what was cut off is rarely so little.
    constexpr double kCut = 0.98;
    if (count.missing && count.share() < kCut) return {Completeness::Partial, count.share()};
    if (count.missing) return {Completeness::Doubtful, count.share()};
    return {count.faulty ? Completeness::Doubtful : Completeness::Whole, count.share()};
}

/// True if a quantization table in front of the first scan has a zero, which no encoder may write and every decoder takes
/// (ITU-T T.81, B.2.4.1): the levels that it stands for are lost.
bool quantizesByZero(const QString &path)
{
    FileWindow file(path);
    for (quint64 at = 2; at + 4 < file.size() && file.byteAt(at) == 0xFF;) {
        const quint16 marker = file.wordAt(at);
        if (marker == 0xFFDA) break;
        const quint64 end = at + 2 + file.wordAt(at + 2);
        for (quint64 table = at + 4; marker == 0xFFDB && table < end;) {
            const int bytes = file.byteAt(table++) >> 4 ? 2 : 1;
            for (int i = 0; i < 64; ++i, table += quint64(bytes))
                if ((bytes == 2 ? file.wordAt(table) : file.byteAt(table)) == 0) return true;
        }
        at = end;
    }
    return false;
}

Wholeness ofScans(const QString &path, const Verdict &verdict)
{
    if (verdict.warnings.isEmpty() && !verdict.severalScans) return {Completeness::Whole, 1};
    const QByteArray file = readWhole(path, kFileLimit);
    if (verdict.warnings.isEmpty()) {
        const bool complete = file.isNull() || salvage::scansAreComplete(salvage::view(file));
        return {complete ? Completeness::Whole : Completeness::Doubtful, 1};
    }
    salvage::Budget budget(stopRequested);
    return fromCount(file.isNull() ? salvage::McuCount() : salvage::countMcus(salvage::view(file), budget));
}

} // namespace

Wholeness wholenessOf(const QString &path, const Verdict &verdict)
{
    if (!verdict.decodes) return {};
    Wholeness wholeness = ofScans(path, verdict);
    if (wholeness.completeness == Completeness::Whole && quantizesByZero(path))
        wholeness.completeness = Completeness::Doubtful;
    return wholeness;
}

void lessen(Wholeness &wholeness, quint64 refused, quint64 bytes)
{
    if (refused == 0 || bytes == 0 || wholeness.completeness == Completeness::Unjudged) return;
    wholeness.completeness = Completeness::Partial;
    wholeness.share = std::min(wholeness.share, 1 - double(std::min(refused, bytes)) / double(bytes));
}

bool looksUnfit(const Wholeness &wholeness)
{
    constexpr double kNoise = 0.05;
    const bool whole = wholeness.completeness == Completeness::Whole;
    return !whole && wholeness.completeness != Completeness::Unjudged && wholeness.share >= 0
        && wholeness.share < kNoise;
}
