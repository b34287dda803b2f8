#include "dialogs/FramelessDialog.h"

#include "desktop/Look.h"
#include "desktop/ScreenFit.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QVBoxLayout>

namespace {

constexpr int kStripHeight = 28;

} // namespace

FramelessDialog::FramelessDialog(QWidget *parent)
    : QDialog(parent, Qt::Window | Qt::FramelessWindowHint), m_move(this, kStripHeight)
{
    setAttribute(Qt::WA_QuitOnClose, false);

    auto *frame = new QFrame(this);
    frame->setProperty("role", QStringLiteral("dialog"));
    m_strip = new QFrame(frame);
    m_strip->setProperty("role", QStringLiteral("strip"));
    m_title = new QLabel(m_strip);
    m_title->setProperty("role", QStringLiteral("title"));
    m_title->setFont(look::font("Helvetica neue Medium", 14));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setAlignment(Qt::AlignCenter);
    m_content = new QWidget(frame);

    auto *stripLayout = new QHBoxLayout(m_strip);
    stripLayout->setContentsMargins(12, 0, 12, 0);
    stripLayout->addWidget(m_title);

    auto *frameLayout = new QVBoxLayout(frame);
    frameLayout->setContentsMargins(0, 0, 0, 0); // the strip's own edge lies on the frame's
    frameLayout->setSpacing(0);
    frameLayout->addWidget(m_strip);
    frameLayout->addWidget(m_content, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);
    setStripHeight(kStripHeight);
}

void FramelessDialog::finishSetUp(const QSize &size, QWidget *firstFocus)
{
    m_designSize = size;
    setFirstFocus(firstFocus);
    retranslate();
    SetFixedSizeWidget();
}

void FramelessDialog::setFirstFocus(QWidget *widget)
{
    m_firstFocus = widget;
}

void FramelessDialog::setStripHeight(int height)
{
    m_strip->setFixedHeight(height);
    m_move.setStripHeight(height);
}

void FramelessDialog::SetFixedSizeWidget()
{
    // The style sheet's fonts and margins are known only to polished widgets, and layouts go on with the sizes of before
    // until they are told otherwise, each one.
    ensurePolished();
    for (QWidget *child : findChildren<QWidget *>()) {
        child->ensurePolished();
        // In place of a minimum size in the form, which would let the layout cut a longer text off.
        if (const auto button = qobject_cast<QPushButton *>(child))
            button->setMinimumSize(button->sizeHint().expandedTo(button->baseSize()));
        child->updateGeometry();
    }
    for (QLayout *inner : findChildren<QLayout *>()) inner->invalidate();
    QLayout *all = layout();
    const QSize least = all->totalMinimumSize();
    const int width = qMax(m_designSize.width(), least.width());
    const int height = all->hasHeightForWidth() ? all->totalHeightForWidth(width) : all->totalSizeHint().height();
    setFixedSize(width, qMax(qMax(m_designSize.height(), least.height()), height));
    all->activate();
}

void FramelessDialog::retranslate()
{
    setWindowTitle(m_content->windowTitle());
    setAccessibleName(windowTitle());
    m_title->setText(windowTitle());
}

void FramelessDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        SetFixedSizeWidget();
    }
    QDialog::changeEvent(event);
}

void FramelessDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (event->spontaneous()) return;
    SetFixedSizeWidget();
    centre();
    // A dialog that is kept would open on the button that closed it last.
    if (m_firstFocus) m_firstFocus->setFocus();
}

void FramelessDialog::hideEvent(QHideEvent *event)
{
    m_move.stop();
    QDialog::hideEvent(event);
}

void FramelessDialog::centre()
{
    const QWidget *over = parentWidget() ? parentWidget()->window() : nullptr;
    const QScreen *onScreen = over ? over->screen() : screen();
    const QRect available = onScreen->availableGeometry();
    QRect place(QPoint(), size());
    place.moveCenter(over && over->isVisible() ? over->frameGeometry().center() : available.center());
    move(placeWithin(place, available));
}

void FramelessDialog::mousePressEvent(QMouseEvent *event)
{
    if (!m_move.press(event)) QDialog::mousePressEvent(event);
}

void FramelessDialog::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_move.move(event)) QDialog::mouseMoveEvent(event);
}

void FramelessDialog::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_move.release(event)) QDialog::mouseReleaseEvent(event);
}
