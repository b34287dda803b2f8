// What decoding a JPEG will cost, told from its markers before anything is decoded.
#pragma once

#include "engine/FileWindow.h"

#include <QSize>
#include <QString>

struct JpegCost
{
    QSize size{0, 0};          ///< as the frame header claims it; 0 x 0 where none was found
    bool severalScans = false; ///< the picture comes in more than one, so the decoder keeps all coefficients
    quint64 memory = 0;        ///< bytes of the picture, and of the coefficients where they are all kept
    quint64 blocks = 0;        ///< blocks of 8 x 8 samples, of all components
    quint64 scans = 0;         ///< SOS segments; the decoder goes through all blocks for each
    quint64 keptNotes = 0;     ///< COM, APP1 and APP2 segments, which the decoder puts behind each other in one list
};

/// Goes from marker to marker as the decoder does (ITU-T T.81, B.1.1), up to the EOI. Reads frame headers of every kind,
/// for what one decoder refuses another takes.
JpegCost costOf(FileWindow &file);

/// One line why the picture isn't decoded at that price, empty where it is. `memory` is what there is for it, and of that
/// a file gets no more than its length lets it hope for: from a few bytes no large picture can come.
QString refusal(const JpegCost &cost, quint64 fileBytes, quint64 memory);
