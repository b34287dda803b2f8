// Writes the damaged files of the tests as seeds: `make_seeds DIR`.
#include "support/Damage.h"

#include <QDir>
#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds DIR\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);
    int number = 0;
    for (const Damaged &damaged : damagedJpegs()) {
        QFile file(folder + QStringLiteral("/%1").arg(++number));
        if (!file.open(QIODevice::WriteOnly) || file.write(damaged.bytes) != damaged.bytes.size()) return 1;
    }
    return 0;
}
