#include "desktop/platform/PlatformMac.h"

#ifdef Q_OS_MACOS

#include "desktop/platform/CommandText.h"
#include "save/Destination.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSysInfo>

#include <cstdlib>
#include <unistd.h>
#include <vector>

namespace {

bool run(const QString &command)
{
    return std::system(QFile::encodeName(command).constData()) == 0;
}

/// What `command` leaves at the common place; the file is new before and gone after.
QString answerTo(const QString &command)
{
    QFile answer(commandText::answerPath());
    answer.remove();
    run(command);
    if (!answer.open(QIODevice::ReadOnly)) return {};
    const QString text = QString::fromLocal8Bit(answer.read(1 << 20));
    answer.close();
    answer.remove();
    return text;
}

} // namespace

QString PlatformMac::systemVersion()
{
    return commandText::versionIn(answerTo(commandText::askVersion()));
}

SystemDescription PlatformMac::systemDescription()
{
    SystemDescription description;
    description.hostName = QSysInfo::machineHostName().section('.', 0, 0);
    description.version = commandText::versionCode(systemVersion());
    description.osName = commandText::systemName(description.version);
    if (QSysInfo::currentCpuArchitecture() == "x86_64") description.family = ProcessorFamily::Intel;
    return description;
}

bool PlatformMac::showInFileManager(const QString &path)
{
    QFile script(commandText::revealScriptPath());
    script.remove();
    const QByteArray text = commandText::revealScript(path).toUtf8();
    if (!script.open(QIODevice::WriteOnly | QIODevice::NewOnly) || script.write(text) != text.size()) return false;
    script.close();
    const bool shown = run(commandText::makeRevealScriptRunnable()) && run(commandText::revealScriptPath());
    script.remove();
    return shown || QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool PlatformMac::openAddress(const QUrl &address)
{
    return !address.isEmpty() && QDesktopServices::openUrl(address);
}

QString PlatformMac::defaultBrowser()
{
    return {};
}

QList<unsigned int> PlatformMac::previewHelpers(const QString &)
{
    return commandText::helperIds(answerTo(commandText::listHelpers()));
}

bool PlatformMac::startPreviewHelper(const QString &helperPath, const QStringList &arguments)
{
    return QProcess::startDetached("open", QStringList{"-n", helperPath, "--args"} + arguments);
}

void PlatformMac::endPreviewHelper(unsigned int pid)
{
    run(commandText::endProcess(pid));
}

bool PlatformMac::isApplicationThere(const QString &bundlePath)
{
    return QFileInfo(bundlePath).isDir();
}

bool PlatformMac::startApplication(const QString &bundlePath)
{
    return run(commandText::startApplication(bundlePath));
}

void PlatformMac::startAnew(const QList<QByteArray> &arguments)
{
    std::vector<char *> words;
    for (const QByteArray &argument : arguments) words.push_back(const_cast<char *>(argument.constData()));
    words.push_back(nullptr);
    ::execv(QFile::encodeName(QCoreApplication::applicationFilePath()).constData(), words.data());
}

QString PlatformMac::userSettingsFile(const QString &shipped)
{
    return shipped;
}

QString PlatformMac::installBundle(const QString &, const QString &, const QString &, const QString &folder)
{
    for (const QString &step : commandText::installSteps(folder)) run(step);
    return {};
}

QString PlatformMac::destinationRefusal(const QString &folder)
{
    if (commandText::isReadOnlyPlace(systemVersion(), folder)) return readOnlyDestinationText();
    return destinationProblem(folder);
}

#endif
