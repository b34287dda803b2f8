// Writes the damaged files of the tests as seeds: `make_seeds DIR` fills DIR/damaged with JPEGs and DIR/heic with HEICs.
#include "support/Damage.h"
#include "support/HeicMaker.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

bool writeSeed(const QString &folder, int number, const QByteArray &bytes)
{
    QDir().mkpath(folder);
    QFile file(folder + QStringLiteral("/%1").arg(number));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds DIR\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    int number = 0;
    for (const Damaged &damaged : damagedJpegs())
        if (!writeSeed(folder + QStringLiteral("/damaged"), ++number, damaged.bytes)) return 1;
    number = 0;
    for (const auto &[tiles, entryCount] : {std::pair(25, 0x1C), {25, 0x1D}, {35, 0x26}, {36, 0x27}, {48, 0x33}}) {
        const MadeHeic made = makeHeic({.tiles = tiles, .entryCount = entryCount});
        for (const QByteArray &bytes : {made.bytes, expectedRewrite(made, made), made.stream})
            if (!writeSeed(folder + QStringLiteral("/heic"), ++number, bytes)) return 1;
    }
    return 0;
}
