// Asks before the program ends.
#pragma once

#include "dialogs/YesNoDialog.h"

#include <memory>

namespace Ui {
class CloseApplicationDlgObj;
}

/// Leaves "YesBtn" or "NoBtn" in `strCloseAnswer`; every way of closing but Yes leaves "NoBtn".
class CloseApplicationDlg : public YesNoDialog
{
    Q_OBJECT

public:
    explicit CloseApplicationDlg(QWidget *parent = nullptr);
    ~CloseApplicationDlg() override;

protected:
    void retranslate() override;
    void answered(const QPushButton *button) override;

private:
    std::unique_ptr<Ui::CloseApplicationDlgObj> ui;
};
