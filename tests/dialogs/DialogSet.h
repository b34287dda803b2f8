// Every dialog of the program in every state in which a person may meet it, and the doubles that they talk to.
#pragma once

#include "dialogs/FramelessDialog.h"
#include "support/FakeDesktop.h"
#include "support/Spoken.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

struct DialogCase
{
    const char *name;
    std::function<std::unique_ptr<FramelessDialog>(QWidget *parent)> make;
};

/// To be made while a ScriptedChooser is set. The texts of the callers are taken from the language that holds while a dialog is made.
const std::vector<DialogCase> &allDialogs();
std::unique_ptr<FramelessDialog> makeDialog(const QString &name, QWidget *parent = nullptr);
