#include "window/KindIcon.h"

QIcon kindIcon(const QString &suffix)
{
    const QString upper = suffix.toUpper();
    const char *kind = upper == "JPG" || upper == "JPEG" ? "jpeg" : upper == "HEIC" || upper == "HEIF" ? "heic" : "raw";
    return QIcon(QStringLiteral(":/res/file-%1.png").arg(QString::fromLatin1(kind)));
}
