// JPEG marker words (ITU-T T.81, table B.1) as numbers in file order, and the sets in which the walks look them up.
#pragma once

#include <QtGlobal>

namespace jpeg {

constexpr quint16 SOF0 = 0xFFC0;
constexpr quint16 SOF1 = 0xFFC1;
constexpr quint16 SOF2 = 0xFFC2;
constexpr quint16 DHT = 0xFFC4;
constexpr quint16 RST0 = 0xFFD0;
constexpr quint16 RST7 = 0xFFD7;
constexpr quint16 SOI = 0xFFD8;
constexpr quint16 EOI = 0xFFD9;
constexpr quint16 SOS = 0xFFDA;
constexpr quint16 DQT = 0xFFDB;
constexpr quint16 DRI = 0xFFDD;
constexpr quint16 APP0 = 0xFFE0;
constexpr quint16 APP1 = 0xFFE1;
constexpr quint16 APP2 = 0xFFE2;
constexpr quint16 APP3 = 0xFFE3;
constexpr quint16 APP4 = 0xFFE4;
constexpr quint16 APP5 = 0xFFE5;
constexpr quint16 APP11 = 0xFFEB;
constexpr quint16 APP12 = 0xFFEC;
constexpr quint16 APP13 = 0xFFED;
constexpr quint16 APP14 = 0xFFEE;
constexpr quint16 APP15 = 0xFFEF;
constexpr quint16 COM = 0xFFFE;

/// Words that open or are a segment for the walks. DAC, DNL, DHP, EXP, JPGn and SOI aren't among them.
constexpr bool isSegmentMarker(quint16 word)
{
    const int code = word & 0xFF;
    if (word >> 8 != 0xFF) return false;
    if (code >= 0xC0 && code <= 0xCF) return code != 0xCC;
    if (code >= 0xD0 && code <= 0xDF) return code != 0xD8 && code != 0xDC && code != 0xDE && code != 0xDF;
    return (code >= 0xE0 && code <= 0xEF) || code == 0xFE;
}

/// Words that must follow an SOI for it to count as the start of an image.
constexpr bool isImageOpener(quint16 word)
{
    switch (word) {
    case DQT:
    case DHT:
    case APP0:
    case APP1:
    case APP2:
    case APP3:
    case SOF0:
    case SOS:
    case APP13:
    case APP14: return true;
    default: return false;
    }
}

constexpr bool isAppSegment(quint16 word)
{
    return word >= APP0 && word <= APP15;
}

constexpr bool isFrameHeader(quint16 word)
{
    return word == SOF0 || word == SOF1 || word == SOF2;
}

/// FF codes that may stand in entropy data untouched: a stuffed zero, or any segment marker.
constexpr bool isLegalInScan(quint16 word)
{
    return word == 0xFF00 || isSegmentMarker(word);
}

} // namespace jpeg
