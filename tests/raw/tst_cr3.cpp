// The boxes of CR3: what each of them is good for, and what is left where one is broken.

#include "app/StopFlag.h"
#include "engine/Guards.h"
#include "support/ByteSource.h"
#include "support/Cr3Maker.h"
#include "support/Grammar.h"
#include "support/RawFile.h"
#include "support/SteppingCarve.h"

#include <QTest>

namespace {

const Cr3Options kWhole{.full = RawFile().picture(0, 90),
                        .preview = RawFile().picture(0, 60),
                        .thumbnail = RawFile().picture(0, 30),
                        .behindData = 2000};

/// A whole CR3 with changes at places named by a box's type.
class Cr3
{
public:
    explicit Cr3(const Cr3Options &options = kWhole) : m_file(true) { m_file.put(0, makeCr3(options)); }

    int at(const char *type, int from = 0) const { return m_file.bytes().indexOf(type, from); }
    Cr3 &dword(const char *type, int shift, quint32 value)
    {
        m_file.dword(at(type) + shift, value);
        return *this;
    }
    Cr3 &put(const char *type, int shift, const QByteArray &bytes)
    {
        m_file.put(at(type) + shift, bytes);
        return *this;
    }
    Cr3 &insert(const char *type, int shift, const QByteArray &bytes)
    {
        const QByteArray all = m_file.bytes();
        m_file.put(0, all.left(at(type) + shift) + bytes + all.mid(at(type) + shift));
        return *this;
    }
    QByteArray bytes() const { return m_file.bytes(); }

private:
    RawFile m_file;
};

Cr3Images foundIn(const QByteArray &file, int block = 4096)
{
    ByteSource source(file);
    FileWindow window(source, block);
    quint32 position = 0;
    return findCr3Images(window, position);
}

/// For each of the three "whole", "zeros", "-" or what else it is; "carved" in front where it is so.
QString describe(const QByteArray &file, const Cr3Images &images)
{
    const auto one = [&](const Cr3Image &image, const QByteArray &picture) -> QString {
        if (image == Cr3Image()) return "-";
        if (image.blank) return QString("zeros %1").arg(image.length);
        if (file.mid(int(image.start), int(image.length)) == picture) return "whole";
        return QString("%1+%2").arg(image.start).arg(image.length);
    };
    return QString(images.carved ? "carved: " : "") + one(images.full, kWhole.full) + ", "
        + one(images.preview, kWhole.preview) + ", " + one(images.thumbnail, kWhole.thumbnail);
}

} // namespace

class TestCr3 : public QObject
{
    Q_OBJECT

private slots:
    void boxes_data();
    void boxes();
    void stop();
};

void TestCr3::boxes_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected"); // full picture, preview, thumbnail
    const auto row = [](const char *name, const Cr3 &file, const QString &expected) {
        QTest::newRow(name) << file.bytes() << expected;
    };
    // The carve takes the thumbnail first, then the preview, then the full one.
    const QString carved = "carved: whole, whole, whole";
    const Cr3 whole;
    row("whole", whole, "whole, whole, whole");
    row("other brand", Cr3().put("CanonCR3", 0, "CanonCR2"), carved);
    row("mdat of 32 bits", Cr3([] {
            Cr3Options o = kWhole;
            o.longData = false;
            return o;
        }()),
        carved);
    row("no ftyp", Cr3().put("ftyp", 0, "free"), carved);
    row("no moov", Cr3().put("moov", 0, "free"), "-, whole, whole");
    row("no mdat", Cr3().put("mdat", 0, "free"), carved);
    row("ftyp of size 0", Cr3().dword("ftyp", -4, 0), carved);
    row("moov of size 0", Cr3().dword("moov", -4, 0), carved);
    row("moov beyond the end", Cr3().dword("moov", -4, 0xFFFFFFF0), carved);
    row("moov begins with another box", Cr3().put("uuid", 0, "free"), "-, whole, whole");
    row("a second ftyp, wrong", Cr3().insert("mdat", -4, box("ftyp", filler(80))), carved);
    row("no preview", Cr3().put("PRVW", 0, "XXXX"), "whole, -, whole");
    row("preview without a length", Cr3().dword("PRVW", 0x10, 0), "whole, -, whole");
    row("no thumbnail", Cr3().put("THMB", 0, "XXXX"), "whole, whole, -");
    row("thumbnail without a length", Cr3().dword("THMB", 0xC, 0), "whole, whole, -");
    row("no CMT1", Cr3().put("CMT1", 0, "XXXX"), "whole, whole, -");
    // The last CMT1 of the first 512 bytes counts, and here nothing follows it.
    row("a later CMT1", Cr3().put("THMB", 0x18, bytes({0, 0, 0, 8}) + "CMT1"), "whole, whole, -");
    const int reach = 511 - whole.at("CMT1"); // how far it can move and still begin within the first 512 bytes
    for (const int more : {reach, reach + 1}) {
        Cr3Options options = kWhole;
        options.brand += filler(more);
        row(qPrintable(QString("CMT1 at %1").arg(whole.at("CMT1") + more)), Cr3(options),
            more == reach ? "whole, whole, whole" : "whole, whole, -");
    }
    row("CMT2 of size 0", Cr3().dword("CMT2", -4, 0), "whole, whole, -");
    row("CMT3 leads behind the thumbnail", Cr3().dword("CMT3", -4, 500), "whole, whole, -");
    row("CMT4 leads out of the file", Cr3().dword("CMT4", -4, 0xFFFFFFF0), "whole, whole, -");
    row("bytes between CMT4 and the thumbnail", Cr3().put("CMT4", 0, "free"), "whole, whole, whole");

    const int track = whole.at("trak");
    row("track of size 0", Cr3().dword("trak", -4, 0), "-, whole, whole");
    row("track ends in front of co64", Cr3().dword("trak", -4, quint32(whole.at("co64") - track)),
        "0+90, whole, whole");
    row("track ends behind co64's first byte", Cr3().dword("trak", -4, quint32(whole.at("co64") - track + 1)),
        "whole, whole, whole");
    row("stsz of 0", Cr3().dword("stsz", 8, 0), "-, whole, whole");
    row("no stsz", Cr3().put("stsz", 0, "XXXX"), "-, whole, whole");
    row("co64 in front", Cr3().put("stsd", 4, "co64"), "-, whole, whole");
    row("high half of the offset", Cr3().dword("co64", 0xC, 9), "whole, whole, whole");
    row("offset beyond the end", Cr3().dword("co64", 0x10, 0xFFFFFFF0), "4294967280+90, whole, whole");
    // mdat's end bounds the track: its low half, counted from the sum of the boxes in front.
    const quint32 sum = quint32(whole.at("mdat")) - 4;
    row("track and mdat of 4 GB",
        Cr3().dword("trak", -4, 0xFFFFFFF0).dword("mdat", 8, 0xFFFFFFFF - sum).put("co64", 0, "XXXX"),
        "0+90, whole, whole");
    const auto endAt = [&](int end) { return Cr3().dword("mdat", 8, quint32(end) - sum); };
    row("mdat ends with co64", endAt(whole.at("co64") + 4), "whole, whole, whole");
    row("mdat ends inside co64", endAt(whole.at("co64") + 3), "0+90, whole, whole");
    const int trackSize =
        int(RawFile(true).put(0, whole.bytes().mid(track - 4, 4)).bytes().toHex().toUInt(nullptr, 16));
    row("track as long as mdat's end", endAt(trackSize), "-, whole, whole");
    row("track shorter by one", endAt(trackSize + 1), "-, whole, whole");

    // Eight steps lead to mdat: four bytes, ftyp, moov, the preview's box, mdat. They count as lost at the file's end.
    const int size = whole.bytes().size();
    const auto lengthTo = [&](const char *type, int end) { return quint32(end - whole.at(type) - 0x14); };
    row("preview up to the end that counts", Cr3().dword("PRVW", 0x10, lengthTo("PRVW", size - 9)),
        QString("whole, %1+%2, whole").arg(whole.at("PRVW") + 0x14).arg(lengthTo("PRVW", size - 9)));
    row("preview longer by one", Cr3().dword("PRVW", 0x10, lengthTo("PRVW", size - 8)),
        QString("whole, zeros %1, whole").arg(lengthTo("PRVW", size - 8)));
    row("thumbnail longer than the file", Cr3().dword("THMB", 0xC, 70000), "whole, whole, zeros 70000");
    row("lengths that no picture has", Cr3().dword("THMB", 0xC, guards::kCr3Image + 1).dword("PRVW", 0x10, 0xFFFFFFFF),
        "whole, -, -");
    row("the longest", Cr3().dword("THMB", 0xC, guards::kCr3Image),
        QString("whole, whole, zeros %1").arg(guards::kCr3Image));
    row("all lengths lost", Cr3().dword("THMB", 0xC, 0).dword("PRVW", 0x10, 0).dword("stsz", 8, 0), carved);
    // Steps over bytes that are no box are taken from the file's size, too.
    const QString moved = QString("%1+90").arg(whole.at("mdat") + 12);
    const auto stepped = [&](int end) {
        return Cr3().insert("mdat", -4, filler(size)).dword("PRVW", 0x10, lengthTo("PRVW", end));
    };
    row("as many steps as the file has bytes", stepped(size - 8),
        moved + QString(", zeros %1, whole").arg(lengthTo("PRVW", size - 8)));
    row("shorter by one", stepped(size - 9),
        moved + QString(", %1+%2, whole").arg(whole.at("PRVW") + 0x14).arg(lengthTo("PRVW", size - 9)));
}

void TestCr3::boxes()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, expected);
    for (const int block : {1, 3, 4096}) {
        const Cr3Images images = foundIn(file, block);
        QCOMPARE(describe(file, images), expected);
        if (images.carved) QVERIFY(images == steppingCr3Carve(file));
    }
}

void TestCr3::stop()
{
    setFlag(pApp->bStopRepair, true);
    const Cr3Images images = foundIn(Cr3().bytes());
    setFlag(pApp->bStopRepair, false);
    QVERIFY(images.full == Cr3Image() && images.preview == Cr3Image() && images.thumbnail == Cr3Image());
}

QTEST_GUILESS_MAIN(TestCr3)
#include "tst_cr3.moc"
