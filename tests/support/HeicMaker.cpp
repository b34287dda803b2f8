#include "support/HeicMaker.h"

#include "support/Grammar.h"

QByteArray be16(int value)
{
    return word(value);
}

QByteArray be32(quint32 value)
{
    return word(int(value >> 16)) + word(int(value & 0xFFFF));
}

QByteArray heicBox(const char *type, const QByteArray &body)
{
    return be32(quint32(body.size()) + 8) + type + body;
}

QByteArray heicTile(int payload, int seed, const QByteArray &pattern)
{
    return be32(quint32(payload)) + pattern + junk(payload - pattern.size(), quint32(seed));
}

namespace {

/// The items: tiles from 1 on, the grid behind them, a thumbnail and whatever else behind that.
QByteArray itemInfo(const HeicOptions &options)
{
    QByteArray entries;
    for (int item = 1; item <= options.entryCount; ++item) {
        const char *type = item == options.tiles + 1 ? "grid" : item == options.tiles + 3 ? "Exif" : "hvc1";
        entries += heicBox("infe", bytes({2, 0, 0, 0}) + be16(item) + be16(0) + type + bytes({0}));
    }
    return heicBox("iinf", bytes({0, 0, 0, 0}) + be16(options.entryCount) + entries);
}

QByteArray references(const HeicOptions &options)
{
    const auto number = [&](int item) { return options.wideReferences ? be32(quint32(item)) : be16(item); };
    const int grid = options.tiles + 1;
    QByteArray tiles;
    for (int item = 1; item <= options.tiles; ++item) tiles += number(item);
    return heicBox("iref",
                   bytes({options.wideReferences ? 1 : 0, 0, 0, 0})
                       + heicBox("dimg", number(grid) + be16(options.tiles) + tiles)
                       + heicBox("thmb", number(grid + 1) + be16(1) + number(grid)));
}

} // namespace

MadeHeic makeHeic(const HeicOptions &options)
{
    MadeHeic made;
    made.iinf = itemInfo(options);
    made.iref = references(options);
    made.iprp = heicBox("iprp", heicBox("ipco", heicBox("ispe", be32(0) + be32(512) + be32(512))));
    made.idat = heicBox("idat", bytes({0, 0, 5, 7, 0x0F, 0xC0, 0x0B, 0xD0}));
    for (int k = 0; k < options.tiles; ++k) {
        const QByteArray pattern = k % 2 ? QByteArray("\x28\x01\xAF\x80", 4) : QByteArray("\x28\x01\xAF\x84", 4);
        const QByteArray tile = heicTile(20 + (k * 7 + options.seed * 5) % 31, options.seed + k, pattern);
        made.lengths.push_back(tile.size());
        made.stream += tile;
    }
    made.stream += options.behind;

    const QByteArray front = heicBox("hdlr", QByteArray(8, 0) + "pict" + QByteArray(14, 0))
        + heicBox("dinf", heicBox("dref", be32(0) + be32(1) + heicBox("url ", be32(1))))
        + heicBox("pitm", be32(0) + be16(options.tiles + 1));
    const QByteArray fileType = heicBox("ftyp", QByteArray("heic") + be32(0) + "mif1heic");
    // The index of a healthy file has an entry for each item.
    made.iloc = heicBox(
        "iloc", bytes({1, 0, 0, 0, 0x44, 0}) + be16(options.entryCount) + QByteArray(16 * options.entryCount, 0x11));
    const QByteArray meta =
        heicBox("meta", be32(0) + front + made.iinf + made.iref + made.iprp + made.idat + made.iloc);
    made.metaSize = meta.left(4);
    made.bytes = fileType + meta + be32(quint32(made.stream.size()) + 8) + "mdat" + made.stream;
    return made;
}

QByteArray expectedRewrite(const MadeHeic &boxes, const MadeHeic &tiles)
{
    static const QByteArray front = QByteArray::fromHex("00000018667479706865696300000000"
                                                        "6d69663168656963");
    static const QByteArray metaFront = QByteArray::fromHex("6d657461"
                                                            "00000000"
                                                            "00000022"
                                                            "68646c72"
                                                            "0000000000000000"
                                                            "70696374"
                                                            "0000000000000000000000000000"
                                                            "00000024"
                                                            "64696e66"
                                                            "0000001c"
                                                            "64726566"
                                                            "00000000"
                                                            "00000001"
                                                            "0000000c"
                                                            "75726c20"
                                                            "00000001"
                                                            "0000000e"
                                                            "7069746d"
                                                            "000000000000");
    QByteArray out = front + boxes.metaSize + metaFront + boxes.iinf + boxes.iref + boxes.iprp + boxes.idat;
    const int count = int(tiles.lengths.size());
    const int entryCount = quint8(boxes.iinf[12]) << 8 | quint8(boxes.iinf[13]);
    out += be32(quint32(16 + 16 * entryCount)) + "iloc" + QByteArray::fromHex("010000004400") + be16(count + 1);
    int offset = out.size() + 16 * count + 20;
    for (int k = 0; k < count; ++k) {
        out += be16(k + 1) + QByteArray::fromHex("000000000001") + be32(quint32(offset))
            + be32(quint32(tiles.lengths[size_t(k)]));
        offset += tiles.lengths[size_t(k)];
    }
    out += be16(count + 1)
        + QByteArray::fromHex("000100000001"
                              "00000000"
                              "00000008"
                              "00000001");
    return out + tiles.stream;
}
