#include "update/QMajorUpdate.h"

#include "update/ui_UpdateOffer.h"

QMajorUpdate::QMajorUpdate(QWidget *parent) : UpdateOffer(parent, true)
{
    connect(ui->VisitBtn, &QPushButton::clicked, this, &QMajorUpdate::OnVisitUpdatePage);
    finishSetUp({560, 190}, firstButton());
}

void QMajorUpdate::OnVisitUpdatePage()
{
    openLink("VisitUpdateLink");
}
