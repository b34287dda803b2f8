// Decoding a picture for the panel, beside its window, by the decoder process: a file that breaks the decoder ends that
// process and not the panel.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <thread>

struct DecodedPicture
{
    QImage image;     ///< turned and mirrored as the file says, and in the colours of `profile`
    QSize size{0, 0}; ///< of the picture in the file; `image` is smaller where that has more than 134 million pixels
    QByteArray profile{}; ///< ICC profile, empty where the file has none
    QString problem{};    ///< one line why there is no picture; else empty
    QImage thumbnail{};   ///< the small picture of a JPEG, see decodePicture; null where there is none
    bool jpeg = false;    ///< the file is a JPEG, or at least is called one
};

/// Thumbnails are at most twice as wide and high, for sharp screens.
constexpr int kThumbnailSide = 160;

/// Decodes the main picture of a JPEG or a HEIC, a rewritten one included, and of a JPEG the thumbnail: the one in its
/// Exif segment, else the one that came out as "Thumbnail Repaired/NAME_[T1]" beside it. Waits for them; `abandoned`,
/// which is asked meanwhile, gives up.
DecodedPicture decodePicture(const QString &path, const std::function<bool()> &abandoned = {});

/// One decoding at a time.
class DecodeProcess : public QObject
{
    Q_OBJECT

public:
    explicit DecodeProcess(QObject *parent = nullptr) : QObject(parent) {}
    /// Gives up what is being decoded.
    ~DecodeProcess() override;

    /// Begins; finished() follows. What was begun before is given up, and says nothing any more.
    void start(const QString &path);

signals:
    void finished(const DecodedPicture &decoded);

private:
    void giveUp();

    std::thread m_thread;
    std::atomic<bool> m_abandoned{false};
    quint64 m_latest = 0;
};
