// Fetches the new version and has it installed.
#pragma once

#include "dialogs/FramelessDialog.h"
#include "update/Download.h"

#include <QElapsedTimer>

#include <memory>

namespace Ui {
class DownloadApp;
}
class QThread;

/// Begins to fetch as soon as it is made. Unpacking goes on beside the main thread; until it is done the dialog can't be
/// closed.
class QDownloadApp : public FramelessDialog
{
    Q_OBJECT

public:
    explicit QDownloadApp(QWidget *parent = nullptr);
    ~QDownloadApp() override;

    void downloadExe();
    /// Keeps the offered update's kind, version and title in the store "apple"/"KMVR.db".
    void ApplicationSettings();

    /// "Time Elapsed: 3 sec (1.50 MB of  10.00 MB copied) "; times in milliseconds, sizes in bytes, an
    /// unknown `total` (-1) being what was received.
    static QString elapsedText(qint64 milliseconds, qint64 received, qint64 total);
    /// Whole MiB a second in KB; "" under a second and under a MiB.
    static QString rateText(qint64 milliseconds, qint64 received);
    /// The folder that holds the bundle of the program in `programFolder`, "" if it runs from no bundle.
    static QString installFolder(const QString &programFolder);
    /// For the start of the program in `programFolder`: removes what an installing that was ended on its way has left.
    static void clearLeftovers(const QString &programFolder);

    void reject() override;

public slots:
    void downloadReadyRead();
    void downloadFinished();
    void OnDownloadProgress(long long received, long long total);
    void OnOk();

signals:
    /// The bundle stands, or `problem` says why it doesn't.
    void installed(const QString &problem);

protected:
    void retranslate() override;
    void closeEvent(QCloseEvent *event) override;

private:
    void signatureFinished();
    /// Has the archive installed if `signature` is the maker's for it, as the version that was offered.
    void install(const QByteArray &signature);
    void conclude(const QString &problem);

    std::unique_ptr<Ui::DownloadApp> ui;
    Download m_download;
    Download m_signature;
    QElapsedTimer m_time;
    QThread *m_installing = nullptr;
    bool m_done = false; ///< the new version stands
};
