#include "window/RowWords.h"

#include "engine/OutputRows.h"
#include "engine/SourceJudge.h"
#include "window/ReportText.h"
#include "window/RunPlan.h"

#include <QCoreApplication>
#include <QDir>
#include <QIcon>
#include <QTreeWidgetItem>

#include <algorithm>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(RowWords)
};

QString sampleAdvice(const QTreeWidgetItem *source)
{
    if (!isOpenToSample(source) && !holdsTilesAlone(source))
        return Words::tr("Next: press \"%1\" and give a healthy photo from the same camera.").arg(sampleWords(source));
    return Words::tr("Next: press \"%1\" in its row and give a healthy photo from the same camera.")
        .arg(QCoreApplication::translate("BrowseRepair", "Advance Repair"));
}

QString otherSampleAdvice()
{
    return Words::tr("Next: try another healthy photo from the same camera, of the same size.");
}

QString nothingHelps()
{
    return Words::tr("Next: nothing here helps; look for another copy of the file.");
}

QString adviceForNothing(const RepairReport &report, const QTreeWidgetItem *source)
{
    switch (report.reason) {
    case RepairReason::Unreadable:
        return Words::tr("Next: see that the file is still there and can be read, then repair it again.");
    case RepairReason::DiskFull: return Words::tr("Next: free some space, then repair it again.");
    case RepairReason::Stopped: return Words::tr("Next: go back and repair it again.");
    case RepairReason::NoPreview:
        return Words::tr("Next: nothing here helps; a program for raw photos may still open the file.");
    case RepairReason::Empty:
    case RepairReason::NoPictureData:
    case RepairReason::TooLarge:
    case RepairReason::TilesUnknown: return nothingHelps();
    case RepairReason::OtherFormat:
        if (report.trueFormat.isEmpty()) return nothingHelps();
        return Words::tr("Next: give a copy of it the suffix of that format, and repair the copy.");
    default: break;
    }
    const bool unfit = report.reason == RepairReason::SampleUnfit;
    if (mayTrySample(source) && (unfit || sampleMayHelp(report)))
        return unfit ? otherSampleAdvice() : sampleAdvice(source);
    return deepSalvageMayHelp(source->text(column::Path), report) ? QString() : nothingHelps();
}

QString typeLine(const QTreeWidgetItem *output)
{
    const QString type = output->data(column::Type, Qt::UserRole).toString();
    if (type == QLatin1String("Thumbnail")) return Words::tr("A thumbnail: a small picture beside the photo.");
    if (type == QLatin1String("Extracted"))
        return Words::tr("The camera's own preview; the raw data beside it aren't repaired.");
    return {};
}

QString sourceText(const FileOutcome &outcome)
{
    const RepairReport &report = outcome.report;
    if (report.sourceHealthy) return reportText(outcome).section('\n', 0, 0);
    const bool smallOnes = std::all_of(report.outputs.begin(), report.outputs.end(),
                                       [](const OutputReport &output) { return isThumbnailName(output.name); });
    if (report.outputs.isEmpty() || !smallOnes || !report.salvage.name.isEmpty()) return {};
    return Words::tr("The picture itself didn't come out; what did are smaller ones that were inside the file.");
}

} // namespace

QString rowText(const QTreeWidgetItem *row)
{
    const FileOutcome *outcome = outcomeOf(row);
    if (!row->parent()) return outcome ? sourceText(*outcome) : QString();
    if (outcome && outcome->report.tilesAlone) return adviceLines(*outcome).first();
    if (foundInOutput(row) == Found::Nothing) return Words::tr("It doesn't open as a picture.");
    return wholenessWords(wholenessIn(row));
}

QString adviceText(const QTreeWidgetItem *row)
{
    const QTreeWidgetItem *source = row->parent() ? row->parent() : row;
    const RepairReport *report = reportOf(source);
    if (!report) return {};
    if (holdsTilesAlone(source)) return sampleAdvice(source);
    switch (foundIn(source)) {
    case Found::Healthy: return Words::tr("Nothing needs to be done about it.");
    case Found::Whole: return Words::tr("Next: save it. Nothing more needs to be done.");
    case Found::Unjudged: return Words::tr("Next: look at the picture before you save it.");
    case Found::Nothing: return adviceForNothing(*report, source);
    case Found::Partial:
    case Found::Doubtful: break;
    }
    const bool bySample = std::any_of(report->outputs.begin(), report->outputs.end(),
                                      [](const OutputReport &o) { return o.way == RepairWay::Sample; });
    if (bySample || report->reason == RepairReason::SampleUnfit) return otherSampleAdvice();
    if (deepSalvageMayHelp(source->text(column::Path), *report)) return {};
    return Words::tr("Next: look at the picture before you save it; no way is left to find more of it.");
}

QStringList detailLines(const QTreeWidgetItem *row)
{
    const FileOutcome *outcome = outcomeOf(row);
    QStringList lines;
    if (row->parent()) lines << typeLine(row);
    lines << rowText(row);
    if (outcome && row->parent() && lines.last().isEmpty())
        lines << Words::tr("How much of the picture is there isn't known.");
    if (outcome) {
        const bool salvaged = row->parent() && outcome->report.salvage.name == row->text(column::Name);
        const QStringList done = (salvaged ? salvageText(outcome->report.salvage) : reportText(*outcome)).split('\n');
        // Why nothing came out stands in front of what to do about it; what was mended, behind.
        if (outcome->report.reason != RepairReason::None) lines << done;
        lines << adviceLines(*outcome) << adviceText(row) << done;
    }
    const QTreeWidgetItem *source = row->parent() ? row->parent() : row;
    lines << Words::tr("Source: %1").arg(QDir::toNativeSeparators(source->text(column::Path)));
    lines.removeAll(QString());
    lines.removeDuplicates();
    return lines;
}

QIcon badge(Found found)
{
    switch (found) {
    case Found::Healthy: return QIcon(QStringLiteral(":/res/badge-healthy.png"));
    case Found::Whole: return QIcon(QStringLiteral(":/res/badge-whole.png"));
    case Found::Partial: return QIcon(QStringLiteral(":/res/badge-partial.png"));
    case Found::Doubtful: return QIcon(QStringLiteral(":/res/badge-doubtful.png"));
    case Found::Unjudged:
    case Found::Nothing: break;
    }
    return {};
}

QString sampleWords(const QTreeWidgetItem *source)
{
    return wasSampleTried(source) ? Words::tr("Try another sample") : Words::tr("Try a sample");
}
