// The look of the desktop programs: style, palette, fonts, style sheet and pictures. All of it is the program's own, so
// that a dark desktop or a desktop theme changes nothing.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QPixmap>
#include <QString>

class QApplication;

namespace look {

/// Sets style, palette (the tool tips' too), font substitutes, base font and style sheet. Call it once, before the first
/// widget is made. The pictures below ":/res" are there from then on.
void apply(QApplication &app);

/// Chinese and Japanese share characters but draw some of them differently: says whose forms the substitutes give.
/// apply() chooses the Chinese ones. Call it before a text of that language is first shown.
void preferJapanese(bool japanese);

/// The light palette that apply() sets: every role in every group.
QPalette palette();

/// A font of `family` or, where that isn't installed, of its substitute. `pixelSize` in device-independent pixels.
/// With a weight of -1 a family whose name ends in "Medium" is medium, any other normal.
QFont font(const QString &family, int pixelSize, int weight = -1);

/// The picture `resource` (":/res/info.png") made for a screen of `devicePixelRatio`, from its "@2x" or "@3x" file where
/// that is sharper; the pixmap has that ratio, so its device-independent size is the same on all screens.
/// A null pixmap if there is no such picture.
QPixmap picture(const QString &resource, qreal devicePixelRatio);

/// Contrast ratio of two opaque colours by WCAG 2.1, from 1 (equal) to 21 (black on white).
double contrast(const QColor &one, const QColor &other);

} // namespace look
