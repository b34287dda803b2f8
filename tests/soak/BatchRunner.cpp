#include "soak/BatchRunner.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>

namespace soak {

namespace {

/// One run of the program, from the first file to its end, its crash or its being killed.
class OneRun
{
public:
    OneRun(const QString &program, const QStringList &arguments, int seconds) : m_seconds(seconds)
    {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(program, arguments, QIODevice::ReadOnly);
    }

    /// The next line, empty at the end of the output.
    QJsonObject line()
    {
        QElapsedTimer clock;
        clock.start();
        while (!m_process.canReadLine()) {
            if (m_process.state() == QProcess::NotRunning) break;
            if (m_process.waitForReadyRead(1000) || clock.elapsed() < m_seconds * 1000LL) continue;
            m_hangs = true;
            m_process.kill();
            m_process.waitForFinished();
            break;
        }
        return m_process.canReadLine() ? QJsonDocument::fromJson(m_process.readLine()).object() : QJsonObject();
    }

    QString mishap()
    {
        m_process.waitForFinished();
        if (m_hangs) return QStringLiteral("hangs");
        return m_process.exitStatus() == QProcess::CrashExit || m_process.error() == QProcess::FailedToStart
            ? QStringLiteral("crashed")
            : QStringLiteral("ended without a word, exit %1").arg(m_process.exitCode());
    }

private:
    QProcess m_process;
    const int m_seconds;
    bool m_hangs = false;
};

/// Files below `work`, each under the source whose base its name begins with.
void collectOutputs(const QString &work, const QStringList &files, QList<Leaving> &leavings)
{
    QHash<QString, int> numbers;
    for (int i = 0; i < files.size(); ++i) numbers.insert(QFileInfo(files[i]).completeBaseName(), i);
    QDirIterator entries(work, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    const QDir root(work);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QString name = entries.fileName();
        const int length =
            int(std::find_if(name.begin(), name.end(), [](QChar c) { return !c.isLetterOrNumber(); }) - name.begin());
        const int at = numbers.value(name.left(length), -1);
        if (at >= 0) leavings[at].outputs.insert(root.relativeFilePath(path), path);
    }
}

} // namespace

QString Leaving::pathOf(const QString &name) const
{
    const QString leaf = QFileInfo(name).fileName(); // the second way puts a "/" in front of its names
    for (const QString &path : outputs)
        if (!leaf.isEmpty() && QFileInfo(path).fileName() == leaf) return path;
    return {};
}

QList<Leaving> runOver(const QString &program, const QStringList &arguments, const QString &work,
                       const QStringList &files, int seconds)
{
    QList<Leaving> all;
    for (int part = 0; all.size() < files.size(); ++part) {
        const QString folder = QStringLiteral("%1/%2").arg(work).arg(part);
        const QStringList rest = files.mid(all.size());
        QList<Leaving> leavings;
        QDir().mkpath(work);
        OneRun run(program, arguments + QStringList{"--work", folder} + rest, seconds);
        while (leavings.size() < rest.size()) {
            Leaving leaving;
            leaving.json = run.line();
            if (leaving.json.isEmpty()) leaving.mishap = run.mishap();
            leavings.append(leaving);
            if (!leaving.mishap.isEmpty()) break; // this file's fault; the next ones get a run of their own
        }
        run.mishap();
        collectOutputs(folder, rest.mid(0, leavings.size()), leavings);
        all += leavings;
    }
    return all;
}

bool runDecoder(const QString &program, const QStringList &arguments)
{
    constexpr int kMilliseconds = 20'000;
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (process.waitForFinished(kMilliseconds)) return process.exitStatus() == QProcess::NormalExit;
    process.kill();
    process.waitForFinished();
    return false;
}

} // namespace soak
