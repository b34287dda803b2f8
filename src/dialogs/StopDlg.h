// Asks before a run is stopped.
#pragma once

#include "dialogs/YesNoDialog.h"

#include <memory>

namespace Ui {
class StopDlgObj;
}

/// The window connects YesBtn and NoBtn; every way of closing but Yes clicks No.
class StopDlg : public YesNoDialog
{
    Q_OBJECT

public:
    explicit StopDlg(QWidget *parent = nullptr);
    ~StopDlg() override;

protected:
    void retranslate() override;

private:
    std::unique_ptr<Ui::StopDlgObj> ui;
};
