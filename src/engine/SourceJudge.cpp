#include "engine/SourceJudge.h"

#include "app/StopFlag.h"
#include "engine/FileWindow.h"
#include "engine/OutputRows.h"
#include "engine/SameDecoding.h"
#include "engine/TrueFormat.h"
#include "engine/Wholeness.h"

#include <QFileInfo>

#include <algorithm>

namespace {

constexpr quint64 kStretch = 64 * 1024;

bool isJpeg(const QString &suffix)
{
    return formatFits(QStringLiteral("JPEG"), suffix);
}

/// A start of image with a marker behind it, or a table or frame whose first fields can be.
bool isHeaderMarker(FileWindow &file, quint64 at)
{
    const quint8 marker = file.byteAt(at + 1);
    if (marker == 0xD8) return file.byteAt(at + 2) == 0xFF && file.byteAt(at + 3) >= 0xC0;
    const int length = file.wordAt(at + 2);
    if (marker == 0xDB) return (length == 67 || length == 132 || length == 197) && file.byteAt(at + 4) < 4;
    if (marker == 0xC4) return length > 19 && length < 1024 && (file.byteAt(at + 4) & 0xEC) == 0;
    if (marker == 0xDA) return length == 6 + 2 * file.byteAt(at + 4) && length > 6 && length < 16;
    const bool frame = marker >= 0xC0 && marker <= 0xC2;
    return frame && file.byteAt(at + 4) == 8 && length == 8 + 3 * file.byteAt(at + 9) && length > 8;
}

/// Counts the FFs of one stretch and those that entropy data may have.
class Stretch
{
public:
    void take(quint8 next)
    {
        ++m_all;
        if (next == 0 || next == 0xFF || (next >= 0xD0 && next <= 0xD7) || next == 0xD9) ++m_fitting;
    }
    bool isEntropyData() const { return m_all >= 3 && m_fitting * 20 >= m_all * 19; }

private:
    int m_all = 0;
    int m_fitting = 0;
};

quint64 countZeros(FileWindow &file)
{
    quint64 zeros = 0;
    for (quint64 at = 0; at < file.size() && !stopRequested(); ++at)
        if (file.byteAt(at) == 0) ++zeros;
    return zeros;
}

/// True where the picture came through as the source has it, so that its output answers for it.
bool cameThroughUnchanged(FileWindow &file, const RepairReport &report)
{
    const bool touched = report.dqtReplaced || report.dhtReplaced || report.codesNeutralised || report.bytesSteppedOver
        || report.headerBroken || report.decoderRefused;
    const bool ended = file.size() > 1 && file.wordAt(file.size() - 2) == 0xFFD9;
    return !touched && ended && file.wordAt(0) == 0xFFD8
        && std::any_of(report.outputs.begin(), report.outputs.end(), [](const OutputReport &output) {
               return output.way == RepairWay::Main && !isThumbnailName(output.name)
                   && output.wholeness.completeness == Completeness::Whole;
           });
}

/// True where a whole picture came out that decodes as the source does: then the source needs no judge of its own.
bool cameThroughBehindOtherData(FileWindow &file, const RepairReport &report)
{
    return std::any_of(report.outputs.begin(), report.outputs.end(), [&file](const OutputReport &output) {
        if (output.wholeness.completeness != Completeness::Whole || isThumbnailName(output.name)) return false;
        FileWindow picture(output.path);
        return picture.isOpen() && decodesAlike(file, picture);
    });
}

bool opensAsItIs(FileWindow &file, const QString &path, const RepairReport &report)
{
    if (file.wordAt(0) != 0xFFD8) return false;
    if (cameThroughUnchanged(file, report) || cameThroughBehindOtherData(file, report)) return true;
    const Verdict verdict = judgeJpeg(path);
    return wholenessOf(path, verdict).completeness == Completeness::Whole;
}

/// Reasons that say what the disk or the person did, and not what the file is.
bool isAboutTheFile(RepairReason reason)
{
    switch (reason) {
    case RepairReason::Unreadable:
    case RepairReason::Empty:
    case RepairReason::TooLarge:
    case RepairReason::DiskFull:
    case RepairReason::Stopped: return false;
    default: return true;
    }
}

} // namespace

PictureData findPictureData(FileWindow &file)
{
    PictureData data;
    const quint64 size = file.size();
    Stretch stretch;
    quint64 end = kStretch;
    for (quint64 at = file.nextFF(0, size); at < size && !data.any; at = file.nextFF(at + 1, size)) {
        if (at >= end) {
            data.any = stretch.isEntropyData();
            stretch = Stretch();
            end = at + kStretch;
        }
        stretch.take(file.byteAt(at + 1));
        data.any = data.any || isHeaderMarker(file, at);
    }
    data.any = data.any || stretch.isEntropyData();
    if (!data.any && size > 0) data.zeroShare = double(countZeros(file)) / double(size);
    return data;
}

void judgeSource(const QString &path, bool gaveNothing, RepairReport &report)
{
    if (stopRequested() || !isAboutTheFile(report.reason)) return;
    FileWindow file(path);
    if (!file.isOpen() || file.size() == 0) return;
    const QString suffix = QFileInfo(path).suffix();
    const QString format = formatOfBytes(file);
    if (!formatFits(format, suffix)) report.trueFormat = format;
    if (isJpeg(suffix) && report.unreadableBytes == 0) report.sourceHealthy = opensAsItIs(file, path, report);
    if (!gaveNothing || stopRequested()) return;
    if (report.sourceHealthy) {
        report.reason = RepairReason::Healthy;
    } else if (!report.trueFormat.isEmpty()) {
        report.reason = RepairReason::OtherFormat;
    } else if (format.isEmpty()) {
        const PictureData data = findPictureData(file);
        // What a raw file or a HEIC holds beside JPEGs looks like random bytes.
        constexpr double kAsGoodAsEmpty = 0.99;
        if (data.any || (!isJpeg(suffix) && data.zeroShare < kAsGoodAsEmpty)) return;
        report.reason = RepairReason::NoPictureData;
        report.zeroShare = data.zeroShare;
    }
}

bool sampleMayHelp(const RepairReport &report)
{
    if (report.tilesAlone) return true;
    switch (report.reason) {
    case RepairReason::HeaderLost:
    case RepairReason::BoxesLost:
    case RepairReason::DecoderRefused:
    case RepairReason::SampleUnfit: return true;
    default: return false;
    }
}

bool deepSalvageMayHelp(const QString &path, const RepairReport &report)
{
    const bool jpeg = isJpeg(QFileInfo(path).suffix()) || report.trueFormat == QLatin1String("JPEG");
    if (!jpeg || report.sourceHealthy || report.salvage.ran || !report.salvage.passedOver.isEmpty()) return false;
    if (!report.trueFormat.isEmpty() && report.trueFormat != QLatin1String("JPEG")) return false;
    if (!isAboutTheFile(report.reason) || report.reason == RepairReason::NoPictureData) return false;
    const auto whole = [](const OutputReport &output) {
        return !isThumbnailName(output.name) && output.wholeness.completeness == Completeness::Whole;
    };
    return std::none_of(report.outputs.begin(), report.outputs.end(), whole);
}
