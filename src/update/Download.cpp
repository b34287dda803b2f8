#include "update/Download.h"

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

void Download::start(const QString &address, const QString &path, qint64 limit)
{
    m_limit = limit;
    m_problem.clear();
    QFile::remove(path);
    m_file.setFileName(path);
    // Anew: a link that somebody has put there isn't followed.
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) m_problem = m_file.errorString();

    QNetworkRequest request{QUrl(address)};
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(kRedirections);
    request.setTransferTimeout(timeoutMs);
    m_reply = m_manager.get(request);
    connect(m_reply, &QNetworkReply::readyRead, this, &Download::readyRead);
    connect(m_reply, &QNetworkReply::downloadProgress, this, &Download::progress);
    connect(m_reply, &QNetworkReply::finished, this, &Download::finished);
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
    takeArrived();
    m_file.close();
    if (m_problem.isEmpty() && m_file.error() != QFile::NoError) m_problem = m_file.errorString();
    if (!m_reply) return m_problem;
    if (m_problem.isEmpty() && m_reply->error() != QNetworkReply::NoError) m_problem = m_reply->errorString();
    m_reply->deleteLater();
    m_reply.clear();
    return m_problem;
}
