#include "window/DetailsPane.h"

#include "window/RunPlan.h"

#include <QTreeWidgetItem>

DetailsPane::DetailsPane(QWidget *parent) : QPlainTextEdit(parent)
{
    setObjectName(QStringLiteral("detailsPane"));
    setReadOnly(true);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    hide();
}

void DetailsPane::showRow(const QTreeWidgetItem *row)
{
    setVisible(row != nullptr);
    if (!row) {
        clear();
        return;
    }
    const QString tip = row->toolTip(column::Name);
    setPlainText(tip.isEmpty() ? row->text(column::Name) : row->text(column::Name) + '\n' + tip);
}
