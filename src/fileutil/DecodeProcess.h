// Decoding in a process of its own, under limits on memory and time: a file that breaks the decoder ends that process and
// not the panel.
#pragma once

#include "fileutil/HeicDecoder.h"

#include <QObject>
#include <QProcess>

/// What the child does: takes its limits upon itself, decodes, and writes the picture to standard output.
/// Returns its exit status.
int runDecodeChild(const QString &path);
/// The option that makes this program the child.
extern const char *const kDecodeOption;

/// One decoding, by this very program.
class DecodeProcess : public QObject
{
    Q_OBJECT

public:
    explicit DecodeProcess(QObject *parent = nullptr);
    ~DecodeProcess() override;

    /// Begins; finished() follows.
    void start(const QString &path);
    /// The same, waiting.
    DecodedHeic decode(const QString &path);

signals:
    void finished(const DecodedHeic &decoded);

private:
    void conclude();

    QProcess m_process;
    DecodedHeic m_decoded;
};
