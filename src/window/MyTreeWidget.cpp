#include "window/MyTreeWidget.h"

#include "window/CustomButton.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QTimer>

#include <utility>

void MyTreeWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space) {
        event->ignore();
        return;
    }
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentItem()) {
        emit rowEntered(currentItem());
        return;
    }
    QTreeWidgetItem *before = currentItem();
    QTreeWidget::keyPressEvent(event);
    if (currentItem() && currentItem() != before) emit rowReached(currentItem());
}

void MyTreeWidget::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    QTreeWidgetItem *row = byKey ? currentItem() : itemAt(viewport()->mapFromGlobal(event->globalPos()));
    if (!row) return;
    emit menuAsked(row, byKey ? viewport()->mapToGlobal(visualItemRect(row).bottomLeft()) : event->globalPos());
}

void MyTreeWidget::setRowButton(QTreeWidgetItem *row, int column, CustomButton *button)
{
    m_buttonColumn = column;
    button->setParent(viewport());
    m_buttons.insert(row, button);
    // Not at once: asking for the row's place would lay the tree out anew for each of many rows.
    if (std::exchange(m_placing, true)) return;
    QTimer::singleShot(0, this, [this] {
        m_placing = false;
        placeButtons();
    });
}

void MyTreeWidget::reset()
{
    // Later, for one of them may be what asks for it.
    for (CustomButton *button : qAsConst(m_buttons)) {
        button->hide();
        button->deleteLater();
    }
    m_buttons.clear();
    m_inView.clear();
    QTreeWidget::reset();
}

void MyTreeWidget::updateEditorGeometries()
{
    QTreeWidget::updateEditorGeometries();
    placeButtons();
}

void MyTreeWidget::scrollContentsBy(int dx, int dy)
{
    QTreeWidget::scrollContentsBy(dx, dy);
    placeButtons();
}

void MyTreeWidget::placeButtons()
{
    if (m_buttons.isEmpty()) return;
    QList<CustomButton *> inView;
    const int bottom = viewport()->height();
    for (QTreeWidgetItem *row = itemAt(0, 0); row; row = itemBelow(row)) {
        const QRect cell = visualRect(indexFromItem(row, m_buttonColumn));
        if (cell.top() >= bottom) break;
        CustomButton *button = m_buttons.value(row);
        if (!button) continue;
        button->setGeometry(cell);
        button->setInView(true);
        inView << button;
    }
    for (CustomButton *button : qAsConst(m_inView))
        if (!inView.contains(button)) button->setInView(false);
    m_inView = inView;
}
