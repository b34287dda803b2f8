// A HEIC on the whole road: whatever is rewritten ends with the tiles as they were.
// By hand: build/fuzz/fuzz/fuzz_heic_rewrite -max_len=6000 CORPUS_FOLDER
#include "FuzzRun.h"

#include "app/KesmiraApp.h"
#include "engine/OneFile.h"
#include "engine/OutputRows.h"
#include "support/PlainTiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    prepareFuzzRun();
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const QString source = fuzzSource(QStringLiteral("source.heic"), bytes);
    demand(beginRun(), "the working folder can't be made");
    const FileOutcome outcome = repairOneFile(source);
    const OutputRows rows = makeRows(outcome);
    demand(fileBytes(source) == bytes, "the source has changed");
    demand(!pApp->pHeicSource && !pApp->pHeicOutput, "a file is left open");
    demand(rows.rows.size() == outcome.results.size(), "a result without a row");
    if (outcome.results.isEmpty()) {
        demand(outcome.statusCode == QLatin1String(status::Invalid), "neither a result nor a failure");
        return 0;
    }
    const QByteArray made = fileBytes(rows.rows[0].path);
    const qint64 first = plainFirstTile(bytes);
    const QByteArray tiles = first > 0 ? bytes.mid(int(first)) : QByteArray();
    demand(made.endsWith(tiles), "not the file's tiles");
    demand(!outcome.report.tilesAlone || made == tiles, "more than the tiles");
    demand(outcome.report.tilesAlone || made.mid(4, 8) == "ftypheic", "no skeleton in front");
    demand(made.size() <= 5 * bytes.size() + 1200, "bytes out of nowhere");
    return 0;
}
