#include "window/DetailsPane.h"

#include "desktop/Look.h"
#include "window/RowWords.h"
#include "window/RunPlan.h"

#include <QPushButton>
#include <QTextCursor>
#include <QTreeWidget>

namespace {

constexpr int kLink = 17; ///< leaves room for three whole lines

} // namespace

DetailsPane::DetailsPane(QTreeWidget *tree, QWidget *parent)
    : QTextEdit(parent), m_tree(tree), m_sampleLink(new QPushButton(this))
{
    setObjectName(QStringLiteral("detailsPane"));
    setProperty("role", "details");
    setFont(look::font(QStringLiteral("Helvetica neue"), 12));
    setReadOnly(true);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere); // names may have no blank
    document()->setDocumentMargin(4);
    m_sampleLink->setObjectName(QStringLiteral("sampleLink"));
    m_sampleLink->setProperty("role", "part");
    m_sampleLink->setFont(font());
    m_sampleLink->setCursor(Qt::PointingHandCursor);
    hide();
    connect(tree, &QTreeWidget::currentItemChanged, this, &DetailsPane::refresh);
}

void DetailsPane::refresh()
{
    if (!isHidden()) showRow(m_tree->currentItem());
}

void DetailsPane::showRow(const QTreeWidgetItem *row)
{
    setVisible(row != nullptr);
    clear();
    if (!row) return;
    const QTreeWidgetItem *source = row->parent() ? row->parent() : row;
    const bool linked = mayTrySample(source);
    m_sampleLink->setVisible(linked);
    if (linked) m_sampleLink->setText(sampleWords(source));
    m_sampleLink->setAccessibleName(m_sampleLink->text() + QLatin1String(": ") + source->text(column::Name));
    m_sampleLink->resize(m_sampleLink->sizeHint().width(), kLink);
    setViewportMargins(0, 0, 0, linked ? kLink : 0);
    QTextCursor text(document());
    QTextCharFormat name;
    name.setFontWeight(QFont::Bold);
    // As text, whatever a name looks like.
    text.insertText(row->text(column::Name), name);
    text.insertText('\n' + detailLines(row).join('\n'), QTextCharFormat());
    moveCursor(QTextCursor::Start);
}

void DetailsPane::resizeEvent(QResizeEvent *event)
{
    QTextEdit::resizeEvent(event);
    m_sampleLink->move(1, height() - kLink - 1);
}
