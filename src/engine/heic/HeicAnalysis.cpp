// jpg_repair: what a damaged HEIC still holds.

#include "engine/jpg_repair.h"

#include "app/KesmiraApp.h"
#include "engine/heic/Boxes.h"
#include "engine/heic/HeicRoad.h"
#include "engine/heic/TileLayout.h"
#include "engine/heic/TileWalk.h"
#include "save/ScratchFile.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <memory>

bool jpg_repair::Heic(const QString &path)
{
    clearLayoutFlags();
    pApp->bHeicHeaderIntact = false;
    pApp->bHeicOddTileCount = false;
    if (!openHeicSource(path)) return false;
    const unsigned int tiles = countTiles(*pApp->pHeicSource, std::size(aTileLength));
    if (!raiseLayoutFlag(tiles)) {
        pApp->bHeicOddTileCount = true;
        return false;
    }
    pApp->bHeicHeaderIntact = boxesInOrder(*pApp->pHeicSource);
    return pApp->bHeicHeaderIntact;
}

unsigned int jpg_repair::CheckingImageType(const QString &path)
{
    constexpr size_t kKept = 55;
    clearLayoutFlags();
    FileWindow file(path);
    if (!file.isOpen() || file.size() >= kHeicSizeLimit) return 0;
    nHeicFileSize = quint32(file.size());
    const unsigned int tiles = countTiles(file, kKept);
    raiseLayoutFlag(tiles);
    return tiles;
}

void jpg_repair::scanAgainForiLocation(const QString &path)
{
    if (openHeicSource(path)) countTiles(*pApp->pHeicSource, std::size(aTileLength));
}

bool jpg_repair::openHeicSource(const QString &path)
{
    closeHeicFiles();
    auto file = std::make_unique<FileWindow>(path);
    if (!file->isOpen() || file->size() >= kHeicSizeLimit) return false;
    pApp->pHeicSource = file.release();
    strHeicFileName = QFileInfo(path).fileName();
    nHeicFileSize = quint32(pApp->pHeicSource->size());
    return true;
}

unsigned int jpg_repair::countTiles(FileWindow &file, size_t kept)
{
    bHeicBigEndian = true;
    std::fill(std::begin(aTileLength), std::end(aTileLength), 0);
    const TileWalk walk = walkTiles(file, aTileLength, kept);
    nHeicPosition = walk.position;
    return walk.count;
}

void jpg_repair::closeHeicFiles()
{
    delete pApp->pHeicSource;
    pApp->pHeicSource = nullptr;
    if (pApp->pHeicOutput) closeFile(pApp->pHeicOutput);
    pApp->pHeicOutput = nullptr;
}
