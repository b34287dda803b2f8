// Makers of table segments and of the records that hold them, so that a test's library can be read off the test.
#pragma once

#include "tables/TableLibrary.h"

#include <QByteArray>
#include <QFile>
#include <QVector>

namespace tabletest {

inline QByteArray bigEndian(int value)
{
    QByteArray bytes;
    return bytes.append(char(value >> 8)).append(char(value));
}

/// 64 quantization values: those given, then `rest`.
inline QByteArray values(const QByteArray &hexStart, int rest)
{
    return QByteArray::fromHex(hexStart).leftJustified(64, char(rest));
}

/// A DQT segment of these tables, numbered from 0. `length` -1 stands for the true length field.
inline QByteArray dqt(const QVector<QByteArray> &tables, int length = -1)
{
    QByteArray body;
    for (int i = 0; i < tables.size(); ++i) body += char(i) + tables[i];
    return QByteArray("\xFF\xDB") + bigEndian(length < 0 ? body.size() + 2 : length) + body;
}

/// A table of a DHT: Tc/Th byte, 16 counts, symbols.
inline QByteArray huffman(int tcTh, const QByteArray &hexCounts, const QByteArray &symbols)
{
    return char(tcTh) + QByteArray::fromHex(hexCounts).leftJustified(16, '\0') + symbols;
}

inline QByteArray dht(const QByteArray &tables)
{
    return QByteArray("\xFF\xC4") + bigEndian(tables.size() + 2) + tables;
}

/// A DHT with the length field `length`: a single table of 8-bit codes below 152, four tables from there on.
inline QByteArray dhtOfLength(int length)
{
    const int tables = length < 152 ? 1 : 4;
    int symbols = length - 2 - 17 * tables;
    QByteArray body;
    for (int i = 0; i < tables; ++i) {
        const int share = i + 1 < tables ? symbols / (tables - i) : symbols;
        symbols -= share;
        body += huffman(i, "00000000000000" + QByteArray(1, char(share)).toHex(), QByteArray(share, char(0x11 + i)));
    }
    return dht(body);
}

inline QByteArray huffmanRecord(const QByteArray &segment)
{
    return QByteArray::number(segment.size() - 2) + ' ' + segment.toHex() + '\n';
}

inline QByteArray quantizationRecord(const QByteArray &family, int position, const QByteArray &segment)
{
    const char *const kind = segment.size() == 134 ? " pair " : " triple ";
    return family + kind + QByteArray::number(position) + ' ' + segment.toHex() + '\n';
}

/// The library of these texts; a test that gives a bad one ends at once.
inline TableLibrary library(const QByteArray &huffmanText, const QByteArray &quantizationText)
{
    TableLibrary made;
    QString error;
    if (!TableLibrary::load(huffmanText, quantizationText, made, &error)) qFatal("%s", qPrintable(error));
    return made;
}

/// A text of the program's own data.
inline QByteArray builtInText(const char *name)
{
    TableLibrary::builtIn(); // registers the data
    QFile file(QLatin1String(":/tables/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly)) qFatal("no %s", name);
    return file.readAll();
}

} // namespace tabletest
