// The words about the current row of the results, under its preview: what the tool tips say, without hovering, and what
// to do next.
#pragma once

#include <QTextEdit>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

class DetailsPane : public QTextEdit
{
    Q_OBJECT

public:
    /// Hidden until a row is shown; then it follows the current row of `tree`, which must outlive it.
    DetailsPane(QTreeWidget *tree, QWidget *parent);

    /// Shows the full name of the row and what is known of it, as plain text that can be selected, in the language of the
    /// interface; null empties and hides it.
    void showRow(const QTreeWidgetItem *row);
    /// Says it anew, as the language or what is known of the current row has changed.
    void refresh();
    /// The link at the lower edge, which is there where a sample may do better for the row's file.
    QPushButton *sampleLink() const { return m_sampleLink; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QTreeWidget *m_tree;
    QPushButton *m_sampleLink;
};
