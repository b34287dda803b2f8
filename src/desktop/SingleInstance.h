// One running program owns the working root; a second one hands its request over and ends.
#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

class QLocalServer;
class QLocalSocket;
class RootLock;

class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Start {
        First,      ///< the root is this program's until the object is destroyed
        HandedOver, ///< the running program has taken the paths
        Refused,    ///< `why` says in one line why the program can't start
    };

    explicit SingleInstance(QObject *parent = nullptr);
    ~SingleInstance() override;

    /// Prepares the working root and settles who owns it; blocks for the patience at most, unless the owner is
    /// leaving, and needs no event loop to be running. Unless it comes first, it changes nothing below the root. `paths` are the files to hand over; they may
    /// be relative.
    Start start(const QStringList &paths, QString *why);
    /// The owner's work is done but for what it wipes yet: it takes no more files, and the next start waits until this
    /// object is destroyed, however long that takes.
    void leave();
    /// How long to wait for an owner that is starting or ending, in milliseconds; 5000 unless set. One that has called
    /// leave() is waited for without an end.
    void setPatience(int milliseconds) { m_patience = milliseconds; }
    /// How long a caller may take to say what it wants, in milliseconds; 2000 unless set.
    void setCallerTime(int milliseconds) { m_callerTime = milliseconds; }

    /// Path of the socket for the current working root, never longer than the system takes.
    static QString socketPath();

signals:
    /// Another start asks this one to come to the front and to add these files; the list may be empty.
    void asked(const QStringList &paths);
    /// Again and again while start() waits for an owner that wipes, unless that is soon done.
    void waiting();

private:
    enum class HandOver { Done, NobodyThere, NoAnswer };

    HandOver handOver(const QByteArray &message, int milliseconds) const;
    void listen();
    void greet();
    void hear(QLocalSocket *caller);
    QString ownerText() const;

    // The server goes before the lock: a socket is removed only by the one who holds the lock.
    std::unique_ptr<RootLock> m_lock;
    std::unique_ptr<QLocalServer> m_server;
    int m_patience = 5000;
    int m_callerTime = 2000;
};
