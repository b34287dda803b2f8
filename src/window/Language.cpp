// The language of the interface while the program runs: the language menus, what a choice does, and what of the window's
// geometry and pictures depends on the language.
#include "desktop/Languages.h"

#include "app/KesmiraApp.h"
#include "desktop/Look.h"
#include "window/BrowseRepair.h"
#include "window/ListTools.h"
#include "window/ui_BrowseRepairObj.h"

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QCoreApplication>

#include <algorithm>

namespace {

/// The least widths of the buttons that hold a word, in pixels, and whether pictures with the words in them stand for it.
struct LanguageGeometry
{
    int add, repair, stop, save;
    const char *pictures; ///< suffix of the button pictures; null for words
};

/// By the number of the language. Words that need more take more.
constexpr LanguageGeometry kGeometry[] = {
    {120, 140, 140, 220, nullptr}, // English
    {140, 140, 140, 250, nullptr}, // German
    {120, 140, 140, 250, nullptr}, // French
    {120, 140, 140, 220, nullptr}, // Italian
    {120, 140, 140, 240, nullptr}, // Spanish
    {120, 140, 140, 220, "JA"},    // Japanese
    {120, 140, 140, 220, "CN"},    // Chinese
};

/// Gives a button its place again, wider than `width` where its text asks for it; the side that is away from the window's
/// middle stays where it is.
void fitWidth(QWidget *widget, int least, int windowWidth)
{
    const QRect now = widget->geometry();
    const int width = std::max(least, widget->sizeHint().width());
    const bool onTheRight = now.center().x() > windowWidth / 2;
    widget->setGeometry(onTheRight ? now.right() + 1 - width : now.x(), now.y(), width, now.height());
}

} // namespace

void BrowseRepair::addLanguageMenu(QMenuBar *bar, int number)
{
    QMenu *menu = bar->addMenu(QString());
    menu->setObjectName(QStringLiteral("languageMenu"));
    auto *group = new QActionGroup(menu);
    using Slot = void (BrowseRepair::*)();
    static constexpr Slot kSlots[][2] = {
        {&BrowseRepair::LoadEnglishLanguages, &BrowseRepair::LoadEnglishLanguages2},
        {&BrowseRepair::LoadGermanLanguages, &BrowseRepair::LoadGermanLanguages2},
        {&BrowseRepair::LoadFrenchLanguages, &BrowseRepair::LoadFrenchLanguages2},
        {&BrowseRepair::LoadItalianLanguages, &BrowseRepair::LoadItalianLanguages2},
        {&BrowseRepair::LoadSpanishLanguages, &BrowseRepair::LoadSpanishLanguages2},
        {&BrowseRepair::LoadJapaneseLanguages, &BrowseRepair::LoadJapaneseLanguages2},
        {&BrowseRepair::LoadChineseLanguages, &BrowseRepair::LoadChineseLanguages2},
    };
    for (const Language &language : languages()) {
        QAction *action = group->addAction(menu->addAction(language.endonym));
        action->setCheckable(true);
        action->setData(language.number);
        connect(action, &QAction::triggered, this, kSlots[language.number][number]);
    }
    // A row that is clicked may have changed the flags since.
    connect(menu, &QMenu::aboutToShow, this, [menu] { checkLanguage(menu); });
    checkLanguage(menu);
}

void BrowseRepair::checkLanguage(QMenu *menu)
{
    const Language *current = currentLanguage();
    for (QAction *action : menu->actions()) action->setChecked(current && action->data().toInt() == current->number);
}

void BrowseRepair::loadLanguage(int number, void (BrowseRepair::*updateChecks)())
{
    const Language &language = languages()[number];
    setLanguageFlags(number);
    storeLanguage(language);
    LanguageSettingsInOtherApps(language.chosenNumber);
    (this->*updateChecks)();
    changeTranslators();
}

void BrowseRepair::OnLanguageChangeCheckBoxUpdate()
{
    updateLanguageChecks(pMenuBar);
}

void BrowseRepair::OnLanguageChangeCheckBoxUpdate2()
{
    updateLanguageChecks(pMenuBar2);
}

void BrowseRepair::updateLanguageChecks(QMenuBar *bar)
{
    if (QMenu *menu = bar ? bar->findChild<QMenu *>(QStringLiteral("languageMenu")) : nullptr) checkLanguage(menu);
    SetFixedSizeWidget();
}

void BrowseRepair::SetFixedSizeWidget()
{
    using Routine = void (BrowseRepair::*)();
    static constexpr Routine kRoutines[] = {
        &BrowseRepair::SetEnglishGeometry, &BrowseRepair::SetGermanGeometry,  &BrowseRepair::SetFrenchGeometry,
        &BrowseRepair::SetItalianGeometry, &BrowseRepair::SetSpanishGeometry, &BrowseRepair::SetJapaneseGeometry,
        &BrowseRepair::SetChainesGeometry,
    };
    const Language *language = currentLanguage();
    const Routine routine = kRoutines[language ? language->number : 0];
    (this->*routine)();
}

void BrowseRepair::setGeometryOf(int number)
{
    const LanguageGeometry &geometry = kGeometry[number];
    const struct
    {
        QPushButton *button;
        int width;
        const char *picture, *icon;
        QString words; ///< as the form has them
    } buttons[] = {
        {ui->AddFilesBtn, geometry.add, "Add file", "add", QCoreApplication::translate("BrowseRepairObj", "Add")},
        {ui->StartRepairFilesBtn, geometry.repair, "Repair", nullptr,
         QCoreApplication::translate("BrowseRepairObj", "Repair")},
        {ui->StopRepairProcessBtn_2, geometry.stop, "Stop", "stop",
         QCoreApplication::translate("BrowseRepairObj", "Stop")},
        {ui->SaveRepairBtn_2, geometry.save, "Save files", nullptr,
         QCoreApplication::translate("BrowseRepairObj", "Save Repaired Files")},
    };
    for (const auto &[button, width, picture, icon, words] : buttons) {
        if (geometry.pictures) {
            // The words are in the picture; who can't see it hears them.
            button->setAccessibleName(words);
            button->setText(QString());
            const QString name = QStringLiteral(":/res/%1%2").arg(picture, geometry.pictures);
            QIcon drawing(name + ".png");
            drawing.addFile(name + "-disabled.png", QSize(), QIcon::Disabled);
            button->setIconSize(QPixmap(name + ".png").size());
            button->setIcon(drawing);
        } else {
            button->setAccessibleName(QString());
            button->setText(words);
            button->setIconSize(QSize(20, 20));
            button->setIcon(icon ? QIcon(QStringLiteral(":/res/%1.png").arg(icon)) : QIcon());
        }
        fitWidth(button, width, this->width());
    }
    placeByWords();
}

void BrowseRepair::placeByWords()
{
    ui->RemovFileBtn->move(ui->AddFilesBtn->geometry().right() + 9, ui->RemovFileBtn->y());
    m_listTools->place(ui->RemovFileBtn->x());
    const QRect repair = ui->StartRepairFilesBtn->geometry();
    const int deep = m_deepBox->sizeHint().width();
    m_deepBox->setGeometry(repair.x() - 16 - deep, repair.y(), deep, repair.height());
    // The two boxes of the results page stand side by side as far as their words let them.
    const int selectAll = std::max(150, ui->SelectAll_labl->sizeHint().width());
    ui->SelectAll_labl->setFixedWidth(selectAll);
    ui->checkBox3->move(ui->SelectAll_labl->x() + selectAll + 8, ui->checkBox3->y());
    ui->ShowLabl->move(ui->checkBox3->x() + 22, ui->ShowLabl->y());
    ui->ShowLabl->setFixedWidth(ui->ShowLabl->sizeHint().width());
}
