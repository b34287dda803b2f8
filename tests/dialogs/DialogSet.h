// Every dialog of the program in every state in which a person may meet it, and the doubles that they talk to.
#pragma once

#include "desktop/FileChooser.h"
#include "desktop/platform/Platform.h"
#include "dialogs/FramelessDialog.h"
#include "support/WordyTranslator.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

/// Hands out one file and keeps what it was asked.
class ScriptedChooser : public FileChooser
{
public:
    QString file;
    QStringList asked; ///< "title | folder | filter"

    QString openFile(QWidget *, const QString &title, const QString &folder, const QString &filter) override
    {
        asked << QStringList{title, folder, filter}.join(" | ");
        return file;
    }
};

/// Records the folders that were to be shown.
class RecordingPlatform : public Platform
{
public:
    QStringList shown;

    QString systemVersion() override { return {}; }
    SystemDescription systemDescription() override { return {}; }
    bool showInFileManager(const QString &path) override
    {
        shown << path;
        return true;
    }
    bool openAddress(const QUrl &) override { return false; }
    QString defaultBrowser() override { return {}; }
    PreviewKind previewKind() override { return PreviewKind::None; }
    QList<unsigned int> previewHelpers(const QString &) override { return {}; }
    bool startPreviewHelper(const QString &, const QString &) override { return false; }
    void endPreviewHelper(unsigned int) override {}
    bool startApplication(const QString &) override { return false; }
    QString destinationRefusal(const QString &) override { return {}; }
};

struct DialogCase
{
    const char *name;
    std::function<std::unique_ptr<FramelessDialog>(QWidget *parent)> make;
};

/// To be made while a ScriptedChooser is set. The texts of the callers are taken from the language that holds while a dialog is made.
const std::vector<DialogCase> &allDialogs();
std::unique_ptr<FramelessDialog> makeDialog(const QString &name, QWidget *parent = nullptr);
