// The panel that shows one HEIC.
#pragma once

#include "fileutil/DecodeProcess.h"

#include <QPixmap>
#include <QWidget>

#include <functional>

class QGraphicsPixmapItem;
class QGraphicsView;
class QLabel;

/// A window in front of all others. The picture fits it until the wheel or a key zooms; Escape and Space close it.
class HeicPanel : public QWidget
{
    Q_OBJECT

public:
    /// Shows the panel's frame at once and the picture when it is decoded.
    explicit HeicPanel(const QString &path, QWidget *parent = nullptr);

    /// Screen pixels for one of the picture.
    double scale() const;
    /// The picture as it is shown; null before it is decoded, and for good where it can't be.
    QPixmap picture() const { return m_pixmap; }
    /// What the line below the picture says.
    QString message() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildWidgets();
    QWidget *buildBar();
    void addButton(QWidget *bar, const QString &text, const QString &keys, const std::function<void()> &action);
    void showDecoded(const DecodedHeic &decoded);
    void showProblem(const QString &problem);
    void setPicture(const QPixmap &picture);
    void fit();
    void setScrollBars(Qt::ScrollBarPolicy policy);
    void zoomTo(double scale);
    void zoomBy(double factor) { zoomTo(scale() * factor); }
    void saveAs();

    const QString m_path;
    DecodeProcess m_process;
    DecodedHeic m_decoded;
    QPixmap m_pixmap;
    QGraphicsView *m_view = nullptr;
    QGraphicsPixmapItem *m_item = nullptr;
    QLabel *m_message = nullptr;
    QWidget *m_bar = nullptr;
    bool m_fits = true; ///< the picture follows the size of the window
};
