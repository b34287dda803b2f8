// The keyboard's way to the buttons, and the menu bars of the international build.
#include "app/KesmiraApp.h"
#include "desktop/LinkFile.h"
#include "window/BrowseRepair.h"
#include "window/CameraDataSwitch.h"
#include "window/DrgDrp.h"
#include "window/ui_BrowseRepairObj.h"

#include <QAction>

namespace {

constexpr QRect kMenuPlace(1, 28, 847, 25);

QKeySequence ctrl(char key)
{
    return QKeySequence(QStringLiteral("Ctrl+%1").arg(QLatin1Char(key)));
}

/// Clicks the first of the buttons that a person could click now.
void clickReachable(const QList<QAbstractButton *> &buttons)
{
    for (QAbstractButton *button : buttons) {
        if (!button->isVisible() || !button->isEnabled()) continue;
        button->click();
        return;
    }
}

} // namespace

void BrowseRepair::CreateShortcuts()
{
    const auto add = [this](const char *name, const QList<QKeySequence> &keys,
                            const QList<QAbstractButton *> &buttons) {
        auto *action = new QAction(this);
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcuts(keys);
        connect(action, &QAction::triggered, this, [buttons] { clickReachable(buttons); });
        addAction(action);
    };
    add("actionAdd", {QKeySequence::Open}, {ui->AddFilesBtn, pDropButton});
    add("actionRepair", {ctrl('R')}, {ui->StartRepairFilesBtn});
    add("actionStop", {ctrl('.'), QKeySequence(Qt::Key_Escape)}, {ui->StopRepairProcessBtn_2});
    add("actionSave", {QKeySequence::Save}, {ui->SaveRepairBtn_2});
    add("actionBack", {QKeySequence(QStringLiteral("Alt+Left"))}, {ui->BackBtn_2});
    add("actionExit", {ctrl('Q')}, {ui->closeBtn_2, ui->closeBtn});
    add("actionHelp", {QKeySequence::HelpContents}, {ui->HelpBtn, ui->HelpBtn_1});
}

void BrowseRepair::CreateMenuBar()
{
    pMenuBar = new QMenuBar(ui->frame);
    pMenuBar->setObjectName(QStringLiteral("pMenuBar"));
    fillMenuBar(pMenuBar, {"actionAdd", "actionRepair"}, 0);
}

void BrowseRepair::CreateMenuBar2()
{
    if (pMenuBar2) return;
    pMenuBar2 = new QMenuBar(ui->frame2);
    pMenuBar2->setObjectName(QStringLiteral("pMenuBar2"));
    fillMenuBar(pMenuBar2, {"actionStop", "actionSave", "actionBack"}, 1);
    pMenuBar2->show();
}

void BrowseRepair::fillMenuBar(QMenuBar *bar, std::initializer_list<const char *> fileActions, int number)
{
    bar->setNativeMenuBar(false);
    QMenu *file = bar->addMenu(QString());
    file->setObjectName(QStringLiteral("fileMenu"));
    file->setToolTipsVisible(true);
    const auto add = [this, file](const char *name) {
        file->addAction(findChild<QAction *>(QString::fromLatin1(name)));
    };
    for (const char *name : fileActions) add(name);
    file->addSeparator();
    add("actionDeepSalvage");
    add("actionCameraData");
    file->addSeparator();
    add("actionExit");
    addLanguageMenu(bar, number);
    addHelpMenu(bar);
    retranslateMenus();
    bar->setGeometry(kMenuPlace);
}

void BrowseRepair::addHelpMenu(QMenuBar *bar)
{
    QMenu *menu = bar->addMenu(QString());
    menu->setObjectName(QStringLiteral("helpMenu"));
    menu->addAction(findChild<QAction *>(QStringLiteral("actionHelp")));
    const auto add = [this, menu](const char *name, void (BrowseRepair::*slot)()) {
        menu->addAction(QString(), this, slot)->setObjectName(QString::fromLatin1(name));
    };
    add("overview", &BrowseRepair::onHelpBtnClick);
    menu->addSeparator();
    add("support", &BrowseRepair::onViewSupport);
    add("mail", &BrowseRepair::onMailVorlaneSupport);
    add("enquiry", &BrowseRepair::onGenerateTicket);
    add("knowledge", &BrowseRepair::onViewKB);
    menu->addSeparator();
    add("updates", &BrowseRepair::onUpdateWizard);
    add("about", &BrowseRepair::onAbout);
    // As the button beside the menu.
    connect(menu, &QMenu::aboutToShow, this,
            [this, menu] { menu->findChild<QAction *>(QStringLiteral("updates"))->setEnabled(!workerRuns()); });
}

namespace {

/// A label of the link file as a menu shows it; `fallback` where the file has none.
QString label(const QString &key, const QString &plain, const QString &fallback)
{
    QString text = linkFile::languageText(key);
    if (text.isEmpty()) text = plain;
    return text.isEmpty() ? fallback : text.left(60).replace('&', QStringLiteral("&&")); // no mnemonics of its own
}

} // namespace

void BrowseRepair::retranslateMenus()
{
    for (const QMenuBar *bar : {pMenuBar, pMenuBar2}) {
        if (!bar) continue;
        const auto menu = [bar](const char *name) { return bar->findChild<QMenu *>(QString::fromLatin1(name)); };
        menu("fileMenu")->setTitle(tr("&File"));
        menu("languageMenu")->setTitle(tr("&Language"));
        QMenu *help = menu("helpMenu");
        help->setTitle(tr("&Help", "menu"));
        const auto name = [help](const char *action, const QString &text) {
            help->findChild<QAction *>(QString::fromLatin1(action))->setText(text);
        };
        name("overview", tr("&Overview"));
        name("support", label(QStringLiteral("SupportName"), pApp->strSupportName, tr("Support")));
        name("mail", tr("&Mail to support"));
        name("enquiry",
             label(QStringLiteral("SubmitEnquiryName"), pApp->strSubmitEnquiryName, tr("Submit an enquiry")));
        name("knowledge", label(QStringLiteral("KBName"), pApp->strKBName, tr("Knowledge base")));
        name("updates", tr("Check for &updates..."));
        name("about", tr("&About Kesmira"));
    }
    const auto name = [this](const char *action, const QString &text) {
        findChild<QAction *>(QString::fromLatin1(action))->setText(text);
    };
    name("actionAdd", tr("&Add..."));
    name("actionRepair", tr("&Repair"));
    name("actionStop", tr("S&top"));
    name("actionSave", tr("&Save Repaired Files..."));
    name("actionBack", tr("&Back"));
    name("actionExit", tr("E&xit"));
    name("actionHelp", tr("&Help"));
    if (auto *cameraData = findChild<QAction *>(QStringLiteral("actionCameraData"))) CameraDataSwitch::name(cameraData);
}
