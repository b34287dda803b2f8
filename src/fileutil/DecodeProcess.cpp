#include "fileutil/DecodeProcess.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QFile>

#include <csignal>
#include <cstdio>
#include <sys/prctl.h>
#include <sys/resource.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define KESMIRA_SHADOW_MEMORY 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define KESMIRA_SHADOW_MEMORY 1
#endif
#endif

const char *const kDecodeOption = "decode";

namespace {

// Decoding 12 megapixels takes about 0.3 GiB and a second or two; the largest picture that is shown takes ten times that.
[[maybe_unused]] constexpr rlim_t kMemoryLimit = rlim_t(3) << 30;
constexpr rlim_t kSecondsLimit = 60;

constexpr quint32 kMagic = 0x48454943;

void takeLimits()
{
#ifndef KESMIRA_SHADOW_MEMORY // a sanitizer reserves terabytes of addresses
    const rlimit memory{kMemoryLimit, kMemoryLimit};
    ::setrlimit(RLIMIT_AS, &memory);
#endif
    const rlimit seconds{kSecondsLimit, kSecondsLimit};
    ::setrlimit(RLIMIT_CPU, &seconds);
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // nobody waits for the picture of a closed panel
}

bool knownFormat(quint32 format)
{
    return format == QImage::Format_RGB888 || format == QImage::Format_RGBA8888;
}

DecodedHeic parse(const QByteArray &bytes)
{
    DecodedHeic decoded;
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_15);
    quint32 magic = 0, width = 0, height = 0, format = 0;
    stream >> magic >> decoded.problem >> decoded.profile >> width >> height >> format;
    const bool told = stream.status() == QDataStream::Ok && magic == kMagic;
    if (told && !decoded.problem.isEmpty()) return decoded;
    const bool sane = told && width > 0 && height > 0 && width < 65536 && height < 65536 && knownFormat(format);
    const qint64 lineBytes = qint64(width) * (format == QImage::Format_RGB888 ? 3 : 4);
    if (!sane || qint64(width) * height * 4 > kPictureLimit
        || stream.device()->bytesAvailable() != lineBytes * height) {
        decoded.problem = QStringLiteral("the decoder broke off");
        return decoded;
    }
    decoded.image = QImage(int(width), int(height), QImage::Format(format));
    for (int y = 0; y < decoded.image.height(); ++y)
        stream.readRawData(reinterpret_cast<char *>(decoded.image.scanLine(y)), int(lineBytes));
    return decoded;
}

} // namespace

int runDecodeChild(const QString &path)
{
    takeLimits();
    const DecodedHeic decoded = decodeHeic(path);
    QFile out;
    if (!out.open(stdout, QIODevice::WriteOnly)) return 1;
    QDataStream stream(&out);
    stream.setVersion(QDataStream::Qt_5_15);
    const QImage &image = decoded.image;
    stream << kMagic << decoded.problem << decoded.profile << quint32(image.width()) << quint32(image.height())
           << quint32(image.format());
    const int lineBytes = image.width() * image.depth() / 8;
    for (int y = 0; y < image.height(); ++y)
        stream.writeRawData(reinterpret_cast<const char *>(image.constScanLine(y)), lineBytes);
    return out.flush() && stream.status() == QDataStream::Ok ? 0 : 1;
}

DecodeProcess::DecodeProcess(QObject *parent) : QObject(parent)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setProgram(QCoreApplication::applicationFilePath());
    connect(&m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this, &DecodeProcess::conclude);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) conclude();
    });
}

DecodeProcess::~DecodeProcess()
{
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished();
}

void DecodeProcess::start(const QString &path)
{
    m_process.setArguments({QLatin1String("--") + QLatin1String(kDecodeOption), QStringLiteral("--"), path});
    m_process.start(QIODevice::ReadOnly);
}

DecodedHeic DecodeProcess::decode(const QString &path)
{
    start(path);
    m_process.waitForFinished(-1);
    return m_decoded;
}

void DecodeProcess::conclude()
{
    m_decoded = DecodedHeic();
    if (m_process.error() == QProcess::FailedToStart) {
        m_decoded.problem = QStringLiteral("the decoder can't be started");
    } else if (m_process.exitStatus() == QProcess::CrashExit) {
        m_decoded.problem = QStringLiteral("the decoder broke off: the file is damaged, or asks for too much");
    } else {
        m_decoded = parse(m_process.readAllStandardOutput());
    }
    emit finished(m_decoded);
}
