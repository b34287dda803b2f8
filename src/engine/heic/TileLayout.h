// The pictures made of tiles that can be put together again, told apart by the number of their tiles alone.
#pragma once

#include "app/KesmiraApp.h"

#include <QString>

#include <array>

struct TileLayout
{
    quint16 tiles;
    bool KesmiraApp::*flag;
    const char *name;                   ///< as a person is told it
    std::array<quint16, 3> entryCounts; ///< numbers of items that files of this layout declare; 0 is none

    bool accepts(quint16 entryCount) const;
    /// Items of the index that is written: the tiles, and behind them the one that puts them together.
    quint16 indexedItems() const { return quint16(tiles + 1); }
    /// Bytes between the index's head and the first tile: an entry for each tile, and the tail.
    quint32 indexBody() const { return 16u * tiles + 20; }
    /// What the damaged file's own index had, and so what the size of the box around it counts on.
    static quint32 declaredIndexSize(quint16 entryCount) { return 16u + 16u * entryCount; }
};

/// All layouts; of several flags that are up the first one here wins.
const std::array<TileLayout, 4> &tileLayouts();
/// Null if no layout has this many tiles.
const TileLayout *layoutOfTiles(unsigned int tiles);
/// The layout whose flag is up in `pApp`, null if none is.
const TileLayout *layoutInForce();

/// Takes all layout flags down and raises the one of this number of tiles; false if there is none.
bool raiseLayoutFlag(unsigned int tiles);
void clearLayoutFlags();

/// The layout's name for a person, "" if no layout has this many tiles.
QString layoutName(unsigned int tiles);
