#include "platform/EdgeLines.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <functional>

using namespace OrrinQuiver;

namespace {

constexpr int Side = 5;

using Paint = std::function<void(QPainter &)>;

// The painted image as one text row per pixel row: '.' untouched, 'a' the
// first colour, 'b' the second.
QString paintedRows(const Paint &paint)
{
    QImage image(Side, Side, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        paint(painter);
    }
    QString rows;
    for (int y = 0; y < Side; ++y) {
        if (y > 0)
            rows += u'/';
        for (int x = 0; x < Side; ++x) {
            const QRgb pixel = image.pixel(x, y);
            rows += pixel == qRgb(255, 0, 0) ? u'a' : pixel == qRgb(0, 0, 255) ? u'b' : u'.';
        }
    }
    return rows;
}

} // namespace

Q_DECLARE_METATYPE(Paint)

class tst_EdgeLines : public QObject
{
    Q_OBJECT

private slots:
    void paints_data();
    void paints();
};

void tst_EdgeLines::paints_data()
{
    QTest::addColumn<Paint>("paint");
    QTest::addColumn<QString>("expected");

    const QColor a(Qt::red);
    const QColor b(Qt::blue);
    const auto line = [a](QPoint from, QPoint to) {
        return Paint([=](QPainter &p) { drawLine(p, from, to, a); });
    };
    QTest::newRow("right, end left out") << line({ 1, 1 }, { 4, 1 }) << "...../.aaa./...../...../.....";
    QTest::newRow("left, end left out") << line({ 4, 1 }, { 1, 1 }) << "...../..aaa/...../...../.....";
    QTest::newRow("down, end left out") << line({ 2, 0 }, { 2, 3 }) << "..a../..a../..a../...../.....";
    QTest::newRow("up, end left out") << line({ 2, 3 }, { 2, 0 }) << "...../..a../..a../..a../.....";
    QTest::newRow("one step") << line({ 0, 0 }, { 1, 0 }) << "a..../...../...../...../.....";
    QTest::newRow("no length") << line({ 2, 2 }, { 2, 2 }) << "...../...../...../...../.....";
    QTest::newRow("slanted") << line({ 0, 0 }, { 3, 3 }) << "...../...../...../...../.....";
    QTest::newRow("corner") << Paint([=](QPainter &p) { drawCorner(p, { 0, 3 }, { 0, 0 }, { 3, 0 }, a); })
                            << "aaa../a..../a..../a..../.....";
    QTest::newRow("edges") << Paint([=](QPainter &p) { drawEdges(p, QRect(0, 0, 4, 3), a, b); })
                           << "aaab./a..b./abbb./...../.....";
    QTest::newRow("edges of a one-pixel-high rect")
        << Paint([=](QPainter &p) { drawEdges(p, QRect(1, 1, 3, 1), a, b); }) << "...../.abb./...../...../.....";
}

void tst_EdgeLines::paints()
{
    QFETCH(Paint, paint);
    QFETCH(QString, expected);
    QCOMPARE(paintedRows(paint), expected);
}

QTEST_MAIN(tst_EdgeLines)
#include "tst_edgelines.moc"
