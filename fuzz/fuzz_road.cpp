// One file through the whole road, as a JPEG, a raw file or a HEIC by its first bytes, and its outputs through the rows.
// The same file gives the same a second time, behind another file, and with deep salvage; no output outgrows its source.
// By hand: build/fuzz/fuzz/fuzz_road -max_len=65536 -timeout=20 CORPUS_FOLDER samples
#include "FuzzRun.h"

#include "app/KesmiraApp.h"
#include "engine/DeepRoad.h"
#include "engine/Judge.h"
#include "engine/OutputRows.h"
#include "support/JpegMaker.h"
#include "support/Pictures.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QMap>

namespace {

/// A rewritten HEIC gets boxes for each of its tiles; the rest, a table in place of a shorter one at the most.
qint64 largest(const QString &suffix, qint64 size)
{
    return suffix == QLatin1String("heic") ? 5 * size + 1200 : size + 1024;
}

QString suffixFor(const QByteArray &bytes)
{
    if (bytes.mid(4, 7) == "ftypcrx") return QStringLiteral("cr3");
    if (bytes.mid(4, 4) == "ftyp") return QStringLiteral("heic");
    if (bytes.startsWith("FUJI")) return QStringLiteral("raf");
    if (bytes.startsWith(QByteArray("\0MRM", 4))) return QStringLiteral("mrw");
    if (bytes.mid(6, 8) == "HEAPCCDR") return QStringLiteral("crw");
    if (!bytes.startsWith("II") && !bytes.startsWith("MM")) return QStringLiteral("jpg");
    static const QString formats[] = {QStringLiteral("cr2"), QStringLiteral("nef"), QStringLiteral("arw"),
                                      QStringLiteral("dng"), QStringLiteral("pef"), QStringLiteral("orf")};
    return formats[quint8(bytes.back()) % std::size(formats)];
}

/// All that anybody learns of a source, and the bytes of what it gave.
struct Answer
{
    QString status;
    QStringList results, rows;
    QMap<QString, QByteArray> files;
    QJsonObject report;
    bool operator==(const Answer &other) const = default;
};

Answer answerOf(const FileOutcome &outcome)
{
    const OutputRows rows = makeRows(outcome);
    Answer answer{rows.sourceStatus, outcome.results, {}, {}, toJson(outcome.report)};
    answer.report.remove("salvage");
    for (const OutputRow &row : rows.rows) {
        demand(QFileInfo::exists(row.path), "a row has no file");
        if (row.type == QLatin1String("Salvaged")) continue;
        answer.rows << row.name + row.type + row.resolution + row.statusCode;
        answer.files.insert(row.name, fileBytes(row.path));
    }
    for (const OutputReport &output : outcome.report.outputs) answer.files.insert(output.path, fileBytes(output.path));
    return answer;
}

void checkOutcome(const FileOutcome &outcome, const QByteArray &bytes)
{
    demand(fileBytes(outcome.source) == bytes, "the source has changed");
    demand(!pApp->pMainListHead && !pApp->pScanFaultHead && !pApp->pMainListRawHead && !pApp->pCurrentFile
               && !pApp->pHeicSource && !pApp->pHeicOutput,
           "a file has left something behind");
    demand(outcome.results.isEmpty() == (outcome.report.reason != RepairReason::None), "results and reason disagree");
    for (const QString &name : outcome.results)
        demand(name.contains(QLatin1String("_[T4]")) || !outputPath(name).isEmpty(), "a listed output isn't there");
}

/// A file that leaves much behind: nested pictures, a scan with illegal codes, tables of both kinds that were replaced.
const QString &otherSource()
{
    static const QString path = [] {
        const QByteArray thumbnail = makeJpeg(drawPicture(16, 16));
        QByteArray other = makeJpeg(drawPicture(48, 32), {.segments = {exifSegment(thumbnail)}});
        const int table = other.lastIndexOf("\xFF\xC4");
        other[table + 30] = char(other[table + 30] ^ 0x55);
        other.insert(other.size() - 20, "\xFF\x33", 2);
        return fuzzSource(QStringLiteral("other.jpg"), other);
    }();
    return path;
}

void proveDecoder()
{
    const QString healthy = fuzzSource(QStringLiteral("healthy.jpg"), makeJpeg(drawPicture(16, 16)));
    demand(judgeJpeg(healthy).decodes, "the decoder process doesn't answer, so that no picture could be judged");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    prepareFuzzRun();
    static const bool ready = (proveDecoder(), true);
    Q_UNUSED(ready)
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const QString suffix = suffixFor(bytes);
    const QString source = fuzzSource(QStringLiteral("source.") + suffix, bytes);
    demand(beginRun({source}), "the working folder can't be made");
    FileOutcome outcome = repairOneFile(source);
    checkOutcome(outcome, bytes);
    const Answer answer = answerOf(outcome);
    for (const QByteArray &file : answer.files)
        demand(file.size() <= largest(suffix, bytes.size()), "bytes out of nowhere");

    // Salvage takes its seconds, so that it has a sixteenth of the inputs.
    if (qChecksum(bytes.constData(), uint(bytes.size())) % 16 == 0) {
        DeepRoad({source}).run(outcome);
        demand(answerOf(outcome) == answer, "deep salvage has changed what the other ways gave");
    }

    demand(beginRun({source}), "the working folder can't be made again");
    demand(answerOf(repairOneFile(source)) == answer, "a second run gives something else");
    // The rows of a CR3 go on from those of the file before it.
    if (suffix == QLatin1String("cr3")) return 0;
    demand(beginRun({otherSource(), source}), "the working folder can't be made for two");
    repairOneFile(otherSource());
    demand(answerOf(repairOneFile(source)) == answer, "behind another file it gives something else");
    return 0;
}
