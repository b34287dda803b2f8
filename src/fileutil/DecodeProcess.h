// Decoding a HEIC for the panel, beside its window, by the decoder process: a file that breaks the decoder ends that process
// and not the panel.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <thread>

struct DecodedHeic
{
    QImage image;       ///< turned and mirrored as the file says; in the colours of `profile`
    QByteArray profile; ///< ICC profile, empty where the file has none
    QString problem;    ///< one line why there is no picture; else empty
};

/// Decodes the main picture of the file, a rewritten one included. Waits for it; `abandoned`, which is asked meanwhile,
/// gives it up.
DecodedHeic decodeHeic(const QString &path, const std::function<bool()> &abandoned = {});

/// One decoding at a time.
class DecodeProcess : public QObject
{
    Q_OBJECT

public:
    explicit DecodeProcess(QObject *parent = nullptr) : QObject(parent) {}
    /// Gives up what is being decoded.
    ~DecodeProcess() override;

    /// Begins; finished() follows. What was begun before is given up.
    void start(const QString &path);

signals:
    void finished(const DecodedHeic &decoded);

private:
    void giveUp();

    std::thread m_thread;
    std::atomic<bool> m_abandoned{false};
};
