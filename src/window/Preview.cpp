// What a clicked row shows: its picture, or that there is none.
#include "app/KesmiraApp.h"
#include "desktop/Languages.h"
#include "desktop/Look.h"
#include "engine/OneFile.h"
#include "window/BrowseRepair.h"
#include "window/DetailsPane.h"
#include "window/MyTreeWidget.h"
#include "window/ui_BrowseRepairObj.h"

#include <QFileInfo>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>

namespace {

const QSize kView(400, 290);

} // namespace

void BrowseRepair::previewRow(QTreeWidgetItem *item)
{
    m_preview.cancel();
    m_details->showRow(item);
    ui->Preview_Label->hide();
    if (!ui->Preview_Label->text().isEmpty()) // what was being read isn't any more
        ui->Preview_Label->setPixmap(look::picture(placeholderPicture(), devicePixelRatioF()));
    if (pApp->strTempDir.isEmpty()) return;
    const QString path = outputPath(item->text(column::Name));
    const QString code = item->text(column::Status);
    const bool output = code == QLatin1String(status::Output);
    // The last suffix alone counts: a HEIC may well be called IMG.1.heic.
    const bool heic = QFileInfo(item->text(column::Name)).suffix().toUpper() == QLatin1String("HEIC");
    if (heic && output) {
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
    // Takes a second or two, and until then the picture of another row must not stand here.
    ui->graphicsView->hide();
    ui->Preview_Label->setText(tr("Reading the picture ..."));
    ui->Preview_Label->show();
    m_preview.request(
        path, (QSizeF(kView) * devicePixelRatioF()).toSize(),
        [this](const QImage &image, const QSize &fullSize) {
            image.isNull() ? showNoPreview() : showPicture(image, fullSize);
        },
        loadHeicForView);
}
