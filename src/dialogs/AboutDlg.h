// Says what this program is, on which system it runs, and what it is built with.
#pragma once

#include "dialogs/FramelessDialog.h"

#include <memory>

namespace Ui {
class AboutDlg;
}

class AboutDlg : public FramelessDialog
{
    Q_OBJECT

public:
    explicit AboutDlg(QWidget *parent = nullptr);
    ~AboutDlg() override;

    /// The lines about the system, from the description in `pApp`.
    static QString systemText();

protected:
    void retranslate() override;

private:
    std::unique_ptr<Ui::AboutDlg> ui;
};
