// Second step of a repair with a sample file: takes the sample.
#pragma once

#include "dialogs/FramelessDialog.h"

#include <memory>

class QCheckBox;
class QFontMetrics;
class QPushButton;
class QTextEdit;

namespace Ui {
class ReferenceFileDlgObj;
}

/// JPEG or HEIC as `strFileSuffix` says. One instance serves all rows: reset() at the click on a row, showForSuffix() at
/// Next. Repair hides it; the window connects RepairBtn and checkBox for the rest.
class ReferenceFileDlg : public FramelessDialog
{
    Q_OBJECT

public:
    /// `labelText` stands beside the sample until a format is known; "" gives the text for JPEG.
    explicit ReferenceFileDlg(QWidget *parent = nullptr, const QString &labelText = QString());
    ~ReferenceFileDlg() override;

    /// Forgets the sample on view: empty path, box off and disabled, Repair disabled. Leaves `pApp` alone.
    void reset();
    /// Sets the texts for the format and shows the dialog, window modal.
    void showForSuffix();
    /// Names the file that the sample is for; "" for none.
    void setDamagedFile(const QString &name);
    /// What both steps say of it, in one line, in which a long name loses its middle.
    static QString damagedText(const QString &name, const QFontMetrics &metrics);

    QTextEdit *textEdit = nullptr; ///< path of the sample; set by the form
    QCheckBox *checkBox = nullptr;
    QPushButton *BrowseBtn = nullptr;
    QPushButton *RepairBtn = nullptr;
    QPushButton *CancelBtn = nullptr;

    void reject() override;

public slots:
    /// A chosen file goes to `strSamplePath`; `bReferenceRepair` or `bHeicReferenceRepair` is set and the other cleared,
    /// and so is `bApplyToAllSameFormat`. A cancelled choice changes nothing.
    void OnBrowseRefrenceFile();
    /// Closes, clears `bApplyToAllSameFormat`, disables Repair; so does every way of closing but Repair.
    void OnCancle();
    void OnHideDialog();

protected:
    void retranslate() override;

private:
    void setLabel();
    void setReady(bool ready);
    void nameDamagedFile();

    std::unique_ptr<Ui::ReferenceFileDlgObj> ui;
    QString m_damaged;
};
