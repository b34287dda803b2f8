// What a run says on standard output: a table for people, or one JSON object a line for programs.
#pragma once

#include "engine/OneFile.h"
#include "engine/OutputRows.h"
#include "save/Destination.h"

#include <QStringList>
#include <QTextStream>
#include <QVector>

#include <memory>

/// One pass over one source.
struct SourceResult
{
    FileOutcome outcome;
    OutputRows rows;
    bool samplePass = false;
    bool wantsReadable = false; ///< reading copies of its HEICs were asked for
    QStringList readable;       ///< their names

    bool gaveSomething() const
    {
        if (outcome.statusCode == QLatin1String(status::Stopped)) return false; // it is not known to be all of it
        return !outcome.results.isEmpty() || !outcome.report.salvage.name.isEmpty();
    }
    /// "5" repaired, "2" invalid, "" neither; the stages that only a window shows are folded into these three.
    QString status() const;
};

/// A source that gave nothing in any pass.
struct FailedSource
{
    QString source;
    RepairReason reason = RepairReason::None;
    QString trueFormat; ///< see RepairReport
};

struct RunSummary
{
    int sources = 0;
    int passedOver = 0;
    int repaired = 0; ///< rows of each type
    int extracted = 0;
    int thumbnails = 0;
    int salvaged = 0;
    int whole = 0; ///< rows of each completeness, thumbnails left out
    int inPart = 0;
    int doubtful = 0;
    int healthy = 0; ///< sources that open as they are
    QVector<FailedSource> failed;
};

class Printer
{
public:
    virtual ~Printer() = default;
    virtual void begin(const QStringList &sources) = 0;
    virtual void beginSamplePass(const QString &sample) = 0;
    virtual void result(const SourceResult &result) = 0;
    virtual void saved(const SaveOutcome &outcome) = 0;
    virtual void end(const RunSummary &summary) = 0;
};

std::unique_ptr<Printer> makeJsonPrinter(QTextStream &out);
std::unique_ptr<Printer> makeTablePrinter(QTextStream &out);
