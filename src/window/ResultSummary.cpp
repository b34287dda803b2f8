#include "window/ResultSummary.h"

#include "desktop/Look.h"
#include "window/RowWords.h"

#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace {

constexpr int kLine = 20;
constexpr int kGap = 4;

} // namespace

ResultSummary::ResultSummary(QTreeWidget *tree, QWidget *page)
    : QWidget(page), m_tree(tree), m_all(new QLabel(this)), m_parts{{{Found::Healthy, nullptr, 0},
                                                                     {Found::Whole, nullptr, 0},
                                                                     {Found::Partial, nullptr, 0},
                                                                     {Found::Doubtful, nullptr, 0},
                                                                     {Found::Unjudged, nullptr, 0},
                                                                     {Found::Nothing, nullptr, 0}}},
      m_showAll(new QPushButton(this)), m_note(new QLabel(this))
{
    setObjectName(QStringLiteral("resultSummary"));
    setGeometry(22, 138, 810, 2 * kLine + 1);
    const QFont font = look::font(QStringLiteral("Helvetica neue"), 12);
    m_all->setObjectName(QStringLiteral("summaryAll"));
    static constexpr const char *kNames[] = {"partHealthy",  "partWhole",    "partPartial",
                                             "partDoubtful", "partUnjudged", "partNothing"};
    for (int i = 0; i < int(m_parts.size()); ++i) {
        auto *button = new QPushButton(badge(m_parts[i].found), QString(), this);
        button->setObjectName(QString::fromLatin1(kNames[i]));
        button->setProperty("role", "part");
        button->setCheckable(true);
        button->setCursor(Qt::PointingHandCursor);
        button->setIconSize(QSize(16, 16));
        connect(button, &QPushButton::clicked, this, [this, i](bool on) { filter(on ? i : -1); });
        m_parts[i].button = button;
    }
    m_showAll->setObjectName(QStringLiteral("showAllBtn"));
    m_showAll->setProperty("role", "part");
    m_showAll->setCursor(Qt::PointingHandCursor);
    connect(m_showAll, &QPushButton::clicked, this, [this] { filter(-1); });
    m_note->setObjectName(QStringLiteral("summaryNote"));
    m_note->setProperty("role", "hint");
    for (QWidget *widget : findChildren<QWidget *>()) widget->setFont(font);
    hide();
    retranslate();
}

QList<QWidget *> ResultSummary::stops() const
{
    QList<QWidget *> all;
    for (const Part &part : m_parts) all << part.button;
    return all << m_showAll;
}

void ResultSummary::refresh()
{
    for (Part &part : m_parts) part.files = 0;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        const Found found = foundIn(m_tree->topLevelItem(i));
        for (Part &part : m_parts)
            if (part.found == found) ++part.files;
    }
    show();
    filter(-1);
    retranslate();
}

void ResultSummary::filter(int chosen)
{
    bool changed = false;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *source = m_tree->topLevelItem(i);
        const bool away = chosen >= 0 && foundIn(source) != m_parts[chosen].found;
        changed = changed || away != source->isHidden();
        source->setHidden(away);
    }
    if (chosen < 0 && m_showAll->hasFocus()) m_tree->setFocus(); // the word goes
    for (int i = 0; i < int(m_parts.size()); ++i) m_parts[i].button->setChecked(i == chosen);
    m_showAll->setVisible(chosen >= 0);
    m_note->setVisible(chosen >= 0);
    place();
    if (changed) emit filtered();
}

void ResultSummary::retranslate()
{
    nameParts();
    m_showAll->setText(tr("Show all"));
    m_note->setText(tr("Hidden ticked files are saved, too."));
    place();
}

void ResultSummary::nameParts()
{
    const int all = m_tree->topLevelItemCount();
    m_all->setText(all == 1 ? tr("1 file:") : tr("%n files:", nullptr, all));
    for (const Part &part : m_parts) {
        QString text;
        switch (part.found) {
        case Found::Healthy: text = tr("%n healthy", nullptr, part.files); break;
        case Found::Whole: text = tr("%n whole", nullptr, part.files); break;
        case Found::Partial: text = tr("%n in part", nullptr, part.files); break;
        case Found::Doubtful: text = tr("%n doubtful", nullptr, part.files); break;
        case Found::Unjudged: text = tr("%n not judged", nullptr, part.files); break;
        case Found::Nothing: text = tr("%n not repaired", nullptr, part.files); break;
        }
        part.button->setText(text);
        part.button->setToolTip(tr("Shows these files alone, or all of them again. What is saved stays the same."));
        part.button->setVisible(part.files > 0);
    }
}

void ResultSummary::place()
{
    QList<QWidget *> line{m_all};
    line << stops() << m_note;
    int total = 0;
    for (const QWidget *widget : qAsConst(line))
        if (!widget->isHidden()) total += widget->sizeHint().width() + kGap;
    // As near to the results as it can be.
    int x = 0;
    int y = total <= width() ? kLine : 0;
    for (QWidget *widget : qAsConst(line)) {
        if (widget->isHidden()) continue;
        const int wanted = widget->sizeHint().width();
        if (x + wanted > width()) {
            x = 0;
            y += kLine + 1;
        }
        widget->setGeometry(x, y, wanted, kLine);
        x += wanted + kGap;
    }
}
