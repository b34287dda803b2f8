// Says that a run has ended.
#pragma once

#include "dialogs/FramelessDialog.h"

#include <memory>

namespace Ui {
class CompletionMsgObj;
}

class CompletionMsg : public FramelessDialog
{
    Q_OBJECT

public:
    explicit CompletionMsg(QWidget *parent = nullptr);
    ~CompletionMsg() override;

public slots:
    void OnCancle();

protected:
    void retranslate() override;

private:
    std::unique_ptr<Ui::CompletionMsgObj> ui;
};
