#include "imaging/ImageList.h"
#include "itemview/DrawItem.h"
#include "itemview/ItemLayout.h"
#include "platform/SystemColors.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace OrrinQuiver;

namespace {

// Distinct colours, so every pixel tells which part of the item painted it.
const QHash<QString, QColor> Colors {
    { "back", QColor(200, 200, 200) },     { "hl", QColor(255, 255, 255) },
    { "sh", QColor(128, 128, 128) },       { "dk", QColor(64, 64, 64) },
    { "fore", QColor(0, 0, 255) },         { "over", QColor(255, 0, 0) },
    { "overBack", QColor(230, 230, 160) }, { "down", QColor(0, 128, 0) },
    { "downBack", QColor(160, 200, 230) }, { "check", QColor(240, 200, 120) },
    { "red", QColor(220, 0, 0) },          { "green", QColor(0, 200, 0) },
};
QColor color(const QString &name) { return Colors.value(name); }
OLE_COLOR ole(const char *name) { return toOleColor(color(QLatin1String(name))); }

constexpr int Width = 100;

ItemLook look(int style)
{
    ItemLook l;
    l.style = qvStyle(style);
    l.font = QFont(QStringLiteral("DejaVu Sans"));
    l.font.setPixelSize(12);
    l.font.setStyleStrategy(QFont::NoAntialias);
    l.colors = { ole("back"),  ole("over"), ole("overBack"), ole("down"), ole("downBack"),
                 ole("check"), ole("hl"),   ole("sh"),       ole("dk") };
    return l;
}

ItemPaint item(int state, const QString &caption = QString())
{
    ItemPaint i;
    i.caption = caption;
    i.foreColor = ole("fore");
    i.state = state;
    return i;
}

// One item at the top of an image `extra` pixels taller than the item.
QImage paint(const ItemLook &l, int view, const ItemPaint &i, qreal dpr = 1, int extra = 0)
{
    const int height = ItemHeight(l, qvViewType(view));
    QImage image(QSize(Width, height + extra) * dpr, QImage::Format_RGB32);
    image.setDevicePixelRatio(dpr);
    image.fill(color("back"));
    QPainter p(&image);
    const IconGeometry geometry = iconGeometryFor(l.style, qvViewType(view), Width, IconGeometry());
    DrawItem(p, QRect(0, 0, Width, height), l, qvViewType(view), geometry, i, classicPalette());
    return image;
}

struct Found
{
    QRect bounds;
    int count = 0;
    int longestRun = 0; // horizontal
};

Found find(const QImage &image, const QColor &c)
{
    Found f;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0, run = 0; x < image.width(); ++x) {
            run = image.pixelColor(x, y) == c ? run + 1 : 0;
            f.longestRun = qMax(f.longestRun, run);
            if (run) {
                f.bounds |= QRect(x, y, 1, 1);
                ++f.count;
            }
        }
    return f;
}

// One-colour icons `side` pixels square, from `tones` (or "red" and "green"),
// keyed by their colour names.
std::unique_ptr<ImageList> iconList(int side, const QList<QColor> &tones = {})
{
    auto list = std::make_unique<ImageList>();
    list->setImageWidth(side);
    list->setImageHeight(side);
    for (const QColor &tone : tones.isEmpty() ? QList<QColor> { color("red"), color("green") } : tones) {
        QPixmap pixmap(side, side);
        pixmap.fill(tone);
        list->AddFromPicture(QIcon(pixmap), Colors.key(tone));
    }
    return list;
}

} // namespace

class tst_DrawItem : public QObject
{
    Q_OBJECT

private slots:
    // Styles 0 Outlook, 1 Windows 2000, 2 Outlook XP, 3 Windows XP, 4 Visual
    // Studio; views 0 large icons, 1 small icons.
    void height_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("view");
        QTest::addColumn<int>("listSide"); // 0: no image list, icons of 32 (large) or 16 (small)
        QTest::addColumn<bool>("stacked"); // caption below the icon

        QTest::newRow("outlook large") << 0 << 0 << 0 << true;
        QTest::newRow("outlook small") << 2 << 1 << 0 << false;
        QTest::newRow("outlook large, 48 list") << 0 << 0 << 48 << true;
        QTest::newRow("outlook small, 24 list") << 0 << 1 << 24 << false;
        QTest::newRow("windows small") << 3 << 1 << 0 << true;
        QTest::newRow("flat large, 8 list") << 4 << 0 << 8 << false;
    }
    void height()
    {
        QFETCH(int, style);
        QFETCH(int, view);
        QFETCH(int, listSide);
        QFETCH(bool, stacked);
        const int iconSide = listSide ? listSide : view ? 16 : 32;
        ItemLook l = look(style);
        const auto list = iconList(listSide ? listSide : 1);
        if (listSide)
            (view ? l.smallIcons : l.icons) = list.get();
        QFont bold = l.font;
        bold.setBold(true);
        const int text = qMax(QFontMetrics(l.font).height(), QFontMetrics(bold).height());
        // Margins: 2 above and 4 below a stacked item, 2 between icon cell and
        // caption; 2 above and below a row; 2 around the icon inside its cell.
        const int expected = stacked ? iconSide + text + 12 : qMax(iconSide + 4, text) + 4;
        QCOMPARE(ItemHeight(l, qvViewType(view)), expected);

        // The tallest drawing fits: a pressed, moved, focused bold caption
        // under or beside the whole icon.
        l.moveWithClick = true;
        ItemPaint i = item(ItemPressed, QStringLiteral("Outbox"));
        i.bold = i.hasFocus = true;
        i.icon = 1;
        const QImage image = paint(l, view, i, 1, 20);
        QCOMPARE(find(image, color("red")).count, listSide ? iconSide * iconSide : 0);
        const QRect caption = find(image, color("down")).bounds;
        QCOMPARE(caption.height(), text + 2);
        QVERIFY(caption.bottom() < expected);
    }

    void looks_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("view");
        QTest::addColumn<int>("state");
        // s stays down, b bold, d disabled, u underline on move, m move with click
        QTest::addColumn<QString>("flags");
        QTest::addColumn<QStringList>("edges"); // top-left, bottom-right, fill of what lights up
        QTest::addColumn<QStringList>("caption"); // its colours, the last one on top
        QTest::addColumn<bool>("underlined");
        QTest::addColumn<QPoint>("shift"); // against the same item drawn normal

        const auto row = [](const char *name, int style, int view, int state, const char *flags,
                            const QStringList &edges, const QStringList &caption, bool underlined = false,
                            QPoint shift = {}) {
            QTest::newRow(name) << style << view << state << QString::fromLatin1(flags) << edges << caption
                                << underlined << shift;
        };
        const QStringList raised { "hl", "dk", "overBack" }, sunken { "dk", "hl", "downBack" };
        const QStringList checked { "dk", "hl", "check" }, none { "back", "back", "back" };
        const QStringList fore { "fore" }, over { "over" }, down { "down" };
        const int normal = ItemNormal, hot = ItemHot, pressed = ItemPressed;
        row("outlook large hot, underline", 0, 0, hot, "u", raised, over, true);
        row("outlook large pressed", 2, 0, pressed, "u", sunken, down);
        row("outlook large stays down", 0, 0, normal, "s", checked, fore);
        row("outlook small pressed stays down", 2, 1, pressed, "s", checked, down);
        row("outlook small normal", 0, 1, normal, "u", none, fore);
        row("windows hot stays put", 1, 0, hot, "m", raised, over);
        row("windows pressed moves", 3, 1, pressed, "m", sunken, down, false, { 1, 1 });
        row("windows hot stays down", 3, 0, hot, "s", checked, over);
        row("flat hot", 4, 1, hot, "", { "dk", "dk", "overBack" }, over);
        row("flat bold stays down", 4, 0, normal, "sb", { "dk", "dk", "check" }, fore);
        row("flat pressed moves", 4, 0, pressed, "m", { "dk", "dk", "downBack" }, down, false, { 1, 1 });
        row("disabled is etched", 0, 0, hot, "d", raised, { "hl", "sh" });
        row("unknown state is normal", 0, 0, 7, "u", none, fore);
    }
    void looks()
    {
        QFETCH(int, style);
        QFETCH(int, view);
        QFETCH(int, state);
        QFETCH(QString, flags);
        QFETCH(QStringList, edges);
        QFETCH(QStringList, caption);
        QFETCH(bool, underlined);
        QFETCH(QPoint, shift);
        ItemLook l = look(style);
        l.underlineOnMove = flags.contains(u'u');
        l.moveWithClick = flags.contains(u'm');
        ItemPaint i = item(state, QStringLiteral("Inbox"));
        i.staysDown = flags.contains(u's');
        i.enabled = !flags.contains(u'd');
        i.bold = flags.contains(u'b');

        // Outlook's large icons light their 36-pixel icon cell, centred two
        // pixels down; everything else lights the whole row. Each edge leaves
        // out its end point, which belongs to the edge starting there: up the
        // left, along the top, down the right, back along the bottom. The check
        // pattern alternates with the highlight colour.
        const bool cellOnly = (style == 0 || style == 2) && view == 0;
        const int height = ItemHeight(l, qvViewType(view));
        const QRect lit = cellOnly ? QRect((Width - 36) / 2, 2, 36, 36) : QRect(0, 0, Width, height);
        const QString &topLeft = edges[0], &bottomRight = edges[1], &fill = edges[2];
        const QList<std::pair<QPoint, QString>> probes {
            { lit.topLeft(), topLeft },
            { lit.topRight() - QPoint(1, 0), topLeft },
            { lit.topRight(), bottomRight },
            { lit.bottomLeft(), topLeft },
            { lit.bottomLeft() + QPoint(1, 0), bottomRight },
            { lit.bottomRight(), bottomRight },
            { lit.topLeft() + QPoint(1, 1), fill },
            { lit.topLeft() + QPoint(2, 1), fill == QLatin1String("check") ? QStringLiteral("hl") : fill },
            { lit.topLeft() + QPoint(2, 2), fill },
        };
        // At device pixel ratios 1 and 2 every probed logical pixel is one colour.
        for (const qreal dpr : { 2.0, 1.0 }) {
            const QImage image = paint(l, view, i, dpr);
            for (const auto &[at, name] : probes) {
                const QImage pixel = image.copy(QRect(at * dpr, QSize(1, 1) * dpr));
                QVERIFY2(find(pixel, color(name)).count == int(dpr * dpr),
                         qPrintable(QStringLiteral("%1 at %2,%3").arg(name).arg(at.x()).arg(at.y())));
            }
        }

        // Inside the row's edges: only edges, fills and the caption's colours.
        const QImage image = paint(l, view, i);
        QSet<QRgb> seen, expected;
        for (int y = 1; y < image.height() - 1; ++y)
            for (int x = 1; x < image.width() - 1; ++x)
                seen.insert(image.pixel(x, y));
        for (const QString &name : caption)
            expected.insert(color(name).rgb());
        for (const char *edgeOrFill : { "back", "overBack", "downBack", "check", "hl", "dk" })
            if (!caption.contains(QLatin1String(edgeOrFill)))
                seen.remove(color(QLatin1String(edgeOrFill)).rgb());
        QCOMPARE(seen, expected);

        const Found text = find(image, color(caption.last()));
        QCOMPARE(text.longestRun >= text.bounds.width() - 1, underlined);
        ItemPaint normal = item(ItemNormal, i.caption);
        normal.enabled = i.enabled;
        const Found reference = find(paint(look(style), view, normal), color(i.enabled ? "fore" : "sh"));
        if (i.bold)
            QVERIFY(text.count > reference.count);
        else if (!underlined)
            QCOMPARE(text.bounds, reference.bounds.translated(shift));
    }

    void icon_data()
    {
        QTest::addColumn<int>("view");
        QTest::addColumn<QVariant>("icon");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<QString>("expected"); // empty: no icon; "disabled": drawn, not in its colour

        const int large = qvViewLargeIcons;
        QTest::newRow("by key") << large << QVariant(QStringLiteral("green")) << true << "green";
        QTest::newRow("by index") << large << QVariant(1) << true << "red";
        QTest::newRow("by index, small view") << int(qvViewSmallIcons) << QVariant(2) << true << "green";
        QTest::newRow("fraction dropped") << large << QVariant(2.5) << true << "green";
        QTest::newRow("disabled") << large << QVariant(1) << false << "disabled";
        QTest::newRow("unknown key") << large << QVariant(QStringLiteral("blue")) << true << "";
        QTest::newRow("letter case counts") << large << QVariant(QStringLiteral("Red")) << true << "";
        QTest::newRow("digits are a key") << large << QVariant(QStringLiteral("1")) << true << "";
        QTest::newRow("index 0") << large << QVariant(0) << true << "";
        QTest::newRow("past the end") << large << QVariant(3) << true << "";
        QTest::newRow("negative") << int(qvViewSmallIcons) << QVariant(-1) << true << "";
        QTest::newRow("huge") << large << QVariant(1e300) << true << "";
        QTest::newRow("not a number") << large << QVariant(qQNaN()) << true << "";
        QTest::newRow("empty") << large << QVariant() << true << "";
        QTest::newRow("a truth value") << large << QVariant(true) << true << "";
    }
    void icon()
    {
        QFETCH(int, view);
        QFETCH(QVariant, icon);
        QFETCH(bool, enabled);
        QFETCH(QString, expected);
        const int side = view == qvViewSmallIcons ? 16 : 32;
        // The other view's list has other colours: an item draws from its own.
        auto list = iconList(side);
        const auto other = iconList(48 - side, { color("dk"), color("sh"), color("hl") });
        ItemLook l = look(qvStyleWindows2000);
        l.icons = view == qvViewSmallIcons ? other.get() : list.get();
        l.smallIcons = view == qvViewSmallIcons ? list.get() : other.get();
        ItemPaint i = item(ItemNormal);
        i.icon = icon;
        i.enabled = enabled;
        QImage image = paint(l, view, i);
        for (const char *name : { "red", "green" })
            QCOMPARE(find(image, color(QLatin1String(name))).count,
                     expected == QLatin1String(name) ? side * side : 0);
        // The icon sits centred in the row two pixels below its cell's top.
        const Found blank = find(image.copy(QRect((Width - side) / 2, 4, side, side)), color("back"));
        QCOMPARE(blank.count == side * side, expected.isEmpty());

        // A list that is gone draws nothing.
        list.reset();
        QCOMPARE(find(paint(l, view, i), color("back")).count, image.width() * image.height());
    }
};

QTEST_MAIN(tst_DrawItem)
#include "tst_drawitem.moc"
