#include "FuzzRun.h"

#include "app/WorkingRoot.h"
#include "engine/Judge.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace {

QString folder()
{
    // Memory, where the system offers it: a target writes thousands of files a second.
    static QTemporaryDir made(QDir(QStringLiteral("/dev/shm")).exists()
                                  ? QStringLiteral("/dev/shm/fuzz-XXXXXX")
                                  : QDir::tempPath() + QStringLiteral("/fuzz-XXXXXX"));
    return made.path();
}

} // namespace

void prepareFuzzRun()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);
    static const bool ready = [] {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        // A few bytes of an input may ask for gigabytes, and decoding them would be all that a target does.
        setPictureMemoryLimit(32 * 1024 * 1024);
        QDir().mkpath(folder() + QStringLiteral("/root"));
        setWorkingRoot(folder() + QStringLiteral("/root"));
        const QString trouble = prepareWorkingRoot();
        demand(trouble.isEmpty(), qPrintable(trouble));
        return true;
    }();
    Q_UNUSED(ready)
}

QString fuzzSource(const QString &name, const QByteArray &bytes)
{
    const QString path = folder() + QLatin1Char('/') + name;
    QFile file(path);
    demand(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the source can't be written");
    return path;
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void demand(bool holds, const char *message)
{
    if (holds) return;
    std::fprintf(stderr, "%s\n", message);
    std::abort();
}
