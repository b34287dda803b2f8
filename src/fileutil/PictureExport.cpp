#include "fileutil/PictureExport.h"

#include "engine/heic/ReadingCopy.h"

#include <QBuffer>
#include <QColorSpace>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

ExportKind exportKind(const QString &target)
{
    const QString suffix = QFileInfo(target).suffix().toLower();
    if (suffix == "png") return ExportKind::Png;
    if (suffix == "jpg" || suffix == "jpeg") return ExportKind::Jpeg;
    return suffix == "heic" ? ExportKind::Heic : ExportKind::None;
}

/// The file as it is: decoding and encoding it once more would only lose.
static QByteArray bytesOf(const QString &source, QString &problem)
{
    QFile file(source);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (bytes.isEmpty() || bytes.size() != file.size()) problem = QStringLiteral("the file can't be read");
    return problem.isEmpty() ? bytes : QByteArray();
}

QByteArray exportBytes(ExportKind kind, const QString &source, const DecodedPicture &decoded, QString &problem)
{
    if (kind == ExportKind::Heic) {
        FileWindow file(source);
        return readableHeicBytes(file, problem);
    }
    problem = decoded.problem;
    if (!problem.isEmpty()) return {};
    if (kind == ExportKind::Jpeg && decoded.jpeg) return bytesOf(source, problem);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    const bool png = kind == ExportKind::Png;
    if (buffer.open(QIODevice::WriteOnly) && withProfile(decoded).save(&buffer, png ? "PNG" : "JPG", png ? -1 : 95))
        return bytes;
    problem = QStringLiteral("the picture can't be written in this format");
    return {};
}

QString writeNewFile(const QString &target, const QByteArray &bytes)
{
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return QStringLiteral("'%1' can't be made: %2").arg(target, file.errorString());
    if (file.write(bytes) == bytes.size() && file.flush()) return {};
    const QString problem = QStringLiteral("'%1' can't be written: %2").arg(target, file.errorString());
    file.remove();
    return problem;
}

QString replaceFile(const QString &target, const QByteArray &bytes, const QString &source)
{
    const QString standing = QFileInfo(target).canonicalFilePath();
    if (!standing.isEmpty() && standing == QFileInfo(source).canonicalFilePath())
        return QCoreApplication::translate("PicturePanel",
                                           "The file that is shown isn't replaced; choose another name.");
    QSaveFile file(target);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) return {};
    return QCoreApplication::translate("PicturePanel", "'%1' can't be written: %2").arg(target, file.errorString());
}

QImage withProfile(const DecodedPicture &decoded)
{
    QImage image = decoded.image;
    if (decoded.profile.isEmpty()) return image;
    const QColorSpace colours = QColorSpace::fromIccProfile(decoded.profile);
    if (colours.isValid()) image.setColorSpace(colours);
    return image;
}
