// The button in a source row that leads to the repair with a sample.
#pragma once

#include <QPushButton>

class CustomButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CustomButton(quint32 id, QWidget *parent = nullptr);
    quint32 nId = 0;

    /// What show() and hide() ask for holds while the row is in view and the button has words.
    void setVisible(bool visible) override;
    /// Said by the tree; buttons out of its view aren't shown.
    void setInView(bool inView);

signals:
    /// Pressed by the mouse, or clicked by the keyboard or an assistive tool.
    void MousePressed(unsigned int id);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void settleVisible();

    bool m_wanted = true;
    bool m_inView = false;
    bool m_announced = false; ///< the click that follows belongs to a press that was announced
};
