#include "screenshots/FewColours.h"

#include <QHash>

#include <algorithm>

namespace {

/// Colours that look alike: the pixels near one colour, and the one that most of them have.
struct Cluster
{
    int pixels = 0;
    QRgb colour = 0;
    int pixelsOfColour = 0;
};

QVector<Cluster> clustersOf(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
    QHash<QRgb, Cluster> clusters;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        Cluster &cluster = clusters[it.key() & 0xf8f8f8];
        cluster.pixels += it.value();
        if (it.value() < cluster.pixelsOfColour || (it.value() == cluster.pixelsOfColour && it.key() < cluster.colour))
            continue; // of equals the brighter one, so that each run gives the same picture
        cluster.colour = it.key();
        cluster.pixelsOfColour = it.value();
    }
    return clusters.values().toVector();
}

} // namespace

QImage withFewColours(const QImage &picture)
{
    QVector<Cluster> clusters = clustersOf(picture);
    std::sort(clusters.begin(), clusters.end(), [](const Cluster &a, const Cluster &b) {
        return a.pixels != b.pixels ? a.pixels > b.pixels : a.colour > b.colour;
    });
    QVector<QRgb> table;
    for (const Cluster &cluster : clusters.mid(0, 256)) table.append(cluster.colour);
    return picture.convertToFormat(QImage::Format_Indexed8, table, Qt::ThresholdDither | Qt::AvoidDither);
}
