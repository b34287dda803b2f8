// The command line of kesmira-batch.
#pragma once

#include "save/ConflictPrompt.h"

#include <QString>
#include <QStringList>

struct Options
{
    bool json = false;
    bool help = false;
    bool version = false;
    bool readable = false;   ///< --readable
    bool deep = false;       ///< --deep
    bool cameraData = false; ///< --camera-data
    QString destination;     ///< --to
    FileAnswer onConflict = FileAnswer::RenameAll;
    QString sample;
    QString workingRoot; ///< --work
    QStringList sources;
    QString helpText; ///< filled where `help` is set
};

/// Reads the command line, the program's name first. Returns "" or one line that says what is wrong with it.
QString parseOptions(const QStringList &arguments, Options &options);
