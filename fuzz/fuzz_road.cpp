// One file through the whole road, and its outputs through the rows.
// By hand: build/fuzz/fuzz/fuzz_road -max_len=65536 -timeout=20 CORPUS_FOLDER samples
#include "FuzzRun.h"

#include "app/KesmiraApp.h"
#include "engine/OutputRows.h"

#include <QFileInfo>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    prepareFuzzRun();
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const QString source = fuzzSource(QStringLiteral("source.jpg"), bytes);
    demand(beginRun(), "the working folder can't be made");
    const FileOutcome outcome = repairOneFile(source);
    const OutputRows rows = makeRows(outcome);

    demand(fileBytes(source) == bytes, "the source has changed");
    demand(!pApp->pMainListHead && !pApp->pScanFaultHead && !pApp->pMainListRawHead && !pApp->pCurrentFile,
           "a file has left something behind");
    demand(outcome.results.isEmpty() == (outcome.report.reason != RepairReason::None), "results and reason disagree");
    for (const QString &name : outcome.results)
        demand(name.contains(QLatin1String("_[T4]")) || !outputPath(name).isEmpty(), "a listed output isn't there");
    for (const OutputRow &row : rows.rows) demand(QFileInfo::exists(row.path), "a row has no file");
    return 0;
}
