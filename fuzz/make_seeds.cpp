// Writes the made files of the tests as seeds: `make_seeds DIR` fills DIR/damaged, DIR/raw, DIR/heic and DIR/update, and
// DIR/answers with what the decoder process may say.
#include "decoder/Protocol.h"
#include "support/Cr3Maker.h"
#include "support/Damage.h"
#include "support/Files.h"
#include "support/HeicMaker.h"
#include "support/Pictures.h"
#include "support/RawFile.h"
#include "support/RawMaker.h"
#include "support/ZipMaker.h"

#include <cstdio>

namespace {

void writeAll(const QString &folder, const std::vector<QByteArray> &files)
{
    int number = 0;
    for (const QByteArray &file : files) write(folder + QStringLiteral("/%1").arg(++number), file);
}

std::vector<QByteArray> answers()
{
    decoder::Answer answer;
    answer.problem = QStringLiteral("the decoder took too long");
    std::vector<QByteArray> all{decoder::pack(answer)};
    answer.opens = true;
    answer.size = QSize(48, 32);
    answer.warnings = QStringList{QStringLiteral("Premature end of file"), QString()};
    answer.icon = drawPicture(32, 21);
    all.push_back(decoder::pack(answer));
    answer.picture = drawGreyPicture(7, 5);
    answer.profile = QByteArray("profile");
    answer.turn = QImageIOHandler::TransformationRotate90;
    all.push_back(decoder::pack(answer));
    return all;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_seeds DIR\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    std::vector<QByteArray> damaged;
    for (const Damaged &each : damagedJpegs()) damaged.push_back(each.bytes);
    writeAll(folder + QStringLiteral("/damaged"), damaged);

    // Pictures of some bytes keep the files short, and short files are soon looked through.
    const QByteArray picture = RawFile().picture(0, 60);
    const QByteArray thumbnail = RawFile().picture(0, 30);
    std::vector<QByteArray> raw{makeCr3({.full = picture, .preview = picture, .thumbnail = thumbnail})};
    raw.push_back(makeCr3({.preview = picture, .thumbnail = thumbnail, .longData = false}));
    for (const RawSample &sample : makeRawSamples(picture, thumbnail)) raw.push_back(sample.file);
    writeAll(folder + QStringLiteral("/raw"), raw);

    std::vector<QByteArray> heic;
    for (const auto &[tiles, entryCount] : {std::pair(25, 0x1C), {25, 0x1D}, {35, 0x26}, {36, 0x27}, {48, 0x33}}) {
        const MadeHeic made = makeHeic({.tiles = tiles, .entryCount = entryCount});
        for (const QByteArray &bytes : {made.bytes, expectedRewrite(made, made), made.stream}) heic.push_back(bytes);
    }
    writeAll(folder + QStringLiteral("/heic"), heic);

    std::vector<QByteArray> updates{zipOf(madeBundle())};
    for (const ZipEntry &more : {ZipEntry{"Kesmira.app/out", {}, ZipEntry::Link, "Contents/../../Other.app"},
                                 ZipEntry{"../beside", "evil"}, ZipEntry{"Kesmira.app", {}, ZipEntry::Link, "."}})
        updates.push_back(zipOf(madeBundle() << more));
    writeAll(folder + QStringLiteral("/update"), updates);
    writeAll(folder + QStringLiteral("/answers"), answers());
    return 0;
}
