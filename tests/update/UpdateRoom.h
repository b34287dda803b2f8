// A root, a link file and a server for the tests of updates.
#pragma once

#include "app/KesmiraApp.h"
#include "app/WorkingRoot.h"
#include "desktop/Languages.h"
#include "support/FakeDesktop.h"
#include "update/Download.h"
#include "update/UpdateState.h"

#include <QApplication>
#include <QHash>
#include <QSettings>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

/// A web server on the loopback that answers each path as its script says.
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
    int asked = 0;                     ///< how often
    QByteArray request;                ///< the last one

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
        request = socket->readAll();
        ++asked;
        const Answer answer = answers.value(request.split(' ').value(1), {"<html>not here</html>", "404 Not Found"});
        if (answer.silent) return;
        const QByteArray length = QByteArray::number(answer.body.size());
        socket->write("HTTP/1.1 " + answer.status + "\r\nContent-Length: " + length + "\r\nConnection: close\r\n"
                      + answer.headers + "\r\n");
        socket->write(answer.cutAt < 0 ? answer.body : answer.body.left(answer.cutAt));
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
};

class UpdateRoom
{
public:
    UpdateRoom()
    {
        *pApp = KesmiraApp();
        setWorkingRoot(folder.filePath("root"));
        setPlatform(&platform);
        pApp->bLangGerman = true;
        pApp->strLinkPlistPath = folder.filePath("links.plist");
        link("UpdateLink_DE", server.base());
        QSettings("apple", "KMPR.db").clear();
        QSettings("apple", "KMVR.db").clear();
        softwareUpdate = {};
        UpdateVersionAvailable = isMajorUpdate = isMinorUpdate = bCheckForUpdate = false;
        Download::setTimeout(30000);
    }
    ~UpdateRoom()
    {
        qDeleteAll(QApplication::topLevelWidgets());
        setPlatform(nullptr);
        setWorkingRoot({});
    }
    void link(const char *key, const QString &value) const
    {
        QSettings(pApp->strLinkPlistPath, QSettings::NativeFormat).setValue(key, value);
    }
    /// The dialog of this class that is seen, null if there is none.
    template<typename Dialog>
    static Dialog *shown()
    {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *dialog = qobject_cast<Dialog *>(widget); dialog && dialog->isVisible()) return dialog;
        return nullptr;
    }

    QTemporaryDir folder;
    RecordingPlatform platform;
    LoopbackServer server;
};
