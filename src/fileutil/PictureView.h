// One picture, as large as a person wants to look at it.
#pragma once

#include <QGraphicsView>
#include <QPixmap>

#include <vector>

class QGraphicsPixmapItem;

/// The picture fits the view, and follows its size, until the wheel, a double-click or a call zooms. Dragging moves it.
class PictureView : public QGraphicsView
{
    Q_OBJECT

public:
    explicit PictureView(QWidget *parent);

    /// Shows it fitted. A null pixmap empties the view.
    void setPicture(const QPixmap &picture);
    /// Null where there is none.
    QPixmap picture() const { return m_levels.empty() ? QPixmap() : m_levels.front(); }

    /// Pixels of the screen, its own ones, for one of the picture.
    double scale() const;
    /// Between 1/32 and 16. Keeps the middle of the view in its place.
    void zoomTo(double scale) { zoom(scale, viewport()->rect().center()); }
    void zoomBy(double factor) { zoomTo(scale() * factor); }
    /// All of it is seen; a picture that is smaller than the view isn't blown up.
    void fit();
    bool fits() const { return m_fits; }

signals:
    /// scale() is another one.
    void zoomed();

protected:
    void wheelEvent(QWheelEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    /// What lies at `place` of the viewport stays there, as far as there is something to scroll.
    void zoom(double scale, const QPoint &place);
    void setScale(double scale);
    void setScrollBars(Qt::ScrollBarPolicy policy);
    /// The picture in a size from which the toolkit draws it smoothly at that scale.
    void chooseLevel(double scale);

    std::vector<QPixmap> m_levels; ///< the picture, and behind it halves of halves as far as they were needed
    QGraphicsPixmapItem *m_item = nullptr;
    bool m_fits = true;
};
