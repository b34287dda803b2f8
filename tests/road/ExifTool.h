// Another reader's opinion about the pictures in a raw file.
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

/// False where exiftool isn't installed; Debian has it in libimage-exiftool-perl.
inline bool hasExifTool()
{
    return !QStandardPaths::findExecutable("exiftool").isEmpty();
}

/// For each of the files the pictures that exiftool takes out of it, by its name for them.
inline QVector<QMap<QString, QByteArray>> exifToolPictures(const QStringList &paths)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(
        "exiftool",
        QStringList{"-j", "-b", "-ThumbnailImage", "-PreviewImage", "-JpgFromRaw", "-OtherImage", "-PhotoshopThumbnail"}
            + paths);
    process.waitForFinished(120000);
    QVector<QMap<QString, QByteArray>> all;
    for (const QJsonValue &value : QJsonDocument::fromJson(process.readAllStandardOutput()).array()) {
        const QJsonObject object = value.toObject();
        QMap<QString, QByteArray> pictures;
        for (auto it = object.begin(); it != object.end(); ++it)
            if (it->toString().startsWith("base64:"))
                pictures[it.key()] = QByteArray::fromBase64(it->toString().mid(7).toLatin1());
        all << pictures;
    }
    return all;
}
