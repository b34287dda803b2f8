// The panel that shows results in full, one after the other.
#pragma once

#include "fileutil/DecodeProcess.h"

#include <QStringList>
#include <QWidget>

#include <functional>

class PictureView;
class QHBoxLayout;
class QLabel;
class QPushButton;

/// A window in front of all others with one of several JPEGs and HEICs, which buttons and keys lead through, and beside
/// it the small picture that the camera made of the same scene, as a witness of what came out. Escape and Space close it.
class PicturePanel : public QWidget
{
    Q_OBJECT

public:
    /// Where its buttons have room, in device-independent pixels.
    static constexpr QSize kLeast{640, 360};

    /// Shows the panel's frame at once and the picture when it is decoded. `files` isn't empty, `first` counts from 0.
    explicit PicturePanel(const QStringList &files, int first = 0, QWidget *parent = nullptr);

    QString file() const { return m_files.at(m_at); }
    PictureView *view() const { return m_view; }
    /// What stands below the picture.
    QString message() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildWidgets();
    QWidget *buildBar();
    QWidget *buildWitness();
    QPushButton *addButton(const QString &text, const QString &name, const QString &keys,
                           const std::function<void()> &action);
    void openFile(int index);
    void step(int files) { openFile(m_at + files); }
    void showDecoded(const DecodedPicture &decoded);
    QString whyNotShown() const;
    void growFor(const QSize &picture);
    void showScale();
    void scroll(int horizontally, int vertically);
    void toggleFullScreen();
    void saveAs();

    const QStringList m_files;
    int m_at = 0;
    DecodeProcess m_process;
    DecodedPicture m_decoded;
    PictureView *m_view = nullptr;
    QWidget *m_witness = nullptr;
    QLabel *m_thumbnail = nullptr;
    QHBoxLayout *m_bar = nullptr;
    QLabel *m_message = nullptr;
    QLabel *m_scale = nullptr;
    QPushButton *m_previous = nullptr;
    QPushButton *m_next = nullptr;
    QList<QPushButton *> m_tools; ///< those that need a picture
    bool m_grown = false;         ///< the panel has taken the size of its first picture
};
