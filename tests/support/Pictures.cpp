#include "support/Pictures.h"

#include <algorithm>
#include <cstdlib>

namespace {

/// A value of 0 to 255 for a grid point; neighbours have nothing in common.
int speckle(int x, int y, int variant)
{
    quint32 h = quint32(x) * 374761393u + quint32(y) * 668265263u + quint32(variant) * 2246822519u;
    h = (h ^ (h >> 13)) * 1274126177u;
    return int((h ^ (h >> 16)) & 0xFF);
}

/// Speckles smoothed over cells of `cell` pixels.
int cloud(int x, int y, int cell, int variant)
{
    const int gx = x / cell;
    const int gy = y / cell;
    const int fx = x % cell;
    const int fy = y % cell;
    const int top = speckle(gx, gy, variant) * (cell - fx) + speckle(gx + 1, gy, variant) * fx;
    const int bottom = speckle(gx, gy + 1, variant) * (cell - fx) + speckle(gx + 1, gy + 1, variant) * fx;
    return (top * (cell - fy) + bottom * fy) / (cell * cell);
}

/// A chain of hills: the height of its line at x, as a share of 0 to 1000 of the picture's height.
int hillLine(int x, int width, int variant, int layer)
{
    const int at = x * 1000 / width + variant * 137 + layer * 311;
    const auto wave = [at](int period, int height) {
        const int t = at % period * 2000 / period - 1000;
        return (1000 - t * t / 1000) * height / 1000; // an arch for each period
    };
    return 380 + layer * 150 - wave(700, 150) - wave(310, 60) + cloud(x + 1000, layer * 64, 24, variant) / 9;
}

struct Colour
{
    int red;
    int green;
    int blue;
};

Colour mix(const Colour &a, const Colour &b, int share) // of b, 0 to 1000
{
    const auto blend = [share](int from, int to) { return from + (to - from) * share / 1000; };
    return {blend(a.red, b.red), blend(a.green, b.green), blend(a.blue, b.blue)};
}

Colour pixelAt(int x, int y, int width, int height, int variant)
{
    static const Colour skies[] = {{70, 120, 200}, {200, 110, 80}, {40, 60, 110}};
    static const Colour grounds[] = {{60, 110, 60}, {120, 90, 60}, {70, 80, 110}};
    const int sky = std::abs(variant) % 3;
    const int down = y * 1000 / height;

    Colour colour = mix(skies[sky], {250, 230, 200}, std::min(1000, down * 2));
    const int haze = cloud(x, y * 2, 40, variant + 7);
    if (haze > 140) colour = mix(colour, {245, 245, 245}, (haze - 140) * 5);

    const int dx = x - width * (25 + variant * 17 % 50) / 100;
    const int dy = y - height / 5;
    const int radius = height / 11;
    if (dx * dx + dy * dy < radius * radius) colour = {255, 236, 150};

    for (int layer = 0; layer < 3; ++layer) {
        if (down < hillLine(x, width, variant, layer)) continue;
        colour = mix(grounds[(sky + layer) % 3], {20, 30, 25}, layer * 220);
        const int grain = cloud(x, y, 5, variant + layer) + speckle(x, y, variant) / 6;
        colour = mix(colour, {215, 200, 150}, grain * (layer + 1) / 3);
    }
    return colour;
}

int channel(int value)
{
    return std::clamp(value, 0, 255);
}

template<typename Fold>
double foldDifferences(const QImage &a, const QImage &b, Fold fold)
{
    double sum = 0;
    const QImage left = a.convertToFormat(QImage::Format_RGB32);
    const QImage right = b.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const QRgb p = left.pixel(x, y);
            const QRgb q = right.pixel(x, y);
            sum = fold(sum, std::abs(qRed(p) - qRed(q)));
            sum = fold(sum, std::abs(qGreen(p) - qGreen(q)));
            sum = fold(sum, std::abs(qBlue(p) - qBlue(q)));
        }
    return sum;
}

} // namespace

QImage drawPicture(int width, int height, int variant)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const Colour c = pixelAt(x, y, width, height, variant);
            line[x] = qRgb(channel(c.red), channel(c.green), channel(c.blue));
        }
    }
    return picture;
}

QImage drawGreyPicture(int width, int height, int variant)
{
    QImage picture(width, height, QImage::Format_Grayscale8);
    for (int y = 0; y < height; ++y) {
        uchar *line = picture.scanLine(y);
        for (int x = 0; x < width; ++x) {
            const Colour c = pixelAt(x, y, width, height, variant);
            line[x] = uchar(channel((c.red * 3 + c.green * 6 + c.blue) / 10));
        }
    }
    return picture;
}

int largestDifference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size()) return 256;
    return int(foldDifferences(a, b, [](double sum, int step) { return std::max(sum, double(step)); }));
}

double meanDifference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size()) return 256;
    if (a.isNull()) return 0;
    return foldDifferences(a, b, [](double sum, int step) { return sum + step; }) / (3.0 * a.width() * a.height());
}
