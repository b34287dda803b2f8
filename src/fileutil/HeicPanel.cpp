#include "fileutil/HeicPanel.h"

#include "desktop/Languages.h"
#include "fileutil/PictureExport.h"

#include <QColorSpace>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGraphicsPixmapItem>
#include <QGraphicsView>
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
constexpr double kLargest = 16.0;
constexpr double kSmallest = 1.0 / 32;

/// What the parts of this program say in English, in the reader's language; what the decoder's library says, as it is.
QString problemText(const QString &problem)
{
    static const char *const known[] = {
        QT_TRANSLATE_NOOP("HeicProblem", "the file can't be read"),
        QT_TRANSLATE_NOOP("HeicProblem", "the file is too large"),
        QT_TRANSLATE_NOOP("HeicProblem", "it isn't a HEIC, or holds image tiles alone"),
        QT_TRANSLATE_NOOP("HeicProblem", "the file holds image tiles alone, or isn't a rewritten one"),
        QT_TRANSLATE_NOOP("HeicProblem", "the index of the picture's tiles is broken"),
        QT_TRANSLATE_NOOP("HeicProblem", "a box that describes the picture is broken"),
        QT_TRANSLATE_NOOP("HeicProblem", "no item of the file puts the picture's tiles together"),
        QT_TRANSLATE_NOOP("HeicProblem", "the picture can't be decoded"),
        QT_TRANSLATE_NOOP("HeicProblem", "the picture can't be written in this format"),
        QT_TRANSLATE_NOOP("HeicProblem", "the picture has more pixels than can be shown"),
        QT_TRANSLATE_NOOP("HeicProblem", "there is no memory for the picture"),
        QT_TRANSLATE_NOOP("HeicProblem", "the decoder broke off"),
        QT_TRANSLATE_NOOP("HeicProblem", "the decoder can't be started"),
        QT_TRANSLATE_NOOP("HeicProblem", "the decoder broke off: the file is damaged, or asks for too much"),
    };
    for (const char *text : known)
        if (problem == QLatin1String(text)) return QCoreApplication::translate("HeicProblem", text);
    return problem;
}

QPixmap forScreen(const DecodedHeic &decoded)
{
    QImage image = withProfile(decoded);
    if (image.colorSpace().isValid()) image.convertToColorSpace(QColorSpace::SRgb);
    return QPixmap::fromImage(image);
}

} // namespace

HeicPanel::HeicPanel(const QString &path, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint), m_path(path)
{
    setWindowTitle(QFileInfo(path).fileName());
    setFocusPolicy(Qt::StrongFocus);
    buildWidgets();
    const QRect area = screen()->availableGeometry();
    resize(std::min(720, area.width()), std::min(560, area.height()));
    move(area.center() - rect().center());
    connect(&m_process, &DecodeProcess::finished, this, &HeicPanel::showDecoded);
    m_process.start(path);
}

void HeicPanel::buildWidgets()
{
    setStyleSheet("HeicPanel { background: #202225; } QLabel { color: #e8eaed; }"
                  "QGraphicsView { background: #202225; border: none; }"
                  "QPushButton { color: #e8eaed; background: #3a3d42; border: 1px solid #6b7076; border-radius: 4px;"
                  " padding: 4px 12px; }"
                  "QScrollBar { background: #202225; border: none; width: 10px; height: 10px; }"
                  "QScrollBar::handle { background: #6b7076; border-radius: 4px; min-width: 24px; min-height: 24px; }"
                  "QScrollBar::add-line, QScrollBar::sub-line, QScrollBar::add-page, QScrollBar::sub-page"
                  " { background: none; border: none; width: 0; height: 0; }"
                  "QPushButton:hover { background: #50545a; }"
                  "QPushButton:disabled { color: #8a8f95; background: #2b2d31; }");
    m_view = new QGraphicsView(new QGraphicsScene(this), this);
    m_view->setFocusPolicy(Qt::NoFocus);
    m_view->setDragMode(QGraphicsView::ScrollHandDrag);
    m_view->setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    m_view->viewport()->installEventFilter(this);
    m_message = new QLabel(tr("Reading the picture ..."), this);
    m_message->setTextInteractionFlags(Qt::NoTextInteraction);
    m_message->setWordWrap(true);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(8, 8, 8, 8);
    all->addWidget(m_view, 1);
    all->addWidget(buildBar());
}

QWidget *HeicPanel::buildBar()
{
    m_bar = new QWidget(this);
    auto *line = new QHBoxLayout(m_bar);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_message, 1);
    addButton(m_bar, tr("Smaller"), "-", [this] { zoomBy(1 / kStep); });
    addButton(m_bar, tr("Larger"), "+", [this] { zoomBy(kStep); });
    addButton(m_bar, tr("Fit"), "0", [this] { fit(); });
    addButton(m_bar, tr("Save as"), "Ctrl+S", [this] { saveAs(); });
    return m_bar;
}

void HeicPanel::addButton(QWidget *bar, const QString &text, const QString &keys, const std::function<void()> &action)
{
    auto *button = new QPushButton(text, bar);
    // Space closes the panel, so it must not press whatever was clicked last; each button has a key of its own.
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys));
    button->setEnabled(false);
    connect(button, &QPushButton::clicked, this, action);
    bar->layout()->addWidget(button);
}

double HeicPanel::scale() const
{
    return m_view->transform().m11();
}

QString HeicPanel::message() const
{
    return m_message->text();
}

void HeicPanel::showDecoded(const DecodedHeic &decoded)
{
    if (!decoded.problem.isEmpty()) {
        showProblem(decoded.problem);
        return;
    }
    m_decoded = decoded;
    m_pixmap = forScreen(decoded);
    m_message->setText(tr("%1 x %2 pixels").arg(m_pixmap.width()).arg(m_pixmap.height()));
    for (QPushButton *button : m_bar->findChildren<QPushButton *>()) button->setEnabled(true);

    const QRect area = screen()->availableGeometry();
    const QSize room = area.size() * kShareOfScreen;
    const QSize frame = size() - m_view->viewport()->size();
    QSize wanted = m_pixmap.size();
    if (wanted.width() > room.width() - frame.width() || wanted.height() > room.height() - frame.height())
        wanted.scale(room - frame, Qt::KeepAspectRatio);
    resize((wanted + frame).expandedTo(QSize(420, 200)).boundedTo(area.size()));
    move(area.center() - rect().center());
    setPicture(m_pixmap);
}

void HeicPanel::showProblem(const QString &problem)
{
    m_message->setText(tr("This file can't be shown: %1.").arg(problemText(problem)));
    setPicture(QPixmap(noPreviewPicture()));
}

void HeicPanel::setPicture(const QPixmap &picture)
{
    QGraphicsScene *scene = m_view->scene();
    scene->clear();
    m_item = scene->addPixmap(picture);
    m_item->setTransformationMode(Qt::SmoothTransformation);
    scene->setSceneRect(m_item->boundingRect());
    fit();
}

void HeicPanel::fit()
{
    m_fits = true;
    setScrollBars(Qt::ScrollBarAlwaysOff); // one that half a pixel calls for takes room, and calls for the other
    if (!m_item) return;
    const QSizeF room = m_view->maximumViewportSize();
    const QSizeF size = m_item->boundingRect().size();
    if (size.isEmpty() || room.isEmpty()) return;
    // A small picture isn't blown up.
    const double scale = std::min({room.width() / size.width(), room.height() / size.height(), 1.0});
    m_view->setTransform(QTransform::fromScale(scale, scale));
}

void HeicPanel::setScrollBars(Qt::ScrollBarPolicy policy)
{
    m_view->setHorizontalScrollBarPolicy(policy);
    m_view->setVerticalScrollBarPolicy(policy);
}

void HeicPanel::zoomTo(double wanted)
{
    if (m_pixmap.isNull()) return;
    m_fits = false;
    setScrollBars(Qt::ScrollBarAsNeeded);
    const double scale = std::clamp(wanted, kSmallest, kLargest);
    m_view->setTransform(QTransform::fromScale(scale, scale));
}

void HeicPanel::keyPressEvent(QKeyEvent *event)
{
    const auto scroll = [](QScrollBar *bar, int steps) { bar->setValue(bar->value() + steps * 60); };
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Space: close(); break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: zoomBy(kStep); break;
    case Qt::Key_Minus: zoomBy(1 / kStep); break;
    case Qt::Key_0: fit(); break;
    case Qt::Key_1: zoomTo(1.0); break;
    case Qt::Key_Left: scroll(m_view->horizontalScrollBar(), -1); break;
    case Qt::Key_Right: scroll(m_view->horizontalScrollBar(), 1); break;
    case Qt::Key_Up: scroll(m_view->verticalScrollBar(), -1); break;
    case Qt::Key_Down: scroll(m_view->verticalScrollBar(), 1); break;
    default:
        if (event->matches(QKeySequence::Save)) saveAs();
        QWidget::keyPressEvent(event);
    }
}

void HeicPanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_fits) fit();
}

bool HeicPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_view->viewport()) {
        if (event->type() == QEvent::Resize && m_fits) fit();
        if (event->type() == QEvent::Wheel) {
            const int turned = static_cast<QWheelEvent *>(event)->angleDelta().y();
            if (turned != 0) zoomBy(turned > 0 ? kStep : 1 / kStep);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HeicPanel::saveAs()
{
    if (m_decoded.image.isNull()) return;
    const QFileInfo source(m_path);
    // Where the file lies is the program's own place, which the next run empties.
    const QString proposal = QDir::homePath() + '/' + source.completeBaseName() + ".png";
    QString filter;
    QString target = QFileDialog::getSaveFileName(
        this, tr("Save as"), proposal, tr("PNG (*.png);;JPEG (*.jpg *.jpeg);;HEIC that other programs open (*.heic)"),
        &filter);
    if (target.isEmpty()) return;
    QString problem;
    const ExportKind kind = exportKind(target);
    if (kind == ExportKind::None) {
        problem = tr("The name must end in .png, .jpg or .heic.");
    } else {
        const QByteArray bytes = exportBytes(kind, m_path, m_decoded, problem);
        if (problem.isEmpty()) problem = replaceFile(target, bytes, m_path);
    }
    if (problem.isEmpty()) return;
    problem = problemText(problem);
    QMessageBox::warning(this, tr("Save as"), problem.left(1).toUpper() + problem.mid(1));
}
