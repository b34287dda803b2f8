// The folder in which a test of the batch program works, and the pictures that it finds there.
#pragma once

#include "support/Files.h"

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A folder with the healthy pictures in/a.jpg and in/b.jpg. While it lives, temporary roots are made inside it too.
class BatchFolder
{
public:
    BatchFolder();
    ~BatchFolder();
    BatchFolder(const BatchFolder &) = delete;
    BatchFolder &operator=(const BatchFolder &) = delete;

    QString path(const QString &name) const { return m_dir.filePath(name); }
    QString path() const { return m_dir.path(); }
    /// True if no temporary root is left.
    bool isTidy() const;

private:
    QTemporaryDir m_dir;
    QByteArray m_temporary; // TMPDIR as it was
};

/// Paths of all files below the folder, hidden ones too, sorted.
QStringList filesBelow(const QString &folder);

/// Healthy, with the camera's APP1 right behind its SOI, as a sample must have it.
QByteArray cameraJpeg(int variant);
/// The same with junk in the place of all that stood in front of its SOS: no table, no frame header.
QByteArray headless(int variant);
QImage decoded(const QByteArray &jpeg);
