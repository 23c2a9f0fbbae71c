#include "control/DrawHeader.h"
#include "platform/FitText.h"
#include "platform/SystemColors.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace OrrinQuiver;

namespace {

// Distinct colours, so every pixel tells which part of the bar painted it.
const QHash<QString, QColor> Palette {
    { "back", QColor(200, 200, 200) }, { "hl", QColor(255, 255, 255) }, { "sh", QColor(128, 128, 128) },
    { "dk", QColor(64, 64, 64) },      { "fore", QColor(0, 0, 255) },   { "over", QColor(255, 0, 0) },
};

HeaderLook look(qvStyle style, int state, const QString &caption = QString(), bool enabled = true)
{
    HeaderLook l;
    l.style = style;
    l.state = state;
    l.caption = caption;
    l.enabled = enabled;
    l.font = QFont(QStringLiteral("DejaVu Sans"));
    l.font.setPixelSize(12);
    l.font.setStyleStrategy(QFont::NoAntialias);
    const auto ole = [](const char *name) { return toOleColor(Palette.value(QLatin1String(name))); };
    l.colors = { ole("back"), ole("fore"), ole("over"), ole("hl"), ole("sh"), ole("dk") };
    return l;
}

QImage paint(const HeaderLook &l, QSize size, qreal dpr = 1)
{
    QImage image(size * dpr, QImage::Format_RGB32);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::magenta);
    QPainter p(&image);
    DrawHeader(p, size, l, classicPalette());
    return image;
}

// Pixels of the caption: everything inside the frame that is not background.
QRect textBounds(const QImage &image, const QColor &back)
{
    const int inset = 2;
    QRect bounds;
    for (int y = inset; y < image.height() - inset; ++y)
        for (int x = inset; x < image.width() - inset; ++x)
            if (image.pixelColor(x, y) != back)
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

} // namespace

class tst_DrawHeader : public QObject
{
    Q_OBJECT

private slots:
    void edges_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("state");
        QTest::addColumn<qreal>("dpr");
        QTest::addColumn<QPoint>("at");
        QTest::addColumn<QString>("expected");

        // Probes "x y colour" on a 40 x 20 bar: the last column is 39, the last
        // row 19. The line drawing leaves out each segment's end point, so
        // corners belong to the segment that starts there, and the inner
        // segments' left-out ends show the background.
        const char *normal = "0 0 hl, 38 0 hl, 39 0 sh, 0 19 hl, 1 19 sh, 39 19 sh, 1 1 back, 38 18 back";
        const char *hot
            = "0 0 hl, 39 0 dk, 0 19 hl, 1 19 dk, 38 1 sh, 38 18 sh, 2 18 sh, 1 18 back, 37 17 back";
        const char *pressed
            = "0 0 dk, 39 0 hl, 0 19 dk, 1 19 hl, 1 1 sh, 1 18 sh, 37 1 sh, 38 1 back, 2 2 back";
        const auto add = [](const char *look, qvStyle style, int state, const char *probes) {
            for (qreal dpr : { 1.0, 2.0 })
                for (const QByteArray &probe : QByteArray(probes).split(',')) {
                    const QList<QByteArray> f = probe.trimmed().split(' ');
                    QTest::addRow("%s, %s %s, dpr %g", look, f[0].constData(), f[1].constData(), dpr)
                        << int(style) << state << dpr << QPoint(f[0].toInt(), f[1].toInt())
                        << QString::fromLatin1(f[2]);
                }
        };
        add("normal", qvStyleOutlook, HeaderNormal, normal);
        add("hot", qvStyleWindowsXP, HeaderHot, hot);
        add("pressed", qvStyleOutlookXP, HeaderPressed, pressed);
        add("flat hot looks normal", qvStyleVisualStudio, HeaderHot, normal);
        add("flat pressed", qvStyleVisualStudio, HeaderPressed, pressed);
    }
    void edges()
    {
        QFETCH(int, style);
        QFETCH(int, state);
        QFETCH(qreal, dpr);
        QFETCH(QPoint, at);
        QFETCH(QString, expected);

        const QImage image = paint(look(qvStyle(style), state), QSize(40, 20), dpr);
        // One logical pixel covers dpr x dpr device pixels, all of one colour.
        const int n = int(dpr);
        for (int dy = 0; dy < n; ++dy)
            for (int dx = 0; dx < n; ++dx)
                QCOMPARE(image.pixelColor(at.x() * n + dx, at.y() * n + dy), Palette.value(expected));
    }

    void caption_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("color");
        // Where the caption lies against a normal Outlook bar with the same caption.
        QTest::addColumn<QPoint>("shift");

        const QString mail = QStringLiteral("Mail");
        QTest::newRow("normal") << int(qvStyleOutlook) << int(HeaderNormal) << true << mail << "fore"
                                << QPoint();
        QTest::newRow("hot") << int(qvStyleOutlook) << int(HeaderHot) << true << mail << "over" << QPoint();
        QTest::newRow("pressed stays")
            << int(qvStyleWindows2000) << int(HeaderPressed) << true << mail << "over" << QPoint();
        QTest::newRow("disabled") << int(qvStyleOutlook) << int(HeaderPressed) << false << mail << "sh"
                                  << QPoint();
        QTest::newRow("flat: higher, no hot look")
            << int(qvStyleVisualStudio) << int(HeaderHot) << true << mail << "fore" << QPoint(0, -2);
        QTest::newRow("flat pressed moves")
            << int(qvStyleVisualStudio) << int(HeaderPressed) << true << mail << "over" << QPoint(1, -1);
        QTest::newRow("too wide") << int(qvStyleOutlook) << int(HeaderNormal) << true
                                  << "Folders of the whole organisation"
                                  << "fore" << QPoint();
    }
    void caption()
    {
        QFETCH(int, style);
        QFETCH(int, state);
        QFETCH(bool, enabled);
        QFETCH(QString, caption);
        QFETCH(QString, color);
        QFETCH(QPoint, shift);

        const QImage image = paint(look(qvStyle(style), state, caption, enabled), QSize(100, 24));
        const QColor back = Palette.value("back");
        QSet<QRgb> colors;
        for (int y = 2; y < 22; ++y)
            for (int x = 2; x < 98; ++x)
                colors.insert(image.pixel(x, y));
        colors.remove(back.rgb());
        QCOMPARE(colors, QSet<QRgb> { Palette.value(color).rgb() });

        // The caption is shortened to the width less 6 and centred by what is left.
        const HeaderLook normal = look(qvStyleOutlook, HeaderNormal, caption);
        QImage probe(1, 1, QImage::Format_RGB32);
        QPainter p(&probe);
        p.setFont(normal.font);
        const FittedText fitted = FitTextWithEllipsis(p.fontMetrics(), caption, 94);
        QVERIFY(fitted.width <= 94);
        QCOMPARE(fitted.text.endsWith(QChar(0x2026)), caption.size() > 20);
        const QRect reference = textBounds(paint(normal, QSize(100, 24)), back);
        const int x0 = (100 - fitted.width) / 2;
        QVERIFY(reference.left() >= x0 && reference.left() <= x0 + 2);
        QVERIFY(reference.right() < x0 + fitted.width);
        QCOMPARE(textBounds(image, back), reference.translated(shift));
    }
};

QTEST_MAIN(tst_DrawHeader)
#include "tst_drawheader.moc"
