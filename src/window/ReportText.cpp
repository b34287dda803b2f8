#include "window/ReportText.h"

#include "engine/OneFile.h"
#include "engine/SourceJudge.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("ReportText", text);
}

/// The number stands behind a colon, so that the words have one form for all numbers.
QString counted(const char *text, int count)
{
    return translated(text).replace(QLatin1String("%n"), QString::number(count));
}

QString wayText(RepairWay way)
{
    switch (way) {
    case RepairWay::Main: return translated(QT_TRANSLATE_NOOP("ReportText", "rebuilt from its segments"));
    case RepairWay::Nested: return translated(QT_TRANSLATE_NOOP("ReportText", "an image inside the file"));
    case RepairWay::SecondWay:
        return translated(QT_TRANSLATE_NOOP("ReportText", "rebuilt from the first usable segment"));
    case RepairWay::Sample: return translated(QT_TRANSLATE_NOOP("ReportText", "rebuilt with the header of the sample"));
    case RepairWay::Pointers: return translated(QT_TRANSLATE_NOOP("ReportText", "found through the file's own index"));
    case RepairWay::Carve: return translated(QT_TRANSLATE_NOOP("ReportText", "found by searching the file"));
    case RepairWay::Rewrite: return translated(QT_TRANSLATE_NOOP("ReportText", "its index was written anew"));
    }
    return {};
}

QString reasonWords(RepairReason reason)
{
    switch (reason) {
    case RepairReason::None: return {};
    case RepairReason::Unreadable: return translated(QT_TRANSLATE_NOOP("ReportText", "The file can't be read."));
    case RepairReason::Empty: return translated(QT_TRANSLATE_NOOP("ReportText", "The file is empty."));
    case RepairReason::TooLarge: return translated(QT_TRANSLATE_NOOP("ReportText", "The file is too large."));
    case RepairReason::OtherFormat:
        return translated(QT_TRANSLATE_NOOP("ReportText", "The file isn't of a format that can be repaired."));
    case RepairReason::HeaderLost:
        return translated(
            QT_TRANSLATE_NOOP("ReportText", "The header is lost. A sample from the same camera may help."));
    case RepairReason::DecoderRefused:
        return translated(QT_TRANSLATE_NOOP("ReportText", "What could be rebuilt doesn't open as a picture."));
    case RepairReason::NoPreview:
        return translated(QT_TRANSLATE_NOOP("ReportText", "The file holds no preview picture."));
    case RepairReason::TilesUnknown:
        return translated(QT_TRANSLATE_NOOP("ReportText", "The number of image tiles isn't one of the known ones."));
    case RepairReason::BoxesLost:
        return translated(
            QT_TRANSLATE_NOOP("ReportText", "The index is lost. A sample from the same camera may help."));
    case RepairReason::DiskFull:
        return translated(QT_TRANSLATE_NOOP("ReportText", "The disk is full or can't be written."));
    case RepairReason::Stopped:
        return translated(QT_TRANSLATE_NOOP("ReportText", "Stopped before this file was done."));
    case RepairReason::Healthy: return translated(QT_TRANSLATE_NOOP("ReportText", "It opens as it is."));
    case RepairReason::NoPictureData:
        return translated(QT_TRANSLATE_NOOP("ReportText", "The file holds no picture data."));
    case RepairReason::SampleUnfit:
        return translated(QT_TRANSLATE_NOOP("ReportText", "The sample doesn't fit this file."));
    }
    return {};
}

/// The words of a report of deep salvage, and what they are called for a person.
constexpr struct
{
    const char *word;
    const char *text;
} kSalvageWords[] = {
    {"transfer undone", QT_TRANSLATE_NOOP("ReportText", "text transfer undone")},
    {"scan found", QT_TRANSLATE_NOOP("ReportText", "picture data found")},
    {"frame mended", QT_TRANSLATE_NOOP("ReportText", "frame mended")},
    {"interval found", QT_TRANSLATE_NOOP("ReportText", "restart interval found")},
    {"tables known", QT_TRANSLATE_NOOP("ReportText", "Huffman tables taken from known ones")},
    {"counts mended", QT_TRANSLATE_NOOP("ReportText", "Huffman counts mended")},
    {"symbols searched", QT_TRANSLATE_NOOP("ReportText", "Huffman symbols found")},
    {"size found", QT_TRANSLATE_NOOP("ReportText", "size found")},
    {"quantization", QT_TRANSLATE_NOOP("ReportText", "quantization tables mended")},
    {"codes mended", QT_TRANSLATE_NOOP("ReportText", "illegal codes mended")},
    {"hits repaired", QT_TRANSLATE_NOOP("ReportText", "hit bytes repaired")},
    {"interval resynchronised", QT_TRANSLATE_NOOP("ReportText", "restart intervals put in place")},
    {"realigned", QT_TRANSLATE_NOOP("ReportText", "shifted parts moved back")},
    {"exact", QT_TRANSLATE_NOOP("ReportText", "exact")},
    {"likely", QT_TRANSLATE_NOOP("ReportText", "likely")},
    {"guess", QT_TRANSLATE_NOOP("ReportText", "a guess")},
};

QString salvageWord(const QString &word)
{
    for (const auto &[known, text] : kSalvageWords)
        if (word == QLatin1String(known)) return translated(text);
    return word;
}

} // namespace

QString wholenessWords(const Wholeness &wholeness)
{
    const int percent = std::clamp(int(wholeness.share * 100), 1, 99);
    switch (wholeness.completeness) {
    case Completeness::Unjudged: break;
    case Completeness::Whole: return translated(QT_TRANSLATE_NOOP("ReportText", "The picture is whole."));
    case Completeness::Partial:
        return translated(QT_TRANSLATE_NOOP("ReportText", "Only part of the picture is there (about %1 %)."))
            .arg(percent);
    case Completeness::Doubtful:
        return translated(QT_TRANSLATE_NOOP("ReportText", "The picture is doubtful: parts of it may be wrong."));
    }
    return {};
}

QString salvageText(const SalvageReport &salvage)
{
    if (!salvage.passedOver.isEmpty())
        return translated(QT_TRANSLATE_NOOP("ReportText", "The file is too large for deep salvage."));
    if (!salvage.ran) return {};
    if (salvage.name.isEmpty())
        return translated(QT_TRANSLATE_NOOP("ReportText", "Deep salvage found nothing better."));
    const QString certainty = salvageWord(salvage.certainty);
    if (salvage.steps.isEmpty()) return translated(QT_TRANSLATE_NOOP("ReportText", "Salvaged (%1)")).arg(certainty);
    QStringList steps;
    for (const QString &step : salvage.steps) steps << salvageWord(step);
    return translated(QT_TRANSLATE_NOOP("ReportText", "Salvaged: %1 (%2)"))
        .arg(steps.join(QLatin1String(", ")), certainty);
}

QStringList adviceLines(const FileOutcome &outcome)
{
    QStringList lines;
    const RepairReport &report = outcome.report;
    if (report.tilesAlone)
        lines << translated(QT_TRANSLATE_NOOP(
            "ReportText",
            "Only the image tiles are there, which nothing opens. A sample from the same camera may help."));
    if (deepSalvageMayHelp(outcome.source, report))
        lines << translated(QT_TRANSLATE_NOOP("ReportText", "Deep salvage may bring back more."));
    return lines;
}

QString reportText(const FileOutcome &outcome)
{
    const RepairReport &report = outcome.report;
    QStringList lines;
    if (report.sourceHealthy) lines << reasonWords(RepairReason::Healthy);
    if (!report.trueFormat.isEmpty())
        lines << translated(QT_TRANSLATE_NOOP("ReportText", "Its bytes are of another format than its name says: %1."))
                     .arg(report.trueFormat);
    if (!report.outputs.isEmpty()) {
        if (report.dqtReplaced > 0)
            lines << counted(QT_TRANSLATE_NOOP("ReportText", "Quantization tables replaced: %n"), report.dqtReplaced);
        if (report.dhtReplaced > 0)
            lines << counted(QT_TRANSLATE_NOOP("ReportText", "Huffman tables replaced: %n"), report.dhtReplaced);
        if (report.codesNeutralised > 0)
            lines << translated(QT_TRANSLATE_NOOP("ReportText", "Illegal bytes of the picture data neutralised: %1"))
                         .arg(report.codesNeutralised);
        if (report.bytesSteppedOver > 0)
            lines << translated(QT_TRANSLATE_NOOP("ReportText", "Bytes stepped over: %1")).arg(report.bytesSteppedOver);
        for (const OutputReport &output : report.outputs)
            lines << QFileInfo(output.name).fileName() + QLatin1String(": ") + wayText(output.way);
    }
    const QString why = reasonWords(report.reason);
    if (!lines.contains(why) && !why.isEmpty()) lines << why;
    const QString salvaged = salvageText(report.salvage);
    if (!salvaged.isEmpty()) lines << salvaged;
    lines << adviceLines(outcome);
    if (lines.isEmpty()) lines << translated(QT_TRANSLATE_NOOP("ReportText", "Nothing came out of this file."));
    return lines.join('\n');
}

QString runSummary(quint32 invalid, quint32 thumbnailsAbsent)
{
    QString text;
    if (invalid != 0)
        text = QStringLiteral("\n%1 Invalid File%2").arg(invalid).arg(QLatin1String(invalid == 1 ? "" : "s"));
    if (thumbnailsAbsent != 0)
        text = QStringLiteral("\n%1 Thumbnail%2 Absent")
                   .arg(thumbnailsAbsent)
                   .arg(QLatin1String(thumbnailsAbsent == 1 ? "" : "s"));
    return text;
}
