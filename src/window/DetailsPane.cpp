#include "window/DetailsPane.h"

#include "desktop/Look.h"
#include "window/RowWords.h"
#include "window/RunPlan.h"

#include <QTextCursor>
#include <QTreeWidget>

DetailsPane::DetailsPane(QTreeWidget *tree, QWidget *parent) : QTextEdit(parent), m_tree(tree)
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
    QTextCursor text(document());
    QTextCharFormat name;
    name.setFontWeight(QFont::Bold);
    // As text, whatever a name looks like.
    text.insertText(row->text(column::Name), name);
    text.insertText('\n' + detailLines(row).join('\n'), QTextCharFormat());
    moveCursor(QTextCursor::Start);
}
