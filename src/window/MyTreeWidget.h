// The tree of results: the space key does nothing in it, and its rows can hold a button.
#pragma once

#include <QHash>
#include <QTreeWidget>

class CustomButton;

class MyTreeWidget : public QTreeWidget
{
    Q_OBJECT

public:
    using QTreeWidget::QTreeWidget;

    /// Puts a button into a cell of the top-level `row`; the tree owns it, to its next clear(). Only the buttons of rows in
    /// view are laid out: the toolkit's own cell widgets cost each layout a look at each of them, in thousands of rows.
    void setRowButton(QTreeWidgetItem *row, int column, CustomButton *button);
    /// Null if the row has none.
    CustomButton *rowButton(const QTreeWidgetItem *row) const { return m_buttons.value(row); }

    void reset() override;

signals:
    /// The keyboard has made another row the current one.
    void rowReached(QTreeWidgetItem *item);
    /// Return was pressed on a row.
    void rowEntered(QTreeWidgetItem *item);
    /// The context menu of a row was asked for, by mouse or keyboard; `place` on the screen.
    void menuAsked(QTreeWidgetItem *item, const QPoint &place);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void updateEditorGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void placeButtons();

    QHash<const QTreeWidgetItem *, CustomButton *> m_buttons;
    QList<CustomButton *> m_inView;
    int m_buttonColumn = 0;
    bool m_placing = false; ///< is asked for, to be done at the next turn of the event loop
};
