#include "window/CustomButton.h"

CustomButton::CustomButton(quint32 id, QWidget *parent) : QPushButton(parent), nId(id)
{
    connect(this, &QPushButton::clicked, this, [this] {
        if (!m_announced) emit MousePressed(nId);
        m_announced = false;
    });
}

void CustomButton::setVisible(bool visible)
{
    m_wanted = visible;
    settleVisible();
}

void CustomButton::setInView(bool inView)
{
    m_inView = inView;
    settleVisible();
}

void CustomButton::settleVisible()
{
    QPushButton::setVisible(m_wanted && m_inView && !text().isEmpty());
}

void CustomButton::mousePressEvent(QMouseEvent *event)
{
    QPushButton::mousePressEvent(event);
    m_announced = true;
    emit MousePressed(nId);
}

void CustomButton::mouseReleaseEvent(QMouseEvent *event)
{
    QPushButton::mouseReleaseEvent(event);
    m_announced = false;
}

void CustomButton::keyPressEvent(QKeyEvent *event)
{
    m_announced = false; // a dialog may have taken the release of the mouse
    QPushButton::keyPressEvent(event);
}
