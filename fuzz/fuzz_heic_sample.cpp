// A sample's boxes on a damaged file's tiles. The first two bytes say where the input is cut into the two.
// By hand: build/fuzz/fuzz/fuzz_heic_sample -max_len=9000 CORPUS_FOLDER
#include "FuzzRun.h"

#include "app/KesmiraApp.h"
#include "engine/OneFile.h"
#include "support/PlainTiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2) return 0;
    prepareFuzzRun();
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 2, int(size) - 2);
    const int cut = (data[0] << 8 | data[1]) % (bytes.size() + 1);
    const QByteArray healthy = bytes.left(cut);
    const QByteArray damaged = bytes.mid(cut);
    const QString sample = fuzzSource(QStringLiteral("sample.heic"), healthy);
    const QString source = fuzzSource(QStringLiteral("source.HEIC"), damaged);
    demand(beginRun(), "the working folder can't be made");
    const FileOutcome outcome = repairOneFileWithSample(sample, source);

    demand(fileBytes(sample) == healthy && fileBytes(source) == damaged, "a source has changed");
    demand(!pApp->pHeicSource && !pApp->pHeicOutput, "a file is left open");
    demand(outcome.results == QStringList(QStringLiteral("source.HEIC")), "not the source's own name");
    const QByteArray made = fileBytes(pApp->strTempDir + QStringLiteral("HEIC_Repaired/source.HEIC"));
    const qint64 first = plainFirstTile(damaged);
    const QByteArray tiles = first > 0 ? damaged.mid(int(first)) : QByteArray();
    demand(made.endsWith(tiles), "not the damaged file's tiles");
    demand(!outcome.report.tilesAlone || made == tiles, "more than the tiles");
    demand(made.size() <= 4 * healthy.size() + 1200 + tiles.size(), "bytes out of nowhere");
    return 0;
}
