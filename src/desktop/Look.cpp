#include "desktop/Look.h"

#include "desktop/PlainTextStyle.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QImage>
#include <QImageReader>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <initializer_list>

// Q_INIT_RESOURCE must stand outside of every namespace.
static void initPictures()
{
    static const bool done = [] {
        Q_INIT_RESOURCE(kesmira_res);
        return true;
    }();
    Q_UNUSED(done)
}

namespace look {
namespace {

struct RoleColor
{
    QPalette::ColorRole role;
    const char *enabled;
    const char *disabled;
};

// Every role but NoRole stands here: one that is missing would come from the desktop's palette.
constexpr RoleColor roleColors[] = {
    {QPalette::WindowText, "#23324a", "#6b7b90"},    {QPalette::Button, "#eaf0f6", "#f1f4f7"},
    {QPalette::Light, "#ffffff", "#ffffff"},         {QPalette::Midlight, "#f4f7fa", "#f4f7fa"},
    {QPalette::Dark, "#9fb0c3", "#b4c0cd"},          {QPalette::Mid, "#c3d0de", "#d3dde8"},
    {QPalette::Text, "#23324a", "#6b7b90"},          {QPalette::BrightText, "#ffffff", "#ffffff"},
    {QPalette::ButtonText, "#23324a", "#6b7b90"},    {QPalette::Base, "#ffffff", "#f7f9fb"},
    {QPalette::Window, "#f7f9fb", "#f7f9fb"},        {QPalette::Shadow, "#71839a", "#9fb0c3"},
    {QPalette::Highlight, "#2f6fb0", "#d3dde8"},     {QPalette::HighlightedText, "#ffffff", "#5a6a7e"},
    {QPalette::Link, "#245a92", "#5a6a7e"},          {QPalette::LinkVisited, "#5b4a8a", "#5a6a7e"},
    {QPalette::AlternateBase, "#f3f7fb", "#f3f6f9"}, {QPalette::ToolTipBase, "#23324a", "#23324a"},
    {QPalette::ToolTipText, "#ffffff", "#ffffff"},   {QPalette::PlaceholderText, "#5a6a7e", "#6b7b90"},
};

void substituteFonts(bool japanese)
{
    QStringList families{"Inter", "Noto Sans", "Liberation Sans", "DejaVu Sans", "Noto Sans CJK SC"};
    families.insert(japanese ? families.size() - 1 : families.size(), "Noto Sans CJK JP");
    for (const char *family : {"Helvetica neue Medium", "Helvetica neue", "Lucida Grande"}) {
        QFont::removeSubstitutions(family);
        QFont::insertSubstitutions(family, families);
    }
}

/// The share of one channel in the luminance: sRGB made linear.
double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

void apply(QApplication &app)
{
    initPictures();
    substituteFonts(false);
    // The style comes first: setting one brings its own palette along.
    QApplication::setStyle(new PlainTextStyle(QStringLiteral("Fusion")));
    QApplication::setPalette(palette());
    QApplication::setFont(font("Helvetica neue", 13));
    QToolTip::setPalette(palette());
    QToolTip::setFont(font("Helvetica neue", 12));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) icon.addFile(QString(":/res/kesmira-%1.png").arg(size));
    QApplication::setWindowIcon(icon);
    QFile sheet(":/res/style/kesmira.qss");
    if (sheet.open(QIODevice::ReadOnly)) app.setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

void preferJapanese(bool japanese)
{
    substituteFonts(japanese);
}

QPalette palette()
{
    QPalette palette;
    for (const RoleColor &color : roleColors) {
        palette.setColor(QPalette::Active, color.role, QColor(color.enabled));
        palette.setColor(QPalette::Inactive, color.role, QColor(color.enabled));
        palette.setColor(QPalette::Disabled, color.role, QColor(color.disabled));
    }
    return palette;
}

QFont font(const QString &family, int pixelSize, int weight)
{
    QFont made(family);
    made.setPixelSize(pixelSize);
    const bool medium = family.endsWith("medium", Qt::CaseInsensitive);
    made.setWeight(weight >= 0 ? weight : medium ? QFont::Medium : QFont::Normal);
    return made;
}

QPixmap picture(const QString &resource, qreal devicePixelRatio)
{
    initPictures();
    const qreal ratio = std::max<qreal>(devicePixelRatio, 1);
    const QFileInfo plain(resource);
    const QSize size = QImageReader(resource).size();
    QImage image;
    for (int scale = std::min(int(std::ceil(ratio)), 3); image.isNull() && scale > 1; --scale) {
        image.load(QString("%1/%2@%3x.%4")
                       .arg(plain.path(), plain.completeBaseName(), QString::number(scale), plain.suffix()));
    }
    if (image.isNull()) image.load(resource);
    if (image.isNull()) return {};
    // Scaled here and smoothly: a label would draw the picture of another ratio with ragged edges.
    const QSize wanted(qRound(size.width() * ratio), qRound(size.height() * ratio));
    if (image.size() != wanted) image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(ratio);
    return QPixmap::fromImage(image);
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace look
