// Draws names of results so that the mark of a thumbnail stays on view.
#pragma once

#include <QStyledItemDelegate>

/// A name that is too long loses its middle; one of a thumbnail, "IMG_1234_[T1].jpg", loses what stands in front of its
/// mark, which alone tells it from the picture that it belongs to.
class NameDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
