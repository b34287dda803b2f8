// Miniature JPEGs, segment by segment. Walks never decode, so their tests need the grammar alone: any marker, any
// length field, any payload.
#pragma once

#include <QByteArray>

#include <initializer_list>

/// Marker words in file order.
namespace words {
enum Marker {
    SOF0 = 0xFFC0,
    SOF1 = 0xFFC1,
    SOF2 = 0xFFC2,
    SOF3 = 0xFFC3,
    DHT = 0xFFC4,
    SOF9 = 0xFFC9,
    DAC = 0xFFCC,
    RST0 = 0xFFD0,
    SOI = 0xFFD8,
    EOI = 0xFFD9,
    SOS = 0xFFDA,
    DQT = 0xFFDB,
    DNL = 0xFFDC,
    DRI = 0xFFDD,
    APP0 = 0xFFE0,
    APP1 = 0xFFE1,
    APP2 = 0xFFE2,
    APP3 = 0xFFE3,
    APP12 = 0xFFEC,
    APP13 = 0xFFED,
    APP14 = 0xFFEE,
    COM = 0xFFFE
};
} // namespace words

QByteArray bytes(std::initializer_list<int> values);
/// Two bytes, high byte first.
QByteArray word(int value);
/// `count` bytes without any FF or 00, the same ones every time.
QByteArray filler(int count);
/// `count` pseudo-random bytes without any FF; another `seed` gives others.
QByteArray junk(int count, quint32 seed = 1);

/// A segment with a length field that fits its payload.
QByteArray segment(int marker, const QByteArray &payload);
/// A whole segment of this length field, filled with rubbish.
QByteArray segment(int marker, int length);
/// A segment whose length field says `length` whatever follows.
QByteArray declared(int marker, int length, const QByteArray &payload = {});

/// One 8-bit table: its number and 64 values that begin with `first`.
QByteArray quantTable(int number, int first);
/// A DQT of one, two or three tables whose first values are given; numbers run from 0, or from `number`.
QByteArray dqt(std::initializer_list<int> firstValues, int number = 0);
/// A frame header of three components; `selector` is the table number of the third.
QByteArray sof(int marker = words::SOF0, int width = 320, int selector = 1);
QByteArray sos();

struct MiniJpeg
{
    QByteArray front = {}; ///< between SOI and the tables
    int dqtCount = 2;      ///< DQT segments of one table
    int selector = 1;      ///< table number of the third component
    QByteArray data = filler(40);
    QByteArray operator()() const;
    QByteArray headOnly() const; ///< up to and including the SOS header
};

/// SOI, APP0, two DQT, SOF0, DHT, SOS, 40 bytes of data, EOI.
QByteArray miniJpeg();
/// The smallest bytes that count as a nested image: SOI, the head of a segment, EOI.
QByteArray nestedImage(int opener, int length, int fill = 0);
/// Pseudo-random markers, lengths, nested images and data: what no one thinks of.
QByteArray markerSoup(quint32 seed);
