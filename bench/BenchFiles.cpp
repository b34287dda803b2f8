#include "BenchFiles.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <cstring>
#include <fcntl.h>
#include <random>
#include <unistd.h>
#include <vector>

namespace {

bool small()
{
    return qEnvironmentVariableIsSet("KESMIRA_BENCH_SMALL");
}

/// Gradients under fine noise: compresses like a photograph and decodes at the same pace.
QImage picture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    std::minstd_rand random(7);
    for (int y = 0; y < height; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const int noise = int(random() >> 8 & 31);
            const auto level = [noise](int value) { return qBound(0, value + noise, 255); };
            line[x] = qRgb(level(x * 200 / width), level(y * 200 / height), level((x + y) * 100 / (width + height)));
        }
    }
    return image;
}

std::vector<char> entropyData(size_t bytes)
{
    std::vector<char> data(bytes);
    std::minstd_rand random(11);
    for (size_t i = 0; i < bytes; ++i) {
        data[i] = char(random() >> 8);
        if (quint8(data[i]) == 0xFF && i + 1 < bytes) data[++i] = 0;
    }
    int restart = 0;
    for (size_t i = 4096; i + 2 < bytes; i += 4096, ++restart) {
        data[i - 1] = 0; // no FF in front
        data[i] = char(0xFF);
        data[i + 1] = char(0xD0 + restart % 8);
    }
    data.back() = 1;
    return data;
}

} // namespace

QString benchFolder()
{
    static const QTemporaryDir folder;
    return folder.path();
}

QString photograph()
{
    static const QString path = [] {
        const QString made = benchFolder() + QStringLiteral("/photograph.jpg");
        picture(small() ? 400 : 4000, small() ? 300 : 3000).save(made, "JPG", 88);
        return made;
    }();
    return path;
}

QString largeJpeg()
{
    static const QString path = [] {
        const QString seed = benchFolder() + QStringLiteral("/seed.jpg");
        picture(320, 240).save(seed, "JPG", 75);
        QFile head(seed);
        QFile out(benchFolder() + QStringLiteral("/large.jpg"));
        if (!head.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly)) qFatal("no room for the benchmark");
        const QByteArray jpeg = head.readAll();
        out.write(jpeg.left(jpeg.indexOf("\xFF\xDA") + 14));
        const std::vector<char> block = entropyData(2 * 1000 * 1000);
        for (int i = 0; i < (small() ? 1 : 50); ++i) out.write(block.data(), qint64(block.size()));
        out.write("\xFF\xD9");
        return out.fileName();
    }();
    return path;
}

QString rawFile(const QByteArray &head, int megabytes)
{
    QFile out(benchFolder() + QStringLiteral("/raw-%1").arg(megabytes));
    if (!out.open(QIODevice::WriteOnly)) qFatal("no room for the benchmark");
    out.write(head);
    std::minstd_rand random(13);
    QByteArray block(1000 * 1000, '\0');
    for (char &byte : block) byte = char(random() >> 8);
    for (int i = 0; i < (small() ? 1 : megabytes); ++i) out.write(block);
    return out.fileName();
}

qint64 memchrPass(const QByteArray &path, quint8 byte)
{
    std::vector<char> block(256 * 1024);
    qint64 hits = 0;
    const int fd = ::open(path.constData(), O_RDONLY);
    for (ssize_t got = 0; (got = ::read(fd, block.data(), block.size())) > 0;) {
        const char *at = block.data();
        const char *end = at + got;
        while ((at = static_cast<const char *>(std::memchr(at, byte, size_t(end - at))))) {
            ++hits;
            if (++at == end) break;
        }
    }
    ::close(fd);
    return hits;
}
