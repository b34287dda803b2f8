// Whole raw files of every format, laid out as cameras do, with real pictures in them.
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

struct RawSample
{
    QByteArray name; ///< format and byte order
    QString suffix;
    QByteArray file;
    std::vector<QByteArray> pictures; ///< what the pointers lead to, in the order of the output numbers
    std::vector<int> pointers;        ///< places of the fields that hold their offsets
    QByteArray readBy;                ///< the words by which exiftool gives the same pictures, in order; empty for none
};

/// One of each format but CR3 in each byte order that it has. Pictures lie behind the first 1,024 bytes.
std::vector<RawSample> makeRawSamples(const QByteArray &picture, const QByteArray &thumbnail);
/// The same with rawPicture() and rawThumbnail().
const std::vector<RawSample> &rawSamples();
/// Two small pictures of different size, each with one FF D9 and nothing between FF D8 and its tables.
QByteArray rawPicture();
QByteArray rawThumbnail();
