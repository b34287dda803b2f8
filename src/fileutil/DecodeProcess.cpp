#include "fileutil/DecodeProcess.h"

#include "decoder/Client.h"
#include "engine/BlockSource.h"
#include "engine/FileWindow.h"
#include "engine/OutputRows.h"
#include "engine/PictureMemory.h"
#include "fileutil/ExifThumbnail.h"

#include <QDir>
#include <QFileInfo>
#include <QMetaObject>

#include <cstring>

namespace {

const QSize kThumbnailBox(2 * kThumbnailSide, 2 * kThumbnailSide);

bool isJpeg(const QString &path, FileWindow &file)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return file.wordAt(0) == 0xFFD8 || suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg");
}

/// The thumbnail that the run has written for the same source; empty if there is none.
QString thumbnailBeside(const QString &path)
{
    const QFileInfo picture(path);
    if (isThumbnailName(picture.fileName())) return {};
    QString name = picture.completeBaseName();
    if (name.endsWith(QLatin1String("_salvaged"))) name.chop(int(qstrlen("_salvaged")));
    const QDir folder(picture.path() + QStringLiteral("/Thumbnail Repaired"));
    for (const char *suffix : {"jpg", "jpeg"}) {
        const QString place = folder.filePath(QStringLiteral("%1_[T1].%2").arg(name, QLatin1String(suffix)));
        if (QFileInfo::exists(place)) return place;
    }
    return {};
}

/// A small picture that says nothing of how it lies was taken as the large one was, which `turn` made upright.
QImage uprightThumbnail(const decoder::Answer &small, QImageIOHandler::Transformations turn)
{
    return small.turn == QImageIOHandler::TransformationNone ? decoder::turned(small.picture, turn) : small.picture;
}

QImage thumbnailOf(const QString &path, FileWindow &file, decoder::Client &client, const decoder::Terms &terms,
                   QImageIOHandler::Transformations turn)
{
    const QByteArray own = exifThumbnail(file);
    decoder::SharedMemory memory; // the decoder takes descriptors alone
    uchar *to = !own.isEmpty() && memory.create("thumbnail", own.size()) ? memory.map(quint64(own.size())) : nullptr;
    if (to) {
        std::memcpy(to, own.constData(), size_t(own.size()));
        const decoder::Answer small = client.show(memory.number(), kThumbnailBox, terms);
        if (!small.picture.isNull()) return uprightThumbnail(small, turn);
    }
    const FileSource beside(thumbnailBeside(path));
    if (!beside.isOpen()) return {};
    return uprightThumbnail(client.show(beside.descriptor(), kThumbnailBox, terms), turn);
}

} // namespace

DecodedPicture decodePicture(const QString &path, const std::function<bool()> &abandoned)
{
    static decoder::Client client;
    DecodedPicture decoded;
    FileSource source(path);
    if (!source.isOpen()) {
        decoded.problem = QStringLiteral("the file can't be read");
        return decoded;
    }
    FileWindow file(source);
    decoded.jpeg = isJpeg(path, file);
    // Decoding a HEIC of 12 megapixels takes about 0.3 GiB; the largest picture that is shown takes ten times that.
    const decoder::Terms terms{decoded.jpeg ? pictureMemoryLimit() : quint64(3) << 30, abandoned, 0};
    const int descriptor = source.descriptor();
    const decoder::Answer answer =
        decoded.jpeg ? client.show(descriptor, QSize(), terms) : client.heic(descriptor, QSize(), terms);
    // A JPEG's pixels are opaque, and so is what is written of them.
    decoded.image = decoded.jpeg ? answer.picture.convertToFormat(QImage::Format_RGB32) : answer.picture;
    decoded.size = answer.size;
    decoded.profile = answer.profile;
    decoded.problem = answer.problem;
    if (decoded.image.isNull() && decoded.problem.isEmpty())
        decoded.problem = answer.warnings.value(0, QStringLiteral("the picture can't be decoded"));
    if (decoded.jpeg) decoded.thumbnail = thumbnailOf(path, file, client, terms, answer.turn);
    return decoded;
}

DecodeProcess::~DecodeProcess()
{
    giveUp();
}

void DecodeProcess::start(const QString &path)
{
    giveUp();
    m_abandoned = false;
    m_thread = std::thread([this, path, number = ++m_latest] {
        const DecodedPicture decoded = decodePicture(path, [this] { return m_abandoned.load(); });
        if (m_abandoned) return;
        QMetaObject::invokeMethod(
            this,
            [this, decoded, number] {
                if (number == m_latest) emit finished(decoded);
            },
            Qt::QueuedConnection);
    });
}

void DecodeProcess::giveUp()
{
    m_abandoned = true;
    if (m_thread.joinable()) m_thread.join();
}
