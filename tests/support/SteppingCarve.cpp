#include "support/SteppingCarve.h"

namespace {

int at(const QByteArray &file, qint64 offset)
{
    return offset < file.size() ? quint8(file[int(offset)]) : 0;
}

bool isOneOf(const QString &suffix, const char *list)
{
    return QString(list).split(' ').contains(suffix);
}

/// Bytes of the start that stands at i, up to and with its second marker; 0 if there is none.
int startAt(const QByteArray &file, qint64 i, const QString &suffix)
{
    int opener = 0;
    if (suffix == "MRW")
        opener = at(file, i) == 0xD8 ? 1 : 0;
    else if (at(file, i) == (suffix == "ERF" ? 0xEE : 0xFF) && at(file, i + 1) == 0xD8)
        opener = 2;
    if (opener == 0 || at(file, i + opener) != 0xFF) return 0;
    const int second = at(file, i + opener + 1);
    const bool taken = second == 0xDB || second == 0xC4 || (second == 0xE0 && isOneOf(suffix, "CR2 CR3"))
        || (second == 0xDA && suffix == "NRW");
    return taken ? opener + 2 : 0;
}

bool keepsStart(qint64 behind, qint64 size, const QString &suffix)
{
    if (isOneOf(suffix, "CR2 CR3")) return behind < size;
    if (suffix == "NRW") return behind + 4 < size;
    return true;
}

bool keepsEnd(qint64 behind, qint64 size, const QString &suffix)
{
    if (isOneOf(suffix, "CR2 CR3")) return behind < size;
    if (isOneOf(suffix, "NRW ARW NEF SR2 CRW")) return behind + 4 < size;
    return true;
}

struct Found
{
    qint64 start = 0;
    qint64 end = 0;
    bool kept = false; ///< the start is one, also at 0
};

/// The next start at or behind i with its end; i goes behind it.
bool next(const QByteArray &file, const QString &suffix, qint64 &i, Found &found)
{
    for (; i < file.size(); ++i) {
        const int head = startAt(file, i, suffix);
        if (head == 0) continue;
        found = {};
        found.kept = keepsStart(i + head, file.size(), suffix);
        if (found.kept) found.start = suffix == "ERF" ? i + 1 : i;
        for (i += head; i < file.size(); ++i) {
            if (at(file, i) != 0xFF || at(file, i + 1) != 0xD9) continue;
            i += 2;
            if (keepsEnd(i, file.size(), suffix)) found.end = i;
            break;
        }
        return true;
    }
    return false;
}

} // namespace

const QStringList &carvedSuffixes()
{
    static const QStringList suffixes =
        QString("CR2 NRW ARW NEF SR2 SRF TIFF CRW PEF ORF RAF RW2 DNG ERF MRW").split(' ');
    return suffixes;
}

RawImages steppingCarve(const QByteArray &file, const QString &suffix)
{
    QVector<quint32> starts;
    QVector<quint32> ends;
    Found found;
    for (qint64 i = 0; next(file, suffix, i, found);) {
        if (!isOneOf(suffix, "NRW ARW SR2 PEF")) {
            const RawImage one{quint32(found.start), found.end ? quint32(found.end - found.start) : 0};
            return {one, {}};
        }
        if (found.kept) starts << quint32(found.start);
        if (found.end) ends << quint32(found.end);
    }
    if (starts.isEmpty() || ends.isEmpty()) return {};
    const int second = qMin(starts.size(), 3) - 1;
    const int secondEnd = qMin(ends.size(), 3) - 1;
    RawImages images{{starts[0], ends[0] - starts[0]}, {}};
    if (second > 0) images.second.start = starts[second];
    if (secondEnd > 0) images.second.length = ends[secondEnd] - starts[0];
    return images;
}

Cr3Images steppingCr3Carve(const QByteArray &file)
{
    Cr3Images images;
    images.carved = true;
    qint64 i = 0;
    for (Cr3Image *image : {&images.thumbnail, &images.preview, &images.full}) {
        Found found;
        if (!next(file, "CR3", i, found) || found.end == 0) continue;
        if (found.start == 0 && image != &images.preview) continue;
        *image = {quint64(found.start), quint32(found.end - found.start), false};
    }
    return images;
}

QString describe(const RawImages &images)
{
    return QString("%1+%2 %3+%4")
        .arg(images.first.start)
        .arg(images.first.length)
        .arg(images.second.start)
        .arg(images.second.length);
}
