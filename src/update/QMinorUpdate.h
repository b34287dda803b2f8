// Offers a minor version.
#pragma once

#include "update/UpdateOffer.h"

class QMinorUpdate : public UpdateOffer
{
    Q_OBJECT

public:
    explicit QMinorUpdate(QWidget *parent = nullptr);
};
