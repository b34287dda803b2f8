// Stand-ins for the system and for the dialogs that choose files: they answer by a script and write down what was asked.
#pragma once

#include "desktop/FileChooser.h"
#include "desktop/platform/Platform.h"

#include <deque>

/// Hands out the answers in their order; one that wasn't given is counted, and cancels.
class ScriptedChooser : public FileChooser
{
public:
    std::deque<QStringList> answers;
    QStringList asked; ///< "title | folder | filter"
    int unexpected = 0;

    QStringList openFiles(QWidget *, const QString &title, const QString &folder, const QString &filter) override
    {
        return next({title, folder, filter});
    }
    QString openFile(QWidget *, const QString &title, const QString &folder, const QString &filter) override
    {
        return next({title, folder, filter}).value(0);
    }
    QString chooseFolder(QWidget *, const QString &title, const QString &folder) override
    {
        return next({title, folder}).value(0);
    }

private:
    QStringList next(const QStringList &question)
    {
        asked << question.join(" | ");
        if (answers.empty()) {
            ++unexpected;
            return {};
        }
        const QStringList answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

/// Writes down what it is asked to do and does nothing.
class RecordingPlatform : public Platform
{
public:
    QStringList calls; ///< "show PATH", "open ADDRESS", "preview WORDS", "end PID", "start PATH", "anew WORDS at SCALE"
    QString refusal;
    QString installProblem;
    QStringList there;           ///< applications that can be started
    QList<unsigned int> helpers; ///< process ids
    SystemDescription description;

    QString systemVersion() override { return "12.0"; }
    SystemDescription systemDescription() override { return description; }
    bool showInFileManager(const QString &path) override { return note("show " + path); }
    bool openAddress(const QUrl &address) override { return note("open " + address.toString()); }
    QString defaultBrowser() override { return {}; }
    QList<unsigned int> previewHelpers(const QString &) override { return helpers; }
    bool startPreviewHelper(const QString &, const QStringList &words) override
    {
        return note("preview " + words.join(' '));
    }
    void endPreviewHelper(unsigned int pid) override { note("end " + QString::number(pid)); }
    bool isApplicationThere(const QString &path) override { return there.contains(path); }
    bool startApplication(const QString &path) override { return note("start " + path); }
    void startAnew(const QList<QByteArray> &arguments) override
    {
        note("anew " + QString::fromUtf8(arguments.join(' ')) + " at " + qEnvironmentVariable("QT_SCALE_FACTOR"));
    }
    QString userSettingsFile(const QString &shipped) override { return shipped; }
    QString installBundle(const QString &, const QString &bundle, const QString &, const QString &folder) override
    {
        note("install " + folder + '/' + bundle);
        return installProblem;
    }
    QString destinationRefusal(const QString &) override { return refusal; }

private:
    bool note(const QString &call)
    {
        calls << call;
        return true;
    }
};
