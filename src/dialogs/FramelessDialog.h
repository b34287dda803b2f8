// The common base of the program's dialogs: no frame of the desktop's, a strip with the title to drag it by.
#pragma once

#include "dialogs/FramelessMove.h"

#include <QDialog>
#include <QPointer>
#include <QSize>

class QFrame;
class QLabel;

/// A dialog sets its form up in content() and then calls finishSetUp(). The window title of the form becomes the title of
/// dialog and strip.
class FramelessDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FramelessDialog(QWidget *parent);

    /// Gives the dialog its size: the one it was designed with, or more where texts of the language need it.
    virtual void SetFixedSizeWidget();

protected:
    QWidget *content() const { return m_content; }
    QLabel *titleLabel() const { return m_title; }

    /// `size` in device-independent pixels. `firstFocus` gets the focus each time the dialog is shown.
    void finishSetUp(const QSize &size, QWidget *firstFocus);
    void setFirstFocus(QWidget *widget);
    void setStripHeight(int height);

    /// Sets all texts again, in the language that holds now. The base class takes the title over from the form.
    virtual void retranslate();

    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void centre();

    QFrame *m_strip;
    QLabel *m_title;
    QWidget *m_content;
    QPointer<QWidget> m_firstFocus;
    QSize m_designSize;
    FramelessMove m_move;
};
