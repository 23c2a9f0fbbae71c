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
    void itemIndex_data()
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
    void itemIndex()
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

    void insert_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("order");

        QTest::newRow("first") << 0 << 0 << "KRGB";
        QTest::newRow("middle") << 1 << 1 << "RKGB";
        QTest::newRow("at the count") << 3 << 3 << "RGBK";
        QTest::newRow("not given") << -1 << 3 << "RGBK";
    }
    void insert()
    {
        QFETCH(int, position);
        QFETCH(int, index);
        QFETCH(QString, order);
        const auto list = makeList();
        for (const char c : { 'R', 'G', 'B' })
            addSolid(*list, c, QString(QLatin1Char(c)));
        QCOMPARE(addSolid(*list, 'K', QStringLiteral("K"), position), index);
        QCOMPARE(list->Count(), 4);
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(list->ItemKey(i), QString(order[i]));
            QCOMPARE(list->ItemIndex(QString(order[i])), i);
            const QImage picture = list->ItemPicture(i).pixmap(2, 2).toImage();
            QCOMPARE(letters(picture), QStringList(2, QString(2, order[i])));
        }
    }

    void keysStayUnique()
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

    void bitmapMask_data()
    {
        QTest::addColumn<QStringList>("bitmap");
        QTest::addColumn<quint32>("mask");
        QTest::addColumn<QStringList>("expected");

        const QStringList checks { "GRG", "RGR" };
        QTest::newRow("top-left colour") << checks << None << QStringList { "YRY", "RYR" };
        QTest::newRow("given colour") << checks << rgbColor(255, 0, 0) << QStringList { "GYG", "YGY" };
        QTest::newRow("system colour") << QStringList { "RFR", "FRR" } << quint32(SystemColors::ButtonFace)
                                       << QStringList { "RYR", "YRR" };
        QTest::newRow("transparent corner keeps its alpha")
            << QStringList { "_RG", "GGR" } << None << QStringList { "YRG", "GGR" };
        QTest::newRow("larger is cut") << QStringList { "RGBK", "KKKK", "KKKK" } << None
                                       << QStringList { "YGB", "KKK" };
        QTest::newRow("smaller leaves the rest transparent") << QStringList { "RG" } << Mask
                                                             << QStringList { "RGY", "YYY" };
    }
    void bitmapMask()
    {
        QFETCH(QStringList, bitmap);
        QFETCH(quint32, mask);
        QFETCH(QStringList, expected);
        const auto list = makeList(3, 2);
        QCOMPARE(list->AddFromHandle(art(bitmap), clsImageList::ImageBitmap, {}, mask), 0);
        QCOMPARE(drawn(*list, 0), expected);
    }

    // A handle, or a file of the format given (none: a missing file); a list
    // not yet created takes nothing.
    void adds_data()
    {
        QTest::addColumn<QVariant>("source");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("index");

        const int bitmap = clsImageList::ImageBitmap, icon = clsImageList::ImageIcon;
        const int cursor = clsImageList::ImageCursor;
        QTest::newRow("picture cursor") << QVariant(QCursor(solid('R'))) << cursor << 0;
        QTest::newRow("standard cursor has no picture") << QVariant(QCursor(Qt::ArrowCursor)) << cursor << -1;
        QTest::newRow("icon as bitmap") << QVariant(QIcon(solid('R'))) << bitmap << -1;
        QTest::newRow("unknown type") << QVariant(solid('R')) << 7 << -1;
        QTest::newRow("bmp file as bitmap") << QVariant("bmp") << bitmap << 0;
        QTest::newRow("ico file as icon") << QVariant("ico") << icon << 0;
        QTest::newRow("cur file as cursor") << QVariant("cur") << cursor << 0;
        QTest::newRow("missing file") << QVariant("") << icon << -1;
    }
    void adds()
    {
        QFETCH(QVariant, source);
        QFETCH(int, type);
        QFETCH(int, index);
        if (source.typeId() != QMetaType::QString) {
            QCOMPARE(makeList()->AddFromHandle(source, type), index);
            QCOMPARE(clsImageList().AddFromHandle(source, type), -1);
            return;
        }
        const QString format = source.toString();
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("picture.") + format);
        // A bitmap has no alpha: its top-left colour is the transparent one.
        const QImage picture = art({ format == QLatin1String("bmp") ? "MR" : "_R", "RG" });
        QVERIFY(format.isEmpty() || picture.save(file, format.toLatin1()));
        const auto list = makeList();
        QCOMPARE(list->AddFromFile(file, type), index);
        QCOMPARE(drawn(*list, 0), index < 0 ? QStringList(2, "YY") : QStringList({ "YR", "RG" }));
    }

    void draw_data()
    {
        QTest::addColumn<QVariant>("key");
        QTest::addColumn<QString>("look"); // s selected, c cut, d disabled, x from the external list
        QTest::addColumn<quint32>("cutColor");
        QTest::addColumn<QStringList>("expected");

        const QVariant red(QStringLiteral("red"));
        const QStringList nothing(3, "YYY");
        const auto row = [](const char *name, const QVariant &key, const char *look, quint32 cut,
                            const QStringList &expected) {
            QTest::newRow(name) << key << QString::fromLatin1(look) << cut << expected;
        };
        row("normal", red, "", None, { "RRY", "RYY", "YYY" });
        row("selected: mixed with the highlight", red, "s", None, { "ppY", "pYY", "YYY" });
        row("cut without colour: window colour", red, "c", None, { "rrY", "rYY", "YYY" });
        row("cut with colour, over the rest", red, "scd", rgbColor(0, 0, 255), { "vvY", "vYY", "YYY" });
        row("disabled, over selected", red, "sd", None, { "SSY", "SWW", "YWY" });
        row("unknown key draws nothing", QStringLiteral("none"), "", None, nothing);
        row("external list, number as text", QStringLiteral("1"), "x", None, { "GGY", "GGY", "YYY" });
        row("external list ignores keys", QStringLiteral("green"), "x", None, nothing);
    }
    void draw()
    {
        QFETCH(QVariant, key);
        QFETCH(QString, look);
        QFETCH(quint32, cutColor);
        QFETCH(QStringList, expected);
        const auto list = makeList();
        list->AddFromHandle(art({ "RR", "RM" }), clsImageList::ImageBitmap, QStringLiteral("red"), Mask);
        const auto other = makeList();
        addSolid(*other, 'B');
        addSolid(*other, 'G', QStringLiteral("green"));
        QImage target = canvas(3, 3);
        QPainter painter(&target);
        const auto has = [&look](char c) { return look.contains(QLatin1Char(c)); };
        list->DrawImage(key, painter, 0, 0, has('s'), has('c'), has('d'), cutColor,
                        has('x') ? other.get() : nullptr);
        painter.end();
        QCOMPARE(letters(target), expected);
    }

    void highDpi()
    {
        const auto list = makeList();
        QIcon sizes(solid('R', 2));
        sizes.addPixmap(solid('G', 4));
        list->AddFromPicture(sizes);
        list->AddFromPicture(QPixmap::fromImage(art({ "RG", "BK" })));
        QCOMPARE(drawn(*list, 0), QStringList(2, "RR"));
        QCOMPARE(drawn(*list, 0, 2), QStringList(4, "GGGG"));
        QCOMPARE(drawn(*list, 1, 2), (QStringList { "YYGG", "YYGG", "BBKK", "BBKK" }));
    }

    void formImageList()
    {
        QWidget form;
        auto *icons = new ImageList(&form);
        form.show();
        QVERIFY(!icons->isVisible());

        QVERIFY(icons->setProperty("ImageWidth", 3) && icons->setProperty("ImageHeight", 2));
        int index = -1;
        QVERIFY(QMetaObject::invokeMethod(icons, "AddFromFile", Q_RETURN_ARG(int, index),
                                          Q_ARG(QString, QStringLiteral(":/imaging/swatch.xpm"))));
        QCOMPARE(index, 0);
        QCOMPARE(icons->Images()->AddFromResourceID(QStringLiteral("qrc:/imaging/swatch.xpm")), 1);
        QCOMPARE(icons->Images()->AddFromResourceID(QStringLiteral("imaging/swatch.xpm")), 2);
        QCOMPARE(drawn(*icons->Images(), 2), (QStringList { "YRY", "RGY" }));

        icons->setProperty("ImageWidth", 8); // ignored while the list holds images
        QCOMPARE(icons->property("ImageWidth").toInt(), 3);
        QCOMPARE(icons->property("Count").toInt(), 3);
        QVERIFY(QMetaObject::invokeMethod(icons, "Clear"));
        icons->setProperty("ImageWidth", 8);
        QCOMPARE(icons->Images()->IconSizeX(), 8);
    }
};

QTEST_MAIN(tst_ImageList)
#include "tst_imagelist.moc"
