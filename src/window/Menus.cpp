// The keyboard's way to the buttons, and the menu bars of the international build.
#include "app/KesmiraApp.h"
#include "window/BrowseRepair.h"
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
    pMenuBar->setNativeMenuBar(false);
    QMenu *file = pMenuBar->addMenu(tr("&File"));
    for (const char *name : {"actionAdd", "actionRepair", "actionExit"})
        file->addAction(findChild<QAction *>(QString::fromLatin1(name)));
    retranslateMenus();
    pMenuBar->setGeometry(kMenuPlace);
}

void BrowseRepair::CreateMenuBar2()
{
    if (pMenuBar2) return;
    pMenuBar2 = new QMenuBar(ui->frame2);
    pMenuBar2->setObjectName(QStringLiteral("pMenuBar2"));
    pMenuBar2->setNativeMenuBar(false);
    QMenu *file = pMenuBar2->addMenu(tr("&File"));
    for (const char *name : {"actionStop", "actionSave", "actionBack", "actionExit"})
        file->addAction(findChild<QAction *>(QString::fromLatin1(name)));
    retranslateMenus();
    pMenuBar2->setGeometry(kMenuPlace);
    pMenuBar2->show();
}

void BrowseRepair::retranslateMenus()
{
    for (QMenuBar *bar : {pMenuBar, pMenuBar2})
        if (bar) bar->actions().first()->menu()->setTitle(tr("&File"));
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
}
