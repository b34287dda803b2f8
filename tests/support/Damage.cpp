#include "support/Damage.h"

#include "support/Pictures.h"

Place at(int marker, int index)
{
    return {Place::Segment, marker, index, 2};
}

Place upTo(int marker, int index)
{
    return {Place::Segment, marker, index, 0};
}

Place inScan(qint64 index)
{
    return {Place::Scan, words::SOS, 0, index};
}

Place fromStart(qint64 offset)
{
    return {Place::Start, 0, 0, offset};
}

Place fromEnd(qint64 bytes)
{
    return {Place::End, 0, 0, -bytes};
}

Damage::Damage(const QByteArray &healthy) : m_bytes(healthy), m_places(segmentPlaces(healthy)) {}

qint64 Damage::offsetOf(Place place) const
{
    qint64 base = 0;
    if (place.m_kind == Place::End) base = m_bytes.size();
    if (place.m_kind == Place::Segment || place.m_kind == Place::Scan) {
        int left = place.m_index;
        const SegmentPlace *found = nullptr;
        for (const SegmentPlace &segment : m_places) {
            if (segment.marker != place.m_marker || left-- > 0) continue;
            found = &segment;
            break;
        }
        if (!found) qFatal("Damage: the file has no segment %04x number %d", place.m_marker, place.m_index);
        base = found->offset + (place.m_kind == Place::Scan ? 2 + found->length : 0);
    }
    const qint64 offset = base + place.m_shift;
    if (offset < 0 || offset > m_bytes.size()) qFatal("Damage: place %lld lies outside the file", offset);
    return offset;
}

void Damage::shift(qint64 from, qint64 by)
{
    for (SegmentPlace &segment : m_places)
        if (segment.offset >= from) segment.offset += by;
}

Damage &Damage::zero(Place place, int count)
{
    return fill(place, count, 0);
}

Damage &Damage::fill(Place place, int count, char value)
{
    return put(place, QByteArray(count, value));
}

Damage &Damage::put(Place place, const QByteArray &bytes)
{
    const qint64 offset = offsetOf(place);
    if (offset + bytes.size() > m_bytes.size()) qFatal("Damage: put() reaches behind the file's end");
    m_bytes.replace(int(offset), bytes.size(), bytes);
    return *this;
}

Damage &Damage::insert(Place place, const QByteArray &bytes)
{
    const qint64 offset = offsetOf(place);
    m_bytes.insert(int(offset), bytes);
    shift(offset, bytes.size());
    return *this;
}

Damage &Damage::remove(Place place, int count)
{
    const qint64 offset = offsetOf(place);
    m_bytes.remove(int(offset), count);
    shift(offset, -count);
    return *this;
}

Damage &Damage::cutAt(Place place)
{
    m_bytes.truncate(int(offsetOf(place)));
    return *this;
}

Damage &Damage::dropHead(Place place)
{
    return remove(fromStart(0), int(offsetOf(place)));
}

Damage &Damage::junkInFront(int count)
{
    return insert(fromStart(0), junk(count));
}

Damage &Damage::append(const QByteArray &bytes)
{
    m_bytes += bytes;
    return *this;
}

QByteArray healthyJpeg(const JpegOptions &options)
{
    return makeJpeg(drawPicture(48, 32), options);
}

Damage healthy(const JpegOptions &options)
{
    return Damage(healthyJpeg(options));
}
