#include "engine/heic/TileLayout.h"

#include <algorithm>

bool TileLayout::accepts(quint16 entryCount) const
{
    return entryCount != 0 && std::find(entryCounts.begin(), entryCounts.end(), entryCount) != entryCounts.end();
}

const std::array<TileLayout, 4> &tileLayouts()
{
    static const std::array<TileLayout, 4> layouts = {{
        {48, &KesmiraApp::bHeicStandard, "standard", {0x33, 0x34, 0x36}},
        {35, &KesmiraApp::bHeicStandardSelfie, "standard_selfie", {0x26, 0x27, 0}},
        {36, &KesmiraApp::bHeicSquare, "square", {0x27, 0, 0}},
        {25, &KesmiraApp::bHeicSquareSelfie, "square_selfie", {0x1C, 0, 0}},
    }};
    return layouts;
}

const TileLayout *layoutOfTiles(unsigned int tiles)
{
    for (const TileLayout &layout : tileLayouts())
        if (layout.tiles == tiles) return &layout;
    return nullptr;
}

const TileLayout *layoutInForce()
{
    for (const TileLayout &layout : tileLayouts())
        if (pApp->*layout.flag) return &layout;
    return nullptr;
}

bool raiseLayoutFlag(unsigned int tiles)
{
    clearLayoutFlags();
    const TileLayout *layout = layoutOfTiles(tiles);
    if (layout) pApp->*layout->flag = true;
    return layout != nullptr;
}

void clearLayoutFlags()
{
    for (const TileLayout &layout : tileLayouts()) pApp->*layout.flag = false;
}

QString layoutName(unsigned int tiles)
{
    const TileLayout *layout = layoutOfTiles(tiles);
    return layout ? QString::fromLatin1(layout->name) : QString();
}
