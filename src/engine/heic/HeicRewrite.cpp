// jpg_repair: the new HEIC. Its skeleton is made of templates, of boxes that survived, here or in a sample, and of an index
// that is worked out from the lengths of the tiles.

#include "engine/jpg_repair.h"

#include "app/StopFlag.h"
#include "engine/OneFile.h"
#include "engine/heic/Boxes.h"
#include "engine/heic/ByteWriter.h"
#include "engine/heic/HeicRoad.h"
#include "engine/heic/HeicTemplates.h"
#include "engine/heic/TileLayout.h"
#include "engine/heic/TileWalk.h"
#include "save/ScratchFile.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>

namespace {

/// Bytes of the file from `offset` on, zeros past its end. A stop ends it early.
void copyBytes(FileWindow &in, quint64 offset, quint64 count, FILE *out)
{
    constexpr quint64 kStep = 64 * 1024;
    const auto block = std::make_unique<char[]>(size_t(std::min(kStep, count)));
    while (count > 0 && !stopRequested()) {
        const quint64 part = std::min(kStep, count);
        in.read(offset, block.get(), qint64(part));
        writeBytes(out, block.get(), qint64(part));
        offset += part;
        count -= part;
    }
}

/// What the file says about its items: the entry count, and the size of the box around them as it stands in the file.
struct ItemInfo
{
    bool found = false;
    quint32 metaSize = 0;
    quint16 entryCount = 0;
};

ItemInfo findItemInfo(FileWindow &file)
{
    ItemInfo info;
    const quint64 items = findType(file, boxType("iinf"), 0, file.size());
    if (items >= file.size() || stopRequested()) return info;
    info.found = true;
    info.entryCount = file.wordAt(items + 8);
    // Of several, the one that the items stand in is the last in front of them.
    for (quint64 at = findType(file, boxType("meta"), 0, items); at < items;
         at = findType(file, boxType("meta"), at + 1, items))
        info.metaSize = boxAt(file, at).size;
    return info;
}

/// A box that isn't there, or claims more than the file, is left out. One that only runs past the end keeps the size that
/// it claims, so that what follows it in the new file is found by it.
void copyFirstBox(FileWindow &file, quint32 type, FILE *out)
{
    const quint64 typeAt = findType(file, type, 0, file.size());
    if (typeAt >= file.size()) return;
    const Box box = boxAt(file, typeAt);
    if (box.size < file.size()) copyBytes(file, box.begin(), box.size, out);
}

QByteArray indexHead(const TileLayout &layout, quint16 entryCount)
{
    QByteArray head;
    put<quint32>(head, TileLayout::declaredIndexSize(entryCount));
    put<quint32>(head, boxType("iloc"));
    put<quint32>(head, 0x01000000); // version 1
    put<quint16>(head, 0x4400);     // offsets and lengths of four bytes, no base offsets
    put<quint16>(head, layout.indexedItems());
    return head;
}

/// An entry for each tile, and behind them the item that puts the tiles together, whose eight bytes stand in `idat`.
QByteArray indexBody(const TileLayout &layout, const quint32 *lengths, quint32 firstTile)
{
    QByteArray body;
    quint32 offset = firstTile;
    for (quint16 k = 0; k < layout.tiles && !stopRequested(); ++k) {
        putIndexEntry(body, quint16(k + 1), 0, offset, lengths[k]);
        offset += lengths[k];
    }
    putIndexEntry(body, layout.indexedItems(), 1, 0, 8);
    put<quint32>(body, 1); // begins a box with a size of 64 bits; no type follows, as the tiles do
    return body;
}

/// All that stands in front of the tiles. False, and nothing is written, where the file's items don't fit the layout.
bool writeSkeleton(FileWindow &boxes, const quint32 *lengths, FILE *out)
{
    const TileLayout *layout = layoutInForce();
    const ItemInfo items = findItemInfo(boxes);
    if (!layout || !items.found || !layout->accepts(items.entryCount)) return false;

    QByteArray front(reinterpret_cast<const char *>(heic::kFileType.data()), int(heic::kFileType.size()));
    put<quint32>(front, items.metaSize);
    front.append(reinterpret_cast<const char *>(heic::kMetaFront.data()), int(heic::kMetaFront.size()));
    writeBytes(out, front.constData(), front.size());
    for (const quint32 type : {boxType("iinf"), boxType("iref"), boxType("iprp"), boxType("idat")})
        copyFirstBox(boxes, type, out);
    const QByteArray head = indexHead(*layout, items.entryCount);
    writeBytes(out, head.constData(), head.size());
    const auto firstTile = quint32(quint64(fileLength(out)) + layout->indexBody());
    const QByteArray body = indexBody(*layout, lengths, firstTile);
    writeBytes(out, body.constData(), body.size());
    return true;
}

} // namespace

QString jpg_repair::writeFileWithoutRef(const QString &path)
{
    const QString name = outputName(path, QFileInfo(workingName(path)).completeBaseName() + QLatin1String(".heic"));
    m_heicWay = RepairWay::Rewrite;
    openHeicOutput(name);
    FileWindow *source = pApp->pHeicSource;
    pApp->report.tilesAlone = !source || !pApp->pHeicOutput || !writeSkeleton(*source, aTileLength, pApp->pHeicOutput);
    return name;
}

QString jpg_repair::writeFileWithRef(const QString &damagedPath, const QString &samplePath)
{
    FileWindow sample(samplePath);
    const QString name = workingName(damagedPath);
    scanAgainForiLocation(damagedPath);
    m_heicWay = RepairWay::Sample;
    openHeicOutput(name);
    const bool usable = sample.isOpen() && sample.size() < kHeicSizeLimit && pApp->pHeicOutput;
    pApp->report.tilesAlone = !usable || !writeSkeleton(sample, aTileLength, pApp->pHeicOutput);
    return name;
}

void jpg_repair::openHeicOutput(const QString &name)
{
    QDir().mkdir(heicFolder());
    pApp->pHeicOutput = createOutput(heicFolder() + name);
    if (!pApp->pHeicOutput) pApp->report.reason = RepairReason::DiskFull;
}

void jpg_repair::WriteFileData(const QString &name)
{
    if (FileWindow *source = pApp->pHeicSource) {
        nHeicFileSize = quint32(source->size());
        nHeicDataStart = nHeicFileSize;
        const quint64 slice = stopRequested() ? source->size() : findFirstSlice(*source);
        if (slice < source->size()) nHeicDataStart = quint32(slice - 4);
        // A stream that would be the whole file, or that begins in front of it, isn't one.
        const quint32 length = nHeicFileSize - nHeicDataStart;
        if (length != 0 && length < nHeicFileSize && pApp->pHeicOutput)
            copyBytes(*source, nHeicDataStart, length, pApp->pHeicOutput);
    }
    const bool readable = pApp->pHeicSource != nullptr;
    const double share = readable && !stopRequested() ? shareOfSoundTiles(*pApp->pHeicSource) : 0;
    const bool whole = closeFile(pApp->pHeicOutput);
    pApp->pHeicOutput = nullptr;
    closeHeicFiles();
    const QString path = heicFolder() + name;
    if (!whole || !readable) {
        if (!readable) pApp->report.reason = RepairReason::Unreadable;
        dropFile(path); // half a picture would pass for a repaired one
        return;
    }
    pApp->lstResultNames.append(name);
    // Nothing opens tiles that no index describes.
    Wholeness wholeness{share < 1 ? Completeness::Partial : Completeness::Whole, share};
    if (pApp->report.tilesAlone) wholeness.completeness = Completeness::Doubtful;
    if (stopRequested()) wholeness = {}; // the walk over the tiles may have ended early
    pApp->report.outputs.append({name, path, m_heicWay, {}, {}, wholeness});
    if (pApp->report.tilesAlone && m_heicWay == RepairWay::Sample) pApp->report.reason = RepairReason::SampleUnfit;
}
