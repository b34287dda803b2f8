// Numbers and boxes on their way into a HEIC.
#pragma once

#include <QByteArray>
#include <QtEndian>

/// Appends a number, high byte first.
template<typename Number>
void put(QByteArray &bytes, Number value)
{
    const Number ordered = qToBigEndian(value);
    bytes.append(reinterpret_cast<const char *>(&ordered), int(sizeof ordered));
}

/// One item of an index, with one extent: offsets and lengths of four bytes, no base offset.
inline void putIndexEntry(QByteArray &bytes, quint16 item, quint16 construction, quint32 offset, quint32 length)
{
    put<quint16>(bytes, item);
    put<quint16>(bytes, construction);
    put<quint16>(bytes, 0); // in this file
    put<quint16>(bytes, 1);
    put<quint32>(bytes, offset);
    put<quint32>(bytes, length);
}

/// A box of the version 0 or another around its body.
inline QByteArray box(quint32 type, const QByteArray &body)
{
    QByteArray bytes;
    put<quint32>(bytes, quint32(body.size()) + 8);
    put<quint32>(bytes, type);
    return bytes + body;
}
