// What every user sees first: the pictures are there in both sharpnesses, and every text can be read on its ground,
// whatever the desktop's own colours are.
#include "desktop/Look.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QToolTip>
#include <QtTest>

namespace {

constexpr double readable = 4.5;
constexpr double readableDisabled = 3.0;
constexpr auto insensitive = QRegularExpression::CaseInsensitiveOption;

QString styleSheet()
{
    QFile file(":/res/style/kesmira.qss");
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll())
        .remove(QRegularExpression("/\\*.*?\\*/", QRegularExpression::DotMatchesEverythingOption));
}

/// The colour that `property` has in the body of a rule; invalid if it has none or isn't a plain colour.
QColor colorIn(const QString &body, const QString &property)
{
    const QRegularExpression line("(?:^|[;\\s])" + property + "\\s*:\\s*(#[0-9a-fA-F]{6})\\s*;");
    const QString text = line.match(body).captured(1);
    return text.isEmpty() ? QColor() : QColor(text);
}

/// True if at least two pixels differ: a drawing that failed to render is one colour or none.
bool showsSomething(const QImage &image)
{
    const QRgb first = image.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != first) return true;
        }
    }
    return false;
}

} // namespace

class TestLook : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void pictures_data();
    void pictures();
    void pictureFitsTheScreen_data();
    void pictureFitsTheScreen();
    void previewsDiffer();
    void contrastByFormula_data();
    void contrastByFormula();
    void desktopColorsAreGone();
    void paletteIsReadable_data();
    void paletteIsReadable();
    void styleSheetIsReadable();
    void styleSheetPicturesExist();
    void fonts_data();
    void fonts();
};

void TestLook::initTestCase()
{
    QPalette loud;
    for (int group = 0; group < QPalette::NColorGroups; ++group) {
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            loud.setColor(QPalette::ColorGroup(group), QPalette::ColorRole(role), Qt::magenta);
        }
    }
    QApplication::setPalette(loud);
    QApplication::setPalette(loud, "QMenu");
    QToolTip::setPalette(loud);
    look::apply(*qApp);
}

void TestLook::pictures_data()
{
    QTest::addColumn<QSize>("size");

    const auto rows = [](const QSize &size, const QStringList &names) {
        for (const QString &name : names) QTest::newRow(qPrintable(name)) << size;
    };
    rows({849, 28}, {"top strips"});
    rows({849, 150}, {"banner"});
    rows({141, 141}, {"dropzone", "dropzone-hover"});
    rows({48, 48}, {"info", "kesmira-48"});
    for (const QString box : {"img_SelectCheckBox", "img_UnSelectCheckBox", "img_PartiallyCheckBox"}) {
        rows({16, 16}, {box, box + "-hover", box + "-focus", box + "-disabled"});
    }
    for (const QString language : {"en", "fr", "it", "es", "de", "cja", "cn"}) {
        rows({400, 290}, {"preview1" + language, "preview" + language});
    }
    rows({24, 24}, {"Recover-Drive", "Moniter-drive", "video-repair", "Recover-Photo", "kesmira-24"});
    rows({20, 20},
         {"close", "close-hover", "minimise", "minimise-hover", "help", "update", "back", "remove", "add", "repair",
          "stop", "save"});
    rows({16, 16},
         {"badge-whole", "badge-partial", "badge-doubtful", "badge-healthy", "file-jpeg", "file-raw", "file-heic",
          "branch-open", "branch-closed", "arrow-up", "arrow-down", "kesmira-16"});
    rows({32, 32}, {"file-jpeg-32", "file-raw-32", "file-heic-32", "kesmira-32"});
    rows({64, 64}, {"kesmira-64"});
    rows({128, 128}, {"kesmira-128"});
    rows({256, 256}, {"kesmira-256"});
}

void TestLook::pictures()
{
    QFETCH(QSize, size);
    const QString name = QTest::currentDataTag();
    for (int scale = 1; scale <= 2; ++scale) {
        const QImage image(QString(":/res/%1%2.png").arg(name, scale == 1 ? "" : "@2x"));
        QVERIFY(!image.isNull());
        QCOMPARE(image.size(), size * scale);
        QVERIFY(showsSomething(image));
    }
}

void TestLook::pictureFitsTheScreen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("asked");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QSize>("pixels");

    QTest::newRow("plain") << ":/res/info.png" << 1.0 << 1.0 << QSize(48, 48);
    QTest::newRow("sharp") << ":/res/info.png" << 2.0 << 2.0 << QSize(96, 96);
    QTest::newRow("sharper") << ":/res/info.png" << 3.0 << 3.0 << QSize(144, 144);
    QTest::newRow("between") << ":/res/info.png" << 1.25 << 1.25 << QSize(60, 60);
    QTest::newRow("beyond the sharpest") << ":/res/dropzone.png" << 3.0 << 3.0 << QSize(423, 423);
    QTest::newRow("blank in the name") << ":/res/top strips.png" << 2.0 << 2.0 << QSize(1698, 56);
    QTest::newRow("no sensible ratio") << ":/res/info.png" << 0.0 << 1.0 << QSize(48, 48);
    QTest::newRow("no such picture") << ":/res/nothing.png" << 2.0 << 1.0 << QSize(0, 0);
}

void TestLook::pictureFitsTheScreen()
{
    QFETCH(QString, name);
    QFETCH(double, asked);
    QFETCH(double, ratio);
    QFETCH(QSize, pixels);
    const QPixmap pixmap = look::picture(name, asked);
    QCOMPARE(pixmap.size(), pixels);
    QCOMPARE(pixmap.devicePixelRatio(), ratio);
}

void TestLook::previewsDiffer()
{
    QVector<QImage> seen;
    for (const QString language : {"en", "fr", "it", "es", "de", "cja", "cn"}) {
        for (const QString kind : {"preview1", "preview"}) {
            const QImage image(":/res/" + kind + language + ".png");
            QVERIFY2(!seen.contains(image), qPrintable(kind + language));
            seen << image;
        }
    }
}

void TestLook::contrastByFormula_data()
{
    QTest::addColumn<QColor>("one");
    QTest::addColumn<QColor>("other");
    QTest::addColumn<double>("ratio");

    QTest::newRow("black on white") << QColor("#000000") << QColor("#ffffff") << 21.0;
    QTest::newRow("white on black") << QColor("#ffffff") << QColor("#000000") << 21.0;
    QTest::newRow("equal") << QColor("#2f6fb0") << QColor("#2f6fb0") << 1.0;
    // (1 + 0.05) / (L + 0.05) with L the weight of the one channel
    QTest::newRow("red on white") << QColor("#ff0000") << QColor("#ffffff") << 1.05 / (0.2126 + 0.05);
    QTest::newRow("green on white") << QColor("#00ff00") << QColor("#ffffff") << 1.05 / (0.7152 + 0.05);
    QTest::newRow("blue on white") << QColor("#0000ff") << QColor("#ffffff") << 1.05 / (0.0722 + 0.05);
    // The greys on either side of the limit for small text.
    QTest::newRow("just too light") << QColor("#777777") << QColor("#ffffff") << 4.48;
    QTest::newRow("just dark enough") << QColor("#767676") << QColor("#ffffff") << 4.54;
}

void TestLook::contrastByFormula()
{
    QFETCH(QColor, one);
    QFETCH(QColor, other);
    QFETCH(double, ratio);
    QVERIFY(qAbs(look::contrast(one, other) - ratio) < 0.005);
}

void TestLook::desktopColorsAreGone()
{
    const QPalette palettes[] = {QApplication::palette(), QApplication::palette("QMenu"), QToolTip::palette()};
    for (const QPalette &palette : palettes) {
        for (int group = 0; group < QPalette::NColorGroups; ++group) {
            for (int role = 0; role < QPalette::NColorRoles; ++role) {
                if (role == QPalette::NoRole) continue;
                // A role that isn't set comes from whatever theme is there, perhaps not from this one.
                QVERIFY(look::palette().isBrushSet(QPalette::ColorGroup(group), QPalette::ColorRole(role)));
                const QColor color = palette.color(QPalette::ColorGroup(group), QPalette::ColorRole(role));
                QVERIFY2(color != QColor(Qt::magenta), qPrintable(QString("role %1, group %2").arg(role).arg(group)));
            }
        }
    }
}

void TestLook::paletteIsReadable_data()
{
    QTest::addColumn<int>("text");
    QTest::addColumn<int>("ground");

    QTest::newRow("window") << int(QPalette::WindowText) << int(QPalette::Window);
    QTest::newRow("field") << int(QPalette::Text) << int(QPalette::Base);
    QTest::newRow("other row") << int(QPalette::Text) << int(QPalette::AlternateBase);
    QTest::newRow("button") << int(QPalette::ButtonText) << int(QPalette::Button);
    QTest::newRow("selection") << int(QPalette::HighlightedText) << int(QPalette::Highlight);
    QTest::newRow("tool tip") << int(QPalette::ToolTipText) << int(QPalette::ToolTipBase);
    QTest::newRow("placeholder") << int(QPalette::PlaceholderText) << int(QPalette::Base);
    QTest::newRow("link") << int(QPalette::Link) << int(QPalette::Window);
    QTest::newRow("visited link") << int(QPalette::LinkVisited) << int(QPalette::Window);
}

void TestLook::paletteIsReadable()
{
    QFETCH(int, text);
    QFETCH(int, ground);
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const double least = group == QPalette::Disabled ? readableDisabled : readable;
        const double ratio = look::contrast(palette.color(group, QPalette::ColorRole(text)),
                                            palette.color(group, QPalette::ColorRole(ground)));
        QVERIFY2(ratio >= least, qPrintable(QString("group %1: %2").arg(group).arg(ratio)));
    }
}

void TestLook::styleSheetIsReadable()
{
    static const QRegularExpression rule("([^{}]+)\\{([^{}]*)\\}");
    static const QVector<QPair<QString, QString>> pairs{{"color", "background-color"},
                                                        {"color", "alternate-background-color"},
                                                        {"selection-color", "selection-background-color"}};
    QStringList faint;
    int compared = 0;
    for (auto it = rule.globalMatch(styleSheet()); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const QString selector = match.captured(1).simplified();
        for (const auto &[text, ground] : pairs) {
            const QColor front = colorIn(match.captured(2), text);
            const QColor back = colorIn(match.captured(2), ground);
            if (!front.isValid() || !back.isValid()) continue;
            ++compared;
            const double least = selector.contains(":disabled") ? readableDisabled : readable;
            const double ratio = look::contrast(front, back);
            if (ratio < least) faint << QString("%1: %2").arg(selector).arg(ratio);
        }
    }
    QVERIFY2(faint.isEmpty(), qPrintable(faint.join('\n')));
    QVERIFY2(compared > 20, "the sheet wasn't read");
}

void TestLook::styleSheetPicturesExist()
{
    static const QRegularExpression url("url\\(([^)]*)\\)");
    QStringList names;
    for (auto it = url.globalMatch(styleSheet()); it.hasNext();) names << it.next().captured(1);
    QVERIFY(names.size() > 10);
    for (const QString &name : qAsConst(names)) {
        QVERIFY2(QFile::exists(name), qPrintable(name));
        QVERIFY2(QFile::exists(QString(name).replace(".png", "@2x.png")), qPrintable(name));
    }
}

void TestLook::fonts_data()
{
    QTest::addColumn<int>("weight");
    QTest::addColumn<int>("expected");

    QTest::newRow("Helvetica neue Medium") << -1 << int(QFont::Medium);
    QTest::newRow("Helvetica neue") << -1 << int(QFont::Normal);
    QTest::newRow("Lucida Grande") << 75 << int(QFont::Bold);
}

void TestLook::fonts()
{
    QFETCH(int, weight);
    QFETCH(int, expected);
    const QString family = QTest::currentDataTag();
    const QFont font = look::font(family, 14, weight);
    QCOMPARE(font.family(), family);
    QCOMPARE(font.pixelSize(), 14);
    QCOMPARE(font.weight(), expected);

    for (const bool japanese : {true, false}) {
        look::preferJapanese(japanese);
        const QStringList families = QFont::substitutes(family);
        QVERIFY(families.contains("DejaVu Sans", Qt::CaseInsensitive));
        const int chinesePlace = families.indexOf(QRegularExpression("noto sans cjk sc", insensitive));
        const int japanesePlace = families.indexOf(QRegularExpression("noto sans cjk jp", insensitive));
        QVERIFY(chinesePlace >= 0 && japanesePlace >= 0);
        QCOMPARE(japanesePlace < chinesePlace, japanese);
    }
}

QTEST_MAIN(TestLook)
#include "tst_look.moc"
