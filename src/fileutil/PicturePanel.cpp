#include "fileutil/PicturePanel.h"

#include "desktop/Languages.h"
#include "desktop/ScreenFit.h"
#include "fileutil/PictureExport.h"
#include "fileutil/PictureView.h"
#include "fileutil/ProblemText.h"

#include <QColorSpace>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr double kShareOfScreen = 0.8;
constexpr double kStep = 1.25;
constexpr int kScrollStep = 60;

/// For the panel's own parts alone: what a dialog or a tool tip inherits of it would be light on light.
const char kStyle[] =
    "QWidget#panel { background: #202225; }"
    "QWidget#panel > QLabel, QWidget#bar > QLabel, QWidget#witness > QLabel { color: #e8eaed; }"
    "PictureView { background: #202225; border: none; }"
    "QWidget#bar > QPushButton { color: #e8eaed; background: #3a3d42; border: 1px solid #6b7076; border-radius: 4px;"
    " padding: 4px 10px; min-width: 18px; }"
    "QWidget#bar > QPushButton:hover { background: #50545a; }"
    "QWidget#bar > QPushButton:disabled { color: #8a8f95; background: #2b2d31; }"
    "QWidget#panel QScrollBar { background: #202225; border: none; width: 10px; height: 10px; }"
    "QWidget#panel QScrollBar::handle { background: #6b7076; border-radius: 4px; min-width: 24px; min-height: 24px; }"
    "QWidget#panel QScrollBar::add-line, QWidget#panel QScrollBar::sub-line, QWidget#panel QScrollBar::add-page,"
    " QWidget#panel QScrollBar::sub-page { background: none; border: none; width: 0; height: 0; }";

QPixmap forScreen(const DecodedPicture &decoded)
{
    QImage image = withProfile(decoded);
    if (image.colorSpace().isValid()) image.convertToColorSpace(QColorSpace::SRgb);
    return QPixmap::fromImage(image);
}

} // namespace

PicturePanel::PicturePanel(const QStringList &files, int first, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint), m_files(files)
{
    setFocusPolicy(Qt::StrongFocus);
    buildWidgets();
    const QRect area = screen()->availableGeometry();
    setMinimumSize(minimumSizeHint().expandedTo(kLeast).boundedTo(area.size())); // words may be long
    resize(QSize(720, 560).boundedTo(area.size()));
    move(area.center() - rect().center());
    connect(&m_process, &DecodeProcess::finished, this, &PicturePanel::showDecoded);
    openFile(first);
}

void PicturePanel::buildWidgets()
{
    auto *panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("panel"));
    panel->setStyleSheet(kStyle);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(panel);

    m_view = new PictureView(panel);
    connect(m_view, &PictureView::zoomed, this, &PicturePanel::showScale);
    auto *upper = new QHBoxLayout;
    upper->addWidget(m_view, 1);
    upper->addWidget(buildWitness());
    auto *all = new QVBoxLayout(panel);
    all->setContentsMargins(8, 8, 8, 8);
    all->addLayout(upper, 1);
    all->addWidget(buildBar());
}

QWidget *PicturePanel::buildWitness()
{
    m_witness = new QWidget(this);
    m_witness->setObjectName(QStringLiteral("witness"));
    m_thumbnail = new QLabel(m_witness);
    m_thumbnail->setObjectName(QStringLiteral("thumbnail"));
    m_thumbnail->setAccessibleName(tr("Thumbnail"));
    auto *words = new QLabel(tr("Thumbnail"), m_witness);
    words->setToolTip(tr("The small picture that the camera has put into the file. Compare: it shows the same scene."));
    auto *column = new QVBoxLayout(m_witness);
    column->setContentsMargins(0, 0, 0, 0);
    column->addStretch(1);
    column->addWidget(words);
    column->addWidget(m_thumbnail);
    m_witness->hide();
    return m_witness;
}

QWidget *PicturePanel::buildBar()
{
    auto *bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("bar"));
    m_bar = new QHBoxLayout(bar);
    m_bar->setContentsMargins(0, 0, 0, 0);
    m_message = new QLabel(bar);
    m_message->setWordWrap(true);
    m_bar->addWidget(m_message, 1);
    m_scale = new QLabel(bar);
    m_bar->addWidget(m_scale);
    m_previous = addButton(QString(QChar(0x2039)), tr("Previous picture"), "Page Up", [this] { step(-1); });
    m_next = addButton(QString(QChar(0x203A)), tr("Next picture"), "Page Down", [this] { step(1); });
    m_tools << addButton(QString(QChar(0x2212)), tr("Smaller"), "-", [this] { m_view->zoomBy(1 / kStep); })
            << addButton("+", tr("Larger"), "+", [this] { m_view->zoomBy(kStep); })
            << addButton("1:1", tr("Full size"), "1", [this] { m_view->zoomTo(1.0); })
            << addButton(tr("Fit"), tr("Fit"), "0", [this] { m_view->fit(); })
            << addButton(tr("Save as"), tr("Save as"), "Ctrl+S", [this] { saveAs(); });
    for (QPushButton *button : {m_previous, m_next}) button->setVisible(m_files.size() > 1);
    return bar;
}

QPushButton *PicturePanel::addButton(const QString &text, const QString &name, const QString &keys,
                                     const std::function<void()> &action)
{
    auto *button = new QPushButton(text, m_bar->parentWidget());
    // Space closes the panel, so it must not press whatever was clicked last; each button has a key of its own.
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(name, keys));
    button->setAccessibleName(name);
    connect(button, &QPushButton::clicked, this, action);
    m_bar->addWidget(button);
    return button;
}

QString PicturePanel::message() const
{
    return m_message->text();
}

void PicturePanel::openFile(int index)
{
    m_at = std::clamp(index, 0, m_files.size() - 1);
    const QString name = QFileInfo(file()).fileName();
    const QString place = tr("%1 (%2 of %3)").arg(name).arg(m_at + 1).arg(m_files.size());
    setWindowTitle(m_files.size() > 1 ? place : name);
    m_previous->setEnabled(m_at > 0);
    m_next->setEnabled(m_at + 1 < m_files.size());
    for (QPushButton *button : qAsConst(m_tools)) button->setEnabled(false);
    m_decoded = DecodedPicture();
    m_witness->hide();
    m_view->setPicture({}); // the picture of another file must not stand under this one's name
    m_message->setText(tr("Reading the picture ..."));
    showScale();
    m_process.start(file());
}

void PicturePanel::showDecoded(const DecodedPicture &decoded)
{
    m_decoded = decoded;
    m_witness->setVisible(!decoded.thumbnail.isNull());
    if (!decoded.thumbnail.isNull()) {
        QPixmap small = QPixmap::fromImage(decoded.thumbnail);
        small.setDevicePixelRatio(std::max(1.0, small.width() / double(kThumbnailSide)));
        m_thumbnail->setPixmap(small);
    }
    if (decoded.image.isNull()) {
        m_message->setText(whyNotShown());
        m_view->setPicture(QPixmap(noPreviewPicture()));
        return;
    }
    m_message->setText(tr("%1 x %2 pixels").arg(decoded.size.width()).arg(decoded.size.height()));
    for (QPushButton *button : qAsConst(m_tools)) button->setEnabled(true);
    growFor(decoded.image.size() / devicePixelRatioF());
    m_view->setPicture(forScreen(decoded));
}

QString PicturePanel::whyNotShown() const
{
    // The panel outlives the results that it was opened on, which lie in a place of the program's own.
    if (!QFileInfo::exists(file()))
        return tr(
            "This picture isn't there any more. Going back and starting again remove results that weren't saved.");
    return tr("This file can't be shown: %1.").arg(problemText(m_decoded.problem));
}

void PicturePanel::growFor(const QSize &picture)
{
    if (std::exchange(m_grown, true)) return; // what the person has made of it since stays
    const QRect area = screen()->availableGeometry();
    layout()->activate();
    const QSize room = area.size() * kShareOfScreen;
    const QSize frame = size() - m_view->size();
    QSize wanted = picture;
    if (wanted.width() > room.width() - frame.width() || wanted.height() > room.height() - frame.height())
        wanted.scale(room - frame, Qt::KeepAspectRatio);
    resize((wanted + frame).expandedTo(minimumSize()).boundedTo(area.size()));
    move(placeWithin(QRect(area.center() - rect().center(), frameGeometry().size()), area));
}

void PicturePanel::showScale()
{
    const bool known = !m_decoded.image.isNull();
    m_scale->setText(known ? QStringLiteral("%1 %").arg(qRound(m_view->scale() * 100)) : QString());
}

void PicturePanel::scroll(int horizontally, int vertically)
{
    // Where nothing is left to scroll to, the keys that point sideways turn the pages.
    if (m_view->fits() && horizontally != 0) return step(horizontally);
    const auto move = [](QScrollBar *bar, int steps) { bar->setValue(bar->value() + steps * kScrollStep); };
    move(m_view->horizontalScrollBar(), horizontally);
    move(m_view->verticalScrollBar(), vertically);
}

void PicturePanel::toggleFullScreen()
{
    setWindowState(windowState() ^ Qt::WindowFullScreen);
}

void PicturePanel::keyPressEvent(QKeyEvent *event)
{
    const bool shown = !m_decoded.image.isNull();
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Space: close(); break;
    case Qt::Key_PageUp: step(-1); break;
    case Qt::Key_PageDown: step(1); break;
    case Qt::Key_Home: openFile(0); break;
    case Qt::Key_End: openFile(m_files.size() - 1); break;
    case Qt::Key_F11: toggleFullScreen(); break;
    case Qt::Key_Left: scroll(-1, 0); break;
    case Qt::Key_Right: scroll(1, 0); break;
    case Qt::Key_Up: scroll(0, -1); break;
    case Qt::Key_Down: scroll(0, 1); break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        if (shown) m_view->zoomBy(kStep);
        break;
    case Qt::Key_Minus:
        if (shown) m_view->zoomBy(1 / kStep);
        break;
    case Qt::Key_0: m_view->fit(); break;
    case Qt::Key_1:
        if (shown) m_view->zoomTo(1.0);
        break;
    default:
        if (event->matches(QKeySequence::Save)) saveAs();
        QWidget::keyPressEvent(event);
    }
}

void PicturePanel::saveAs()
{
    if (m_decoded.image.isNull()) return;
    const QFileInfo source(file());
    // Where the file lies is the program's own place, which the next run empties.
    const bool jpeg = m_decoded.jpeg;
    const QString proposal = QDir::homePath() + '/' + source.completeBaseName() + (jpeg ? ".jpg" : ".png");
    const QString filter = jpeg ? tr("JPEG as it is (*.jpg *.jpeg);;PNG (*.png)")
                                : tr("PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)");
    const QString target = QFileDialog::getSaveFileName(this, tr("Save as"), proposal, filter);
    if (target.isEmpty()) return;
    QString problem;
    const ExportKind kind = exportKind(target);
    if (kind == ExportKind::None || (jpeg && kind == ExportKind::Heic)) {
        problem = jpeg ? tr("The name must end in .jpg or .png.") : tr("The name must end in .png, .jpg or .heic.");
    } else {
        const QByteArray bytes = exportBytes(kind, file(), m_decoded, problem);
        if (problem.isEmpty()) problem = replaceFile(target, bytes, file());
    }
    if (problem.isEmpty()) return;
    problem = problemText(problem);
    QMessageBox::warning(this, tr("Save as"), problem.left(1).toUpper() + problem.mid(1));
}
