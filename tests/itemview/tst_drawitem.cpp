#include "imaging/ImageList.h"
#include "itemview/DrawItem.h"
#include "itemview/ItemLayout.h"
#include "platform/SystemColors.h"

#include <QtCore/QDir>
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
    void height_data();
    void height();
    void edges_data();
    void edges();
    void caption_data();
    void caption();
    void icon_data();
    void icon();
    void pictures();
};

void tst_DrawItem::height_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("view");
    QTest::addColumn<int>("listSide"); // 0: no image list
    QTest::addColumn<int>("iconSide");
    QTest::addColumn<bool>("stacked"); // caption below the icon

    QTest::newRow("outlook large") << int(qvStyleOutlook) << int(qvViewLargeIcons) << 0 << 32 << true;
    QTest::newRow("outlook small") << int(qvStyleOutlookXP) << int(qvViewSmallIcons) << 0 << 16 << false;
    QTest::newRow("outlook large, 48 list")
        << int(qvStyleOutlook) << int(qvViewLargeIcons) << 48 << 48 << true;
    QTest::newRow("outlook small, 24 list")
        << int(qvStyleOutlook) << int(qvViewSmallIcons) << 24 << 24 << false;
    QTest::newRow("windows large") << int(qvStyleWindows2000) << int(qvViewLargeIcons) << 0 << 32 << true;
    QTest::newRow("windows small") << int(qvStyleWindowsXP) << int(qvViewSmallIcons) << 0 << 16 << true;
    QTest::newRow("flat large, 8 list")
        << int(qvStyleVisualStudio) << int(qvViewLargeIcons) << 8 << 8 << false;
    QTest::newRow("flat small") << int(qvStyleVisualStudio) << int(qvViewSmallIcons) << 0 << 16 << false;
}

void tst_DrawItem::height()
{
    QFETCH(int, style);
    QFETCH(int, view);
    QFETCH(int, listSide);
    QFETCH(int, iconSide);
    QFETCH(bool, stacked);

    ItemLook l = look(style);
    const auto list = iconList(listSide ? listSide : 1);
    if (listSide)
        (view == qvViewSmallIcons ? l.smallIcons : l.icons) = list.get();
    QFont bold = l.font;
    bold.setBold(true);
    const int text = qMax(QFontMetrics(l.font).height(), QFontMetrics(bold).height());
    // Margins: 2 above and 4 below a stacked item, 2 between icon cell and
    // caption; 2 above and below a row; 2 around the icon inside its cell.
    const int expected = stacked ? iconSide + text + 12 : qMax(iconSide + 4, text) + 4;
    QCOMPARE(ItemHeight(l, qvViewType(view)), expected);

    // The tallest drawing fits: a pressed, moved, focused bold caption under
    // or beside the whole icon.
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

void tst_DrawItem::edges_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("view");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("staysDown");
    QTest::addColumn<qreal>("dpr");
    QTest::addColumn<int>("corner"); // Qt::Corner of the lit area
    QTest::addColumn<QPoint>("offset"); // from that corner
    QTest::addColumn<QString>("expected");

    struct Probe
    {
        Qt::Corner corner;
        QPoint offset;
        const char *color;
    };
    using P = QList<Probe>;
    // Each segment leaves out its end point, which belongs to the segment
    // starting there: up the left, along the top, down the right, back
    // along the bottom.
    const auto frame = [](const char *topLeft, const char *bottomRight) {
        return P { { Qt::TopLeftCorner, {}, topLeft },
                   { Qt::TopRightCorner, { -1, 0 }, topLeft },
                   { Qt::TopRightCorner, {}, bottomRight },
                   { Qt::BottomLeftCorner, {}, topLeft },
                   { Qt::BottomLeftCorner, { 1, 0 }, bottomRight },
                   { Qt::BottomRightCorner, {}, bottomRight } };
    };
    const auto fill = [](const char *c) { return P { { Qt::TopLeftCorner, { 1, 1 }, c } }; };
    // The check pattern: the check colour at the lit area's top-left,
    // alternating with the highlight colour.
    const P check { { Qt::TopLeftCorner, { 1, 1 }, "check" },
                    { Qt::TopLeftCorner, { 2, 1 }, "hl" },
                    { Qt::TopLeftCorner, { 1, 2 }, "hl" },
                    { Qt::TopLeftCorner, { 2, 2 }, "check" } };
    const auto add = [](const char *what, int style, int view, int state, bool staysDown, const P &probes) {
        for (qreal dpr : { 1.0, 2.0 })
            for (const Probe &p : probes)
                QTest::addRow("%s, corner %d%+d%+d, dpr %g", what, p.corner, p.offset.x(), p.offset.y(), dpr)
                    << style << view << state << staysDown << dpr << int(p.corner) << p.offset
                    << QString::fromLatin1(p.color);
    };
    const P raised = frame("hl", "dk") + fill("overBack");
    const P sunken = frame("dk", "hl") + fill("downBack");
    const P flat = frame("dk", "dk");
    add("outlook large hot", qvStyleOutlook, qvViewLargeIcons, ItemHot, false, raised);
    add("outlook large pressed", qvStyleOutlookXP, qvViewLargeIcons, ItemPressed, false, sunken);
    add("outlook large stays down", qvStyleOutlook, qvViewLargeIcons, ItemNormal, true,
        check + frame("dk", "hl"));
    add("outlook small hot", qvStyleOutlook, qvViewSmallIcons, ItemHot, false, raised);
    add("outlook small pressed stays down", qvStyleOutlookXP, qvViewSmallIcons, ItemPressed, true,
        check + frame("dk", "hl"));
    add("outlook small normal", qvStyleOutlook, qvViewSmallIcons, ItemNormal, false,
        frame("back", "back") + fill("back"));
    add("windows hot", qvStyleWindows2000, qvViewLargeIcons, ItemHot, false, raised);
    add("windows pressed", qvStyleWindowsXP, qvViewSmallIcons, ItemPressed, false, sunken);
    add("windows hot stays down", qvStyleWindowsXP, qvViewLargeIcons, ItemHot, true,
        check + frame("dk", "hl"));
    add("flat hot", qvStyleVisualStudio, qvViewSmallIcons, ItemHot, false, flat + fill("overBack"));
    add("flat stays down", qvStyleVisualStudio, qvViewLargeIcons, ItemNormal, true, check + flat);
}

void tst_DrawItem::edges()
{
    QFETCH(int, style);
    QFETCH(int, view);
    QFETCH(int, state);
    QFETCH(bool, staysDown);
    QFETCH(qreal, dpr);
    QFETCH(int, corner);
    QFETCH(QPoint, offset);
    QFETCH(QString, expected);

    const ItemLook l = look(style);
    ItemPaint i = item(state);
    i.staysDown = staysDown;
    const QImage image = paint(l, view, i, dpr);
    // Outlook's large icons light their 36-pixel icon cell, centred two
    // pixels down; everything else lights the whole row.
    const bool cellOnly = (style == qvStyleOutlook || style == qvStyleOutlookXP) && view == qvViewLargeIcons;
    const QRect lit
        = cellOnly ? QRect((Width - 36) / 2, 2, 36, 36) : QRect(0, 0, Width, image.height() / dpr);
    const QPoint corners[] = { lit.topLeft(), lit.topRight(), lit.bottomLeft(), lit.bottomRight() };
    const QPoint at = (corners[corner] + offset) * dpr;
    // One logical pixel covers dpr x dpr device pixels, all of one colour.
    QCOMPARE(find(image.copy(QRect(at, QSize(1, 1) * dpr)), color(expected)).count, int(dpr * dpr));
}

void tst_DrawItem::caption_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("view");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("flags"); // b bold, d disabled, u underline on move, m move with click
    QTest::addColumn<QStringList>("colors"); // of the caption, the last one on top
    QTest::addColumn<bool>("underlined");
    QTest::addColumn<QPoint>("shift"); // against the same item drawn normal

    const auto row = [](const char *name, int style, int view, int state, const char *flags) -> QTestData & {
        return QTest::newRow(name) << style << view << state << QString::fromLatin1(flags);
    };
    const QStringList fore { "fore" }, over { "over" }, down { "down" };
    row("outlook large normal", qvStyleOutlook, qvViewLargeIcons, ItemNormal, "u")
        << fore << false << QPoint();
    row("outlook large hot, underline", qvStyleOutlook, qvViewLargeIcons, ItemHot, "u")
        << over << true << QPoint();
    row("outlook small hot", qvStyleOutlook, qvViewSmallIcons, ItemHot, "") << over << false << QPoint();
    row("outlook small pressed", qvStyleOutlookXP, qvViewSmallIcons, ItemPressed, "u")
        << down << false << QPoint();
    row("windows pressed moves", qvStyleWindows2000, qvViewLargeIcons, ItemPressed, "m")
        << down << false << QPoint(1, 1);
    row("windows hot stays", qvStyleWindowsXP, qvViewSmallIcons, ItemHot, "m") << over << false << QPoint();
    row("flat bold", qvStyleVisualStudio, qvViewSmallIcons, ItemNormal, "b") << fore << false << QPoint();
    row("flat pressed moves", qvStyleVisualStudio, qvViewLargeIcons, ItemPressed, "m")
        << down << false << QPoint(1, 1);
    row("disabled is etched", qvStyleOutlook, qvViewLargeIcons, ItemHot, "d")
        << QStringList { "hl", "sh" } << false << QPoint();
    row("unknown state is normal", qvStyleOutlook, qvViewLargeIcons, 7, "u") << fore << false << QPoint();
}

void tst_DrawItem::caption()
{
    QFETCH(int, style);
    QFETCH(int, view);
    QFETCH(int, state);
    QFETCH(QString, flags);
    QFETCH(QStringList, colors);
    QFETCH(bool, underlined);
    QFETCH(QPoint, shift);

    ItemLook l = look(style);
    l.underlineOnMove = flags.contains(u'u');
    l.moveWithClick = flags.contains(u'm');
    ItemPaint i = item(state, QStringLiteral("Inbox"));
    i.enabled = !flags.contains(u'd');
    i.bold = flags.contains(u'b');
    const QImage image = paint(l, view, i);

    // Inside the row's edges: only the fills and the caption's colours.
    QSet<QRgb> seen;
    for (int y = 1; y < image.height() - 1; ++y)
        for (int x = 1; x < image.width() - 1; ++x)
            seen.insert(image.pixel(x, y));
    QSet<QRgb> expected;
    for (const QString &name : colors)
        expected.insert(color(name).rgb());
    for (const char *edgeOrFill : { "back", "overBack", "downBack", "hl", "dk" })
        if (!colors.contains(QLatin1String(edgeOrFill)))
            seen.remove(color(QLatin1String(edgeOrFill)).rgb());
    QCOMPARE(seen, expected);

    const Found text = find(image, color(colors.last()));
    QCOMPARE(text.longestRun >= text.bounds.width() - 1, underlined);
    ItemPaint normal = item(ItemNormal, i.caption);
    normal.enabled = i.enabled;
    const Found reference = find(paint(look(style), view, normal), color(i.enabled ? "fore" : "sh"));
    if (i.bold)
        QVERIFY(text.count > reference.count);
    else if (!underlined)
        QCOMPARE(text.bounds, reference.bounds.translated(shift));
}

void tst_DrawItem::icon_data()
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

void tst_DrawItem::icon()
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

// With QUIVER_PAINTING_PICTURES naming a folder, saves there a column of
// items (normal, hot, pressed, stays down with focus, disabled) for every
// style and view: the pictures of docs/painting.md.
void tst_DrawItem::pictures()
{
    const QString folder = qEnvironmentVariable("QUIVER_PAINTING_PICTURES");
    if (folder.isEmpty())
        QSKIP("QUIVER_PAINTING_PICTURES is not set");
    QVERIFY(QDir().mkpath(folder));
    // Rounded tiles with a white dot, on transparent ground.
    const auto tiles = [](int side) {
        auto list = std::make_unique<ImageList>();
        list->setImageWidth(side);
        list->setImageHeight(side);
        for (const QColor &tone : { QColor(40, 110, 200), QColor(220, 150, 30), QColor(60, 160, 80),
                                    QColor(190, 60, 60), QColor(120, 80, 170) }) {
            QPixmap pixmap(side, side);
            pixmap.fill(Qt::transparent);
            QPainter p(&pixmap);
            p.setRenderHint(QPainter::Antialiasing);
            p.setPen(tone.darker());
            p.setBrush(tone);
            p.drawRoundedRect(QRectF(0.5, 0.5, side - 1, side - 1), side / 5.0, side / 5.0);
            p.setBrush(Qt::white);
            p.drawEllipse(QRectF(side * 0.3, side * 0.3, side * 0.4, side * 0.4));
            p.end();
            list->AddFromPicture(QIcon(pixmap));
        }
        return list;
    };
    const auto large = tiles(32);
    const auto small = tiles(16);
    const char *const styles[] = { "outlook", "windows2000", "outlookxp", "windowsxp", "visualstudio" };
    const char *const captions[] = { "Inbox", "Calendar", "Contacts", "Tasks", "Deleted Items" };
    // Each style's preset item colours: back, fore, over fore, down fore,
    // over back, down back, check, shadow, dark shadow, highlight.
    const OLE_COLOR Shadow = SystemColors::ButtonShadow, Face = SystemColors::ButtonFace,
                    Window = SystemColors::Window, Dark = SystemColors::ButtonDarkShadow,
                    Light = SystemColors::ButtonHighlight, OverXP = rgbColor(181, 190, 214),
                    DownXP = rgbColor(132, 146, 181), CheckXP = rgbColor(8, 36, 107),
                    Studio = rgbColor(233, 229, 221);
    const OLE_COLOR presets[][10] = {
        { Shadow, Window, Window, Window, Shadow, Shadow, Face, Shadow, Dark, Light },
        { Shadow, Window, Window, Window, Shadow, Shadow, Face, Shadow, Dark, Light },
        { Face, 0, 0, 0, OverXP, DownXP, CheckXP, Shadow, Dark, Light },
        { rgbColor(222, 219, 214), 0, 0xFFFFFF, 0, OverXP, DownXP, CheckXP, rgbColor(132, 130, 132), 0,
          0xFFFFFF },
        { Face, SystemColors::ButtonText, SystemColors::ButtonText, Window, Shadow, Studio, Studio, Shadow,
          Dark, Light },
    };
    constexpr int PictureWidth = 120;
    for (int style = qvStyleOutlook; style <= qvStyleVisualStudio; ++style)
        for (int view : { int(qvViewLargeIcons), int(qvViewSmallIcons) }) {
            const OLE_COLOR *c = presets[style];
            ItemLook l = look(style);
            l.font.setStyleStrategy(QFont::PreferDefault);
            l.colors = { c[0], c[2], c[4], c[3], c[5], c[6], c[9], c[7], c[8] };
            l.icons = large.get();
            l.smallIcons = small.get();
            l.underlineOnMove = true;
            const int step = ItemHeight(l, qvViewType(view)) + itemGap(l.style, qvViewType(view));
            QImage image(PictureWidth, 5 * step, QImage::Format_RGB32);
            image.fill(translateColor(c[0], classicPalette()));
            QPainter p(&image);
            const IconGeometry geometry
                = iconGeometryFor(l.style, qvViewType(view), PictureWidth, IconGeometry());
            for (int k = 0; k < 5; ++k) {
                ItemPaint i = item(k == 1       ? ItemHot
                                       : k == 2 ? ItemPressed
                                                : ItemNormal,
                                   QLatin1String(captions[k]));
                i.foreColor = c[1];
                i.icon = k + 1;
                i.staysDown = i.hasFocus = k == 3;
                i.enabled = k != 4;
                DrawItem(p, QRect(0, k * step, PictureWidth, step - itemGap(l.style, qvViewType(view))), l,
                         qvViewType(view), geometry, i, classicPalette());
            }
            p.end();
            const QString name = QStringLiteral("items-%1-%2.png")
                                     .arg(QLatin1String(styles[style]),
                                          QLatin1String(view == qvViewSmallIcons ? "small" : "large"));
            QVERIFY(image.save(QDir(folder).filePath(name)));
        }
}

QTEST_MAIN(tst_DrawItem)
#include "tst_drawitem.moc"
