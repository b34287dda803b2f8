// The obvious walk over the tiles of a HEIC: what the engine's walk must give.
#pragma once

#include <QByteArray>
#include <QVector>

/// The four bytes at `at`, high byte first; zeros past the end.
inline quint32 plainNumber(const QByteArray &file, qint64 at)
{
    quint32 value = 0;
    for (int i = 0; i < 4; ++i) value = value << 8 | (at + i < file.size() ? quint8(file[int(at + i)]) : 0);
    return value;
}

inline bool plainSlice(const QByteArray &file, qint64 at)
{
    return plainNumber(file, at) == 0x2801AF84 || plainNumber(file, at) == 0x2801AF80;
}

/// Offset of the first tile's length field, found byte by byte; -1 if there is none.
inline qint64 plainFirstTile(const QByteArray &file)
{
    for (qint64 at = 0; at < file.size(); ++at)
        if (plainSlice(file, at)) return at < 4 ? -1 : at - 4;
    return -1;
}

/// From length to length: the bytes of each tile, its length field included.
inline QVector<quint32> plainTiles(const QByteArray &file)
{
    QVector<quint32> tiles;
    const qint64 first = plainFirstTile(file);
    if (first < 0) return tiles;
    for (qint64 at = first; at <= file.size();) {
        const quint32 length = plainNumber(file, at);
        if (plainSlice(file, at + 4)) tiles << length + 4;
        at += 4 + qint64(length);
    }
    return tiles;
}
