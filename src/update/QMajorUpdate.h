// Offers a major version, which has a page of its own.
#pragma once

#include "update/UpdateOffer.h"

class QMajorUpdate : public UpdateOffer
{
    Q_OBJECT

public:
    explicit QMajorUpdate(QWidget *parent = nullptr);

public slots:
    void OnVisitUpdatePage();
};
