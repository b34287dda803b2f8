#include "support/Grammar.h"

using namespace words;

namespace {

/// Numbers that are the same on every machine.
class Dice
{
public:
    explicit Dice(quint32 seed) : m_state(seed * 2654435761u + 12345u) {}
    int roll(int sides)
    {
        m_state = m_state * 1664525u + 1013904223u;
        return int((m_state >> 8) % quint32(sides));
    }

private:
    quint32 m_state;
};

} // namespace

QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray all;
    for (int value : values) all.append(char(value));
    return all;
}

QByteArray word(int value)
{
    return bytes({value >> 8, value & 0xFF});
}

QByteArray filler(int count)
{
    QByteArray all;
    for (int i = 0; i < count; ++i) all.append(char(1 + i % 97));
    return all;
}

QByteArray junk(int count, quint32 seed)
{
    Dice dice(seed);
    QByteArray all;
    for (int i = 0; i < count; ++i) all.append(char(dice.roll(255)));
    return all;
}

QByteArray segment(int marker, const QByteArray &payload)
{
    return declared(marker, payload.size() + 2, payload);
}

QByteArray segment(int marker, int length)
{
    return segment(marker, filler(length - 2));
}

QByteArray declared(int marker, int length, const QByteArray &payload)
{
    return word(marker) + word(length) + payload;
}

QByteArray quantTable(int number, int first)
{
    QByteArray table = bytes({number});
    for (int i = 0; i < 64; ++i) table.append(char(first + i));
    return table;
}

QByteArray dqt(std::initializer_list<int> firstValues, int number)
{
    QByteArray tables;
    for (int first : firstValues) tables += quantTable(number++, first);
    return segment(DQT, tables);
}

QByteArray sof(int marker, int width, int selector)
{
    return segment(marker,
                   bytes({8}) + word(200) + word(width) + bytes({3, 1, 0x21, 0, 2, 0x11, 1, 3, 0x11, selector}));
}

QByteArray sos()
{
    return segment(SOS, bytes({3, 1, 0x00, 2, 0x11, 3, 0x11, 0, 63, 0}));
}

QByteArray MiniJpeg::headOnly() const
{
    QByteArray all = word(SOI) + front;
    for (int i = 0; i < dqtCount; ++i) all += dqt({10 + 20 * i}, i);
    return all + sof(SOF0, 320, selector) + segment(DHT, 31) + sos();
}

QByteArray MiniJpeg::operator()() const
{
    return headOnly() + data + word(EOI);
}

QByteArray miniJpeg()
{
    return MiniJpeg{segment(APP0, 16)}();
}

QByteArray nestedImage(int opener, int length, int fill)
{
    return word(SOI) + declared(opener, length, filler(fill)) + word(EOI);
}

QByteArray markerSoup(quint32 seed)
{
    // Images in plenty make a stream of the file at once, so two soups in three are sparing with SOI and EOI, and one
    // of these has a whole head, so that what follows is a scan.
    static const int common[] = {DQT,   DHT, SOF0, SOF2, SOS, APP0, APP1, APP2,
                                 APP13, COM, RST0, DRI,  SOI, EOI,  SOI,  EOI};
    Dice dice(seed);
    const int style = int(seed % 3);
    const int choices = style == 0 ? 16 : 12;
    QByteArray soup;
    if (style == 1) soup = MiniJpeg{{}, 1 + dice.roll(3)}.headOnly();
    if (style == 2 && dice.roll(3)) soup = word(SOI);
    const int pieces = 2 + dice.roll(40);
    for (int i = 0; i < pieces; ++i) {
        int marker = dice.roll(6) ? common[dice.roll(choices)] : 0xFF00 + dice.roll(256);
        if (style && dice.roll(style == 1 ? 12 : 30) == 0) marker = dice.roll(2) ? SOI : EOI;
        switch (dice.roll(8)) {
        case 0: soup += junk(dice.roll(12), quint32(i)); break;
        case 1: soup += QByteArray(1 + dice.roll(5), char(0xFF)); break;
        case 2:
            if (style == 0) soup += MiniJpeg{{}, dice.roll(4), dice.roll(3)}.headOnly();
            soup += filler(dice.roll(9));
            break;
        case 3: {
            const int length = 10 + dice.roll(12);
            const QByteArray image = nestedImage(marker, length, dice.roll(4));
            if (style == 0) soup += segment(APP1, image);
            break;
        }
        case 4: soup += declared(marker, dice.roll(64)); break;
        case 5: soup += dqt({1 + dice.roll(80)}); break;
        default: soup += word(marker);
        }
    }
    return soup;
}
