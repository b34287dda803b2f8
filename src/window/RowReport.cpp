#include "window/RowReport.h"

#include "engine/OutputRows.h"
#include "engine/SourceJudge.h"
#include "window/ReportText.h"
#include "window/RowWords.h"
#include "window/RunPlan.h"

#include <QIcon>
#include <QTreeWidgetItem>

#include <algorithm>
#include <memory>

using SharedOutcome = std::shared_ptr<const FileOutcome>;
Q_DECLARE_METATYPE(SharedOutcome)

namespace {

constexpr int kOutcome = Qt::UserRole + 16;
constexpr int kCompleteness = Qt::UserRole + 17;
constexpr int kShare = Qt::UserRole + 18;

bool isSource(const QTreeWidgetItem *row)
{
    return !row->parent();
}

bool isThumbnail(const QTreeWidgetItem *output)
{
    return output->data(column::Type, Qt::UserRole).toString() == QLatin1String("Thumbnail");
}

bool isSalvaged(const QTreeWidgetItem *output)
{
    return output->data(column::Type, Qt::UserRole).toString() == QLatin1String("Salvaged");
}

bool names(const RepairReport &report, const QString &output)
{
    if (report.salvage.name == output) return true;
    return std::any_of(report.outputs.begin(), report.outputs.end(),
                       [&](const OutputReport &o) { return QString(o.name).remove('/') == output; });
}

bool isBySample(const QTreeWidgetItem *output)
{
    const RepairReport *report = reportOf(output);
    if (!report) return false;
    return std::any_of(report->outputs.begin(), report->outputs.end(), [&](const OutputReport &o) {
        return o.way == RepairWay::Sample && QString(o.name).remove('/') == output->text(column::Name);
    });
}

/// Shows a picture of the file once more, beside what the file itself gave.
bool isSecondTry(const QTreeWidgetItem *output)
{
    return isSalvaged(output) || isBySample(output);
}

SharedOutcome withoutIcons(FileOutcome outcome)
{
    for (OutputReport &output : outcome.report.outputs) output.icon = QImage(); // the row has it
    outcome.report.salvage.icon = QImage();
    return std::make_shared<FileOutcome>(outcome);
}

/// What is known of a source once a sample was tried for it. Where other results of it stand, these are told of as before.
FileOutcome merged(const FileOutcome &earlier, const FileOutcome &sample)
{
    FileOutcome all = sample;
    all.report.salvage = earlier.report.salvage;
    QVector<OutputReport> kept;
    for (const OutputReport &output : earlier.report.outputs)
        if (!isThumbnailName(output.name) && !names(sample.report, QString(output.name).remove('/'))) kept << output;
    if (kept.isEmpty()) return all;
    all.report = earlier.report;
    all.report.outputs = kept + sample.report.outputs;
    all.report.reason = sample.report.reason;
    if (!sample.results.isEmpty()) all.report.tilesAlone = false;
    return all;
}

void setCells(QTreeWidgetItem *row, const QString &tip)
{
    for (int cell : {column::Name, column::Type, column::Resolution}) row->setToolTip(cell, tip);
}

void describeOutput(QTreeWidgetItem *output)
{
    const QString state = rowText(output);
    output->setIcon(column::Type, badge(foundInOutput(output)));
    const QString word = output->text(column::Type);
    output->setData(column::Type, Qt::AccessibleTextRole, state.isEmpty() ? word : word + QLatin1String(", ") + state);
    const FileOutcome *outcome = outcomeOf(output);
    if (!outcome) return;
    const QString done = isSalvaged(output) ? salvageText(outcome->report.salvage) : reportText(*outcome);
    setCells(output, state.isEmpty() || done.contains(state) ? done : state + QLatin1Char('\n') + done);
}

} // namespace

void keepReport(QTreeWidgetItem *source, const FileOutcome &outcome)
{
    const QVariant shared = QVariant::fromValue(withoutIcons(outcome));
    source->setData(column::Name, kOutcome, shared);
    for (int i = 0; i < source->childCount(); ++i) {
        QTreeWidgetItem *output = source->child(i);
        if (!reportOf(output) || names(outcome.report, output->text(column::Name)))
            output->setData(column::Name, kOutcome, shared);
    }
    describeRows(source);
}

void keepSampleReport(QTreeWidgetItem *source, const FileOutcome &outcome)
{
    if (outcome.report.reason == RepairReason::Stopped) return;
    const FileOutcome *earlier = outcomeOf(source);
    const FileOutcome all = earlier ? merged(*earlier, outcome) : outcome;
    keepReport(source, outcome);
    source->setData(column::Name, kOutcome, QVariant::fromValue(withoutIcons(all)));
    describeRows(source);
}

void keepWholeness(QTreeWidgetItem *output, const Wholeness &wholeness)
{
    output->setData(column::Name, kCompleteness, int(wholeness.completeness));
    output->setData(column::Name, kShare, wholeness.share);
}

const FileOutcome *outcomeOf(const QTreeWidgetItem *row)
{
    return row->data(column::Name, kOutcome).value<SharedOutcome>().get(); // the row itself holds it
}

const RepairReport *reportOf(const QTreeWidgetItem *row)
{
    const FileOutcome *outcome = outcomeOf(row);
    return outcome ? &outcome->report : nullptr;
}

Wholeness wholenessIn(const QTreeWidgetItem *output)
{
    return {Completeness(output->data(column::Name, kCompleteness).toInt()),
            output->data(column::Name, kShare).toDouble()};
}

Found foundInOutput(const QTreeWidgetItem *output)
{
    const RepairReport *report = reportOf(output);
    if (report && report->tilesAlone) return Found::Doubtful; // however whole the tiles are
    switch (wholenessIn(output).completeness) {
    case Completeness::Whole: return Found::Whole;
    case Completeness::Partial: return Found::Partial;
    case Completeness::Doubtful: return Found::Doubtful;
    case Completeness::Unjudged: break;
    }
    // The judge has no size for what doesn't decode; it is never asked about a HEIC.
    const bool refused = output->text(column::Resolution) == QLatin1String("0x0")
        && !output->text(column::Name).endsWith(QLatin1String(".heic"), Qt::CaseInsensitive);
    return refused ? Found::Nothing : Found::Unjudged;
}

void describeRows(QTreeWidgetItem *source)
{
    for (int i = 0; i < source->childCount(); ++i) describeOutput(source->child(i));
    const FileOutcome *outcome = outcomeOf(source);
    if (!outcome) return;
    const bool healthy = outcome->report.sourceHealthy;
    const QString name = source->text(column::Name);
    source->setIcon(column::Name, healthy ? badge(Found::Healthy) : QIcon());
    source->setData(column::Name, Qt::AccessibleTextRole,
                    healthy ? name + QLatin1String(", ") + rowText(source) : name);
    setCells(source, reportText(*outcome));
}

Found foundIn(const QTreeWidgetItem *source)
{
    const RepairReport *report = reportOf(source);
    if (report && report->sourceHealthy) return Found::Healthy;
    const bool raw = isRawSuffix(source->text(column::Path).section('.', -1));
    Found own = Found::Nothing;
    Found again = Found::Nothing;
    for (int i = 0; i < source->childCount(); ++i) {
        const QTreeWidgetItem *output = source->child(i);
        if (isThumbnail(output)) continue;
        const Found one = foundInOutput(output);
        if (isSecondTry(output))
            again = std::min(again, one);
        else if (own == Found::Nothing || raw)
            own = std::min(own, one);
        else
            own = std::max(own, one);
    }
    return std::min(own, again);
}

bool isOpenToSample(const QTreeWidgetItem *row)
{
    const QString code = row->text(column::Status);
    return code == QLatin1String(status::Invalid) || code == QLatin1String(status::StoppedSample)
        || code == QLatin1String(status::Queued);
}

bool wasSampleTried(const QTreeWidgetItem *source)
{
    const RepairReport *report = reportOf(source);
    if (report && report->reason == RepairReason::SampleUnfit) return true;
    for (int i = 0; i < source->childCount(); ++i)
        if (isBySample(source->child(i))) return true;
    return false;
}

bool mayTrySample(const QTreeWidgetItem *source)
{
    if (isOpenToSample(source)) return true;
    const QString suffix = source->text(column::Path).section('.', -1).toUpper();
    const RepairReport *report = reportOf(source);
    static const QStringList taken{"JPG", "JPEG", "HEIC"};
    if (!report || report->sourceHealthy || !taken.contains(suffix)) return false;
    const RepairReason reason = report->reason;
    if (reason != RepairReason::None && reason != RepairReason::DiskFull && !sampleMayHelp(*report)) return false;
    // A picture that is whole may have got the wrong colours from its sample, or be a smaller one from inside the file.
    const bool firstFound = std::any_of(report->outputs.begin(), report->outputs.end(),
                                        [](const OutputReport &o) { return o.way == RepairWay::SecondWay; });
    return foundIn(source) != Found::Whole || firstFound || wasSampleTried(source);
}

SampleName nameForSample(const QTreeWidgetItem *source)
{
    const QString told = workingName(source->text(column::Path));
    for (int i = 0; i < source->childCount(); ++i) {
        const QTreeWidgetItem *output = source->child(i);
        if (output->text(column::Name) != told) continue;
        const RepairReport *report = reportOf(output);
        return report && report->tilesAlone ? SampleName::Better : SampleName::Further;
    }
    return SampleName::Told;
}

bool holdsTilesAlone(const QTreeWidgetItem *source)
{
    const RepairReport *report = isSource(source) ? reportOf(source) : nullptr;
    return report && report->tilesAlone && source->childCount() > 0;
}
