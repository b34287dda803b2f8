#include "desktop/platform/PlatformLinux.h"

#include "app/KesmiraApp.h"
#include "desktop/platform/BundleInstall.h"
#include "desktop/platform/CommandText.h"
#include "desktop/platform/DefaultBrowser.h"
#include "save/Destination.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QSysInfo>
#include <QTemporaryFile>

#include <csignal>
#include <vector>

#include <sys/types.h>
#include <unistd.h>

namespace {

constexpr int kAnswerTime = 5000; ///< milliseconds; a file manager that isn't running yet has to start first

/// True if there is a bus to talk to. Without one the library would try to start one and wait for it.
bool hasSessionBus()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QFileInfo::exists(runtime + "/bus");
}

QDBusMessage showItemsCall(const QString &path)
{
    QDBusMessage call = QDBusMessage::createMethodCall("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                                       "org.freedesktop.FileManager1", "ShowItems");
    const QStringList items{QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())};
    call << items << QString(); // the second is a start-up id, which there is none of
    return call;
}

bool isProgram(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && info.isExecutable();
}

/// The program that a process runs, "" if it isn't this user's or is no process any more.
QString programOfProcess(const QString &pid)
{
    const QString folder = "/proc/" + pid;
    if (QFileInfo(folder).ownerId() != ::geteuid()) return {};
    QString program = QFile::symLinkTarget(folder + "/exe");
    // The mark of a program that was replaced by a newer one while it runs.
    static const QString replaced(" (deleted)");
    if (program.endsWith(replaced)) program.chop(replaced.size());
    return program;
}

/// Nearest folder at or above `path` that exists.
QString existingFolder(const QString &path)
{
    QString folder = QDir(path).absolutePath();
    while (!QFileInfo::exists(folder) && folder.contains('/'))
        folder = folder.lastIndexOf('/') > 0 ? folder.left(folder.lastIndexOf('/')) : QStringLiteral("/");
    return folder;
}

/// Tries it: rights alone don't tell of a medium that takes nothing.
bool canBeWritten(const QString &folder)
{
    if (!QFileInfo(folder).isDir()) return false;
    QTemporaryFile probe(folder + "/.kesmira-XXXXXX");
    return probe.open();
}

} // namespace

QString PlatformLinux::systemVersion()
{
    const QString version = QSysInfo::productVersion();
    if (version != "unknown") return version;
    // Some systems are never released and have no version of their own.
    return QSysInfo::kernelVersion().section('-', 0, 0);
}

SystemDescription PlatformLinux::systemDescription()
{
    SystemDescription description;
    description.hostName = QSysInfo::machineHostName().section('.', 0, 0);
    description.osName = QSysInfo::prettyProductName();
    description.version = commandText::versionCode(systemVersion());
    const QString architecture = QSysInfo::currentCpuArchitecture();
    if (architecture == "x86_64" || architecture == "i386") description.family = ProcessorFamily::Intel;
    if (architecture.startsWith("power")) description.family = ProcessorFamily::PowerPc;
    return description;
}

bool PlatformLinux::showInFileManager(const QString &path)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists()) return false;
    const QString folder = info.isDir() ? info.absoluteFilePath() : info.absolutePath();
    if (!hasSessionBus() || !QDBusConnection::sessionBus().isConnected()) return openFolder(folder);

    const QDBusPendingCall call =
        QDBusConnection::sessionBus().asyncCall(showItemsCall(info.absoluteFilePath()), kAnswerTime);
    auto *watcher = new QDBusPendingCallWatcher(call, QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_guard, [this, watcher, folder] {
        if (watcher->isError()) openFolder(folder);
    });
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, &QObject::deleteLater);
    return true;
}

bool PlatformLinux::openFolder(const QString &folder)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

bool PlatformLinux::openAddress(const QUrl &address)
{
    // Without a scheme the desktop would guess, and may take it for a file.
    if (!address.isValid() || address.scheme().isEmpty()) return false;
    return QDesktopServices::openUrl(address);
}

QString PlatformLinux::defaultBrowser()
{
    return browserOfDesktopSettings();
}

QString PlatformLinux::programOf(const QString &bundlePath)
{
    if (bundlePath.isEmpty()) return {};
    const QString name = QFileInfo(bundlePath).completeBaseName();
    const QString beside = QFileInfo(bundlePath).path() + '/' + name;
    for (const QString &place : {bundlePath, bundlePath + "/Contents/MacOS/" + name, beside}) {
        if (isProgram(place)) return QFileInfo(place).canonicalFilePath();
    }
    return {};
}

QList<unsigned int> PlatformLinux::previewHelpers(const QString &helperPath)
{
    m_helpers.clear();
    const QString helper = programOf(helperPath);
    if (helper.isEmpty()) return {};
    QList<unsigned int> found;
    for (const QString &name : QDir("/proc").entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isProcess = false;
        const unsigned int pid = name.toUInt(&isProcess);
        if (!isProcess || programOfProcess(name) != helper) continue;
        m_helpers.insert(pid, helper);
        found.append(pid);
    }
    return found;
}

bool PlatformLinux::startPreviewHelper(const QString &helperPath, const QStringList &arguments)
{
    const QString helper = programOf(helperPath);
    return !helper.isEmpty() && QProcess::startDetached(helper, arguments);
}

void PlatformLinux::endPreviewHelper(unsigned int pid)
{
    // The number may have passed to another process since the helpers were listed.
    const QString helper = m_helpers.take(pid);
    if (helper.isEmpty() || programOfProcess(QString::number(pid)) != helper) return;
    ::kill(pid_t(pid), SIGKILL);
}

bool PlatformLinux::isApplicationThere(const QString &bundlePath)
{
    return !programOf(bundlePath).isEmpty();
}

bool PlatformLinux::startApplication(const QString &bundlePath)
{
    const QString program = programOf(bundlePath);
    return !program.isEmpty() && QProcess::startDetached(program, {});
}

void PlatformLinux::startAnew(const QList<QByteArray> &arguments)
{
    std::vector<char *> words;
    for (const QByteArray &argument : arguments) words.push_back(const_cast<char *>(argument.constData()));
    words.push_back(nullptr);
    ::execv(QFile::encodeName(QCoreApplication::applicationFilePath()).constData(), words.data());
}

QString PlatformLinux::userSettingsFile(const QString &shipped)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QString name = QFileInfo(shipped).fileName();
    return folder.isEmpty() || name.isEmpty() ? QString() : folder + "/kesmira/" + name;
}

QString PlatformLinux::installBundle(const QString &archive, const QString &bundleName, const QString &program,
                                     const QString &folder)
{
    return installBundleFromArchive(archive, bundleName, program, folder);
}

QString PlatformLinux::destinationRefusal(const QString &folder)
{
    const QString problem = destinationProblem(folder);
    if (!problem.isEmpty()) return problem;
    return canBeWritten(existingFolder(folder)) ? QString() : readOnlyDestinationText();
}
