#include "engine/Wholeness.h"

#include "app/StopFlag.h"
#include "engine/WholeFile.h"
#include "salvage/entropy/McuCount.h"

namespace {

constexpr qint64 kFileLimit = qint64(256) << 20;

Wholeness fromCount(const salvage::McuCount &count)
{
    if (!count.counted) return {Completeness::Doubtful, kUncounted};
    if (count.missing) return {Completeness::Partial, count.share()};
    return {count.faulty ? Completeness::Doubtful : Completeness::Whole, count.share()};
}

} // namespace

Wholeness wholenessOf(const QString &path, const Verdict &verdict)
{
    if (!verdict.decodes) return {};
    if (verdict.warnings.isEmpty() && !verdict.severalScans) return {Completeness::Whole, 1};
    const QByteArray file = readWhole(path, kFileLimit);
    if (verdict.warnings.isEmpty()) {
        const bool complete = file.isNull() || salvage::scansAreComplete(salvage::view(file));
        return {complete ? Completeness::Whole : Completeness::Doubtful, 1};
    }
    salvage::Budget budget(stopRequested);
    return fromCount(file.isNull() ? salvage::McuCount() : salvage::countMcus(salvage::view(file), budget));
}

bool looksUnfit(const Wholeness &wholeness)
{
    constexpr double kNoise = 0.05;
    const bool whole = wholeness.completeness == Completeness::Whole;
    return !whole && wholeness.completeness != Completeness::Unjudged && wholeness.share >= 0
        && wholeness.share < kNoise;
}
