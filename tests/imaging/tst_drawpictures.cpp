#include "imaging/clsDrawPictures.h"
#include "platform/SystemColors.h"

#include "PixelArt.h"

#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <functional>

using namespace OrrinQuiver;
using namespace PixelArt;

using Paint = std::function<void(QPainter &)>;
Q_DECLARE_METATYPE(Paint)

namespace {

constexpr OLE_COLOR Red = rgbColor(255, 0, 0);
constexpr OLE_COLOR Green = rgbColor(0, 255, 0);

QStringList times(int count, const QString &row) { return QStringList(count, row); }

// A 20 x 20 picture of the mask colour with red blocks.
QImage blocks(const QList<QRect> &red)
{
    QImage image(20, 20, QImage::Format_ARGB32);
    image.fill(QColor(255, 0, 255));
    QPainter painter(&image);
    for (const QRect &r : red)
        painter.fillRect(r, Qt::red);
    return image;
}

// How many pixels of `image` have the colour of `letter`, and where.
std::pair<int, QRect> find(const QImage &image, char letter)
{
    const QStringList found = letters(image);
    std::pair<int, QRect> result;
    for (int y = 0; y < found.size(); ++y)
        for (int x = 0; x < found[y].size(); ++x)
            if (found[y][x] == QLatin1Char(letter))
                result = {result.first + 1, result.second | QRect(x, y, 1, 1)};
    return result;
}

} // namespace

class tst_DrawPictures : public QObject
{
    Q_OBJECT

private slots:
    void paints_data();
    void paints();
    void shadows_data();
    void shadows();

private:
    clsDrawPictures pics{classicPalette()};
};

void tst_DrawPictures::paints_data()
{
    QTest::addColumn<QImage>("target");
    QTest::addColumn<Paint>("paint");
    QTest::addColumn<QStringList>("expected");

    const auto transparent = [this](const QStringList &source, const QRect &to, const PictureOptions &o = {}) {
        return Paint([=, this](QPainter &p) { pics.PaintTransparentDC(p, to, art(source), art(source).rect(), Mask, o); });
    };
    QTest::newRow("transparent pixels keep what lay beneath") << canvas(5, 3)
        << transparent({"MRM", "RRR"}, QRect(1, 1, 3, 2)) << QStringList{"YYYYY", "YYRYY", "YRRRY"};
    QTest::newRow("no transparent pixel: opaque rectangle") << canvas(4, 2)
        << transparent({"RG", "BK"}, QRect(1, 0, 2, 2)) << QStringList{"YRGY", "YBKY"};
    QTest::newRow("stretched pixel for pixel") << canvas(4, 4)
        << transparent({"RM", "MB"}, QRect(0, 0, 4, 4)) << QStringList{"RRYY", "RRYY", "YYBB", "YYBB"};
    QTest::newRow("mirrored at x 5, width 10") << canvas(20, 1)
        << transparent({"RGGGGGGGGB"}, QRect(5, 0, 10, 1), {.MirrorHorizontal = true})
        << QStringList{"YYYYYBGGGGGGGGRYYYYY"};
    QTest::newRow("mirrored both ways") << canvas(2, 2)
        << transparent({"RG", "BM"}, QRect(0, 0, 2, 2), {.MirrorHorizontal = true, .MirrorVertical = true})
        << QStringList{"YB", "GR"};
    QTest::newRow("over the background colour") << canvas(2, 1)
        << transparent({"MR"}, QRect(0, 0, 2, 1), {.BackColor = Green, .FillBack = true}) << QStringList{"GR"};
    QTest::newRow("over the check pattern, fill ignored") << canvas(2, 2)
        << transparent({"MM", "RM"}, QRect(0, 0, 2, 2), {.FillBack = true, .CheckPattern = true, .CheckColor = Green})
        << QStringList{"GW", "RG"};
    QTest::newRow("source area partly outside, system colour key") << canvas(3, 1) << Paint([this](QPainter &p) {
        pics.PaintTransparentDC(p, QRect(0, 0, 3, 1), art({"RFG"}), QRect(1, 0, 3, 1), SystemColors::ButtonFace);
    }) << QStringList{"YGY"};
    QTest::newRow("icon first drawn over the background colour") << canvas(2, 2) << Paint([this](QPainter &p) {
        pics.PaintTransparentStdPic(p, QRect(0, 0, 2, 2), QIcon(QPixmap::fromImage(art({"_R", "RM"}))), Mask, {.BackColor = Green});
    }) << QStringList{"GR", "RY"};

    const QStringList dimmed{"YYYYY", "YYSYY", "YSYWY", "YYWYY"};
    QTest::newRow("disabled: white and transparent vanish") << canvas(5, 4) << Paint([this](QPainter &p) {
        pics.DrawDisabledHDC(p, QRect(1, 1, 3, 2), art({"KMRW", "KKWM"}), QPoint(1, 0), Mask);
    }) << dimmed;
    QTest::newRow("disabled icon: its own transparency vanishes too") << canvas(5, 4) << Paint([this](QPainter &p) {
        pics.DrawDisabledPicture(p, QRect(1, 1, 3, 2), QIcon(QPixmap::fromImage(art({"_RW", "KWM"}))), Mask);
    }) << dimmed;
    QTest::newRow("disabled over the check pattern") << canvas(5, 4) << Paint([this](QPainter &p) {
        pics.DrawDisabledPicture(p, QRect(1, 1, 3, 2), QPixmap::fromImage(art({"MRW", "KWM"})), Mask,
                                 {.CheckPattern = true, .CheckColor = Green});
    }) << QStringList{"YYYYY", "YGSGY", "YSGWY", "YYWYY"};

    const QImage lines = art(QStringList{"WWWWWWWW"} + times(7, "WKKKKKKK"));
    QTest::newRow("check pattern 20x10: columns 8 8 4, rows 8 2") << canvas(22, 12) << Paint([=, this](QPainter &p) {
        pics.PaintCheckPattern(p, QRect(1, 1, 20, 10), lines, Red);
    }) << times(1, "YYYYYYYYYYYYYYYYYYYYYY") + times(1, "YRRRRRRRRRRRRRRRRRRRRY") + times(7, "YRWWWWWWWRWWWWWWWRWWWY")
              + times(1, "YRRRRRRRRRRRRRRRRRRRRY") + times(1, "YRWWWWWWWRWWWWWWWRWWWY") + times(1, "YYYYYYYYYYYYYYYYYYYYYY");
    QPalette dark = classicPalette();
    dark.setColor(QPalette::Active, QPalette::Light, Qt::black);
    QTest::newRow("check pattern: the dither, second tone from the palette") << canvas(3, 2) << Paint([=, this](QPainter &p) {
        pics.PaintCheckPattern(p, QRect(0, 0, 3, 2), clsDrawPictures::DitherPattern(), Red, &dark);
    }) << QStringList{"RKR", "KRK"};

    QTest::newRow("tiles cut at the right and bottom edges") << canvas(9, 5) << Paint([this](QPainter &p) {
        pics.TileBitmapToHDC(p, QRect(1, 1, 7, 3), QPixmap::fromImage(art({"RGB", "KWR"})));
    }) << QStringList{"YYYYYYYYY", "YRGBRGBRY", "YKWRKWRKY", "YRGBRGBRY", "YYYYYYYYY"};

    QTest::newRow("ratio 2: masks at device pixels") << canvas(6, 6, 2) << transparent({"RM", "MB"}, QRect(1, 1, 2, 2))
        << times(2, "YYYYYY") + times(2, "YYRRYY") + times(2, "YYYYBB");
    QIcon sizes(QPixmap::fromImage(art(times(2, "RR"))));
    sizes.addPixmap(QPixmap::fromImage(art(times(4, "GGGG"))));
    QTest::newRow("ratio 2: the icon's larger image") << canvas(4, 4, 2) << Paint([=, this](QPainter &p) {
        pics.PaintTransparentStdPic(p, QRect(0, 0, 2, 2), sizes, Mask, {.BackColor = Mask});
    }) << times(4, "GGGG");
    QTest::newRow("ratio 2: check pattern keeps its logical size") << canvas(4, 2, 2) << Paint([this](QPainter &p) {
        pics.PaintCheckPattern(p, QRect(0, 0, 2, 1), clsDrawPictures::DitherPattern(), Red);
    }) << times(2, "RRWW");
}

void tst_DrawPictures::paints()
{
    QFETCH(QImage, target);
    QFETCH(Paint, paint);
    QFETCH(QStringList, expected);
    QPainter painter(&target);
    paint(painter);
    painter.end();
    QCOMPARE(letters(target), expected);
}

// The shadow alone, drawn at (2, 3), or under its picture drawn at (0, 0).
void tst_DrawPictures::shadows_data()
{
    QTest::addColumn<QImage>("source");
    QTest::addColumn<bool>("underPicture");
    QTest::addColumn<int>("count");
    QTest::addColumn<QRect>("bounds");

    const QImage centre = blocks({QRect(10, 10, 8, 8)});
    QTest::newRow("block over the centre") << centre << false << 64 << QRect(12, 13, 8, 8);
    QTest::newRow("transparent centre floods nothing") << blocks({QRect(0, 0, 5, 5)}) << false << 0 << QRect();
    QTest::newRow("only what touches the centre, not diagonally")
        << blocks({QRect(12, 12, 5, 5), QRect(17, 17, 3, 3)}) << false << 25 << QRect(14, 15, 5, 5);
    QTest::newRow("under its picture") << centre << true << 64 - 6 * 6 << QRect(12, 12, 8, 8);
}

void tst_DrawPictures::shadows()
{
    QFETCH(QImage, source);
    QFETCH(bool, underPicture);
    QFETCH(int, count);
    QFETCH(QRect, bounds);
    QImage target = canvas(24, 24);
    QPainter painter(&target);
    if (underPicture)
        pics.PaintTransparentDC(painter, QRect(0, 0, 20, 20), source, source.rect(), Mask, {.Shadow = true});
    else
        pics.DrawShadow(painter, 2, 3, source, Mask, SystemColors::ButtonShadow);
    painter.end();
    const int red = underPicture ? 64 : 0;
    QCOMPARE(find(target, 'S'), std::make_pair(count, bounds));
    QCOMPARE(find(target, 'R'), std::make_pair(red, underPicture ? QRect(10, 10, 8, 8) : QRect()));
    QCOMPARE(find(target, 'Y').first, 24 * 24 - count - red);
}

QTEST_MAIN(tst_DrawPictures)
#include "tst_drawpictures.moc"
