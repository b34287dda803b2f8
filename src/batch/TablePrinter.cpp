#include "batch/Printer.h"
#include "batch/Words.h"

#include <algorithm>

namespace {

constexpr int kWidestName = 60;
constexpr int kTypeWidth = 11;
constexpr int kResolutionWidth = 12;

QString reasonLine(RepairReason reason, const QString &trueFormat)
{
    if (reason == RepairReason::OtherFormat && !trueFormat.isEmpty())
        return QStringLiteral("Its bytes are of another format than its name says: %1.").arg(trueFormat);
    const QString text = reasonText(reason);
    return text.isEmpty() ? QStringLiteral("Nothing usable was found.") : text;
}

QString reasonLine(const RepairReport &report)
{
    const QString line = reasonLine(report.reason, report.trueFormat);
    if (report.reason != RepairReason::NoPictureData || report.zeroShare <= 0) return line;
    return line + QStringLiteral(" %1 % of it are zeros.").arg(int(report.zeroShare * 100));
}

/// How a salvaged picture came about, and how sure it is.
QString salvagedText(const RepairReport &report)
{
    return report.salvage.steps.join(QStringLiteral(", ")) + " (" + report.salvage.certainty + ')';
}

/// How much of the picture is there, and of a salvaged one how it came about.
QString rowText(const OutputRow &row, const RepairReport &report)
{
    const QString whole = wholenessText(row.wholeness);
    if (row.type != "Salvaged") return whole;
    return whole.isEmpty() ? salvagedText(report) : whole + "; " + salvagedText(report);
}

class TablePrinter : public Printer
{
public:
    explicit TablePrinter(QTextStream &out) : m_out(out) {}

    // Names of outputs are about as long as those of their sources, so the width is known before the first result.
    void begin(const QStringList &sources) override
    {
        for (const QString &source : sources) m_nameWidth = std::max(m_nameWidth, printable(source).size() + 2);
        m_nameWidth = std::min(m_nameWidth, kWidestName);
        line("File", "Type", "Resolution", "What was done");
    }

    void beginSamplePass(const QString &sample) override
    {
        m_out << "\nWith the sample " << printable(sample) << ":\n";
    }

    void result(const SourceResult &result) override
    {
        const RepairReport &report = result.outcome.report;
        QString mended = mendedText(report);
        if (!result.gaveSomething()) {
            mended = mended.isEmpty() ? reasonLine(report) : reasonLine(report) + " (" + mended + ')';
        } else if (report.sourceHealthy || report.reason == RepairReason::SampleUnfit) {
            const auto first = report.sourceHealthy ? RepairReason::Healthy : report.reason;
            mended = mended.isEmpty() ? reasonText(first) : reasonText(first) + ' ' + mended;
        }
        line(result.outcome.source, stateWord(result), {}, mended);
        for (const OutputRow &row : result.rows.rows)
            line("  " + row.name, row.type, row.resolution, rowText(row, report));
        for (const QString &name : result.readable) line("  " + name, "Readable", {}, {});
    }

    void saved(const SaveOutcome &outcome) override
    {
        const auto count = [&outcome](SaveResult wanted) {
            return std::count_if(outcome.rows.begin(), outcome.rows.end(),
                                 [wanted](const SavedRow &row) { return row.result == wanted; });
        };
        const auto identical = count(SaveResult::Identical);
        m_out << "\nSaved to " << printable(outcome.folder) << ": " << count(SaveResult::Saved) << " saved, "
              << count(SaveResult::Skipped) << " skipped, ";
        if (identical > 0) m_out << identical << " identical, ";
        m_out << count(SaveResult::Failed) << " failed.\n";
        for (const SavedRow &row : outcome.rows) {
            if (row.result == SaveResult::Skipped)
                m_out << "  " << printable(row.name) << ": skipped, as another file has its name\n";
            if (row.result == SaveResult::Identical) m_out << "  " << printable(row.name) << ": identical\n";
        }
        const auto withData =
            std::count_if(outcome.rows.begin(), outcome.rows.end(), [](const SavedRow &row) { return row.cameraData; });
        if (withData > 0) m_out << "The camera's data were put back into " << withData << " of them.\n";
    }

    void end(const RunSummary &summary) override
    {
        const int failed = summary.failed.size();
        const int outputs = summary.repaired + summary.extracted + summary.thumbnails;
        m_out << "\nSources: " << summary.sources << ", " << summary.sources - failed << " gave something, " << failed
              << " gave nothing, " << summary.passedOver << " passed over.\n";
        m_out << "Results: " << outputs << ", " << summary.repaired << " repaired, " << summary.extracted
              << " extracted, " << summary.thumbnails << " thumbnails";
        if (summary.salvaged > 0) m_out << "; beside them " << summary.salvaged << " salvaged";
        m_out << ".\n";
        m_out << "Of the pictures " << summary.whole << " are whole, " << summary.inPart << " there in part, "
              << summary.doubtful << " doubtful; " << summary.healthy << " sources open as they are.\n";
        if (failed == 0) return;
        m_out << "Nothing came of:\n";
        for (const FailedSource &each : summary.failed) {
            m_out << "  " << printable(each.source) << ": " << reasonLine(each.reason, each.trueFormat) << '\n';
        }
    }

private:
    static QString stateWord(const SourceResult &result)
    {
        if (!result.gaveSomething()) return QStringLiteral("nothing");
        return result.status() == status::Repaired ? QStringLiteral("repaired") : QStringLiteral("in part");
    }

    void line(const QString &name, const QString &type, const QString &resolution, const QString &mended)
    {
        QString text = printable(name).leftJustified(m_nameWidth) + "  " + type.leftJustified(kTypeWidth)
            + resolution.leftJustified(kResolutionWidth) + printable(mended);
        while (text.endsWith(' ')) text.chop(1);
        m_out << text << '\n';
    }

    QTextStream &m_out;
    int m_nameWidth = 20;
};

} // namespace

std::unique_ptr<Printer> makeTablePrinter(QTextStream &out)
{
    return std::make_unique<TablePrinter>(out);
}
