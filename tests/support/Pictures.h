// Pictures drawn by plain arithmetic, the same on every machine.
#pragma once

#include <QImage>

/// A landscape: sky, a sun, hills, textured ground. Another `variant` moves the sun, the hills and the colours.
/// Format_RGB32.
QImage drawPicture(int width, int height, int variant = 0);
/// The same landscape in grey, Format_Grayscale8.
QImage drawGreyPicture(int width, int height, int variant = 0);

/// Largest difference of any channel of any pixel; 256 if the sizes differ.
int largestDifference(const QImage &a, const QImage &b);
/// Differences of all channels of all pixels, averaged; 256 if the sizes differ.
double meanDifference(const QImage &a, const QImage &b);
