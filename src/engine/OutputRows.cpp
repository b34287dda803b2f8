#include "engine/OutputRows.h"

#include "app/StopFlag.h"
#include "engine/Wholeness.h"
#include "engine/heic/HeicRoad.h"

#include <QFileInfo>

#include <algorithm>

namespace {

bool holdsImageNumber(const QString &name, int first, int last, Qt::CaseSensitivity sensitivity)
{
    for (int number = first; number <= last; ++number)
        if (name.contains(QStringLiteral("_[T%1]").arg(number), sensitivity)) return true;
    return false;
}

QString withoutSlashes(QString name)
{
    return name.remove(QLatin1Char('/'));
}

/// The place that the kind of the output has, and behind it the places where writers have been seen to put it.
QStringList places(const QString &name)
{
    const QString plain = withoutSlashes(name);
    const QString own = pApp->strTempDir + plain;
    const QString thumbnail = pApp->strTempDir + QLatin1String("Thumbnail Repaired/") + plain;
    if (isHeicName(plain)) return {heicFolder() + plain, own};
    const QString secondThumbnail = pApp->strTempDir + QLatin1String("Thumbnail Repaired") + plain;
    if (holdsImageNumber(plain, 1, 4, Qt::CaseInsensitive)) return {thumbnail, secondThumbnail, own};
    return {own, thumbnail};
}

const OutputReport *reported(const FileOutcome &outcome, const QString &name)
{
    const auto &outputs = outcome.report.outputs;
    const auto found =
        std::find_if(outputs.begin(), outputs.end(), [&](const OutputReport &o) { return o.name == name; });
    return found == outputs.end() ? nullptr : &*found;
}

/// Name, place and resolution of an output; `width` gets the width of its picture.
OutputRow plainRow(const FileOutcome &outcome, const QString &name, int &width)
{
    OutputRow row;
    row.name = withoutSlashes(name);
    const OutputReport *output = reported(outcome, name);
    row.path = output && QFileInfo::exists(output->path) ? output->path : outputPath(name);
    if (output) row.wholeness = output->wholeness;
    QSize size(0, 0);
    if (output && output->size.isValid()) {
        size = output->size;
        row.icon = output->icon;
    } else {
        const Verdict verdict = judgeJpeg(row.path);
        size = verdict.size;
        row.icon = verdict.icon;
        row.wholeness = wholenessOf(row.path, verdict);
    }
    row.resolution = QStringLiteral("%1x%2").arg(size.height()).arg(size.width());
    width = size.width();
    return row;
}

OutputRow rowFor(const FileOutcome &outcome, const QString &name)
{
    int width = 0;
    OutputRow row = plainRow(outcome, name, width);
    row.thumbnail = isThumbnailName(name);
    row.type = QLatin1String(row.thumbnail ? "Thumbnail" : "Repaired");
    return row;
}

void label(OutputRow &row, const char *type)
{
    row.type = QLatin1String(type);
    row.statusCode = QLatin1String(status::Output);
    row.thumbnail = row.type == QLatin1String("Thumbnail");
}

void rankTwo(QVector<OutputRow> &rows, const QVector<int> &widths)
{
    label(rows[0], "Extracted");
    label(rows[1], widths[0] == widths[1] ? "Extracted" : "Thumbnail");
    // The rows change places in meaning alone: names, files and order stay where they are.
    if (widths[0] < widths[1]) std::swap(rows[0].resolution, rows[1].resolution);
}

void rankThree(QVector<OutputRow> &rows, const QVector<int> &widths)
{
    if (widths[1] >= widths[0] || widths[2] >= widths[0]) return; // the first two keep what they were called as a pair
    label(rows[0], "Extracted");
    label(rows[1], "Thumbnail");
    label(rows[2], "Thumbnail");
}

/// Adds the row of a raw file's next output and calls the rows by their pictures' widths.
void appendRawRow(const FileOutcome &outcome, const QString &name, QVector<OutputRow> &rows, QVector<int> &widths)
{
    int width = 0;
    OutputRow row = plainRow(outcome, name, width);
    row.statusCode = QLatin1String(status::Unreached);
    rows.append(row);
    widths.append(width);
    if (rows.size() == 1) label(rows[0], "Extracted");
    if (rows.size() == 2) rankTwo(rows, widths);
    if (rows.size() == 3) rankThree(rows, widths);
}

/// The row of a salvaged picture, which comes behind all others and changes none of them.
OutputRow salvagedRow(const SalvageReport &salvage)
{
    OutputRow row;
    row.name = salvage.name;
    row.type = QStringLiteral("Salvaged");
    row.path = salvage.path;
    row.resolution = QStringLiteral("%1x%2").arg(salvage.size.height()).arg(salvage.size.width());
    row.icon = salvage.icon;
    row.wholeness = salvage.wholeness;
    return row;
}

/// The decoder takes no HEIC, so nothing is loaded: a size of nothing stands, but where the suffix has its usual form.
OutputRow heicRow(const FileOutcome &outcome, const QString &name)
{
    OutputRow row;
    row.name = withoutSlashes(name);
    row.type = QStringLiteral("Repaired");
    row.path = outputPath(name);
    if (const OutputReport *output = reported(outcome, name)) row.wholeness = output->wholeness;
    if (outcome.suffix != QLatin1String("HEIC")) row.resolution = QStringLiteral("0x0");
    return row;
}

OutputRows heicRows(const FileOutcome &outcome)
{
    OutputRows out;
    out.sourceStatus = outcome.statusCode;
    for (const QString &name : outcome.results) {
        OutputRow row = heicRow(outcome, name);
        if (out.rows.isEmpty()) {
            out.sourceStatus = QLatin1String(status::Repaired);
        } else {
            row.type.clear(); // the first one alone is named and marked
            row.statusCode.clear();
        }
        out.rows.append(row);
    }
    return out;
}

} // namespace

bool isThumbnailName(const QString &name)
{
    return holdsImageNumber(name, 1, 4, Qt::CaseSensitive);
}

QString outputPath(const QString &name)
{
    for (const QString &path : places(name))
        if (QFileInfo::exists(path)) return path;
    return QString();
}

QString destinationPlace(const QString &name)
{
    const QString plain = withoutSlashes(name);
    if (isHeicName(plain)) return QLatin1String("HEIC_Repaired/") + plain;
    return holdsImageNumber(plain, 1, 3, Qt::CaseInsensitive) ? QLatin1String("Thumbnail Repaired/") + plain : plain;
}

OutputRows makeRows(const FileOutcome &outcome)
{
    OutputRows out;
    out.sourceStatus = outcome.statusCode;
    if (outcome.statusCode == QLatin1String(status::Stopped)) return out;
    if (isHeicName(outcome.source)) return heicRows(outcome);
    // With a thumbnail in front the main image, if any, came last: the list is then read backwards.
    QStringList names = outcome.results;
    if (!names.isEmpty() && names.first().contains(QLatin1String("_[T1]"))) std::reverse(names.begin(), names.end());
    const bool raw = isRawSuffix(outcome.suffix);
    QVector<int> widths;
    for (const QString &name : qAsConst(names)) {
        if (stopRequested()) {
            out.sourceStatus = QLatin1String(status::Stopped);
            return out;
        }
        if (raw) {
            appendRawRow(outcome, name, out.rows, widths);
            out.sourceStatus = QLatin1String(status::Repaired);
            continue;
        }
        if (name.contains(QLatin1String("_[T4]"))) continue; // made and listed, but never offered
        const OutputRow row = rowFor(outcome, name);
        if (!row.thumbnail) out.sourceStatus = QLatin1String(status::Repaired);
        out.rows.append(row);
    }
    if (!outcome.report.salvage.name.isEmpty()) out.rows.append(salvagedRow(outcome.report.salvage));
    return out;
}

OutputRows makeSampleRows(const FileOutcome &outcome)
{
    OutputRows out;
    out.sourceStatus = outcome.statusCode;
    if (outcome.statusCode != QLatin1String(status::Stopped) && isHeicName(outcome.source)) {
        out = heicRows(outcome);
        for (OutputRow &row : out.rows) row.resolution.clear(); // nothing looks for a size here
        return out;
    }
    const QStringList offered = {QStringLiteral("JPEG"), QStringLiteral("JPG"), QStringLiteral("jpg"),
                                 QStringLiteral("jpeg")};
    if (outcome.statusCode == QLatin1String(status::Stopped) || outcome.results.isEmpty()
        || !offered.contains(outcome.suffix))
        return out;
    const OutputRow row = rowFor(outcome, outcome.results.first());
    if (!row.thumbnail) out.sourceStatus = QLatin1String(status::Repaired);
    out.rows.append(row);
    return out;
}
