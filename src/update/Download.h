// One file fetched over HTTP into the scratch folder.
#pragma once

#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>

class Download : public QObject
{
    Q_OBJECT

public:
    explicit Download(QObject *parent = nullptr) : QObject(parent) {}
    /// Ends a transfer that is under way; nothing is signalled any more.
    ~Download() override;

    /// Fetches `address` into a new file at `path`; what stands there is removed first. A server that sends nothing for
    /// `setTimeout` ends the transfer, and so do more than five redirections, one to an address that isn't `isSafe`, more
    /// bytes than `limit`, and more time than `longest` (milliseconds) from start to end.
    void start(const QString &address, const QString &path, qint64 limit, int longest);
    /// True for https, and for http to this machine itself ("localhost", 127.0.0.0/8, ::1).
    static bool isSafe(const QUrl &address);
    void cancel();
    /// Writes what has arrived to the file.
    void takeArrived();
    /// Closes the file. Returns "" or why it isn't whole.
    QString finish();
    QString path() const { return m_file.fileName(); }

    /// For tests; milliseconds.
    static void setTimeout(int milliseconds);

signals:
    void readyRead();
    void progress(qint64 received, qint64 total); ///< bytes; `total` is -1 where the server doesn't say
    void finished();

private:
    void giveUp(const QString &why);

    QNetworkAccessManager m_manager;
    QPointer<QNetworkReply> m_reply;
    QFile m_file;
    qint64 m_limit = 0;
    QString m_problem;
    QTimer m_longest;
};
