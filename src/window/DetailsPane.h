// The words about the current row of the results, under its preview: what the tool tips say, without hovering.
#pragma once

#include <QPlainTextEdit>

class QTreeWidgetItem;

class DetailsPane : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit DetailsPane(QWidget *parent);

    /// Shows the full name of the row and what its tip says, as plain text that can be selected; null empties and hides it.
    void showRow(const QTreeWidgetItem *row);
};
