#include "engine/heic/ReadingCopy.h"

#include "engine/Guards.h"
#include "engine/heic/Boxes.h"
#include "engine/heic/ByteWriter.h"
#include "engine/heic/HeicRoad.h"
#include "engine/heic/HeicTemplates.h"
#include "save/ScratchFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr quint64 kMetaSizeAt = heic::kFileType.size();
constexpr quint64 kBoxesAt = kMetaSizeAt + 4 + heic::kMetaFront.size();
constexpr quint32 kEntrySize = 16;
constexpr quint64 kLargestInMemory = quint64(1) << 30;

template<size_t N>
bool standsAt(FileWindow &file, quint64 offset, const std::array<quint8, N> &wanted)
{
    std::array<quint8, N> found;
    file.read(offset, found.data(), qint64(N));
    return found == wanted;
}

/// Big-endian numbers of a box's body; zeros past its end.
class Body
{
public:
    explicit Body(const QByteArray &bytes) : m_bytes(bytes) {}
    int size() const { return m_bytes.size(); }
    quint8 byte(int at) const { return at >= 0 && at < m_bytes.size() ? quint8(m_bytes[at]) : quint8(0); }
    quint16 word(int at) const { return quint16(byte(at) << 8 | byte(at + 1)); }
    quint32 number(int at) const { return quint32(word(at)) << 16 | word(at + 2); }

private:
    const QByteArray &m_bytes;
};

struct Part
{
    quint32 type;
    QByteArray bytes; ///< the whole box
};

/// The boxes of `body` from `at` on, as long as they fit.
std::vector<Part> partsOf(const QByteArray &body, int at)
{
    std::vector<Part> parts;
    while (body.size() - at >= 8) {
        const quint32 size = Body(body).number(at);
        if (size < 8 || size > quint32(body.size() - at)) break;
        parts.push_back({Body(body).number(at + 4), body.mid(at, int(size))});
        at += int(size);
    }
    return parts;
}

struct IndexEntry
{
    quint16 item;
    quint16 construction;
    quint32 offset;
    quint32 length;
};

/// A rewritten file, taken apart.
class Rewritten
{
public:
    explicit Rewritten(FileWindow &file) : m_file(file) {}

    /// "" or why the file can't be taken apart.
    QString read();
    QByteArray compose() const;
    quint64 tilesAt() const { return m_tilesAt; }

private:
    QString readBoxes(quint64 &at);
    QString readIndex(quint64 at);
    bool isPlaced(quint32 item) const { return item < m_placed.size() && m_placed[item]; }
    QString keepItems();
    void keepReferences();
    QByteArray index(quint32 tilesAt) const;

    FileWindow &m_file;
    QByteArray m_items, m_references, m_properties, m_data; // the copied boxes, whole
    std::vector<IndexEntry> m_index;
    std::vector<bool> m_placed; // by item
    quint64 m_tilesAt = 0;
    quint16 m_grid = 0;
};

QString Rewritten::read()
{
    if (!isRewrittenHeic(m_file)) return QStringLiteral("the file holds image tiles alone, or isn't a rewritten one");
    quint64 at = kBoxesAt;
    QString problem = readBoxes(at);
    if (problem.isEmpty()) problem = readIndex(at);
    if (problem.isEmpty()) problem = keepItems();
    if (problem.isEmpty()) keepReferences();
    return problem;
}

QString Rewritten::readBoxes(quint64 &at)
{
    struct Wanted
    {
        quint32 type;
        QByteArray &bytes;
    };
    const Wanted all[] = {{boxType("iinf"), m_items},
                          {boxType("iref"), m_references},
                          {boxType("iprp"), m_properties},
                          {boxType("idat"), m_data}};
    quint64 bytesInAll = 0;
    for (const Wanted &wanted : all) {
        const Box found = boxAt(m_file, at + 4);
        if (fourBytesAt(m_file, at + 4) != wanted.type) continue; // it was lost, and left out
        bytesInAll += found.size;
        if (found.size < 8 || found.size > m_file.size() - at || bytesInAll > guards::kHeicDescription)
            return QStringLiteral("a box that describes the picture is broken");
        wanted.bytes.resize(int(found.size));
        m_file.read(at, wanted.bytes.data(), found.size);
        at += found.size;
    }
    return {};
}

QString Rewritten::readIndex(quint64 at)
{
    const quint64 entries = at + 16;
    const bool asWritten = fourBytesAt(m_file, at + 4) == boxType("iloc") && fourBytesAt(m_file, at + 8) == 0x01000000
        && m_file.wordAt(at + 12) == 0x4400;
    const quint32 count = m_file.wordAt(at + 14);
    // Behind the entries stand the four bytes that end the skeleton.
    m_tilesAt = entries + quint64(count) * kEntrySize + 4;
    if (!asWritten || m_tilesAt >= m_file.size()) return QStringLiteral("the index of the picture's tiles is broken");
    m_placed.resize(size_t(UINT16_MAX) + 1);
    for (quint64 entry = entries; entry < entries + quint64(count) * kEntrySize; entry += kEntrySize) {
        const IndexEntry read{m_file.wordAt(entry), m_file.wordAt(entry + 2), fourBytesAt(m_file, entry + 8),
                              fourBytesAt(m_file, entry + 12)};
        if (read.construction == 0 && read.offset < m_tilesAt)
            return QStringLiteral("the index of the picture's tiles is broken");
        m_index.push_back(read);
        m_placed[read.item] = true;
    }
    return {};
}

QString Rewritten::keepItems()
{
    // An entry count that fits a layout is one of two bytes, and so are the numbers of the items then.
    QByteArray kept;
    quint16 count = 0;
    for (const Part &part : partsOf(m_items, 14)) {
        const Body entry(part.bytes);
        const quint16 item = entry.word(12);
        if (part.type != boxType("infe") || !m_placed[item] || count == UINT16_MAX) continue;
        kept += part.bytes;
        ++count;
        if (m_grid == 0 && entry.number(16) == boxType("grid")) m_grid = item;
    }
    if (m_grid == 0) return QStringLiteral("no item of the file puts the picture's tiles together");
    QByteArray body;
    put<quint32>(body, 0); // version 0: a count of two bytes
    put<quint16>(body, count);
    m_items = box(boxType("iinf"), body + kept);
    return {};
}

void Rewritten::keepReferences()
{
    if (m_references.isEmpty()) return;
    const bool wide = Body(m_references).byte(8) != 0;
    const auto itemAt = [wide](const Body &body, int at) { return wide ? body.number(at) : body.word(at); };
    const int step = wide ? 4 : 2;
    QByteArray kept = m_references.mid(8, 4);
    for (const Part &part : partsOf(m_references, 12)) {
        const Body reference(part.bytes);
        bool good = part.type == boxType("dimg") && isPlaced(itemAt(reference, 8));
        const int targets = reference.word(8 + step);
        if (10 + step + targets * step > reference.size()) good = false;
        for (int i = 0; good && i < targets; ++i) good = isPlaced(itemAt(reference, 10 + step + i * step));
        if (good) kept += part.bytes;
    }
    m_references = box(boxType("iref"), kept);
}

/// The entries as they were, for tiles that begin at `tilesAt`.
QByteArray Rewritten::index(quint32 tilesAt) const
{
    QByteArray body;
    put<quint32>(body, 0x01000000);
    put<quint16>(body, 0x4400);
    put<quint16>(body, quint16(m_index.size()));
    for (const IndexEntry &entry : m_index) {
        const quint32 shifted = quint32(entry.offset - m_tilesAt + tilesAt);
        putIndexEntry(body, entry.item, entry.construction, entry.construction == 0 ? shifted : entry.offset,
                      entry.length);
    }
    return box(boxType("iloc"), body);
}

QByteArray Rewritten::compose() const
{
    const auto *meta = reinterpret_cast<const char *>(heic::kMetaFront.data());
    QByteArray body(4, 0);
    body.append(meta + heic::kHandlerAt, int(heic::kHandlerSize));
    QByteArray primary(4, 0);
    put<quint16>(primary, m_grid);
    body += box(boxType("pitm"), primary) + m_items + m_references + m_properties + m_data;

    const QByteArray fileType(reinterpret_cast<const char *>(heic::kFileType.data()), int(heic::kFileType.size()));
    const int indexSize = index(0).size();
    const auto tilesAt = quint32(fileType.size() + 8 + body.size() + indexSize + 8);
    QByteArray front = fileType + box(boxType("meta"), body + index(tilesAt));
    put<quint32>(front, quint32(m_file.size() - m_tilesAt + 8));
    put<quint32>(front, boxType("mdat"));
    return front;
}

} // namespace

bool isRewrittenHeic(FileWindow &file)
{
    return standsAt(file, 0, heic::kFileType) && standsAt(file, kMetaSizeAt + 4, heic::kMetaFront);
}

ReadingCopy makeReadingCopy(FileWindow &file)
{
    ReadingCopy copy;
    Rewritten rewritten(file);
    copy.problem = rewritten.read();
    if (!copy.problem.isEmpty()) return copy;
    copy.front = rewritten.compose();
    copy.tilesAt = rewritten.tilesAt();
    if (quint64(copy.front.size()) + file.size() - copy.tilesAt >= kHeicSizeLimit)
        copy.problem = QStringLiteral("the file is too large");
    return copy;
}

QByteArray readingCopyBytes(FileWindow &file, QString &problem)
{
    ReadingCopy copy = makeReadingCopy(file);
    problem = copy.problem;
    const quint64 tiles = file.size() - copy.tilesAt;
    if (problem.isEmpty() && tiles > kLargestInMemory) problem = QStringLiteral("the file is too large");
    if (!problem.isEmpty()) return {};
    QByteArray bytes = copy.front;
    bytes.resize(copy.front.size() + int(tiles));
    file.read(copy.tilesAt, bytes.data() + copy.front.size(), qint64(tiles));
    return bytes;
}

QByteArray readableHeicBytes(FileWindow &file, QString &problem)
{
    if (!file.isOpen()) {
        problem = QStringLiteral("the file can't be read");
    } else if (file.size() > kLargestInMemory) {
        problem = QStringLiteral("the file is too large");
    } else if (isRewrittenHeic(file)) {
        return readingCopyBytes(file, problem);
    } else {
        QByteArray bytes(int(file.size()), 0);
        file.read(0, bytes.data(), bytes.size());
        if (bytes.mid(4, 4) == "ftyp") return bytes;
        problem = QStringLiteral("it isn't a HEIC, or holds image tiles alone");
    }
    return {};
}

QString writeReadingCopy(const QString &rewritten, const QString &target, bool *isDiskFault)
{
    FileWindow file(rewritten);
    if (isDiskFault) *isDiskFault = !file.isOpen();
    if (!file.isOpen()) return QStringLiteral("the file can't be read");
    const ReadingCopy copy = makeReadingCopy(file);
    if (!copy.problem.isEmpty()) return copy.problem;
    FILE *out = createOutput(target);
    if (out) {
        writeBytes(out, copy.front.constData(), copy.front.size());
        blockCopy(file, copy.tilesAt, qint64(file.size() - copy.tilesAt), out);
    }
    if (closeFile(out)) return {};
    if (isDiskFault) *isDiskFault = true;
    dropFile(target);
    return QStringLiteral("the reading copy can't be written");
}

QString readableName(const QString &name)
{
    return QFileInfo(name).completeBaseName() + QLatin1String("_readable.heic");
}
