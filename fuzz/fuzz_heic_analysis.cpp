// Tiles and boxes of a HEIC. The first byte chooses the block size; whatever it is, the tiles are those of the obvious walk.
// By hand: build/fuzz/fuzz/fuzz_heic_analysis -max_len=6000 CORPUS_FOLDER
#include "FuzzRun.h"

#include "app/KesmiraApp.h"
#include "engine/heic/Boxes.h"
#include "engine/heic/TileLayout.h"
#include "engine/heic/TileWalk.h"
#include "support/ByteSource.h"
#include "support/PlainTiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1) return 0;
    const QByteArray file(reinterpret_cast<const char *>(data) + 1, int(size) - 1);
    ByteSource source(file);
    FileWindow whole(source);
    FileWindow blocks(source, 1 + data[0] % 40);
    QVector<quint32> lengths(256, 0);
    QVector<quint32> inBlocks(256, 0);
    const TileWalk walk = walkTiles(whole, lengths.data(), 256);
    const QVector<quint32> plain = plainTiles(file);
    demand(int(walk.count) == plain.size(), "not the tiles of the obvious walk");
    demand(lengths.mid(0, plain.size()) == plain.mid(0, 256), "not their lengths");
    demand(walkTiles(blocks, inBlocks.data(), 256).count == walk.count && inBlocks == lengths,
           "the block size matters");
    demand(boxesInOrder(whole) == boxesInOrder(blocks), "the block size matters to the boxes");
    demand(raiseLayoutFlag(walk.count) == (layoutInForce() != nullptr), "no flag for a layout");
    return 0;
}
