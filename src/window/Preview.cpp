// What a clicked row shows: a picture that the toolkit decodes, the system's panel for a HEIC, or that there is none.
#include "app/KesmiraApp.h"
#include "desktop/Languages.h"
#include "desktop/Look.h"
#include "desktop/platform/Platform.h"
#include "engine/OneFile.h"
#include "window/BrowseRepair.h"
#include "window/DetailsPane.h"
#include "window/MyTreeWidget.h"
#include "window/ui_BrowseRepairObj.h"

#include <QFileInfo>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QTimer>

namespace {

const QSize kView(400, 290);

} // namespace

void BrowseRepair::previewRow(QTreeWidgetItem *item)
{
    m_preview.cancel();
    m_details->showRow(item);
    ui->Preview_Label->hide();
    if (pApp->strTempDir.isEmpty()) return;
    const QString path = outputPath(item->text(column::Name));
    const QString code = item->text(column::Status);
    const bool output = code == QLatin1String(status::Output);
    // The toolkit decodes no HEIC, whatever plug-ins are there: the judge's format is JPEG alone.
    const bool heic = QFileInfo(item->text(column::Name)).completeSuffix().toUpper() == QLatin1String("HEIC");
    if (heic && output) {
        ui->graphicsView->hide();
        ui->Preview_Label->show();
        OnPreviewHEICFile(path);
        return;
    }
    if (heic || code.isEmpty() || path.isEmpty()) {
        showNoPreview();
        return;
    }
    m_preview.request(path, (QSizeF(kView) * devicePixelRatioF()).toSize(),
                      [this, output](const QImage &image, const QSize &fullSize) {
                          if (image.isNull()) {
                              showNoPreview();
                          } else if (output) {
                              showPicture(image, fullSize);
                          } else {
                              ui->graphicsView->hide();
                              ui->Preview_Label->show();
                          }
                      });
}

void BrowseRepair::showPicture(const QImage &image, const QSize &fullSize)
{
    ui->graphicsView->setFixedSize(kView);
    const QRectF room(QPointF(0, 0), kView);
    auto *scene = new QGraphicsScene(room, ui->graphicsView);
    QGraphicsPixmapItem *item = scene->addPixmap(QPixmap::fromImage(image));
    item->setTransformationMode(Qt::SmoothTransformation);
    // A small picture keeps its own size; the image may be sharper than the view where the screen is.
    const bool small = fullSize.width() < kView.width() && fullSize.height() < kView.height();
    const double scale = std::min(room.width() / image.width(), room.height() / image.height());
    item->setScale(small ? 1.0 : scale);
    item->setPos(room.center() - QPointF(image.width(), image.height()) * item->scale() / 2);
    QGraphicsScene *before = ui->graphicsView->scene();
    ui->graphicsView->setScene(scene);
    delete before;
    ui->Preview_Label->hide();
    ui->graphicsView->show();
}

void BrowseRepair::showNoPreview()
{
    ui->graphicsView->hide();
    ui->Preview_Label->setPixmap(look::picture(noPreviewPicture(), devicePixelRatioF()));
    ui->Preview_Label->show();
}

void BrowseRepair::OnPreviewHEICFile(const QString &path)
{
    const PreviewKind kind = platform().previewKind();
    if (kind == PreviewKind::None) {
        showNoPreview();
        return;
    }
    if (kind == PreviewKind::Helper) {
        // One preview at a time: the last click wins. A helper that is just being started is one to end, too.
        m_previewThread.wait();
        GetQuickLookProcessID();
        for (const unsigned int pid : qAsConst(lstHelperPids)) platform().endPreviewHelper(pid);
    }
    pApp->bPreviewClosed = false;
    if (kind == PreviewKind::Helper) {
        lstPreviewFiles = QStringList{path};
        m_previewThread.SetInitialSettings(pApp->strPreviewHelperPath, path);
        m_previewThread.start(QThread::InheritPriority);
        return;
    }
    pApp->strQuickLookFile = path;
    if (path.isEmpty()) return;
    platform().showPreviewPanel(kind, path);
    if (!pQuickLookTimer) {
        pQuickLookTimer = new QTimer(this);
        connect(pQuickLookTimer, &QTimer::timeout, this, &BrowseRepair::OnQuickLookSlot);
    }
    pQuickLookTimer->start(40);
}

void BrowseRepair::GetQuickLookProcessID()
{
    lstHelperPids = platform().previewHelpers(pApp->strPreviewHelperPath);
}

void BrowseRepair::OnQuickLookSlot()
{
    if (!pApp->bPreviewClosed) return;
    pQuickLookTimer->stop();
    activateWindow();
}
