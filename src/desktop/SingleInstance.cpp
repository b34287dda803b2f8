#include "desktop/SingleInstance.h"

#include "app/RootLock.h"
#include "app/WorkingRoot.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>

namespace {

constexpr int kLongestMessage = 1 << 20;    ///< bytes, the line end included
constexpr int kLongestSocketPath = 107;     ///< bytes; the system's field has one more, for the zero
constexpr int kConnectTime = 500;           ///< milliseconds for one try to reach the owner
constexpr unsigned long kPauseBetween = 20; ///< milliseconds
constexpr qint64 kQuietWait = 300;          ///< milliseconds that a person isn't told of
const char kPathsKey[] = "paths";
const QByteArray kTaken("taken\n");

/// One line: {"paths":["/a","/b"]}.
QByteArray messageOf(const QStringList &paths)
{
    QJsonArray list;
    // The running program's folder is another one.
    for (const QString &path : paths) list.append(QFileInfo(path).absoluteFilePath());
    return QJsonDocument(QJsonObject{{kPathsKey, list}}).toJson(QJsonDocument::Compact) + '\n';
}

/// False for anything that isn't a whole message.
bool readMessage(const QByteArray &line, QStringList &paths)
{
    const QJsonDocument document = QJsonDocument::fromJson(line);
    if (!document.object().value(kPathsKey).isArray()) return false;
    const QJsonArray listed = document.object().value(kPathsKey).toArray();
    for (const auto path : listed) {
        if (!path.isString() || !QDir::isAbsolutePath(path.toString())) return false;
        paths.append(path.toString());
    }
    return true;
}

QString lockPath()
{
    return workingRoot() + "/kesmira.lock";
}

/// Stands while the owner wipes before it ends.
QString leavingMark()
{
    return workingRoot() + "/kesmira.leaving";
}

/// In a folder for everybody, somebody else may have put a socket of that name there.
bool isOwnSocket(const QString &path)
{
    const QFileInfo socket(path);
    return !socket.isSymLink() && socket.ownerId() == QFileInfo(workingRoot()).ownerId();
}

} // namespace

SingleInstance::SingleInstance(QObject *parent) : QObject(parent) {}

SingleInstance::~SingleInstance()
{
    if (m_lock) QFile::remove(leavingMark());
}

void SingleInstance::leave()
{
    if (!m_lock) return;
    QFile mark(leavingMark());
    mark.open(QIODevice::WriteOnly);
    m_server->close();
}

QString SingleInstance::socketPath()
{
    const QString beside = workingRoot() + "/kesmira.socket";
    if (QFile::encodeName(beside).size() <= kLongestSocketPath) return beside;
    const QByteArray root = QFile::encodeName(QDir(workingRoot()).canonicalPath());
    const QByteArray name = QCryptographicHash::hash(root, QCryptographicHash::Sha256).toHex().left(32);
    const QString file = "/kesmira-" + name + ".socket";
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const bool isFit = QDir::isAbsolutePath(runtime) && QFileInfo(runtime).isDir()
        && QFile::encodeName(runtime + file).size() <= kLongestSocketPath;
    return (isFit ? runtime : QStringLiteral("/tmp")) + file;
}

SingleInstance::Start SingleInstance::start(const QStringList &paths, QString *why)
{
    *why = prepareWorkingRoot();
    if (!why->isEmpty()) return Start::Refused;
    const QByteArray message = messageOf(paths);
    auto lock = std::make_unique<RootLock>();
    QElapsedTimer waited;
    waited.start();
    QElapsedTimer wiping;
    bool isOwnerSilent = false;
    do {
        const RootLock::Result result = lock->tryLock(lockPath());
        if (result == RootLock::Result::Locked) {
            m_lock = std::move(lock);
            QFile::remove(leavingMark()); // of one that was ended by force
            listen();
            return Start::First;
        }
        if (result == RootLock::Result::Failed) {
            *why = tr("The working folder \"%1\" can't be locked.").arg(workingRoot());
            return Start::Refused;
        }
        if (message.size() > kLongestMessage) {
            *why = tr("The program is running already, and these are too many files to hand over to it at once.");
            return Start::Refused;
        }
        const HandOver answer = handOver(message, int(qMax<qint64>(m_patience - waited.elapsed(), 1)));
        if (answer == HandOver::Done) return Start::HandedOver;
        isOwnerSilent = answer == HandOver::NoAnswer;
        if (QFile::exists(leavingMark())) {
            waited.restart();
            if (!wiping.isValid()) wiping.start();
            if (wiping.elapsed() >= kQuietWait) emit waiting();
        }
        // The owner may be about to listen, or about to end.
        QThread::msleep(kPauseBetween);
    } while (waited.elapsed() < m_patience);
    *why = isOwnerSilent ? tr("The program is running already but is busy; it hasn't answered yet.") : ownerText();
    return Start::Refused;
}

SingleInstance::HandOver SingleInstance::handOver(const QByteArray &message, int milliseconds) const
{
    if (!isOwnSocket(socketPath())) return HandOver::NobodyThere;
    QElapsedTimer waited;
    waited.start();
    QLocalSocket socket;
    socket.connectToServer(socketPath());
    if (!socket.waitForConnected(qMin(milliseconds, kConnectTime))) return HandOver::NobodyThere;
    socket.write(message);
    while (!socket.canReadLine()) {
        const qint64 left = milliseconds - waited.elapsed();
        if (left <= 0) return HandOver::NoAnswer;
        if (!socket.waitForReadyRead(int(left)) && !socket.canReadLine()) {
            // Hung up: the owner was just ending.
            return socket.state() == QLocalSocket::ConnectedState ? HandOver::NoAnswer : HandOver::NobodyThere;
        }
    }
    return socket.readLine(kTaken.size() + 1) == kTaken ? HandOver::Done : HandOver::NobodyThere;
}

QString SingleInstance::ownerText() const
{
    qint64 pid = 0;
    QString host;
    QString program;
    if (!RootLock::readHolder(lockPath(), pid, program, host))
        return tr("The working folder \"%1\" is in use by another program.").arg(workingRoot());
    return tr("The working folder \"%1\" is in use by %2 (process %3 on %4).")
        .arg(workingRoot(), program, QString::number(pid), host);
}

void SingleInstance::listen()
{
    m_server = std::make_unique<QLocalServer>();
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server.get(), &QLocalServer::newConnection, this, &SingleInstance::greet);
    // A program that was ended by force leaves its socket behind; this one holds the lock, so nobody listens there.
    QLocalServer::removeServer(socketPath());
    // Without a socket the program serves as well; a later start is then refused with a reason.
    if (!m_server->listen(socketPath()))
        qWarning("Other starts can't be heard: %s", qPrintable(m_server->errorString()));
}

void SingleInstance::greet()
{
    while (QLocalSocket *caller = m_server->nextPendingConnection()) {
        caller->setReadBufferSize(kLongestMessage + 1);
        connect(caller, &QLocalSocket::readyRead, this, [this, caller] { hear(caller); });
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        QTimer::singleShot(m_callerTime, caller, [this, caller] {
            // After a long copy in this thread the time may be over with the message lying there unread.
            if (!caller->canReadLine()) caller->waitForReadyRead(0);
            hear(caller);
            caller->abort();
        });
        if (caller->bytesAvailable() > 0) hear(caller);
    }
}

void SingleInstance::hear(QLocalSocket *caller)
{
    if (!caller->canReadLine()) {
        if (caller->bytesAvailable() > kLongestMessage) caller->abort();
        return;
    }
    QStringList paths;
    if (!readMessage(caller->readLine(kLongestMessage + 1), paths)) {
        caller->abort();
        return;
    }
    disconnect(caller, &QLocalSocket::readyRead, this, nullptr); // one message a caller
    caller->write(kTaken);
    caller->flush();
    caller->disconnectFromServer();
    // The caller's end doesn't wait for what the window makes of it, a question to a person perhaps.
    QMetaObject::invokeMethod(
        this, [this, paths] { emit asked(paths); }, Qt::QueuedConnection);
}
