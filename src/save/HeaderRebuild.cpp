// SaveFile: a new JPEG from the segments on a chain, with tables from the library and the scan's illegal codes gone.

#include "app/StopFlag.h"
#include "engine/FileWindow.h"
#include "engine/Markers.h"
#include "save/BytePatcher.h"
#include "save/FaultSet.h"
#include "save/SaveFile.h"
#include "save/ScratchFile.h"
#include "tables/Hoffmann.h"
#include "tables/Quantization.h"

#include <array>
#include <cstring>

namespace {

constexpr int kBlock = 1024;
constexpr int kTableHead = 17; // Tc/Th byte and 16 counts, ITU-T T.81 B.2.4.2
using Item = std::array<quint8, kBlock>;

bool isWritten(quint16 marker)
{
    return marker == jpeg::DQT || marker == jpeg::DHT || marker == jpeg::SOS || marker == jpeg::DRI
        || jpeg::isFrameHeader(marker);
}

/// Bytes of the segment from its marker on; the scan's reach to its end node, or to two bytes before the file's end.
template<typename Node>
qint32 segmentBytes(const Node &node)
{
    if (node.wMarker != jpeg::SOS) return node.wLength + 2;
    const bool endNode = node.pNext && node.pNext->wMarker == jpeg::EOI;
    const qint64 end = endNode ? node.pNext->nOffset : qint64(pApp->nFileSize);
    return qint32(quint32(end - node.nOffset));
}

/// Writes the segments of one image, one function for each kind.
class SegmentWriter
{
public:
    SegmentWriter(FileWindow &in, FILE *out) : m_in(in), m_out(out) {}

    void write(const SegmentNode &node, qint32 bytes)
    {
        const auto marker = quint64(node.nOffset - 2);
        const qint32 rest = bytes % kBlock;
        switch (node.wMarker) {
        case jpeg::DQT: quantizationTables(node, marker, bytes); break;
        case jpeg::DHT: huffmanTables(node, marker, rest); break;
        case jpeg::SOS:
            if (!m_scanStarted) pApp->nHeaderBytes = quint64(fileLength(m_out));
            m_scanStarted = true;
            copy(marker, bytes);
            break;
        default: put(source(marker, rest), rest); break;
        }
    }

private:
    Item source(quint64 marker, qint32 count)
    {
        Item item = {};
        m_in.read(marker, item.data(), count);
        return item;
    }
    void put(const Item &item, qint32 count) { writeBytes(m_out, item.data(), count); }
    void copy(quint64 marker, qint32 bytes) { blockCopy(m_in, marker, bytes, m_out); }

    void quantizationTables(const SegmentNode &node, quint64 marker, qint32 bytes)
    {
        if (node.wLength != 67 && node.wLength != 132 && node.wLength != 197) return copy(marker, bytes);
        Quantization().Quantization_table();
        if (node.wLength == 67) ++pApp->nDqtIndex;
        if (pApp->bQuantNotFound) return copy(marker, bytes);

        const Item before = source(marker, bytes);
        Item table = {};
        if (node.wLength == 67) {
            // Renumbered in the order of replacement. A fourth table has no number, and no component would use it.
            std::memcpy(table.data(), pApp->aQuantOne, sizeof pApp->aQuantOne);
            std::memcpy(table.data(), before.data(), 4);
            table[4] = quint8(m_replacedDqt);
        } else if (node.wLength == 132) {
            std::memcpy(table.data(), pApp->aQuantPair, sizeof pApp->aQuantPair);
        } else {
            std::memcpy(table.data(), pApp->aQuantTriple, sizeof pApp->aQuantTriple);
        }
        if (node.wLength != 67 || m_replacedDqt <= 2) {
            put(table, bytes % kBlock);
            if (table != before && pApp->nSavePhase != 1)
                ++pApp->report.dqtReplaced; // of a nested image it is no repair
        }
        pApp->bQuantNotFound = true;
        ++m_replacedDqt;
    }

    void huffmanTables(const SegmentNode &node, quint64 marker, qint32 rest)
    {
        const Item before = source(marker, rest);
        if (pApp->nDhtCount == 1) findInnerTables(before);
        std::array<quint8, 32> key = {};
        const size_t keyBytes = node.wLength < 25 ? 21 : node.wLength == 25 ? 27 : node.wLength == 26 ? 28 : 32;
        std::memcpy(key.data(), before.data(), keyBytes);
        pApp->nHuffmanResultLength = 0;
        Hoffmann().Hoffmann_table(key.data(), node.wLength);
        if (pApp->nHuffmanResultLength == 0) return put(before, rest);

        Item table = {};
        std::memcpy(table.data(), pApp->aHuffmanResult, size_t(pApp->nHuffmanResultLength));
        put(table, rest); // the source's size: a longer table is cut, a shorter one ends in zeros
        const bool same = std::memcmp(table.data(), before.data(), size_t(rest)) == 0;
        if (!same && pApp->nSavePhase != 1) ++pApp->report.dhtReplaced;
    }

    /// All tables in one segment: where the second to fourth begin, by the counts of those in front of them.
    static void findInnerTables(const Item &segment)
    {
        const auto at = [&segment](quint32 offset) { return offset < kBlock ? segment[offset] : quint8(0); };
        const auto behind = [&at](quint32 table) {
            quint32 end = table + kTableHead;
            for (quint32 i = 1; i < kTableHead; ++i) end += at(table + i);
            return end;
        };
        const auto take = [&at](quint32 table, quint8 *head) {
            for (quint32 i = 0; i < kTableHead; ++i) head[i] = at(table + i);
        };
        const quint32 second = behind(4);
        const quint32 third = behind(second);
        const quint32 fourth = behind(third);
        take(second, pApp->aDhtHead2);
        take(third, pApp->aDhtHead3);
        take(fourth, pApp->aDhtHead4);
        pApp->nDhtPart2 = second;
        pApp->nDhtPart3 = third;
        pApp->nDhtPart4 = fourth;
    }

    FileWindow &m_in;
    FILE *m_out;
    quint16 m_replacedDqt = 0;
    bool m_scanStarted = false;
};

/// Overwrites the FF of each illegal code. The list may still hold the codes of the main image while a nested one is
/// written; they are applied all the same.
/// False if a byte could not be written.
bool neutraliseFaults(FILE *out)
{
    BytePatcher patcher(out);
    qint64 codes = 0;
    for (const tagScanFault *fault = pApp->pScanFaultHead; fault && !stopRequested(); fault = fault->pNext) {
        fault->forEach([&](qint64 distance) { patcher.zero(qint64(pApp->nHeaderBytes) + distance); });
        codes += qint64(fault->count());
    }
    if (pApp->nSavePhase == 2) pApp->report.codesNeutralised = codes;
    return patcher.finish();
}

/// The same with what all images of a stream had so far.
bool neutraliseFaults(FILE *out, const FaultSet &faults)
{
    BytePatcher patcher(out);
    const auto header = qint64(pApp->nHeaderBytes);
    faults.forEach(patcher.size() - header, [&](qint64 distance) { patcher.zero(header + distance); });
    if (faults.last() >= 0) patcher.zero(header + faults.last());
    if (pApp->nSavePhase == 2) pApp->report.codesNeutralised = faults.count();
    return patcher.finish();
}

constexpr quint8 kStart[] = {0xFF, 0xD8};
constexpr quint8 kEnd[] = {0xFF, 0xD9};

} // namespace

template<typename Node>
void SaveFile::writeFormat(FILE *out, const Node *start)
{
    writeBytes(out, kStart, sizeof kStart);
    FileWindow in(pApp->bWorkOnTempCopy ? pApp->strTempCopyPath : pApp->strCurrentPath);
    if (!in.isOpen() && pApp->bWorkOnTempCopy) m_lost = true;
    if (in.isOpen()) {
        SegmentWriter writer(in, out);
        for (const Node *node = start; node; node = node->pNext) {
            const qint32 bytes = segmentBytes(*node);
            if (node->wLength == 132 || node->wLength == 67 || node->wLength == 197)
                if (node->wMarker == jpeg::DQT) pApp->nDqtLength = node->wLength;
            if (isWritten(node->wMarker) && bytes > 0) writer.write(*node, bytes);
        }
    }
    writeBytes(out, kEnd, sizeof kEnd);
}

void SaveFile::SaveStart_newFormat(FILE *out, unsigned int skipMode)
{
    writeFormat(out, startNode(skipMode));
    if (!neutraliseFaults(out)) m_lost = true;
}

void SaveFile::SaveStart_newFormatRaw(FILE *out)
{
    writeFormat<tagMainListRaw>(out, pApp->pMainListRawHead);
    m_streamFaults.takeChain();
    if (!neutraliseFaults(out, m_streamFaults)) m_lost = true;
}
