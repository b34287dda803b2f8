#include "tables/Hoffmann.h"

#include "app/KesmiraApp.h"
#include "tables/TableLibrary.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace {

constexpr int kCounts = 17;   // Tc/Th and 16 counts
constexpr int kKeyBytes = 21; // marker, length field and the first table's counts

// Lengths that are searched together.
struct LengthGroup
{
    std::span<const quint16> lengths;
    bool innerTables; // a row must also agree in the counts of its second to fourth table

    constexpr bool holds(int length) const
    {
        return std::find(lengths.begin(), lengths.end(), length) != lengths.end();
    }
};

// What is in no list is never looked up. 194 is missing on purpose: files of that length have always kept their own
// table. 195 and 246 wait for rows.
constexpr quint16 kShortDc[] = {25, 26, 27, 28, 29};
constexpr quint16 kSingleExamples[] = {31, 181};
constexpr quint16 kTo50[] = {30, 32, 34, 35, 37, 38, 40, 41, 42, 43, 45, 46, 47, 48, 49, 50};
constexpr quint16 kTo70[] = {51, 53, 54, 55, 56, 57, 58, 60, 61, 62, 63, 64, 65, 69, 70};
constexpr quint16 kTo105[] = {71, 73, 74, 75, 76, 78, 79, 82, 84, 87, 94, 105};
constexpr quint16 kSetsFrom152[] = {152, 158, 163, 166, 167};
constexpr quint16 kSetsFrom156[] = {156, 162, 165, 169, 176, 190, 192, 197, 202};
constexpr quint16 kSetsFrom173[] = {173, 175, 186, 188, 191, 195};
constexpr quint16 kSetsFrom239[] = {239, 244, 246, 248, 252, 319};
constexpr quint16 kSetsFrom206[] = {206, 210, 212, 216, 217, 221, 234, 238, 251, 257, 259, 295};
constexpr quint16 kFullSet[] = {418};

constexpr LengthGroup kGroups[] = {
    {kShortDc, false},    {kSingleExamples, false}, {kTo50, false},       {kTo70, false},
    {kTo105, false},      {kSetsFrom152, true},     {kSetsFrom156, true}, {kSetsFrom173, true},
    {kSetsFrom239, true}, {kSetsFrom206, true},     {kFullSet, true},
};

// Rows of these lengths are told apart by their first symbols as well.
struct LongKey
{
    int length;
    int bytes;
    bool inSingleDht; // applies to a file with a single DHT too
};

constexpr LongKey kLongKeys[] = {
    {25, 27, true}, {26, 28, true}, {27, 29, true}, {28, 29, true},  {29, 29, true},
    {30, 25, true}, {31, 24, true}, {32, 25, true}, {181, 24, true}, {212, 24, false},
};

int keyBytes(int length, bool singleDht)
{
    for (const LongKey &key : kLongKeys) {
        if (key.length == length && (key.inSingleDht || !singleDht)) return key.bytes;
    }
    return kKeyBytes;
}

// A row goes on as zeros behind its end: the offsets come from the file's counts, and those may be damaged.
bool countsAgree(const QByteArray &row, quint64 offset, const quint8 *counts)
{
    quint8 own[kCounts] = {};
    const quint64 size = quint64(row.size());
    if (offset < size) std::memcpy(own, row.constData() + offset, size_t(std::min<quint64>(kCounts, size - offset)));
    return std::memcmp(own, counts, kCounts) == 0;
}

bool innerTablesAgree(const QByteArray &row)
{
    return countsAgree(row, pApp->nDhtPart2, pApp->aDhtHead2) && countsAgree(row, pApp->nDhtPart3, pApp->aDhtHead3)
        && countsAgree(row, pApp->nDhtPart4, pApp->aDhtHead4);
}

const QByteArray *findRow(const unsigned char *segment, const LengthGroup &group)
{
    const bool singleDht = pApp->nDhtCount == 1;
    for (const HuffmanRow &row : TableLibrary::current().huffmanRows()) {
        if (!group.holds(row.length)) continue;
        const int compared = std::min(keyBytes(row.length, singleDht), int(row.segment.size()));
        if (std::memcmp(segment, row.segment.constData(), size_t(compared)) != 0) continue;
        if (group.innerTables && singleDht && !innerTablesAgree(row.segment)) continue;
        return &row.segment;
    }
    return nullptr;
}

} // namespace

Hoffmann::Hoffmann() = default;
Hoffmann::~Hoffmann() = default;

unsigned char *Hoffmann::Hoffmann_table(unsigned char *segment, int length)
{
    const LengthGroup *const group = std::find_if(std::begin(kGroups), std::end(kGroups),
                                                  [length](const LengthGroup &each) { return each.holds(length); });
    if (group == std::end(kGroups)) {
        pApp->nHuffmanResultLength = 0;
        return nullptr;
    }
    const QByteArray *const row = findRow(segment, *group);
    if (!row) {
        if (!group->innerTables || pApp->nDhtCount != 1) pApp->nHuffmanResultLength = 0;
        return nullptr;
    }
    std::memcpy(pApp->aHuffmanResult, row->constData(), size_t(row->size()));
    pApp->nHuffmanResultLength = quint64(row->size());
    return pApp->aHuffmanResult;
}
