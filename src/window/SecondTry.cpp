#include "window/SecondTry.h"

#include "desktop/Look.h"
#include "engine/SourceJudge.h"
#include "window/DetailsPane.h"
#include "window/MyTreeWidget.h"
#include "window/RowWords.h"

#include <QMenu>
#include <QPushButton>

namespace {

QTreeWidgetItem *sourceOf(QTreeWidgetItem *row)
{
    return row && row->parent() ? row->parent() : row;
}

bool maySalvage(const QTreeWidgetItem *source)
{
    const FileOutcome *outcome = outcomeOf(source);
    return outcome && deepSalvageMayHelp(outcome->source, outcome->report);
}

} // namespace

SecondTry::SecondTry(MyTreeWidget *tree, DetailsPane *details, QWidget *page)
    : QObject(page), m_tree(tree), m_offer(new QPushButton(page))
{
    m_offer->setObjectName(QStringLiteral("salvageOffer"));
    m_offer->setProperty("role", "part");
    m_offer->setFont(look::font(QStringLiteral("Helvetica neue"), 12));
    m_offer->setCursor(Qt::PointingHandCursor);
    m_offer->move(22, 514); // where the progress stands in a run
    hide();
    connect(m_offer, &QPushButton::clicked, this, [this] { emit salvageAsked(salvageable()); });
    connect(details->sampleLink(), &QPushButton::clicked, this,
            [this] { emit sampleAsked(sourceOf(m_tree->currentItem())); });
    connect(tree, &MyTreeWidget::menuAsked, this, &SecondTry::showMenu);
}

QList<QTreeWidgetItem *> SecondTry::salvageable() const
{
    QList<QTreeWidgetItem *> sources;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
        if (maySalvage(m_tree->topLevelItem(i))) sources << m_tree->topLevelItem(i);
    return sources;
}

void SecondTry::refresh()
{
    const int files = salvageable().size();
    m_offer->setText(files == 1 ? tr("Try deep salvage for 1 file")
                                : tr("Try deep salvage for %n files", nullptr, files));
    m_offer->setToolTip(
        tr("Searches the files that are broken or there in part more thoroughly. What came out stays."));
    m_offer->resize(m_offer->sizeHint().width(), 20);
    m_offer->setVisible(files > 0);
}

void SecondTry::hide()
{
    m_offer->hide();
}

void SecondTry::retranslate()
{
    if (!m_offer->isHidden()) refresh();
}

void SecondTry::showMenu(QTreeWidgetItem *row, const QPoint &place)
{
    QTreeWidgetItem *source = sourceOf(row);
    auto *menu = new QMenu(m_tree);
    menu->setObjectName(QStringLiteral("rowMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (mayTrySample(source))
        connect(menu->addAction(sampleWords(source)), &QAction::triggered, this,
                [this, source] { emit sampleAsked(source); });
    if (maySalvage(source))
        connect(menu->addAction(tr("Try deep salvage")), &QAction::triggered, this,
                [this, source] { emit salvageAsked({source}); });
    menu->isEmpty() ? delete menu : menu->popup(place);
}
