// Pictures of the window with few enough colours for small files.
#pragma once

#include <QImage>

/// The picture in 256 colours at most, those that most of its pixels are near to. Plain areas keep theirs to the bit.
QImage withFewColours(const QImage &picture);
