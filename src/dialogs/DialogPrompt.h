// The questions of saving, put to a person.
#pragma once

#include "save/ConflictPrompt.h"

#include <QPointer>
#include <QWidget>

/// Main thread only. Each question is a dialog over `parent` that is waited for; a busy cursor is an arrow meanwhile.
class DialogPrompt : public ConflictPrompt
{
public:
    explicit DialogPrompt(QWidget *parent) : m_parent(parent) {}

    FolderAnswer folderExists(const QString &name, const QString &proposal) override;
    FileAnswer fileExists(const QString &name, QString &newName) override;

private:
    QPointer<QWidget> m_parent;
};
