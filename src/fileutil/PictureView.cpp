#include "fileutil/PictureView.h"

#include <QGraphicsPixmapItem>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLargest = 16.0;
constexpr double kSmallest = 1.0 / 32;
/// A notch of a wheel is 120 units and zooms by a quarter; touchpads send less at a time.
constexpr double kUnitsForQuarter = 120.0;

} // namespace

PictureView::PictureView(QWidget *parent) : QGraphicsView(new QGraphicsScene, parent)
{
    scene()->setParent(this);
    setFocusPolicy(Qt::NoFocus);
    setDragMode(QGraphicsView::ScrollHandDrag);
    setFrameShape(QFrame::NoFrame);
    setTransformationAnchor(QGraphicsView::NoAnchor);
}

void PictureView::setPicture(const QPixmap &picture)
{
    scene()->clear();
    m_item = nullptr;
    m_levels.clear();
    if (!picture.isNull()) {
        m_levels.push_back(picture);
        m_item = scene()->addPixmap(picture);
        m_item->setTransformationMode(Qt::SmoothTransformation);
        scene()->setSceneRect(QRectF(QPointF(), QSizeF(picture.size())));
    }
    fit();
}

double PictureView::scale() const
{
    return transform().m11() * devicePixelRatioF();
}

void PictureView::fit()
{
    m_fits = true;
    setScrollBars(Qt::ScrollBarAlwaysOff); // one that half a pixel calls for takes room, and calls for the other
    const QSizeF room = QSizeF(maximumViewportSize()) * devicePixelRatioF();
    const QSizeF size = scene()->sceneRect().size();
    if (m_item && !room.isEmpty() && !size.isEmpty())
        setScale(std::min({room.width() / size.width(), room.height() / size.height(), 1.0}));
}

void PictureView::zoom(double wanted, const QPoint &place)
{
    if (!m_item) return;
    m_fits = false;
    const QPointF there = mapToScene(place);
    setScrollBars(Qt::ScrollBarAsNeeded);
    setScale(std::clamp(wanted, kSmallest, kLargest));
    const QPoint moved = mapFromScene(there) - place;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + moved.y());
}

void PictureView::setScale(double scale)
{
    chooseLevel(scale);
    setTransform(QTransform::fromScale(scale / devicePixelRatioF(), scale / devicePixelRatioF()));
    emit zoomed();
}

void PictureView::chooseLevel(double scale)
{
    const auto wanted = size_t(std::max(0.0, std::floor(std::log2(1 / scale))));
    while (m_levels.size() <= wanted && std::min(m_levels.back().width(), m_levels.back().height()) > 1) {
        const QPixmap &last = m_levels.back();
        m_levels.push_back(last.scaled(last.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    const QPixmap &level = m_levels[std::min(wanted, m_levels.size() - 1)];
    if (level.cacheKey() == m_item->pixmap().cacheKey()) return;
    const QSizeF whole = scene()->sceneRect().size();
    m_item->setPixmap(level);
    m_item->setTransform(QTransform::fromScale(whole.width() / level.width(), whole.height() / level.height()));
}

void PictureView::setScrollBars(Qt::ScrollBarPolicy policy)
{
    setHorizontalScrollBarPolicy(policy);
    setVerticalScrollBarPolicy(policy);
}

void PictureView::wheelEvent(QWheelEvent *event)
{
    const int turned = event->angleDelta().y();
    if (turned != 0) zoom(scale() * std::pow(1.25, turned / kUnitsForQuarter), event->position().toPoint());
    event->accept();
}

void PictureView::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    if (m_fits) fit();
}

void PictureView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (m_fits)
        zoom(1.0, event->pos());
    else
        fit();
    event->accept();
}
