#include "support/Cr3Maker.h"

#include "support/Grammar.h"
#include "support/RawFile.h"

namespace {

QByteArray number(quint32 value)
{
    return RawFile(true).dword(0, value);
}

QByteArray zeros(int count)
{
    return QByteArray(count, '\0');
}

/// An identifier of 16 bytes in front of the payload.
QByteArray uuidBox(const char *id, const QByteArray &payload)
{
    return box("uuid", QByteArray::fromHex(id) + payload);
}

QByteArray cameraBox(const QByteArray &brand)
{
    const QByteArray directory =
        RawFile().header().directory(8, {{0x010F, 0x1A, 2, 6}}).put(0x1A, QByteArray("Canon\0", 6));
    return box("CNCV", brand) + box("CMT1", directory) + box("CMT2", directory) + box("CMT3", directory)
        + box("CMT4", directory);
}

/// The track of the full picture, which lies at `offset`.
QByteArray track(quint32 length, quint32 offset)
{
    const QByteArray entry =
        box("CRAW", zeros(6) + word(1) + zeros(16) + word(96) + word(64) + zeros(50) + box("JPEG", zeros(4)));
    const QByteArray table = box("stsd", zeros(4) + number(1) + entry)
        + box("stts", zeros(4) + number(1) + number(1) + number(1))
        + box("stsc", zeros(4) + number(1) + number(1) + number(1) + number(1))
        + box("stsz", zeros(4) + number(length) + number(1))
        + box("co64", zeros(4) + number(1) + zeros(4) + number(offset));
    const QByteArray handler = box("hdlr", zeros(8) + "vide" + zeros(12));
    return box("trak",
               box("tkhd", zeros(84))
                   + box("mdia", box("mdhd", zeros(24)) + handler + box("minf", box("stbl", table))));
}

} // namespace

QByteArray box(const char *type, const QByteArray &payload)
{
    return number(quint32(payload.size()) + 8) + type + payload;
}

QByteArray makeCr3(const Cr3Options &options)
{
    const QByteArray thumbnailBox = box("THMB",
                                        zeros(4) + word(32) + word(24) + number(quint32(options.thumbnail.size()))
                                            + word(1) + zeros(2) + options.thumbnail);
    const QByteArray previewBox = box("PRVW",
                                      zeros(4) + word(1) + word(32) + word(24) + word(1)
                                          + number(quint32(options.preview.size())) + options.preview);
    const QByteArray front = box("ftyp", "crx " + number(1) + "crx isom");
    const QByteArray camera = uuidBox("85c0b687820f11e08111f4ce462b6a48", cameraBox(options.brand) + thumbnailBox);
    const QByteArray preview = uuidBox("eaf42b5e1c984b88b9fbb7dc406e4d16", zeros(7) + bytes({1}) + previewBox);
    const auto movie = [&](quint32 offset) {
        return box("moov", camera + box("mvhd", zeros(100)) + track(quint32(options.full.size()), offset));
    };
    const QByteArray head = front + movie(0) + preview;
    const QByteArray data = options.full + filler(options.behindData);
    const int dataHead = options.longData ? 16 : 8;
    const QByteArray dataBox = options.longData
        ? number(1) + "mdat" + zeros(4) + number(quint32(data.size() + dataHead)) + data
        : box("mdat", data);
    return front + movie(quint32(head.size() + dataHead)) + preview + dataBox;
}
