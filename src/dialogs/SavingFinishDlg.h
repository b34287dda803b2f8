// Says that a save has ended, and leads to the saved files.
#pragma once

#include "dialogs/FramelessDialog.h"

#include <memory>

namespace Ui {
class SavingFinishDlgObj;
}

class SavingFinishDlg : public FramelessDialog
{
    Q_OBJECT

public:
    /// `path` is the folder that the link shows.
    SavingFinishDlg(QWidget *parent, const QString &path);
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
};
