#include "support/Damage.h"

#include "support/Pictures.h"

using namespace words;

namespace {

using Cases = std::vector<Damaged>;

QByteArray times(int count, const QByteArray &piece)
{
    return piece.repeated(count);
}

QByteArray soi()
{
    return word(SOI);
}

QByteArray eoi()
{
    return word(EOI);
}

/// A file whose APPn holds `payload`, with an intact picture behind it.
QByteArray holding(int marker, const QByteArray &payload)
{
    return MiniJpeg{segment(marker, payload)}();
}

/// The same with the payload's end behind the end that the length field tells.
QByteArray cutShort(int marker, const QByteArray &payload, int by)
{
    return MiniJpeg{declared(marker, payload.size() + 2 - by, payload)}();
}

void tinyFiles(Cases &all)
{
    all.push_back({"empty", {}});
    all.push_back({"one zero byte", bytes({0})});
    all.push_back({"one FF", bytes({0xFF})});
    all.push_back({"SOI alone", soi()});
    all.push_back({"EOI alone", eoi()});
    all.push_back({"SOI and half a marker", soi() + bytes({0xFF})});
    all.push_back({"three FF", times(3, bytes({0xFF}))});
    all.push_back({"SOI EOI", soi() + eoi()});
    all.push_back({"DQT marker alone", word(DQT)});
    all.push_back({"SOS marker alone", word(SOS)});
    all.push_back({"zeros only", QByteArray(100, '\0')});
    all.push_back({"FF only", QByteArray(200, char(0xFF))});
    all.push_back({"text only", filler(300)});
}

void heads(Cases &all)
{
    const QByteArray mini = miniJpeg();
    all.push_back({"intact", mini});
    all.push_back({"begins with DQT", mini.mid(20)});
    all.push_back({"begins with its second DQT", mini.mid(20 + 69)});
    all.push_back({"begins with SOF0", mini.mid(20 + 138)});
    all.push_back({"begins with SOF2", sof(SOF2) + segment(DHT, 31) + dqt({9}) + sos() + filler(9) + eoi()});
    all.push_back({"begins with DHT 31", segment(DHT, 31) + sof() + dqt({9}) + sos() + filler(9) + eoi()});
    all.push_back({"begins with DHT 418", segment(DHT, 418) + sof() + dqt({9}) + sos() + filler(9) + eoi()});
    all.push_back({"begins with DHT 419", segment(DHT, 419) + sof() + dqt({9}) + sos() + filler(9) + eoi()});
    all.push_back({"begins with APP0", mini.mid(2)});
    all.push_back({"begins with COM", segment(COM, 9) + mini});
    all.push_back({"begins with DRI", segment(DRI, 4) + mini});
    all.push_back({"begins with RST0", word(RST0) + mini});
    all.push_back({"begins with SOF3", segment(SOF3, 17) + mini});
    all.push_back({"begins with SOS", mini.mid(20 + 138 + 19 + 33)});
    all.push_back({"begins with EOI", eoi() + mini});
    all.push_back({"begins in the middle of APP1, APP2 follows", filler(50) + segment(APP2, 9) + mini.mid(20)});
    all.push_back({"begins in the middle of APP1, DQT follows", filler(50) + mini.mid(20)});
    all.push_back({"10 bytes of junk in front", junk(10) + mini});
    all.push_back({"junk in front, junk behind", junk(10) + mini + junk(10, 2)});
    all.push_back({"junk in front, thumbnail inside", junk(10) + holding(APP1, nestedImage(APP0, 16, 60))});
    all.push_back({"stray image in front of the tables", filler(7) + soi() + filler(30) + eoi() + mini.mid(20)});
    all.push_back({"stray image, then the picture", filler(7) + soi() + filler(30) + eoi() + mini});
    all.push_back({"two SOI", soi() + mini});
    all.push_back({"two SOI that are not first", filler(3) + soi() + mini});
    all.push_back({"hundred SOI", times(100, soi())});
    all.push_back({"hundred SOI and a picture", times(100, soi()) + mini});
    all.push_back({"hundred FF in front", QByteArray(100, char(0xFF)) + mini});
    all.push_back({"FF between segments", soi() + bytes({0xFF, 0xFF}) + mini.mid(2)});
}

void otherSegments(Cases &all)
{
    struct Other
    {
        const char *name;
        int marker;
    };
    static const Other others[] = {{"segment FF01", 0xFF01}, {"segment FFC8", 0xFFC8}, {"segment FFC9", SOF9},
                                   {"segment FFCC", DAC},    {"segment FFCF", 0xFFCF}, {"segment FFDC", DNL},
                                   {"segment FFDE", 0xFFDE}, {"segment FFDF", 0xFFDF}, {"segment FFEF", 0xFFEF},
                                   {"segment FFF0", 0xFFF0}, {"segment FFFD", 0xFFFD}, {"segment FFFE", COM}};
    for (const Other &other : others) all.push_back({other.name, MiniJpeg{segment(other.marker, 20)}()});
    const QByteArray rest = miniJpeg().mid(20);
    all.push_back({"APP0 of length 0", soi() + declared(APP0, 0, filler(14)) + rest});
    all.push_back({"APP1 of length 0 over a thumbnail", soi() + declared(APP1, 0, nestedImage(APP0, 16, 9)) + rest});
    all.push_back({"APP1 of length 1", soi() + declared(APP1, 1, filler(14)) + rest});
    all.push_back({"APP0 past the end", soi() + declared(APP0, 60000) + rest});
    all.push_back({"APP1 past the end, thumbnail inside", soi() + declared(APP1, 60000, nestedImage(APP0, 16)) + rest});
    all.push_back({"APP2 cut by the end of the file", soi() + declared(APP2, 90, nestedImage(DQT, 67, 20))});
    all.push_back({"APP0 up to the end but one", soi() + declared(APP0, 13, filler(10))});
    all.push_back({"APP0 exactly to the end", soi() + declared(APP0, 12, filler(10))});
    all.push_back({"RST0 between segments", soi() + word(RST0) + word(2) + rest});
    all.push_back({"EOI between segments", soi() + segment(APP0, 16) + eoi() + rest});
    all.push_back({"SOS between segments", soi() + sos() + rest});
    all.push_back({"frame of one component",
                   soi() + dqt({9}) + segment(SOF0, bytes({8, 0, 9, 0, 7, 1, 1, 0x11, 0})) + segment(DHT, 31)
                       + declared(SOS, 8, filler(6)) + filler(9) + eoi()});
    all.push_back({"frame cut by the end of the file", soi() + dqt({9}) + sof().left(9)});
    all.push_back({"three frames", soi() + dqt({9}) + sof(SOF0, 11) + sof(SOF1, 22, 2) + sof(SOF2, 33, 0) + eoi()});
    all.push_back({"SOF3 in place of SOF0", soi() + dqt({9}) + segment(SOF3, 17) + segment(DHT, 31) + sos() + eoi()});
    all.push_back({"no DHT", soi() + dqt({9}) + sof() + sos() + filler(50) + eoi()});
    all.push_back({"no DQT", soi() + sof() + segment(DHT, 31) + sos() + filler(50) + eoi()});
    all.push_back({"no SOF", soi() + dqt({9}) + segment(DHT, 31) + sos() + filler(50) + eoi()});
    all.push_back({"no SOS", soi() + dqt({9}) + sof() + segment(DHT, 31) + filler(50) + eoi()});
}

void tables(Cases &all)
{
    static const char *const counts[] = {"one DQT 67", "two DQT 67", "three DQT 67", "four DQT 67", "five DQT 67"};
    for (int i = 1; i <= 5; ++i) all.push_back({counts[i - 1], MiniJpeg{{}, i}()});
    const QByteArray rest = miniJpeg().mid(20 + 138);
    all.push_back({"DQT 132", soi() + dqt({16, 17}) + rest});
    all.push_back({"DQT 197", soi() + dqt({16, 17, 18}) + rest});
    all.push_back({"DQT 132, then two of 67", soi() + dqt({16, 17}) + dqt({3}) + dqt({4}) + rest});
    all.push_back({"DQT 197, then one of 67", soi() + dqt({16, 17, 18}) + dqt({3}) + rest});
    all.push_back({"DQT 66 and 68", soi() + segment(DQT, 66) + segment(DQT, 68) + rest});
    all.push_back({"DQT length zeroed", soi() + declared(DQT, 0, quantTable(0, 16)) + rest});
    all.push_back({"DQT of length 2", soi() + segment(DQT, 2) + rest});
    all.push_back({"DQT past the end", soi() + declared(DQT, 40000, quantTable(0, 16)) + rest});
    all.push_back({"DQT 67 cut by the end of the file", soi() + dqt({16}).left(40)});
    all.push_back({"DQT 197 cut by the end of the file", soi() + dqt({16, 17, 18}).left(150)});
    all.push_back({"DQT 67 up to the last byte", soi() + dqt({16}) + bytes({0})});
    static const char *const dhts[] = {"DHT 418 behind DQT", "DHT 419 behind DQT", "DHT 420 behind DQT"};
    for (int length = 418; length <= 420; ++length)
        all.push_back(
            {dhts[length - 418], soi() + dqt({16}) + sof() + segment(DHT, length) + sos() + filler(30) + eoi()});
    all.push_back({"DHT 419 first, then a usable one",
                   soi() + segment(DHT, 419) + segment(DHT, 31) + dqt({16}) + sof() + sos() + filler(30) + eoi()});
    all.push_back({"DHT 31, then one of 419", soi() + segment(DHT, 31) + segment(DHT, 419) + sof() + eoi()});
    all.push_back({"four DHT", soi() + dqt({16}) + sof() + times(4, segment(DHT, 31)) + sos() + filler(30) + eoi()});
    all.push_back({"DHT length zeroed", soi() + dqt({16}) + sof() + declared(DHT, 0, filler(29)) + sos() + eoi()});
    all.push_back({"SOF0 in front of all tables", soi() + sof() + dqt({16}) + segment(DHT, 31) + sos() + eoi()});
}

void gaps(Cases &all)
{
    const QByteArray rest = miniJpeg().mid(20 + 138);
    all.push_back(
        {"junk behind each of four DQT",
         soi() + dqt({1}) + filler(3) + dqt({2}) + filler(5) + dqt({3}) + filler(7) + dqt({4}) + filler(11) + rest});
    all.push_back({"junk behind SOF and DHT",
                   soi() + dqt({1}) + sof() + filler(3) + segment(DHT, 31) + filler(5) + sos() + filler(9) + eoi()});
    all.push_back({"junk behind a DHT without DQT", soi() + segment(DHT, 31) + filler(9) + dqt({1}) + eoi()});
    all.push_back(
        {"gap runs over SOI and FF 00", soi() + dqt({1}) + filler(3) + soi() + bytes({0xFF, 0, 0xFF, 1}) + eoi()});
    all.push_back({"gap ends in EOI", soi() + dqt({1}) + filler(3) + eoi() + filler(5)});
    all.push_back({"gap to the end of the file", soi() + dqt({1}) + filler(30)});
    all.push_back({"gap to a last FF", soi() + dqt({1}) + filler(3) + bytes({0xFF})});
    all.push_back({"gap of more than 65,535 bytes", soi() + dqt({1}) + filler(65540) + rest});
}

void scans(Cases &all)
{
    const QByteArray head = MiniJpeg{}.headOnly();
    const auto scan = [&head](const QByteArray &data) { return head + data + eoi(); };
    all.push_back({"FF 01 in the scan", scan(filler(9) + bytes({0xFF, 1}) + filler(9))});
    all.push_back({"FF run in the scan", scan(filler(9) + QByteArray(50, char(0xFF)) + filler(9))});
    all.push_back({"FF run up to EOI", scan(filler(9) + QByteArray(50, char(0xFF)))});
    all.push_back({"scan of FF only, no end", head + QByteArray(300, char(0xFF))});
    all.push_back(
        {"FF codes at uneven distances", scan(bytes({0xFF, 1, 0xFF, 2, 3, 0xFF, 4, 0xFF, 5, 6, 7, 0xFF, 8}))});
    all.push_back({"FF 00 and RST in the scan", scan(bytes({0xFF, 0, 1, 0xFF, 0xD0, 2, 0xFF, 0xD7, 3, 0xFF, 0}))});
    all.push_back({"SOI in the scan", scan(filler(9) + soi() + filler(9))});
    all.push_back({"whole image in the scan", scan(filler(9) + miniJpeg() + filler(9))});
    all.push_back({"DHT and SOS in the scan", scan(filler(9) + segment(DHT, 31) + sos() + filler(9))});
    all.push_back({"FF CC and FF DC in the scan", scan(bytes({0xFF, 0xCC, 0xFF, 0xDC, 0xFF, 0xF0, 0xFF, 0xFE}))});
    all.push_back({"EOI in the middle of the scan", scan(filler(9) + eoi() + filler(9))});
    all.push_back({"faults on both sides of an EOI", scan(bytes({0xFF, 1}) + eoi() + bytes({0xFF, 1}))});
    all.push_back({"EOI right behind SOS", scan({})});
    all.push_back({"scan without an end", head + filler(60)});
    all.push_back({"scan ends in FF", head + filler(60) + bytes({0xFF})});
    all.push_back({"scan ends in FF 01", head + filler(60) + bytes({0xFF, 1})});
    all.push_back({"nothing behind SOS", head});
    all.push_back({"one byte behind SOS", head + bytes({0xFF})});
    all.push_back({"SOS length past the end", head.left(head.size() - 12) + word(5000) + filler(60) + eoi()});
    all.push_back({"SOS length zeroed", head.left(head.size() - 12) + word(0) + filler(60) + eoi()});
}

void tails(Cases &all)
{
    const QByteArray mini = miniJpeg();
    all.push_back({"100 zeros behind EOI", mini + QByteArray(100, '\0')});
    all.push_back({"one byte behind EOI", mini + bytes({7})});
    all.push_back({"FF behind EOI", mini + bytes({0xFF})});
    all.push_back({"two EOI", mini + eoi()});
    all.push_back({"DHT word at the end", mini + filler(5) + word(DHT)});
    all.push_back({"DQT word at the end", mini + filler(5) + word(DQT)});
    all.push_back({"SOF0 word at the end", mini + filler(5) + word(SOF0)});
    all.push_back({"APP1 word at the end", mini + filler(5) + word(APP1)});
    all.push_back({"SOI at the end", mini + filler(5) + soi()});
    all.push_back({"SOI directly behind EOI at the end", mini + soi()});
    all.push_back({"SOI one byte before the end", mini + soi() + bytes({7})});
    all.push_back({"SOI without an opener behind EOI", mini + soi() + filler(20)});
    all.push_back({"four SOI behind EOI", mini + times(4, soi() + filler(3))});
    all.push_back({"image behind the picture", mini + miniJpeg()});
    all.push_back({"open image behind the picture", mini + mini.left(200)});
    all.push_back({"image behind EOI in the scan",
                   MiniJpeg{{}, 2, 1, filler(9) + eoi() + soi() + word(APP3) + eoi() + filler(9)}()});
    all.push_back({"second SOI in front of SOS", soi() + dqt({1}) + sof() + segment(DHT, 31) + soi() + sos() + eoi()});
    all.push_back(
        {"second SOI, file ends in SOS", soi() + dqt({1}) + sof() + segment(DHT, 31) + soi() + filler(9) + word(SOS)});
    all.push_back({"second SOI, file ends in SOI", soi() + dqt({1}) + soi() + segment(APP0, 16) + filler(9) + soi()});
    all.push_back({"second SOI, file ends in DQT", soi() + dqt({1}) + soi() + filler(9) + word(DQT)});
    all.push_back({"second SOI is the file's end", soi() + dqt({1}) + soi()});
}

void nested(Cases &all)
{
    const QByteArray small = nestedImage(APP0, 16, 60);
    all.push_back({"thumbnail in APP1", holding(APP1, filler(9) + small + filler(9))});
    all.push_back({"two thumbnails in APP1", holding(APP1, small + filler(3) + small)});
    all.push_back({"three thumbnails in APP1", holding(APP1, times(3, small))});
    all.push_back({"thumbnail in APP2", holding(APP2, filler(9) + small + filler(9))});
    all.push_back({"thumbnail in APP13", holding(APP13, filler(9) + small + filler(9))});
    all.push_back({"thumbnails in APP1, APP2 and APP13",
                   MiniJpeg{segment(APP1, small) + segment(APP2, small) + segment(APP13, small)}()});
    all.push_back({"thumbnail in APP3", holding(APP3, small)});
    all.push_back({"thumbnail open at the end of APP1", holding(APP1, soi() + segment(APP0, 16) + filler(9))});
    all.push_back({"one closed, one open in APP1", holding(APP1, small + soi() + segment(APP0, 16))});
    all.push_back({"SOI in an open thumbnail", holding(APP1, soi() + segment(APP0, 16) + small + filler(9))});
    static const char *const edges[] = {"thumbnail's EOI 0 behind APP1", "thumbnail's EOI 1 behind APP1",
                                        "thumbnail's EOI 2 behind APP1", "thumbnail's EOI 3 behind APP1",
                                        "thumbnail's EOI 4 behind APP1"};
    for (int by = 0; by < 5; ++by) all.push_back({edges[by], cutShort(APP1, small + filler(2), by)});
    static const char *const edges13[] = {"thumbnail's EOI 0 behind APP13", "thumbnail's EOI 1 behind APP13",
                                          "thumbnail's EOI 2 behind APP13", "thumbnail's EOI 3 behind APP13",
                                          "thumbnail's EOI 4 behind APP13"};
    for (int by = 0; by < 5; ++by) all.push_back({edges13[by], cutShort(APP13, small, by)});
    all.push_back({"SOI at the end of APP1, opener behind it", cutShort(APP1, soi() + segment(APP0, 16) + eoi(), 20)});
    struct Threshold
    {
        int opener;
        int length;
        const char *below;
        const char *above;
    };
    static const Threshold thresholds[] = {
        {DQT, 197, "thumbnail opens with DQT 197", "thumbnail opens with DQT 198"},
        {DHT, 418, "thumbnail opens with DHT 418", "thumbnail opens with DHT 419"},
        {APP0, 16, "thumbnail opens with APP0 16", "thumbnail opens with APP0 17"},
        {SOF0, 17, "thumbnail opens with SOF0 17", "thumbnail opens with SOF0 18"},
        {SOS, 12, "thumbnail opens with SOS 12", "thumbnail opens with SOS 13"},
        {APP13, 12, "thumbnail opens with APP13 12", "thumbnail opens with APP13 13"},
        {APP1, 65535, "thumbnail opens with APP1 65535", "thumbnail opens with APP1 0"},
        {APP2, 65535, "thumbnail opens with APP2 65535", "thumbnail opens with APP2 0"},
        {APP14, 65535, "thumbnail opens with APP14 65535", "thumbnail opens with APP14 0"},
        {APP3, 4, "thumbnail opens with APP3 4", "thumbnail opens with APP3 5"},
        {SOF2, 17, "thumbnail opens with SOF2 17", "thumbnail opens with SOF2 18"},
    };
    for (const Threshold &edge : thresholds) {
        all.push_back({edge.below, holding(APP1, nestedImage(edge.opener, edge.length, 4))});
        all.push_back({edge.above, holding(APP1, nestedImage(edge.opener, (edge.length + 1) & 0xFFFF, 4))});
    }
    all.push_back({"1,024 thumbnails in APP1", holding(APP1, times(1024, nestedImage(APP1, 4)))});
    all.push_back({"1,100 thumbnails in APP1", holding(APP1, times(1100, nestedImage(APP1, 4)))});
    all.push_back(
        {"1,024 closed and one open in APP2", holding(APP2, times(1024, nestedImage(APP1, 4)) + soi() + word(APP1))});
    all.push_back({"APP1 of 65,535 with a thumbnail at its end", holding(APP1, filler(65455) + small.left(78))});
    all.push_back({"thumbnail, bytes behind EOI", holding(APP1, small) + filler(9)});
    all.push_back({"thumbnail, no EOI", holding(APP1, small).chopped(2)});
    all.push_back(
        {"thumbnail, DQT lost", soi() + segment(APP1, small) + sof() + segment(DHT, 31) + sos() + filler(9) + eoi()});
}

void streams(Cases &all)
{
    const QByteArray mini = miniJpeg();
    const QByteArray thumb = holding(APP1, nestedImage(APP0, 16, 60));
    all.push_back({"two images", times(2, mini)});
    all.push_back({"two images, junk behind", times(2, mini) + filler(5)});
    all.push_back({"two images, junk in front", filler(5) + times(2, mini)});
    all.push_back({"two images, the second cut", mini + mini.left(180)});
    all.push_back({"two images, SOI lost", mini.mid(2) + times(2, mini)});
    all.push_back({"three images", times(3, mini)});
    all.push_back({"three images, the third cut", times(2, mini) + mini.left(180)});
    all.push_back({"four images with junk between", times(4, mini + filler(7))});
    all.push_back({"five images", times(5, mini)});
    all.push_back({"three images with thumbnails", times(3, thumb)});
    all.push_back({"three images with thumbnails in APP2 and APP13",
                   times(3, MiniJpeg{segment(APP2, nestedImage(DQT, 67)) + segment(APP13, nestedImage(DQT, 67))}())});
    all.push_back({"images with one byte between", times(4, mini + bytes({3}))});
    all.push_back({"images with two bytes between", times(4, mini + bytes({3, 4}))});
    all.push_back({"stream with an APP1 past the end", times(3, mini) + soi() + declared(APP1, 50000, filler(20))});
    all.push_back({"stream with an open image", times(3, mini) + soi() + segment(APP0, 16) + filler(20)});
    all.push_back({"stream with stray SOI", times(3, mini + soi() + filler(3)) + soi()});
    all.push_back({"three images of 4 bytes and more", times(3, nestedImage(APP0, 16))});
    all.push_back({"stream whose images overlap", times(6, nestedImage(APP1, 20))});
}

void madePictures(Cases &all)
{
    JpegOptions progressive;
    progressive.progressive = true;
    JpegOptions restarts;
    restarts.restartMcus = 2;
    JpegOptions together;
    together.oneDqt = true;
    together.oneDht = true;
    JpegOptions camera;
    camera.jfif = false;
    camera.segments = {exifSegment(makeJpeg(drawPicture(16, 16), {60}))};

    all.push_back({"made picture, intact", healthy()});
    all.push_back({"made picture, DHT length zeroed", healthy().zero(at(DHT, 2), 2)});
    all.push_back({"made picture, FF 01 inside the scan", healthy().put(inScan(300), "\xFF\x01")});
    all.push_back({"made picture, cut in the second DQT", healthy().cutAt(at(DQT, 1) + 10)});
    all.push_back({"made picture, cut in the scan", healthy().cutAt(inScan(200))});
    all.push_back({"made picture, head lost up to DQT", healthy().dropHead(upTo(DQT))});
    all.push_back({"made picture, SOF overwritten", healthy().zero(upTo(SOF0), 19)});
    all.push_back({"made picture, 64 zeros in the scan", healthy().zero(inScan(100), 64)});
    all.push_back({"made picture, EOI in the scan", healthy().put(inScan(100), "\xFF\xD9")});
    all.push_back({"made picture, segments together", healthy(together)});
    all.push_back({"made picture, restarts", healthy(restarts)});
    all.push_back({"made picture, restarts and FF F3", healthy(restarts).put(inScan(100), "\xFF\xF3")});
    all.push_back({"made picture, progressive", healthy(progressive)});
    all.push_back({"made picture, progressive, junk behind", healthy(progressive).append(junk(50))});
    all.push_back({"made picture with a thumbnail", healthy(camera)});
    all.push_back({"made picture with a thumbnail, junk behind", healthy(camera).append(junk(50))});
    all.push_back({"made picture with a thumbnail, DQT overwritten", healthy(camera).fill(upTo(DQT), 138, 0x55)});
    all.push_back({"made pictures in a row", healthy().append(healthy(camera)).append(healthy(progressive))});
}

Cases makeAll()
{
    Cases all;
    tinyFiles(all);
    heads(all);
    otherSegments(all);
    tables(all);
    gaps(all);
    scans(all);
    tails(all);
    nested(all);
    streams(all);
    madePictures(all);
    return all;
}

} // namespace

const std::vector<Damaged> &damagedJpegs()
{
    static const Cases all = makeAll();
    return all;
}
