// The button in a source row that leads to the repair with a sample.
#pragma once

#include <QPushButton>

class CustomButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CustomButton(quint32 id, QWidget *parent = nullptr);
    quint32 nId = 0;

    /// A button without words is never shown: the tree shows every cell widget that it lays out.
    void setVisible(bool visible) override;

signals:
    /// Pressed by the mouse, or clicked by the keyboard or an assistive tool.
    void MousePressed(unsigned int id);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool m_announced = false; ///< the click that follows belongs to a press that was announced
};
