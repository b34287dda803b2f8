#include "update/QDownloadApp.h"

#include "desktop/platform/Platform.h"
#include "update/QCheckUpdate.h"
#include "update/UpdateSignature.h"
#include "update/UpdateState.h"
#include "update/ui_DownloadApp.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QThread>
#include <QUrl>

#include <algorithm>
#include <limits>

namespace {

const char kBundle[] = "Kesmira.app";
constexpr qint64 kArchiveLimit = qint64(2) << 30;
constexpr int kArchiveLongest = 6 * 60 * 60 * 1000; // 2 GiB over a slow line
constexpr qint64 kSignatureBytes = 64;
constexpr int kSignatureLongest = 60 * 1000;
constexpr double kMiB = 1.0 / (1 << 20);

} // namespace

QDownloadApp::QDownloadApp(QWidget *parent) : FramelessDialog(parent), ui(std::make_unique<Ui::DownloadApp>())
{
    ui->setupUi(content());
    setWindowModality(Qt::WindowModal);
    ui->OkBtn->hide();
    connect(ui->OkBtn, &QPushButton::clicked, this, &QDownloadApp::OnOk);
    connect(ui->CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    finishSetUp({460, 220}, ui->CancelBtn);
    connect(&m_download, &Download::readyRead, this, &QDownloadApp::downloadReadyRead);
    connect(&m_download, &Download::progress, this, &QDownloadApp::OnDownloadProgress);
    connect(&m_download, &Download::finished, this, &QDownloadApp::downloadFinished);
    connect(&m_signature, &Download::readyRead, &m_signature, &Download::takeArrived);
    connect(&m_signature, &Download::finished, this, &QDownloadApp::signatureFinished);
    downloadExe();
}

QDownloadApp::~QDownloadApp()
{
    if (m_installing) m_installing->wait();
}

void QDownloadApp::downloadExe()
{
    if (!VersionTxtPath.isEmpty()) QFile::remove(VersionTxtPath);
    ApplicationPath = QCoreApplication::applicationDirPath();
    const QString address = updateAddress(QStringLiteral("Kesmira.zip"));
    const QString name = QFileInfo(QUrl(address).path()).fileName();
    m_time.start();
    m_download.start(address, updateFolder() + (name.isEmpty() ? QStringLiteral("Kesmira.zip") : name), kArchiveLimit,
                     kArchiveLongest);
}

QString QDownloadApp::elapsedText(qint64 milliseconds, qint64 received, qint64 total)
{
    received = std::max(received, qint64(0));
    total = std::max(total, received); // -1 where the server doesn't say
    const auto megabytes = [](qint64 bytes) { return QString::number(double(bytes) * kMiB, 'f', 2); };
    return tr("Time Elapsed: ") + QString::number(milliseconds / 1000) + tr(" sec ") + '(' + megabytes(received)
        + tr(" MB of  ") + megabytes(total) + tr(" MB copied) ");
}

QString QDownloadApp::rateText(qint64 milliseconds, qint64 received)
{
    if (milliseconds < 1000) return {};
    const qint64 rate = qint64(double(received) * kMiB) * 1024 / (milliseconds / 1000);
    return rate > 0 ? tr("Transfer Rate: ") + QString::number(rate) + tr(" KB/sec ") : QString();
}

void QDownloadApp::OnDownloadProgress(long long received, long long total)
{
    constexpr qint64 kLargest = std::numeric_limits<int>::max();
    ui->progressBar->setMaximum(int(std::clamp<qint64>(total, 0, kLargest)));
    ui->progressBar->setValue(int(std::clamp<qint64>(received, 0, kLargest)));
    const qint64 elapsed = m_time.elapsed();
    ui->timeLabel->setText(elapsedText(elapsed, received, total));
    const QString rate = rateText(elapsed, received);
    if (!rate.isEmpty()) ui->rateLabel->setText(rate);
}

void QDownloadApp::downloadReadyRead()
{
    m_download.takeArrived();
}

void QDownloadApp::downloadFinished()
{
    const QString problem = m_download.finish();
    if (problem.isEmpty()) {
        m_signature.start(updateAddress(QStringLiteral("Kesmira.zip.sig")), m_download.path() + ".sig", kSignatureBytes,
                          kSignatureLongest);
        return;
    }
    QFile::remove(m_download.path());
    ui->timeLabel->setText(QStringLiteral(" "));
    ui->rateLabel->setText(QStringLiteral("      "));
    ui->progressBar->hide();
    ui->label->hide();
    emit installed(problem);
}

QString QDownloadApp::installFolder(const QString &programFolder)
{
    QDir folder(programFolder);
    for (int level = 0; level < 5; ++level)
        if (!folder.cdUp()) return {};
    for (int i = 0; i < 2; ++i) {
        const QString bundle = folder.absolutePath() + '/' + kBundle + '/';
        if ((programFolder + '/').startsWith(bundle) && QFileInfo(bundle).isDir()) return folder.absolutePath();
        if (!folder.cdUp()) break;
    }
    return {};
}

void QDownloadApp::clearLeftovers(const QString &programFolder)
{
    const QString folder = installFolder(programFolder);
    if (!folder.isEmpty()) platform().clearInstallLeftovers(QLatin1String(kBundle), folder);
}

void QDownloadApp::signatureFinished()
{
    const QString problem = m_signature.finish();
    QFile file(m_signature.path());
    QByteArray signature;
    if (problem.isEmpty() && file.open(QIODevice::ReadOnly)) signature = file.readAll();
    file.remove();
    if (problem.isEmpty()) return install(signature);
    QFile::remove(m_download.path());
    conclude(problem);
}

void QDownloadApp::install(const QByteArray &signature)
{
    const QString folder = installFolder(ApplicationPath);
    const QString program = QDir(folder + '/' + kBundle).relativeFilePath(QCoreApplication::applicationFilePath());
    const QString foreign = tr("This isn't an update of the maker's, and it was not installed.");
    const QString elsewhere = tr("This program is updated by the system that installed it.");
    ui->CancelBtn->setEnabled(false);
    m_installing = QThread::create(
        [=, this, archive = m_download.path(), key = updateKey(), version = fieldText(softwareUpdate.version)] {
            QString problem;
            if (!QCheckUpdate::isNewer(version) || !isSignedUpdate(archive, version, signature, key))
                problem = foreign;
            else if (folder.isEmpty())
                problem = elsewhere;
            else
                problem = platform().installBundle(archive, QLatin1String(kBundle), program, folder);
            QFile::remove(archive);
            QMetaObject::invokeMethod(
                this, [this, problem] { conclude(problem); }, Qt::QueuedConnection);
        });
    m_installing->setParent(this);
    m_installing->start();
}

void QDownloadApp::conclude(const QString &problem)
{
    if (m_installing) m_installing->wait();
    m_installing = nullptr;
    m_done = problem.isEmpty();
    ui->label->setText(problem); // there is nothing to wait for any more
    ui->progressBar->setVisible(m_done);
    ui->CancelBtn->hide();
    ui->OkBtn->show();
    ui->OkBtn->setFocus();
    emit installed(problem);
}

void QDownloadApp::ApplicationSettings()
{
    QFile::remove(QSettings(QStringLiteral("apple"), QStringLiteral("KMPR.db")).fileName());
    QSettings store(QStringLiteral("apple"), QStringLiteral("KMVR.db"));
    store.setValue(QStringLiteral("VInfoType"), fieldText(softwareUpdate.kind));
    store.setValue(QStringLiteral("VNo"), fieldText(softwareUpdate.version));
    store.setValue(QStringLiteral("VUpdate"), fieldText(softwareUpdate.title));
}

void QDownloadApp::OnOk()
{
    if (!m_done) {
        close();
        return;
    }
    ApplicationSettings();
    QWidget *window = parentWidget();
    close();
    // The window asks about a run that goes on and about what isn't saved; the new version waits for the next start.
    if (window)
        QMetaObject::invokeMethod(window->window(), "close", Qt::QueuedConnection);
    else
        QCoreApplication::quit();
}

void QDownloadApp::reject()
{
    if (m_installing) return;
    m_download.cancel();
    m_signature.cancel();
    FramelessDialog::reject();
}

void QDownloadApp::closeEvent(QCloseEvent *event)
{
    if (m_installing)
        event->ignore();
    else
        FramelessDialog::closeEvent(event);
}

void QDownloadApp::retranslate()
{
    ui->retranslateUi(content());
    ui->label->setText(tr("Please wait as this process will take several ") + tr("seconds to few minutes "));
    FramelessDialog::retranslate();
}
