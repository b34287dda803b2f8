#include "update/QCheckUpdate.h"

#include "dialogs/MessageBox.h"
#include "update/QDownloadApp.h"
#include "update/QMajorUpdate.h"
#include "update/QMinorUpdate.h"
#include "update/UpdateState.h"
#include "update/ui_CheckUpdate.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>
#include <QUrl>

#include <array>
#include <optional>

namespace {

const char kCurrentVersion[] = "7.0.0.0";
constexpr qint64 kTextLimit = 64 * 1024; // a version is a dozen bytes; the rest is some page of a server's

constexpr int kLongest = 60 * 1000;

/// The four numbers of a version, those that it leaves out being 0; nothing for any other text.
std::optional<std::array<int, 4>> fieldsOf(const QString &version)
{
    static const QRegularExpression form(QStringLiteral("^[0-9]{1,6}(\\.[0-9]{1,6}){0,3}\\z"));
    if (!form.match(version).hasMatch()) return {};
    std::array<int, 4> fields{};
    size_t i = 0;
    for (const QString &field : version.split('.')) fields[i++] = field.toInt();
    return fields;
}

} // namespace

QCheckUpdate::QCheckUpdate(QWidget *parent) : FramelessDialog(parent), ui(std::make_unique<Ui::CheckUpdate>())
{
    ui->setupUi(content());
    setWindowModality(Qt::WindowModal);
    connect(ui->CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    // Closed by the user before an answer came: nothing more is said.
    connect(this, &QDialog::rejected, this, &QObject::deleteLater);
    finishSetUp({360, 150}, ui->CancelBtn);
    connect(&m_download, &Download::readyRead, this, &QCheckUpdate::downloadReadyReadTxt);
    connect(&m_download, &Download::finished, this, &QCheckUpdate::downloadFinishedTxt);
    ConnectingServer();
}

QCheckUpdate::~QCheckUpdate() = default;

void QCheckUpdate::ConnectingServer()
{
    if (!VersionTxtPath.isEmpty()) QFile::remove(VersionTxtPath);
    const QString address = updateAddress(QStringLiteral("Kesmira.txt"));
    VersionTxtPath = updateFolder() + QFileInfo(QUrl(address).path()).fileName();
    // Without an address the fetch fails like one without a network: the folder has no such file either.
    if (address.isEmpty()) VersionTxtPath = updateFolder() + "Kesmira.txt";
    m_download.start(address, VersionTxtPath, kTextLimit, kLongest);
}

bool QCheckUpdate::CheckIfCurrentVersionLatest(const QString &version)
{
    const QSettings store(QStringLiteral("apple"), QStringLiteral("KMPR.db"));
    const QString last = store.value(QStringLiteral("VNo")).toString().trimmed();
    return !last.isEmpty() && version.indexOf(last) >= 0;
}

void QCheckUpdate::downloadReadyReadTxt()
{
    m_download.takeArrived();
}

QCheckUpdate::Offer QCheckUpdate::compare(const QString &fetched, const QString &current)
{
    const auto is = fieldsOf(fetched);
    const auto was = fieldsOf(current);
    if (!is || !was || *is <= *was) return Offer::None;
    return (*is)[0] > (*was)[0] ? Offer::Major : Offer::Minor;
}

bool QCheckUpdate::isNewer(const QString &version)
{
    return compare(version, QLatin1String(kCurrentVersion)) != Offer::None;
}

void QCheckUpdate::begin(QWidget *window)
{
    for (auto *dialog : window->findChildren<FramelessDialog *>()) {
        const bool checks = qobject_cast<QCheckUpdate *>(dialog);
        const bool goesOn = qobject_cast<UpdateOffer *>(dialog) || qobject_cast<QDownloadApp *>(dialog);
        if (!checks && !(goesOn && dialog->isVisible())) continue;
        dialog->show();
        dialog->raise();
        dialog->activateWindow();
        return;
    }
    (new QCheckUpdate(window))->show();
}

void QCheckUpdate::downloadFinishedTxt()
{
    isMajorUpdate = false;
    isMinorUpdate = false;
    const QString problem = m_download.finish();
    Offer found = Offer::None;
    const QString version = problem.isEmpty() ? firstLine(VersionTxtPath) : QString();
    if (!problem.isEmpty())
        qDebug("Failed: %s\n", qPrintable(problem));
    else
        found = CheckIfCurrentVersionLatest(version) ? Offer::NoneGreater
                                                     : compare(version, QLatin1String(kCurrentVersion));
    // What an earlier check has found stays where this one finds nothing either way.
    if (found != Offer::NoneGreater) UpdateVersionAvailable = found != Offer::None;
    hide();
    if (found == Offer::Minor || found == Offer::Major)
        offer(found, version);
    else
        sayNoUpdate();
    deleteLater();
}

void QCheckUpdate::offer(Offer kind, const QString &version)
{
    FramelessDialog *dialog = nullptr;
    if (kind == Offer::Major) {
        fillSoftwareUpdate(tr("Major"), version, tr("Major Update"));
        dialog = new QMajorUpdate(parentWidget());
    } else {
        fillSoftwareUpdate(tr("Minor"), version, tr("Minor Update"));
        dialog = new QMinorUpdate(parentWidget());
    }
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

void QCheckUpdate::sayNoUpdate()
{
    emit NoUpdates();
    if (!bCheckForUpdate || UpdateVersionAvailable) return;
    bCheckForUpdate = false;
    MessageBox box(parentWidget());
    box.setPicture(QStringLiteral(":/res/info.png"));
    box.setText(tr("No update available."));
    box.exec();
}

void QCheckUpdate::retranslate()
{
    ui->retranslateUi(content());
    FramelessDialog::retranslate();
}
