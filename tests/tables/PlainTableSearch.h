// A second, obvious reader and search of the table texts: rows are split by the toolkit, each is scored once against
// the request, and the best score wins. The engine's searches must give the same.
#pragma once

#include "app/KesmiraApp.h"

#include <QByteArray>
#include <QVector>

#include <algorithm>

namespace plainsearch {

struct Row
{
    QByteArray family;
    bool pair = false;
    int position = 0;
    QByteArray segment;
    QByteArray values(int table) const { return segment.mid(5 + 65 * table, 64); }
    quint8 value(int table, int index) const { return quint8(segment[5 + 65 * table + index]); }
    int tables() const { return pair ? 2 : 3; }
};

inline QVector<Row> rowsOf(const QByteArray &text)
{
    QVector<Row> rows;
    for (const QByteArray &each : text.split('\n')) {
        const QList<QByteArray> fields = each.simplified().split(' ');
        if (fields.first().isEmpty() || fields.first().startsWith('#')) continue;
        Row row;
        row.segment = QByteArray::fromHex(fields.last());
        if (fields.size() == 4) {
            row.family = fields[0];
            row.pair = fields[1] == "pair";
            row.position = fields[2].toInt();
        }
        rows << row;
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Row &a, const Row &b) { return a.position < b.position; });
    return rows;
}

/// First bytes that tell rows of a length field apart; 0 for lengths that are never looked up.
inline int keyBytes(int length, bool singleDht)
{
    static const QByteArray others = " 34 35 37 38 40 41 42 43 45 46 47 48 49 50 51 53 54 55 56 57 58 60 61 62 63 64 "
                                     "65 69 70 71 73 74 75 76 78 79 82 84 "
                                     "87 94 105 152 156 158 162 163 165 166 167 169 173 175 176 186 188 190 191 192 "
                                     "195 197 202 206 210 216 217 221 234 "
                                     "238 239 244 246 248 251 252 257 259 295 319 418 ";
    if (length == 25) return 27;
    if (length == 26) return 28;
    if (length >= 27 && length <= 29) return 29;
    if (length == 30 || length == 32) return 25;
    if (length == 31 || length == 181) return 24;
    if (length == 212) return singleDht ? 21 : 24;
    return others.contains(' ' + QByteArray::number(length) + ' ') ? 21 : 0;
}

inline bool hasInnerTables(int length)
{
    return length >= 152 && length != 181;
}

/// What lies at `offset` of a segment that goes on as zeros.
inline QByteArray counts(const QByteArray &segment, quint64 offset)
{
    return (offset < quint64(segment.size()) ? segment.mid(int(offset), 17) : QByteArray()).leftJustified(17, '\0');
}

/// Sets `nDhtPart2` to `aDhtHead4` from a segment, as the rebuild of a file with a single DHT does.
inline void setInnerTables(const QByteArray &segment)
{
    const auto next = [&segment](quint64 at) {
        const QByteArray head = counts(segment, at);
        for (int i = 1; i < 17; ++i) at += quint8(head[i]);
        return at + 17;
    };
    pApp->nDhtPart2 = next(4);
    pApp->nDhtPart3 = quint32(next(pApp->nDhtPart2));
    pApp->nDhtPart4 = quint32(next(pApp->nDhtPart3));
    std::copy_n(counts(segment, pApp->nDhtPart2).constData(), 17, pApp->aDhtHead2);
    std::copy_n(counts(segment, pApp->nDhtPart3).constData(), 17, pApp->aDhtHead3);
    std::copy_n(counts(segment, pApp->nDhtPart4).constData(), 17, pApp->aDhtHead4);
}

/// The row for a DHT segment, looked up by its own length field, or nothing.
inline QByteArray findHuffman(const QVector<Row> &rows, const QByteArray &segment)
{
    const bool single = pApp->nDhtCount == 1;
    const int length = quint8(segment[2]) << 8 | quint8(segment[3]);
    const int key = keyBytes(length, single);
    if (key == 0) return {};
    for (const Row &row : rows) {
        if (row.segment.left(key) != segment.left(key)) continue;
        const auto agrees = [&row](quint64 offset, const quint8 *head) {
            return counts(row.segment, offset) == QByteArray(reinterpret_cast<const char *>(head), 17);
        };
        if (!single || !hasInnerTables(length)
            || (agrees(pApp->nDhtPart2, pApp->aDhtHead2) && agrees(pApp->nDhtPart3, pApp->aDhtHead3)
                && agrees(pApp->nDhtPart4, pApp->aDhtHead4)))
            return row.segment;
    }
    return {};
}

inline QByteArray familyOf(int firstValue)
{
    switch (firstValue) {
    case 1: return "standard";
    case 2: return "standard_02";
    case 3:
    case 4:
    case 5: return "standard_3_4_5";
    case 6:
    case 7:
    case 8:
    case 9:
    case 16:
    case 18: return "standard_6_8_9_10_12";
    case 10:
    case 11:
    case 12:
    case 13:
    case 20:
    case 21:
    case 27:
    case 32:
    case 33:
    case 43:
    case 50:
    case 80: return "standard_15_21_50_others";
    default: return {};
    }
}

/// First values, 0 to 25, that a head and a row's table share.
inline int shared(const quint8 *head, const Row &row, int table)
{
    int count = 0;
    while (count < 25 && head[count] == row.value(table, count)) ++count;
    return count;
}

/// The table, pair or triple for the request in `pApp`, whose heads are complete, or nothing.
inline QByteArray findQuantization(const QVector<Row> &rows)
{
    const quint8 *const heads[] = {pApp->aQuantHead1, pApp->aQuantHead2, pApp->aQuantHead3};
    const QByteArray family = familyOf(heads[0][0]);
    const bool oneList = family == "standard" || family == "standard_02";
    const quint32 form = pApp->nDqtLength;
    const quint32 index = pApp->nDqtIndex;
    QByteArray best;
    int bestScore = 0;
    for (const bool pair : {true, false}) {
        if ((form == 132 && !pair) || (form == 197 && pair) || (form == 67 && (index > 2 || (pair && index == 2))))
            continue;
        for (const Row &row : rows) {
            if (row.family != family || row.pair != pair) continue;
            if (!oneList && row.value(0, 0) != heads[0][0]) continue;
            int weakest = 25;
            int strongest = 0;
            for (int table = 0; table < row.tables(); ++table) {
                const int score = shared(heads[form == 67 ? int(index) : table], row, table);
                if (form == 67 && score > bestScore) {
                    bestScore = score;
                    best = row.segment.left(5 + 65 * table + 64).right(69);
                }
                weakest = std::min(weakest, score);
                strongest = std::max(strongest, score);
            }
            const int score = (pair ? pApp->bQuantPairPatched : pApp->bQuantTriplePatched) ? strongest : weakest;
            if (form != 67 && score > bestScore) {
                bestScore = score;
                best = row.segment;
            }
        }
    }
    return best;
}

} // namespace plainsearch
