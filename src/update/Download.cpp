#include "update/Download.h"

#include <QHostAddress>

namespace {

int timeoutMs = 30000;
constexpr int kRedirections = 5;

} // namespace

void Download::setTimeout(int milliseconds)
{
    timeoutMs = milliseconds;
}

Download::~Download()
{
    if (!m_reply) return;
    m_reply->disconnect(this);
    m_reply->abort();
}

bool Download::isSafe(const QUrl &address)
{
    if (!address.isValid() || address.host().isEmpty()) return false;
    const QString host = address.host();
    const bool own = host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
    return address.scheme() == QLatin1String("https") || (own && address.scheme() == QLatin1String("http"));
}

void Download::giveUp(const QString &why)
{
    if (m_problem.isEmpty()) m_problem = why;
    if (m_reply) m_reply->abort();
}

void Download::start(const QString &address, const QString &path, qint64 limit, int longest)
{
    m_limit = limit;
    m_problem.clear();
    QFile::remove(path);
    m_file.setFileName(path);
    // Anew: a link that somebody has put there isn't followed.
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) m_problem = m_file.errorString();

    const QUrl url(address);
    const bool safe = isSafe(url);
    const QString unsafe = tr("The address of the update isn't a safe one.");
    if (!safe && !address.isEmpty()) m_problem = unsafe;
    // An empty one fails by itself, after this call like all others.
    QNetworkRequest request{m_problem.isEmpty() ? url : QUrl()};
    // The bytes count as they are sent; none are unpacked on the way.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setMaximumRedirectsAllowed(kRedirections);
    request.setTransferTimeout(timeoutMs);
    m_reply = m_manager.get(request);
    connect(m_reply, &QNetworkReply::readyRead, this, &Download::readyRead);
    connect(m_reply, &QNetworkReply::downloadProgress, this, &Download::progress);
    connect(m_reply, &QNetworkReply::finished, this, &Download::finished);
    connect(m_reply, &QNetworkReply::redirected, this, [this, unsafe](const QUrl &next) {
        if (isSafe(next))
            emit m_reply->redirectAllowed();
        else
            giveUp(unsafe);
    });
    m_longest.setSingleShot(true);
    m_longest.callOnTimeout(this, [this] { giveUp(tr("The server takes too long.")); });
    m_longest.start(longest);
}

void Download::cancel()
{
    if (m_reply) m_reply->abort();
}

void Download::takeArrived()
{
    if (!m_reply) return;
    const QByteArray bytes = m_reply->readAll();
    if (!m_problem.isEmpty()) return;
    if (m_file.size() + bytes.size() > m_limit)
        m_problem = tr("The server sends more than an update can hold.");
    else if (m_file.write(bytes) != bytes.size())
        m_problem = m_file.errorString();
    if (!m_problem.isEmpty()) m_reply->abort();
}

QString Download::finish()
{
    m_longest.stop();
    takeArrived();
    m_file.close();
    if (m_problem.isEmpty() && m_file.error() != QFile::NoError) m_problem = m_file.errorString();
    if (!m_reply) return m_problem;
    if (m_problem.isEmpty() && m_reply->error() != QNetworkReply::NoError) m_problem = m_reply->errorString();
    m_reply->deleteLater();
    m_reply.clear();
    return m_problem;
}
