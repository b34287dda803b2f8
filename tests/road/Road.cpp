#include "Road.h"

#include "app/StopFlag.h"

#include <QCryptographicHash>
#include <QDirIterator>

#include <sys/stat.h>

Run::Run()
{
    const QString problem = prepareWorkingRoot();
    if (!problem.isEmpty() || !beginRun()) qFatal("Run: %s", qPrintable(problem));
}

Run::~Run()
{
    setFlag(pApp->bStopRepair, false);
}

QStringList Run::filesLeft() const
{
    QStringList names;
    const QString folder = root() + "/RepairedFiles/";
    QDirIterator it(root(), QDir::Files | QDir::System | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        names << (path.startsWith(folder) ? path.mid(folder.size()) : "../" + path.mid(root().size() + 1));
    }
    names.sort();
    return names;
}

QByteArray Run::output(const QString &place) const
{
    const QString path = root() + "/RepairedFiles/" + place;
    return QFileInfo(path).isFile() ? bytesOf(path) : QByteArray("(no file)");
}

Footprint footprint(const QString &path, qint64 readUpTo)
{
    Footprint print;
    struct stat info = {};
    if (::lstat(QFile::encodeName(path).constData(), &info) != 0) return print;
    print.size = info.st_size;
    print.inode = info.st_ino;
    print.mode = info.st_mode;
    print.modified = qint64(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec;
    print.changed = qint64(info.st_ctim.tv_sec) * 1000000000 + info.st_ctim.tv_nsec;
    if (S_ISLNK(info.st_mode)) print.digest = QFile::encodeName(QFile::symLinkTarget(path));
    if (!S_ISREG(info.st_mode) || info.st_size > readUpTo) return print;
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    if (file.open(QIODevice::ReadOnly) && hash.addData(&file)) print.digest = hash.result();
    return print;
}

namespace {

/// The decoder's complaints about broken pictures are no news here.
class Silence
{
public:
    Silence() : m_before(qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {})) {}
    ~Silence() { qInstallMessageHandler(m_before); }
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;

private:
    QtMessageHandler m_before;
};

} // namespace

QImage decoded(const QByteArray &jpeg)
{
    const Silence silence;
    QImage image;
    image.loadFromData(jpeg, "JPG");
    return image;
}

QImage decodedFile(const QString &path)
{
    const Silence silence;
    return QImage(path, "JPG");
}
