// The common base of the two dialogs that offer a new version.
#pragma once

#include "dialogs/FramelessDialog.h"

#include <QPointer>

#include <memory>

namespace Ui {
class UpdateOffer;
}
class QDownloadApp;
class QPushButton;

class UpdateOffer : public FramelessDialog
{
    Q_OBJECT

public:
    ~UpdateOffer() override;

    /// Version in the fetched text, "" if it can't be read.
    static QString GetVersion();
    void ShowNewVersionDetails();

public slots:
    /// Hides the offer and shows the download.
    void DownloadApp();
    void CancelDownload();
    void WhatNewInUpdate();

signals:
    /// A download was begun in this dialog.
    void downloadShown(QDownloadApp *download);

protected:
    UpdateOffer(QWidget *parent, bool withPage);
    void retranslate() override;
    /// Download, or Cancel where there is no key to check a download by.
    QPushButton *firstButton() const;
    /// Opens the address under `base` in the current language; without one nothing happens.
    static void openLink(const char *base);

    std::unique_ptr<Ui::UpdateOffer> ui;

private:
    bool m_withPage;
};
