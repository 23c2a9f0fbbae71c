#include "core/VariantNumbers.h"
#include "platform/EdgeLines.h"
#include "platform/FrameInterval.h"
#include "platform/PreparedText.h"
#include "platform/SystemColors.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <functional>

using namespace OrrinQuiver;

using Paint = std::function<void(QPainter &)>;
Q_DECLARE_METATYPE(Paint)

class tst_Platform : public QObject
{
    Q_OBJECT

private slots:
    void slideFrameInterval_data()
    {
        QTest::addColumn<qreal>("refreshRate");
        QTest::addColumn<int>("interval");

        // Rounded up: a frame never falls into the refresh of the one before.
        QTest::newRow("60 Hz") << qreal(60) << 17;
        QTest::newRow("59.94 Hz") << qreal(59.94) << 17;
        QTest::newRow("75 Hz") << qreal(75) << 14;
        QTest::newRow("144 Hz") << qreal(144) << 7;
        QTest::newRow("1000 Hz") << qreal(1000) << 1;
        QTest::newRow("far above") << qreal(5000) << 1;
        QTest::newRow("very low") << qreal(2) << 50;
        QTest::newRow("none reported") << qreal(0) << 17;
        QTest::newRow("negative") << qreal(-30) << 17;
        QTest::newRow("not a number") << qreal(qQNaN()) << 17;
        QTest::newRow("infinite") << qreal(qInf()) << 17;
    }
    void slideFrameInterval()
    {
        QFETCH(qreal, refreshRate);
        QFETCH(int, interval);
        QCOMPARE(OrrinQuiver::slideFrameInterval(refreshRate), interval);
    }
    void edgeLines_data()
    {
        QTest::addColumn<Paint>("paint");
        QTest::addColumn<QString>("expected"); // '.' untouched, 'a' the first colour, 'b' the second

        const auto line = [](QPoint from, QPoint to) {
            return Paint([=](QPainter &p) { drawLine(p, from, to, Qt::red); });
        };
        const auto edges = [](const QRect &r) {
            return Paint([=](QPainter &p) { drawEdges(p, r, Qt::red, Qt::blue); });
        };
        // A line leaves out its end point, whichever way it runs.
        QTest::newRow("right") << line({ 1, 1 }, { 4, 1 }) << "...../.aaa./...../.....";
        QTest::newRow("left") << line({ 4, 1 }, { 1, 1 }) << "...../..aaa/...../.....";
        QTest::newRow("down") << line({ 2, 0 }, { 2, 3 }) << "..a../..a../..a../.....";
        QTest::newRow("up") << line({ 2, 3 }, { 2, 0 }) << "...../..a../..a../..a..";
        QTest::newRow("one step") << line({ 0, 0 }, { 1, 0 }) << "a..../...../...../.....";
        QTest::newRow("no length") << line({ 2, 2 }, { 2, 2 }) << "...../...../...../.....";
        QTest::newRow("slanted") << line({ 0, 0 }, { 3, 3 }) << "...../...../...../.....";
        QTest::newRow("edges") << edges(QRect(0, 0, 4, 3)) << "aaab./a..b./abbb./.....";
        QTest::newRow("edges of a one-pixel-high rect")
            << edges(QRect(1, 1, 3, 1)) << "...../.abb./...../.....";
    }
    void edgeLines()
    {
        QFETCH(Paint, paint);
        QFETCH(QString, expected);
        QImage image(5, 4, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        paint(painter);
        painter.end();
        QStringList rows;
        for (int y = 0; y < image.height(); ++y) {
            QString row;
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = image.pixel(x, y);
                row += pixel == qRgb(255, 0, 0) ? u'a' : pixel == qRgb(0, 0, 255) ? u'b' : u'.';
            }
            rows << row;
        }
        QCOMPARE(rows.join(u'/'), expected);
    }

    // Prepared captions are kept between calls: a kept one must never stand in
    // for the same text in another font or at another width. The rows run in
    // order against one cache, each after the one before.
    void preparedText_data()
    {
        QTest::addColumn<bool>("bold");
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("elided");

        QTest::newRow("fits") << false << 1000 << false;
        QTest::newRow("same text, too narrow") << false << 40 << true;
        QTest::newRow("wide again") << false << 1000 << false;
        QTest::newRow("bold, wide") << true << 1000 << false;
        QTest::newRow("bold, too narrow") << true << 40 << true;
        QTest::newRow("no room") << false << -5 << true;
    }
    void preparedText()
    {
        QFETCH(bool, bold);
        QFETCH(int, width);
        QFETCH(bool, elided);
        const QString caption = QStringLiteral("Deleted Items of the whole year");
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(12);
        font.setBold(bold);
        for (int round = 0; round < 2; ++round) {
            const PreparedText prepared = prepareFittedText(font, caption, width);
            QCOMPARE(prepared.text.text() != caption, elided);
            QCOMPARE(prepared.width, QFontMetrics(font).horizontalAdvance(prepared.text.text()));
            QVERIFY(prepared.width <= qMax(width, 0) || !elided);
        }
    }

    void systemColors_data()
    {
        QTest::addColumn<quint32>("color");
        QTest::addColumn<QColor>("expected");
        QTest::addColumn<QColor>("darkButton"); // with the palette's button colour dark grey

        const QColor face(212, 208, 200), darkGrey(40, 40, 40);
        QTest::newRow("rgb is BGR") << 0x00336699u << QColor(0x99, 0x66, 0x33) << QColor(0x99, 0x66, 0x33);
        QTest::newRow("high byte of rgb ignored") << 0x01FFFFFFu << QColor(Qt::white) << QColor(Qt::white);
        QTest::newRow("button face") << quint32(SystemColors::ButtonFace) << face << darkGrey;
        QTest::newRow("button shadow") << 0x80000010u << QColor(128, 128, 128) << QColor(128, 128, 128);
        QTest::newRow("window") << 0x80000005u << QColor(Qt::white) << QColor(Qt::white);
        QTest::newRow("dark shadow") << 0x80000015u << QColor(64, 64, 64) << QColor(64, 64, 64);
        QTest::newRow("active caption, no role") << 0x80000002u << QColor(10, 36, 106) << QColor(10, 36, 106);
        QTest::newRow("unknown index") << 0x800000FEu << QColor(Qt::black) << QColor(Qt::black);
    }
    void systemColors()
    {
        QFETCH(quint32, color);
        QFETCH(QColor, expected);
        QFETCH(QColor, darkButton);
        QCOMPARE(translateColor(color, classicPalette()), expected);
        QPalette dark = classicPalette();
        dark.setColor(QPalette::Active, QPalette::Button, QColor(40, 40, 40));
        QCOMPARE(translateColor(color, dark), darkButton);
    }

    void variantNumbers_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("kinds"); // i integral, f floating, c character

        QTest::newRow("int") << QVariant(3) << "i";
        QTest::newRow("unsigned long long") << QVariant::fromValue(Q_UINT64_C(3)) << "i";
        QTest::newRow("short") << QVariant::fromValue(qint16(-3)) << "i";
        QTest::newRow("char") << QVariant::fromValue('3') << "ic";
        QTest::newRow("signed char") << QVariant::fromValue(static_cast<signed char>(3)) << "ic";
        QTest::newRow("unsigned char") << QVariant::fromValue(quint8(3)) << "ic";
        QTest::newRow("double") << QVariant(2.5) << "f";
        QTest::newRow("float") << QVariant(2.5f) << "f";
        QTest::newRow("bool") << QVariant(true) << "";
        QTest::newRow("QChar") << QVariant(QChar(u'3')) << "";
        QTest::newRow("numeric text") << QVariant(QStringLiteral("3")) << "";
        QTest::newRow("empty") << QVariant() << "";
    }
    void variantNumbers()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, kinds);
        QCOMPARE(isIntegralVariant(value), kinds.contains(u'i'));
        QCOMPARE(isFloatingVariant(value), kinds.contains(u'f'));
        QCOMPARE(isNumericVariant(value), kinds.contains(u'i') || kinds.contains(u'f'));
        QCOMPARE(isCharVariant(value), kinds.contains(u'c'));
    }
};

QTEST_MAIN(tst_Platform)
#include "tst_platform.moc"
