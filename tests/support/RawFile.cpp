#include "support/RawFile.h"

#include "support/Grammar.h"

RawFile &RawFile::put(int at, const QByteArray &bytes)
{
    if (m_bytes.size() < at + bytes.size()) m_bytes.append(QByteArray(at + bytes.size() - m_bytes.size(), 0x33));
    m_bytes.replace(at, bytes.size(), bytes);
    return *this;
}

RawFile &RawFile::number(int at, quint32 value, int bytes)
{
    QByteArray text;
    for (int i = 0; i < bytes; ++i) text.append(char(value >> 8 * (m_big ? bytes - 1 - i : i)));
    return put(at, text);
}

RawFile &RawFile::word(int at, quint32 value)
{
    return number(at, value, 2);
}

RawFile &RawFile::dword(int at, quint32 value)
{
    return number(at, value, 4);
}

RawFile &RawFile::header(int at, quint32 first)
{
    return put(at, m_big ? "MM" : "II").word(at + 2, 42).dword(at + 4, first);
}

RawFile &RawFile::directory(int at, const std::vector<TiffEntry> &entries, quint32 next, int claimed)
{
    word(at, claimed < 0 ? quint32(entries.size()) : quint32(claimed));
    int place = at + 2;
    for (const TiffEntry &entry : entries) {
        word(place, quint32(entry.tag)).word(place + 2, quint32(entry.type));
        dword(place + 4, entry.count).dword(place + 8, entry.value);
        place += 12;
    }
    return dword(place, next);
}

RawFile &RawFile::picture(int at, int length)
{
    return put(at, ::bytes({0xFF, 0xD8, 0xFF, 0xDB}) + filler(length - 6) + ::bytes({0xFF, 0xD9}));
}

RawFile &RawFile::cut(int size)
{
    m_bytes.truncate(size);
    return *this;
}
