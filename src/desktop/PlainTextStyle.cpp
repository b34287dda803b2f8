#include "desktop/PlainTextStyle.h"

#include <QLabel>

void PlainTextStyle::polish(QWidget *widget)
{
    if (auto *label = qobject_cast<QLabel *>(widget)) label->setTextFormat(Qt::PlainText);
    QProxyStyle::polish(widget);
}
