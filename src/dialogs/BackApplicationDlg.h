// Asks before the results are given up for the file list.
#pragma once

#include "dialogs/YesNoDialog.h"

#include <memory>

namespace Ui {
class BackApplicationDlgObj;
}

/// Leaves "YesBtn" or "NoBtn" in `strCloseAnswer`; every way of closing but Yes leaves "NoBtn".
class BackApplicationDlg : public YesNoDialog
{
    Q_OBJECT

public:
    explicit BackApplicationDlg(QWidget *parent = nullptr);
    ~BackApplicationDlg() override;

protected:
    void retranslate() override;
    void answered(const QPushButton *button) override;

private:
    std::unique_ptr<Ui::BackApplicationDlgObj> ui;
};
