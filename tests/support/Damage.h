// Damage as verbs: takes a healthy JPEG and breaks it at places that are named by segment, not by number.
#pragma once

#include "support/Grammar.h"
#include "support/JpegMaker.h"

#include <QByteArray>

#include <vector>

/// A place in a JPEG. It is looked up in the healthy file and moves along when bytes in front of it come or go.
class Place
{
public:
    enum Kind { Start, End, Segment, Scan };
    Place(Kind kind, int marker, int index, qint64 shift)
        : m_kind(kind), m_marker(marker), m_index(index), m_shift(shift)
    {
    }
    Place operator+(qint64 bytes) const { return {m_kind, m_marker, m_index, m_shift + bytes}; }
    Place operator-(qint64 bytes) const { return *this + -bytes; }

private:
    friend class Damage;
    Kind m_kind;
    int m_marker;
    int m_index;
    qint64 m_shift;
};

/// The length field of the segment `marker`, counted from 0: where a node of the segment list points, too.
Place at(int marker, int index = 0);
/// The marker itself; reads best with dropHead().
Place upTo(int marker, int index = 0);
/// Byte `index` of the entropy data of the first scan.
Place inScan(qint64 index);
Place fromStart(qint64 offset);
/// `bytes` in front of the file's end.
Place fromEnd(qint64 bytes);

class Damage
{
public:
    explicit Damage(const QByteArray &healthy);

    Damage &zero(Place place, int count);
    Damage &fill(Place place, int count, char value);
    Damage &put(Place place, const QByteArray &bytes);
    template<size_t N>
    Damage &put(Place place, const char (&text)[N]) // keeps zeros in the text
    {
        return put(place, QByteArray(text, int(N) - 1));
    }
    Damage &insert(Place place, const QByteArray &bytes);
    Damage &remove(Place place, int count);
    /// Everything from there on is lost.
    Damage &cutAt(Place place);
    /// Everything in front of there is lost.
    Damage &dropHead(Place place);
    Damage &junkInFront(int count);
    Damage &append(const QByteArray &bytes);

    qint64 offsetOf(Place place) const; ///< in the bytes as they are now
    QByteArray bytes() const { return m_bytes; }
    operator QByteArray() const { return m_bytes; }

private:
    void shift(qint64 from, qint64 by);

    QByteArray m_bytes;
    std::vector<SegmentPlace> m_places;
};

/// A small healthy picture, 48 x 32, with two DQT, four DHT and an APP0 unless the options say otherwise.
QByteArray healthyJpeg(const JpegOptions &options = {});
/// The same, ready to be damaged.
Damage healthy(const JpegOptions &options = {});

struct Damaged
{
    const char *name; ///< says what is broken
    QByteArray bytes;
};

/// Files that take every turn of the walks: broken heads, tails and scans, nested images, streams, the smallest ones.
const std::vector<Damaged> &damagedJpegs();
