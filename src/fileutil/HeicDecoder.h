// Pictures out of HEIC files, by the one library that decodes them.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

struct DecodedHeic
{
    QImage image;       ///< turned and mirrored as the file says; in the colours of `profile`
    QByteArray profile; ///< ICC profile, empty where the file has none
    QString problem;    ///< one line why there is no picture; else empty
};

/// A picture of more bytes isn't decoded.
constexpr qint64 kPictureLimit = qint64(512) * 1024 * 1024;

/// The bytes of the file as a reader takes them: of a rewritten HEIC its reading copy, of any other the file as it is.
/// Null with `problem` set if they can't be had.
QByteArray readableHeicBytes(const QString &path, QString &problem);

/// Decodes the file's main picture. Takes as long as it takes, and foreign bytes reach the decoder: see DecodeProcess.
DecodedHeic decodeHeic(const QString &path);
