// A web server on the loopback that answers each path as its script says.
#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

class LoopbackServer
{
public:
    struct Answer
    {
        QByteArray body;
        QByteArray status = "200 OK";
        QByteArray headers = {}; ///< further lines, each with its line end
        int cutAt = -1;          ///< bytes of the body after which the connection ends
        bool silent = false;     ///< takes the request and says nothing
    };
    QHash<QByteArray, Answer> answers; ///< by path; other paths are 404
    QList<QByteArray> asked;

    LoopbackServer()
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            QTcpSocket *socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            QObject::connect(socket, &QTcpSocket::readyRead, [this, socket] { serve(socket); });
        });
    }
    QString base() const { return QStringLiteral("http://127.0.0.1:%1/").arg(m_server.serverPort()); }
    void close() { m_server.close(); }

private:
    void serve(QTcpSocket *socket)
    {
        if (!socket->peek(64 * 1024).contains("\r\n\r\n")) return;
        const QByteArray path = socket->readAll().split(' ').value(1);
        asked << path;
        const Answer answer = answers.value(path, {"<html>not here</html>", "404 Not Found"});
        if (answer.silent) return;
        const QByteArray length = QByteArray::number(answer.body.size());
        socket->write("HTTP/1.1 " + answer.status + "\r\nContent-Length: " + length + "\r\nConnection: close\r\n"
                      + answer.headers + "\r\n");
        socket->write(answer.cutAt < 0 ? answer.body : answer.body.left(answer.cutAt));
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
};
