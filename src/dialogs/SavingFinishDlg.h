// Says how a save has ended, and leads to the saved files.
#pragma once

#include "dialogs/FramelessDialog.h"

#include <QStringList>

#include <memory>

namespace Ui {
class SavingFinishDlgObj;
}

/// What a save is reported with, all of it plain text in the language of the interface.
struct SavingReport
{
    QString shortfall;    ///< how many of how many were saved; empty where all were, and only then success is spoken of
    QStringList problems; ///< a line for each output that wasn't saved, with the reason
    QString note;         ///< how many were saved, and on the camera's data; may be empty
    bool anyThere = true; ///< a result lies at the destination, from this save or an earlier one
};

class SavingFinishDlg : public FramelessDialog
{
    Q_OBJECT

public:
    /// `path` is the folder that is named and that the link shows.
    SavingFinishDlg(QWidget *parent, const QString &path, const SavingReport &report = {});
    ~SavingFinishDlg() override;

public slots:
    /// Shows the folder in the file manager; the dialog stays.
    void ShowDestPath();
    void OnCancle();

protected:
    void retranslate() override;

private:
    std::unique_ptr<Ui::SavingFinishDlgObj> ui;
    QString m_path;
    SavingReport m_report;
};
