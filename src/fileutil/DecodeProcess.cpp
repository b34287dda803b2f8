#include "fileutil/DecodeProcess.h"

#include "decoder/Client.h"
#include "engine/BlockSource.h"

#include <QMetaObject>

DecodedHeic decodeHeic(const QString &path, const std::function<bool()> &abandoned)
{
    static decoder::Client client;
    const FileSource file(path);
    if (!file.isOpen()) return {{}, {}, QStringLiteral("the file can't be read")};
    // Decoding 12 megapixels takes about 0.3 GiB; the largest picture that is shown takes ten times that.
    const decoder::Answer answer = client.heic(file.descriptor(), QSize(), {quint64(3) << 30, abandoned, 0});
    return {answer.picture, answer.profile, answer.problem};
}

DecodeProcess::~DecodeProcess()
{
    giveUp();
}

void DecodeProcess::start(const QString &path)
{
    giveUp();
    m_abandoned = false;
    m_thread = std::thread([this, path] {
        const DecodedHeic decoded = decodeHeic(path, [this] { return m_abandoned.load(); });
        if (m_abandoned) return;
        QMetaObject::invokeMethod(
            this, [this, decoded] { emit finished(decoded); }, Qt::QueuedConnection);
    });
}

void DecodeProcess::giveUp()
{
    m_abandoned = true;
    if (m_thread.joinable()) m_thread.join();
}
