#include "batch/Batch.h"

#include "app/Originals.h"
#include "app/StopFlag.h"
#include "batch/Options.h"
#include "batch/Printer.h"
#include "batch/RunRoot.h"
#include "batch/SourceList.h"
#include "batch/StopSignals.h"
#include "batch/Words.h"
#include "engine/DeepRoad.h"
#include "engine/heic/HeicRoad.h"
#include "engine/heic/ReadingCopy.h"
#include "save/ConflictPrompt.h"
#include "tables/TableLibrary.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

#include <poll.h>
#include <unistd.h>

namespace {

/// Answers the questions of saving by the option of the command line.
class OptionPrompt : public ConflictPrompt
{
public:
    explicit OptionPrompt(FileAnswer answer) : m_answer(answer) {}
    FolderAnswer folderExists(const QString &, const QString &) override { return FolderAnswer::Overwrite; }
    FileAnswer fileExists(const QString &, QString &) override { return m_answer; }

private:
    FileAnswer m_answer;
};

bool isTerminal(const QTextStream &stream)
{
    const auto *file = qobject_cast<QFile *>(stream.device());
    return file && file->handle() >= 0 && ::isatty(file->handle()) == 1;
}

/// True if `stream` goes into a pipe or a socket that nobody reads any more.
bool hasLostItsReader(const QTextStream &stream)
{
    const auto *file = qobject_cast<QFile *>(stream.device());
    pollfd end = {file ? file->handle() : -1, POLLOUT, 0};
    return end.fd >= 0 && ::poll(&end, 1, 0) == 1 && (end.revents & (POLLERR | POLLHUP));
}

bool isHeic(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toUpper();
    return suffix == "HEIC" || suffix == "HEIF";
}

bool isJpeg(const QString &suffix)
{
    return suffix.toUpper() == "JPG" || suffix.toUpper() == "JPEG";
}

/// A source for which a sample is tried. A raw file that gave nothing isn't one: a JPEG's header in front of its sensor
/// data could only make noise that passes for a picture.
bool wantsSample(const SourceResult &result)
{
    if (result.outcome.report.reason == RepairReason::Stopped) return false;
    if (result.outcome.report.tilesAlone) return true; // listed, but nothing opens it
    return result.status() == status::Invalid || (result.outcome.results.isEmpty() && isJpeg(result.outcome.suffix));
}

class BatchRun
{
public:
    BatchRun(const Options &options, QTextStream &out, QTextStream &err)
        : m_options(options), m_out(out), m_err(err), m_showsProgress(isTerminal(err)),
          m_printer(options.json ? makeJsonPrinter(out) : makeTablePrinter(out))
    {
    }

    int run();

private:
    int complain(const QString &line, int status);
    QString nameProblem() const;
    QString usageProblem() const;
    /// True if the run is worth its while though nobody reads what it says.
    bool leavesFiles() const { return !m_options.destination.isEmpty() || !m_options.workingRoot.isEmpty(); }
    bool stopped() const { return stopRequested() || StopSignals::seen(); }
    void progress(const QString &text);
    void flush();
    void print(SourceResult &result);
    void noteLoss(const SourceResult &result);
    void count(const OutputRow &row);
    void noteCameraSource(const SourceResult &result, const OutputRow &row);
    void writeReadable(SourceResult &result);

    void firstPass(const QStringList &files);
    void samplePass();
    void save();
    void keepUnsaved(const QStringList &names);
    void summarise(const SourceList &sources);

    const Options &m_options;
    QTextStream &m_out;
    QTextStream &m_err;
    const bool m_showsProgress;
    const std::unique_ptr<Printer> m_printer;
    QVector<SourceResult> m_results; // the last pass over each source, in order
    QStringList m_names;             // outputs that have rows
    CameraSources m_cameraSources;
    RunSummary m_summary;
    RunRoot m_root;
    bool m_failed = false;     // something that should have been written was not
    bool m_outputLost = false; // standard output takes no more
    bool m_unsaved = false;    // a stop came before the results were saved
};

int BatchRun::complain(const QString &line, int status)
{
    m_err << "kesmira-batch: " << printable(line) << '\n';
    m_err.flush();
    return status;
}

QString BatchRun::nameProblem() const
{
    // A byte that is no UTF-8 has become this letter on its way from the command line: it would be another folder.
    for (const QString &folder : {m_options.destination, m_options.workingRoot})
        if (folder.contains(QChar::ReplacementCharacter) && !QFileInfo::exists(folder))
            return QStringLiteral("the folder '%1' is not a valid UTF-8 name").arg(folder);
    return {};
}

QString BatchRun::usageProblem() const
{
    const QString &sample = m_options.sample;
    if (!sample.isEmpty() && !QFileInfo(sample).isFile()) {
        return QStringLiteral("the sample '%1' is not there or is not a file").arg(sample);
    }
    if (!sample.isEmpty() && !QFileInfo(sample).isReadable()) {
        return QStringLiteral("the sample '%1' can't be read").arg(sample);
    }
    if (m_options.destination.isEmpty()) return {};
    if (isMarkedAsRoot(m_options.destination)) {
        return QStringLiteral("the destination '%1' is a working folder, which runs empty").arg(m_options.destination);
    }
    return destinationProblem(m_options.destination);
}

void BatchRun::progress(const QString &text)
{
    if (!m_showsProgress) return;
    m_err << "\r\x1b[K" << printable(text);
    m_err.flush();
}

void BatchRun::flush()
{
    m_out.flush();
    if (m_out.status() != QTextStream::Ok) m_outputLost = true;
}

/// A result that found no room is missing, whatever else came out of the file.
void BatchRun::noteLoss(const SourceResult &result)
{
    if (result.outcome.report.reason != RepairReason::DiskFull) return;
    complain(QStringLiteral("'%1': not all results could be written to the working folder").arg(result.outcome.source),
             0);
    m_failed = true;
}

/// What a run holds of each source to its end is little: there may be tens of thousands.
void forgetPictures(SourceResult &result)
{
    result.rows.rows.clear();
    result.outcome.report.outputs.clear();
    result.outcome.report.salvage.icon = QImage();
}

void BatchRun::print(SourceResult &result)
{
    progress({});
    if (!m_outputLost) m_printer->result(result);
    flush();
    noteLoss(result);
    if (result.outcome.report.sourceHealthy && !result.samplePass) ++m_summary.healthy;
    for (const OutputRow &row : result.rows.rows) {
        m_names.append(row.name);
        noteCameraSource(result, row);
        count(row);
    }
    forgetPictures(result);
}

void BatchRun::noteCameraSource(const SourceResult &result, const OutputRow &row)
{
    if (m_options.cameraData && !row.thumbnail && takesCameraData(row.name, result.outcome.source))
        m_cameraSources.insert(row.name, result.outcome.source);
}

void BatchRun::count(const OutputRow &row)
{
    if (row.type == "Thumbnail")
        ++m_summary.thumbnails;
    else if (row.type == "Salvaged")
        ++m_summary.salvaged;
    else if (row.type == "Extracted" || row.type.isEmpty()) // a raw file's third picture may be called nothing
        ++m_summary.extracted;
    else
        ++m_summary.repaired;
    if (row.thumbnail) return;
    const Completeness there = row.wholeness.completeness;
    if (there == Completeness::Whole) ++m_summary.whole;
    if (there == Completeness::Partial) ++m_summary.inPart;
    if (there == Completeness::Doubtful) ++m_summary.doubtful;
}

/// A result that no reading copy can be made of is named; it was no picture, and the rest goes on.
void BatchRun::writeReadable(SourceResult &result)
{
    if (!m_options.readable || !isHeicName(result.outcome.source)) return;
    result.wantsReadable = true;
    for (const OutputRow &row : qAsConst(result.rows.rows)) {
        const QString name = outputName(result.outcome.source, readableName(row.name));
        bool isDiskFault = false;
        const QString problem = writeReadingCopy(row.path, heicFolder() + name, &isDiskFault);
        if (isDiskFault) m_failed = true;
        if (problem.isEmpty()) {
            result.readable.append(name);
            m_names.append(name);
        } else {
            complain(QStringLiteral("'%1' has no reading copy: %2").arg(row.name, problem), 0);
        }
    }
}

void BatchRun::firstPass(const QStringList &files)
{
    DeepRoad deep(files);
    for (const QString &file : files) {
        if (m_outputLost && !leavesFiles()) return;
        SourceResult result;
        if (stopped()) {
            result.outcome.source = file;
            result.outcome.suffix = QFileInfo(file).suffix();
            result.outcome.report.reason = RepairReason::Stopped;
        } else {
            progress(
                QStringLiteral("Repairing file %1 of %2: %3").arg(m_results.size() + 1).arg(files.size()).arg(file));
            result.outcome = repairOneFile(file);
            if (m_options.deep) deep.run(result.outcome);
            result.rows = makeRows(result.outcome);
            writeReadable(result);
        }
        print(result);
        m_results.append(result);
    }
}

void BatchRun::samplePass()
{
    if (m_options.sample.isEmpty()) return;
    m_printer->beginSamplePass(m_options.sample);
    for (SourceResult &earlier : m_results) {
        if ((m_outputLost && !leavesFiles()) || stopped()) return;
        const QString source = earlier.outcome.source;
        if (!wantsSample(earlier) || isHeic(source) != isHeic(m_options.sample)) continue;
        progress("Repairing with the sample: " + source);
        SourceResult result;
        result.samplePass = true;
        result.outcome = repairOneFileWithSample(m_options.sample, source);
        result.rows = makeSampleRows(result.outcome);
        writeReadable(result);
        print(result);
        if (result.gaveSomething()) earlier = result;
    }
}

void BatchRun::save()
{
    if (m_options.destination.isEmpty()) return;
    if (stopped()) {
        complain("stopped; nothing was saved", 0);
        m_unsaved = true;
        return;
    }
    m_names.removeDuplicates(); // names that meet in the working folder are one file there
    OptionPrompt prompt(m_options.onConflict);
    const SaveOutcome outcome = saveOutputs(m_options.destination, m_names, prompt, m_cameraSources);
    if (!outcome.error.isEmpty()) complain(outcome.error, 0);
    QStringList unsaved = outcome.error.isEmpty() ? QStringList() : m_names;
    for (const SavedRow &row : outcome.rows) {
        if (row.sparesOriginal)
            complain(QStringLiteral("'%1' was saved as '%2'; a file to repair has its name there")
                         .arg(row.name, QFileInfo(row.target).fileName()),
                     0);
        if (row.result != SaveResult::Failed) continue;
        complain(QStringLiteral("'%1' was not saved: %2").arg(row.name, row.error), 0);
        unsaved << row.name;
    }
    if (!m_outputLost && outcome.error.isEmpty()) m_printer->saved(outcome);
    if (!unsaved.isEmpty()) keepUnsaved(unsaved);
}

void BatchRun::keepUnsaved(const QStringList &names)
{
    m_failed = true;
    QStringList paths;
    for (const QString &name : names) paths << QDir::cleanPath(outputPath(name));
    paths.removeAll(QString());
    if (!paths.isEmpty()) complain(QStringLiteral("what was not saved is kept in '%1'").arg(m_root.keep(paths)), 0);
}

void BatchRun::summarise(const SourceList &sources)
{
    m_summary.sources = sources.files.size();
    m_summary.passedOver = sources.passedOver;
    for (const SourceResult &result : m_results) {
        if (!result.gaveSomething())
            m_summary.failed.append(
                {result.outcome.source, result.outcome.report.reason, result.outcome.report.trueFormat});
    }
    if (!m_outputLost) m_printer->end(m_summary);
    flush();
}

int BatchRun::run()
{
    const QString tables = checkBuiltInTables();
    if (!tables.isEmpty()) return complain(tables, exitStatus::CouldNotWork);

    const StopSignals signalGuard;
    const QString names = nameProblem();
    if (!names.isEmpty()) return complain(names, exitStatus::WrongUsage);
    const QString rootProblem = m_root.open(m_options.workingRoot);
    if (!rootProblem.isEmpty()) return complain(rootProblem, exitStatus::CouldNotWork);
    const QString usage = usageProblem();
    if (!usage.isEmpty()) return complain(usage, exitStatus::WrongUsage);
    if (!m_options.destination.isEmpty() && !QDir().mkpath(m_options.destination)) {
        return complain(QStringLiteral("the destination '%1' can't be made").arg(m_options.destination),
                        exitStatus::CouldNotWork);
    }
    const SourceList sources = collectSources(m_options.sources);
    for (const QString &problem : sources.problems) complain(problem, 0);
    setOriginals(sources.files + QStringList(m_options.sample));
    RunRoot::removeDeadRoots();
    if (!beginRun(sources.files, m_options.sample)) {
        return complain(QStringLiteral("the working folder can't be used"), exitStatus::CouldNotWork);
    }
    if (StopSignals::seen()) setFlag(pApp->bStopRepair, true); // the start of the run has cleared it

    m_printer->begin(sources.files);
    firstPass(sources.files);
    samplePass();
    save();
    summarise(sources);
    // Who stops reading, as head does, wants no more and needs not be told.
    if (m_outputLost && !hasLostItsReader(m_out)) complain("the results could not be written", 0);
    if (m_failed || m_outputLost) return exitStatus::CouldNotWork;
    const bool allGave = m_summary.failed.isEmpty() && sources.passedOver == 0 && !m_unsaved;
    return allGave ? exitStatus::AllGave : exitStatus::SomeGaveNothing;
}

/// Prints what a person asked to read.
int show(const QString &text, QTextStream &out)
{
    out << text;
    out.flush();
    return out.status() == QTextStream::Ok ? exitStatus::AllGave : exitStatus::CouldNotWork;
}

} // namespace

void useUtf8Names()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

int runBatch(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    useUtf8Names();
    Options options;
    const QString problem = parseOptions(arguments, options);
    if (!problem.isEmpty()) {
        err << "kesmira-batch: " << printable(problem) << '\n';
        err.flush();
        return exitStatus::WrongUsage;
    }
    if (options.help) return show(options.helpText, out);
    if (options.version) return show("kesmira-batch " KESMIRA_VERSION "\n", out);
    return BatchRun(options, out, err).run();
}
