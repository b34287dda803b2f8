#include "engine/raw/RawFields.h"

#include "app/StopFlag.h"

#include <QtEndian>

#include <cstring>
#include <limits>

namespace {

constexpr char kLittleHeader[] = {0x49, 0x49, 0x2A, 0, 8, 0, 0, 0};
constexpr char kBigHeader[] = {0x4D, 0x4D, 0, 0x2A, 0, 0, 0, 8};

constexpr quint64 kLastOffset = std::numeric_limits<quint32>::max();

} // namespace

void RawFields::read(quint64 at, int count)
{
    std::memset(m_scratch, 0, sizeof m_scratch);
    m_file.read(at, m_scratch, count);
    m_next = at + quint64(count);
}

bool RawFields::holds(quint32 at, const char *text, int count)
{
    char bytes[8];
    m_file.read(at, bytes, count);
    m_next = quint64(at) + quint64(count);
    return std::memcmp(bytes, text, size_t(count)) == 0;
}

bool RawFields::holdsTiffHeader(quint32 at, bool bigEndian)
{
    return holds(at, bigEndian ? kBigHeader : kLittleHeader, sizeof kBigHeader);
}

std::optional<quint32> RawFields::findTiffHeader(quint32 from, quint32 end)
{
    for (quint32 at = from; at < end && !stopRequested(); ++at) {
        const quint8 letter = m_file.byteAt(at);
        if (letter != kLittleHeader[0] && letter != kBigHeader[0]) continue;
        const bool bigEndian = letter == kBigHeader[0];
        if (!holdsTiffHeader(at, bigEndian)) continue;
        setBigEndian(bigEndian);
        return at;
    }
    return {};
}

quint16 RawFields::word(quint64 at)
{
    return wordIf(true, at);
}

quint32 RawFields::dword(quint64 at)
{
    return dwordIf(true, at);
}

quint16 RawFields::wordIf(bool inside, quint64 at)
{
    if (inside) read(at, 2);
    return m_bigEndian ? qFromBigEndian<quint16>(m_scratch) : qFromLittleEndian<quint16>(m_scratch);
}

quint32 RawFields::dwordIf(bool inside, quint64 at)
{
    if (inside) read(at, 4);
    return m_bigEndian ? qFromBigEndian<quint32>(m_scratch) : qFromLittleEndian<quint32>(m_scratch);
}

quint16 RawFields::tag(quint64 at)
{
    read(at, 2);
    return qFromLittleEndian<quint16>(m_scratch);
}

bool RawFields::matches(quint16 tag, quint16 wanted, TagForms forms)
{
    return tag == wanted || (forms == TagForms::Both && tag == qbswap(wanted));
}

std::optional<quint64> RawFields::find(quint64 first, quint64 bytes, quint16 wanted, TagForms forms)
{
    for (quint64 at = first; at < first + bytes && at <= kLastOffset && !stopRequested(); at += kEntry)
        if (matches(tag(at), wanted, forms)) return at;
    return {};
}

quint32 RawFields::valueOf(quint64 first, quint64 bytes, quint16 wanted, TagForms forms)
{
    const auto entry = find(first, bytes, wanted, forms);
    return entry ? dword(*entry + 8) : 0;
}

RawImage RawFields::pair(quint64 first, quint64 bytes, const PairWalk &walk)
{
    RawImage image;
    const quint64 end = first + bytes;
    for (quint64 at = first; at < end;) {
        const auto entry = find(at, end - at, walk.startTag, walk.forms);
        if (!entry) break;
        image.start = dwordIf(!walk.guardsStart || *entry + 20 < m_file.size(), *entry + 8) + walk.base;
        if (matches(tag(*entry + kEntry), walk.lengthTag, walk.forms)) {
            image.length = dwordIf(!walk.guardsLength || *entry + 24 < m_file.size(), *entry + 20);
            break;
        }
        if (!walk.goesOn) break;
        at = *entry + 2 * kEntry;
    }
    return image;
}
