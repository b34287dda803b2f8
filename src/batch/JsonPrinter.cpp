#include "batch/Printer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

class JsonPrinter : public Printer
{
public:
    explicit JsonPrinter(QTextStream &out) : m_out(out) {}

    void begin(const QStringList &) override {}
    void beginSamplePass(const QString &) override {}
    void saved(const SaveOutcome &) override {}
    void end(const RunSummary &) override {}

    void result(const SourceResult &result) override
    {
        QJsonArray rows;
        for (const OutputRow &row : result.rows.rows) {
            QJsonObject object{{"name", row.name}, {"type", row.type}, {"resolution", row.resolution}};
            insertWholeness(object, row.wholeness);
            rows.append(object);
        }
        QJsonObject object{
            {"source", result.outcome.source},
            {"status", result.status()},
            {"results", QJsonArray::fromStringList(result.outcome.results)},
            {"rows", rows},
            {"report", toJson(result.outcome.report)},
        };
        const QString &salvaged = result.outcome.report.salvage.name;
        if (!salvaged.isEmpty()) object.insert("salvaged", salvaged);
        if (result.wantsReadable) object.insert("readable", QJsonArray::fromStringList(result.readable));
        if (result.samplePass) object.insert("pass", "sample");
        m_out << QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) << '\n';
    }

private:
    QTextStream &m_out;
};

} // namespace

QString SourceResult::status() const
{
    const QString &code = rows.sourceStatus;
    if (code == status::Repaired || code == status::Sample) return QString::fromLatin1(status::Repaired);
    const bool isOpen = code == status::Unreached || code == status::Stopped;
    return QString::fromLatin1(isOpen ? status::Unreached : status::Invalid);
}

std::unique_ptr<Printer> makeJsonPrinter(QTextStream &out)
{
    return std::make_unique<JsonPrinter>(out);
}
