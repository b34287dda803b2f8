#include "BatchFolder.h"

#include "support/Damage.h"
#include "support/Pictures.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTest>

BatchFolder::BatchFolder() : m_temporary(qgetenv("TMPDIR"))
{
    if (!QDir(m_dir.path()).mkdir("tmp")) qFatal("no folder for the test");
    qputenv("TMPDIR", QFile::encodeName(path("tmp")));
    write(path("in/a.jpg"), healthyJpeg());
    write(path("in/b.jpg"), healthyJpeg());
}

BatchFolder::~BatchFolder()
{
    if (m_temporary.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", m_temporary);
}

bool BatchFolder::isTidy() const
{
    return QDir(path("tmp")).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

QStringList filesBelow(const QString &folder)
{
    QStringList found;
    QDirIterator each(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (each.hasNext()) found << each.next().mid(folder.size() + 1);
    found.sort();
    return found;
}

QByteArray cameraJpeg(int variant)
{
    JpegOptions options;
    options.jfif = false;
    options.segments = {exifSegment(QByteArray())};
    return makeJpeg(drawPicture(96, 64, variant), options);
}

QByteArray headless(int variant)
{
    return Damage(cameraJpeg(variant)).dropHead(upTo(0xFFDA)).junkInFront(20);
}

QImage decoded(const QByteArray &jpeg)
{
    return QImage::fromData(jpeg, "JPG");
}
