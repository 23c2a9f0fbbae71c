#include "imaging/ImageList.h"
#include "platform/SystemColors.h"

#include "PixelArt.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QCursor>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <memory>

using namespace OrrinQuiver;
using namespace PixelArt;

namespace {

constexpr OLE_COLOR Mask = rgbColor(255, 0, 255);
constexpr quint32 None = clsImageList::NoColor;

std::unique_ptr<clsImageList> makeList(int width = 2, int height = 2)
{
    auto list = std::make_unique<clsImageList>();
    list->setPalette(classicPalette());
    list->setIconSizeX(width);
    list->setIconSizeY(height);
    list->Create();
    return list;
}

QPixmap solid(char letter, int size = 2)
{
    return QPixmap::fromImage(art(QStringList(size, QString(size, QLatin1Char(letter)))));
}

// A one-colour bitmap needs a mask colour: its top-left colour is every pixel.
int addSolid(clsImageList &list, char letter, const QString &key = {}, int position = -1)
{
    return list.AddFromPicture(solid(letter), key, Mask, position);
}

// Image `index` drawn at (0, 0) on a canvas of the list's size.
QStringList drawn(const clsImageList &list, const QVariant &index, qreal ratio = 1.0)
{
    QImage target = canvas(int(list.IconSizeX() * ratio), int(list.IconSizeY() * ratio), ratio);
    QPainter painter(&target);
    list.DrawImage(index, painter, 0, 0);
    painter.end();
    return letters(target);
}

} // namespace

class tst_ImageList : public QObject
{
    Q_OBJECT

private slots:
    void itemIndex_data();
    void itemIndex();
    void insert_data();
    void insert();
    void keysStayUnique();
    void bitmapMask_data();
    void bitmapMask();
    void handles_data();
    void handles();
    void files_data();
    void files();
    void draw_data();
    void draw();
    void highDpi();
    void formImageList();
};

void tst_ImageList::itemIndex_data()
{
    QTest::addColumn<QVariant>("keyOrIndex");
    QTest::addColumn<int>("expected");

    QTest::newRow("index") << QVariant(2) << 2;
    QTest::newRow("index past the end") << QVariant(3) << -1;
    QTest::newRow("key") << QVariant(QStringLiteral("b")) << 1;
    QTest::newRow("letter case counts") << QVariant(QStringLiteral("B")) << -1;
    QTest::newRow("empty key") << QVariant(QString()) << -1;
    QTest::newRow("a number as text is a key") << QVariant(QStringLiteral("1")) << -1;
    QTest::newRow("nothing") << QVariant() << -1;
}

void tst_ImageList::itemIndex()
{
    QFETCH(QVariant, keyOrIndex);
    QFETCH(int, expected);
    const auto list = makeList();
    addSolid(*list, 'R', QStringLiteral("a"));
    addSolid(*list, 'G', QStringLiteral("b"));
    addSolid(*list, 'B');
    QCOMPARE(list->ItemIndex(keyOrIndex), expected);
    QCOMPARE(list->Exists(keyOrIndex), expected >= 0);
}

void tst_ImageList::insert_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("order");

    QTest::newRow("first") << 0 << 0 << "KRGB";
    QTest::newRow("middle") << 1 << 1 << "RKGB";
    QTest::newRow("at the count") << 3 << 3 << "RGBK";
    QTest::newRow("not given") << -1 << 3 << "RGBK";
}

void tst_ImageList::insert()
{
    QFETCH(int, position);
    QFETCH(int, index);
    QFETCH(QString, order);
    const auto list = makeList();
    for (const char c : {'R', 'G', 'B'})
        addSolid(*list, c, QString(QLatin1Char(c)));
    QCOMPARE(addSolid(*list, 'K', QStringLiteral("K"), position), index);
    QCOMPARE(list->Count(), 4);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(list->ItemKey(i), QString(order[i]));
        QCOMPARE(list->ItemIndex(QString(order[i])), i);
        QCOMPARE(letters(list->ItemPicture(i).pixmap(2, 2).toImage()), QStringList(2, QString(2, order[i])));
    }
}

void tst_ImageList::keysStayUnique()
{
    const auto list = makeList();
    QCOMPARE(addSolid(*list, 'R', QStringLiteral("a")), 0);
    QCOMPARE(addSolid(*list, 'G', QStringLiteral("a")), -1);
    QCOMPARE(addSolid(*list, 'G', QStringLiteral("b")), 1);
    QVERIFY(!list->setItemKey(1, QStringLiteral("a")));
    QVERIFY(list->setItemKey(1, QStringLiteral("c")));
    list->RemoveImage(QStringLiteral("a"));
    QCOMPARE(list->Count(), 1);
    QCOMPARE(list->ItemIndex(QStringLiteral("c")), 0);
    QCOMPARE(list->ItemIndex(QStringLiteral("b")), -1);
    QCOMPARE(addSolid(*list, 'B', QStringLiteral("a")), 1);
    QVERIFY(list->ItemPicture(QStringLiteral("gone")).isNull());
}

void tst_ImageList::bitmapMask_data()
{
    QTest::addColumn<QStringList>("bitmap");
    QTest::addColumn<quint32>("mask");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("top-left colour") << QStringList{"GRG", "RGR"} << None << QStringList{"YRY", "RYR"};
    QTest::newRow("given colour") << QStringList{"GRG", "RGR"} << rgbColor(255, 0, 0) << QStringList{"GYG", "YGY"};
    QTest::newRow("system colour") << QStringList{"RFR", "FRR"} << SystemColors::ButtonFace << QStringList{"RYR", "YRR"};
    QTest::newRow("transparent corner keeps its alpha") << QStringList{"_RG", "GGR"} << None << QStringList{"YRG", "GGR"};
    QTest::newRow("larger is cut") << QStringList{"RGBK", "KKKK", "KKKK"} << None << QStringList{"YGB", "KKK"};
    QTest::newRow("smaller leaves the rest transparent") << QStringList{"RG"} << Mask << QStringList{"RGY", "YYY"};
}

void tst_ImageList::bitmapMask()
{
    QFETCH(QStringList, bitmap);
    QFETCH(quint32, mask);
    QFETCH(QStringList, expected);
    const auto list = makeList(3, 2);
    QCOMPARE(list->AddFromHandle(art(bitmap), clsImageList::ImageBitmap, {}, mask), 0);
    QCOMPARE(drawn(*list, 0), expected);
}

void tst_ImageList::handles_data()
{
    QTest::addColumn<QVariant>("handle");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");

    QTest::newRow("picture cursor") << QVariant(QCursor(solid('R'))) << int(clsImageList::ImageCursor) << 0;
    QTest::newRow("standard cursor has no picture") << QVariant(QCursor(Qt::ArrowCursor)) << int(clsImageList::ImageCursor) << -1;
    QTest::newRow("icon as bitmap") << QVariant(QIcon(solid('R'))) << int(clsImageList::ImageBitmap) << -1;
    QTest::newRow("unknown type") << QVariant(solid('R')) << 7 << -1;
}

void tst_ImageList::handles()
{
    QFETCH(QVariant, handle);
    QFETCH(int, type);
    QFETCH(int, index);
    QCOMPARE(makeList()->AddFromHandle(handle, type), index);
    QCOMPARE(clsImageList().AddFromHandle(handle, type), -1); // not created
}

void tst_ImageList::files_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");

    QTest::newRow("bmp as bitmap") << "bmp" << int(clsImageList::ImageBitmap) << 0;
    QTest::newRow("ico as icon") << "ico" << int(clsImageList::ImageIcon) << 0;
    QTest::newRow("cur as cursor") << "cur" << int(clsImageList::ImageCursor) << 0;
    QTest::newRow("missing file") << "" << int(clsImageList::ImageIcon) << -1;
}

void tst_ImageList::files()
{
    QFETCH(QString, format);
    QFETCH(int, type);
    QFETCH(int, index);
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("picture.") + format);
    // A bitmap has no alpha: its top-left colour is the transparent one.
    const QImage picture = art({format == QLatin1String("bmp") ? "MR" : "_R", "RG"});
    QVERIFY(format.isEmpty() || picture.save(file, format.toLatin1()));
    const auto list = makeList();
    QCOMPARE(list->AddFromFile(file, type), index);
    QCOMPARE(drawn(*list, 0), index < 0 ? QStringList(2, "YY") : QStringList({"YR", "RG"}));
}

void tst_ImageList::draw_data()
{
    QTest::addColumn<QVariant>("key");
    QTest::addColumn<QString>("look"); // s selected, c cut, d disabled, x from the external list
    QTest::addColumn<quint32>("cutColor");
    QTest::addColumn<QStringList>("expected");

    const QVariant red(QStringLiteral("red"));
    const QStringList nothing(3, "YYY");
    const QStringList dimmed{"SSY", "SWW", "YWY"};
    QTest::newRow("normal") << red << "" << None << QStringList{"RRY", "RYY", "YYY"};
    QTest::newRow("selected: mixed with the highlight") << red << "s" << None << QStringList{"ppY", "pYY", "YYY"};
    QTest::newRow("cut without colour: window colour") << red << "c" << None << QStringList{"rrY", "rYY", "YYY"};
    QTest::newRow("cut with colour, over the rest") << red << "scd" << rgbColor(0, 0, 255) << QStringList{"vvY", "vYY", "YYY"};
    QTest::newRow("disabled, over selected") << red << "sd" << None << dimmed;
    QTest::newRow("unknown key draws nothing") << QVariant(QStringLiteral("none")) << "" << None << nothing;
    QTest::newRow("external list, number as text") << QVariant(QStringLiteral("1")) << "x" << None << QStringList{"GGY", "GGY", "YYY"};
    QTest::newRow("external list ignores keys") << QVariant(QStringLiteral("green")) << "x" << None << nothing;
}

void tst_ImageList::draw()
{
    QFETCH(QVariant, key);
    QFETCH(QString, look);
    QFETCH(quint32, cutColor);
    QFETCH(QStringList, expected);
    const auto list = makeList();
    list->AddFromHandle(art({"RR", "RM"}), clsImageList::ImageBitmap, QStringLiteral("red"), Mask);
    const auto other = makeList();
    addSolid(*other, 'B');
    addSolid(*other, 'G', QStringLiteral("green"));

    QImage target = canvas(3, 3);
    QPainter painter(&target);
    const auto has = [&look](char c) { return look.contains(QLatin1Char(c)); };
    list->DrawImage(key, painter, 0, 0, has('s'), has('c'), has('d'), cutColor, has('x') ? other.get() : nullptr);
    painter.end();
    QCOMPARE(letters(target), expected);
}

void tst_ImageList::highDpi()
{
    const auto list = makeList();
    QIcon sizes(solid('R', 2));
    sizes.addPixmap(solid('G', 4));
    list->AddFromPicture(sizes);
    list->AddFromPicture(QPixmap::fromImage(art({"RG", "BK"})));
    QCOMPARE(drawn(*list, 0), QStringList(2, "RR"));
    QCOMPARE(drawn(*list, 0, 2), QStringList(4, "GGGG"));
    QCOMPARE(drawn(*list, 1, 2), (QStringList{"YYGG", "YYGG", "BBKK", "BBKK"}));
}

void tst_ImageList::formImageList()
{
    QWidget form;
    auto *icons = new ImageList(&form);
    icons->setObjectName(QStringLiteral("icons"));
    form.show();
    QVERIFY(!icons->isVisible());
    QCOMPARE(form.findChild<ImageList *>(QStringLiteral("icons")), icons);

    QVERIFY(icons->setProperty("ImageWidth", 3) && icons->setProperty("ImageHeight", 2));
    int index = -1;
    QVERIFY(QMetaObject::invokeMethod(icons, "AddFromFile", Q_RETURN_ARG(int, index),
                                      Q_ARG(QString, QStringLiteral(":/imaging/swatch.xpm"))));
    QCOMPARE(index, 0);
    QCOMPARE(icons->Images()->AddFromResourceID(QStringLiteral("qrc:/imaging/swatch.xpm")), 1);
    QCOMPARE(icons->Images()->AddFromResourceID(QStringLiteral("imaging/swatch.xpm")), 2);
    QCOMPARE(drawn(*icons->Images(), 2), (QStringList{"YRY", "RGY"}));

    icons->setProperty("ImageWidth", 8); // ignored while the list holds images
    QCOMPARE(icons->property("ImageWidth").toInt(), 3);
    QCOMPARE(icons->property("Count").toInt(), 3);
    QVERIFY(QMetaObject::invokeMethod(icons, "Clear"));
    icons->setProperty("ImageWidth", 8);
    QCOMPARE(icons->Images()->IconSizeX(), 8);
}

QTEST_MAIN(tst_ImageList)
#include "tst_imagelist.moc"
