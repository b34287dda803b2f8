// Asks the update server for the version on offer, and says what follows from it.
#pragma once

#include "dialogs/FramelessDialog.h"
#include "update/Download.h"

#include <memory>

namespace Ui {
class CheckUpdate;
}

/// Fetches as soon as it is made. With `bCheckForUpdate` clear nothing is shown but an update. Deletes itself when it has
/// nothing left to do.
class QCheckUpdate : public FramelessDialog
{
    Q_OBJECT

public:
    explicit QCheckUpdate(QWidget *parent = nullptr);
    ~QCheckUpdate() override;

    void ConnectingServer();
    /// True if the update installed last, as the store "apple"/"KMPR.db" knows it, is found in `version`.
    static bool CheckIfCurrentVersionLatest(const QString &version);

    enum class Offer { None, NoneGreater, Minor, Major };
    /// What a fetched version means for a program of version `current`, compared number by number, the first difference
    /// deciding: Major or Minor for a greater one, None for one that is older, the same, or no version at all. NoneGreater
    /// is left to what was installed before.
    static Offer compare(const QString &fetched, const QString &current);
    /// True if `version` is greater than that of this program.
    static bool isNewer(const QString &version);
    /// Begins a check over `window`, or brings the check, offer or download to the front that is there already.
    static void begin(QWidget *window);

public slots:
    void downloadReadyReadTxt();
    void downloadFinishedTxt();

signals:
    void NoUpdates();

protected:
    void retranslate() override;

private:
    void offer(Offer kind, const QString &version);
    void sayNoUpdate();

    std::unique_ptr<Ui::CheckUpdate> ui;
    Download m_download;
};
