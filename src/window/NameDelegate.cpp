#include "window/NameDelegate.h"

#include <QStyle>
#include <QWidget>

void NameDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const int mark = option->text.lastIndexOf(QLatin1String("_[T"));
    if (mark < 0 || !option->widget) return;
    const QStyle *style = option->widget->style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, option, option->widget) + 1;
    const int room = style->subElementRect(QStyle::SE_ItemViewItemText, option, option->widget).width() - 2 * margin;
    if (option->fontMetrics.horizontalAdvance(option->text) <= room) return;
    const QString tail = option->text.mid(mark);
    const int left = room - option->fontMetrics.horizontalAdvance(tail);
    option->text = option->fontMetrics.elidedText(option->text.left(mark), Qt::ElideRight, qMax(left, 0)) + tail;
}
