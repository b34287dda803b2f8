// A CR3 box by box.
#pragma once

#include <QByteArray>

struct Cr3Options
{
    QByteArray full = {};
    QByteArray preview = {};
    QByteArray thumbnail = {};
    bool longData = true; ///< mdat with a size of 64 bits
    QByteArray brand = "CanonCR3_001/00.09.00/00.00.00";
    int behindData = 40; ///< bytes of mdat behind the full picture
};

/// Size of 32 bits, type, payload.
QByteArray box(const char *type, const QByteArray &payload);
/// An empty picture leaves its box or track with a length of 0.
QByteArray makeCr3(const Cr3Options &options);
