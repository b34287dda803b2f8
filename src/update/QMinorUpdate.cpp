#include "update/QMinorUpdate.h"

#include "update/ui_UpdateOffer.h"

QMinorUpdate::QMinorUpdate(QWidget *parent) : UpdateOffer(parent, false)
{
    finishSetUp({460, 190}, firstButton());
}
