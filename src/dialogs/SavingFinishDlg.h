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
    /// `path` is the folder that the link shows. `shortfall` says what was not written; empty where everything was, and
    /// only then the dialog speaks of success.
    SavingFinishDlg(QWidget *parent, const QString &path, const QString &shortfall = {});
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
    QString m_shortfall;
};
