#include "imaging/ImageList.h"
#include "itemview/DrawItem.h"
#include "itemview/ItemLayout.h"
#include "platform/SystemColors.h"

#include <QtCore/QDir>
#include <QtGui/QFontMetrics>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace OrrinQuiver;

namespace {

// Distinct colours, so every pixel tells which part of the item painted it.
const QHash<QString, QColor> Colors {
    { "back", QColor(200, 200, 200) },    { "hl", QColor(255, 255, 255) },     { "sh", QColor(128, 128, 128) },
    { "dk", QColor(64, 64, 64) },         { "fore", QColor(0, 0, 255) },       { "over", QColor(255, 0, 0) },
    { "overBack", QColor(230, 230, 160) }, { "down", QColor(0, 128, 0) },      { "downBack", QColor(160, 200, 230) },
    { "check", QColor(240, 200, 120) },   { "red", QColor(220, 0, 0) },        { "green", QColor(0, 200, 0) },
};

OLE_COLOR ole(const char *name)
{
    return toOleColor(Colors.value(QLatin1String(name)));
}

constexpr int Width = 100;

ItemLook look(qvStyle style)
{
    ItemLook l;
    l.style = style;
    l.font = QFont(QStringLiteral("DejaVu Sans"));
    l.font.setPixelSize(12);
    l.font.setStyleStrategy(QFont::NoAntialias);
    l.colors = { ole("back"), ole("over"), ole("overBack"), ole("down"), ole("downBack"),
                 ole("check"), ole("hl"), ole("sh"), ole("dk") };
    return l;
}

ItemPaint item(int state = ItemNormal, const QString &caption = QString())
{
    ItemPaint i;
    i.caption = caption;
    i.foreColor = ole("fore");
    i.state = state;
    return i;
}

// Paints one item at the top of an image `extra` pixels taller than the item.
QImage paint(const ItemLook &l, qvViewType view, const ItemPaint &i, qreal dpr = 1, int extra = 0)
{
    const int height = ItemHeight(l, view);
    QImage image(QSize(Width, height + extra) * dpr, QImage::Format_RGB32);
    image.setDevicePixelRatio(dpr);
    image.fill(Colors.value("back"));
    QPainter p(&image);
    DrawItem(p, QRect(0, 0, Width, height), l, view, iconGeometryFor(l.style, view, Width, IconGeometry()), i,
             classicPalette());
    return image;
}

int textHeight(const QFont &font)
{
    QFont bold = font;
    bold.setBold(true);
    return qMax(QFontMetrics(font).height(), QFontMetrics(bold).height());
}

struct Found
{
    QRect bounds;
    int count = 0;
    int longestRun = 0;
};

// Where pixels of `color` lie, how many there are and the longest
// horizontal run of them.
Found find(const QImage &image, const QColor &color)
{
    Found f;
    for (int y = 0; y < image.height(); ++y) {
        int run = 0;
        for (int x = 0; x < image.width(); ++x) {
            run = image.pixelColor(x, y) == color ? run + 1 : 0;
            if (run) {
                f.bounds |= QRect(x, y, 1, 1);
                ++f.count;
                f.longestRun = qMax(f.longestRun, run);
            }
        }
    }
    return f;
}

// An image list of one-colour icons `side` pixels square: "red" first, "green" second.
std::unique_ptr<ImageList> solidIcons(int side)
{
    auto list = std::make_unique<ImageList>();
    list->setImageWidth(side);
    list->setImageHeight(side);
    for (const char *name : { "red", "green" }) {
        QPixmap pixmap(side, side);
        pixmap.fill(Colors.value(QLatin1String(name)));
        list->AddFromPicture(QIcon(pixmap), QLatin1String(name));
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
    void disabledIcon();
    void pictures();
};

void tst_DrawItem::height_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("view");
    QTest::addColumn<int>("iconSide"); // 0: no image list
    QTest::addColumn<bool>("stacked");

    QTest::newRow("outlook large") << int(qvStyleOutlook) << int(qvViewLargeIcons) << 0 << true;
    QTest::newRow("outlook small") << int(qvStyleOutlookXP) << int(qvViewSmallIcons) << 0 << false;
    QTest::newRow("outlook large, 48 list") << int(qvStyleOutlook) << int(qvViewLargeIcons) << 48 << true;
    QTest::newRow("outlook small, 24 list") << int(qvStyleOutlook) << int(qvViewSmallIcons) << 24 << false;
    QTest::newRow("windows large") << int(qvStyleWindows2000) << int(qvViewLargeIcons) << 0 << true;
    QTest::newRow("windows small") << int(qvStyleWindowsXP) << int(qvViewSmallIcons) << 0 << true;
    QTest::newRow("flat large, 24 list") << int(qvStyleVisualStudio) << int(qvViewLargeIcons) << 24 << false;
    QTest::newRow("flat small") << int(qvStyleVisualStudio) << int(qvViewSmallIcons) << 0 << false;
}

void tst_DrawItem::height()
{
    QFETCH(int, style);
    QFETCH(int, view);
    QFETCH(int, iconSide);
    QFETCH(bool, stacked);

    ItemLook l = look(qvStyle(style));
    std::unique_ptr<ImageList> list;
    if (iconSide) {
        list = solidIcons(iconSide);
        (view == qvViewSmallIcons ? l.smallIcons : l.icons) = list.get();
    }
    const int side = iconSide ? iconSide : view == qvViewSmallIcons ? 16 : 32;
    const int text = textHeight(l.font);
    const int expected = stacked ? side + text + 12 : qMax(side + 4, text) + 4;
    QCOMPARE(ItemHeight(l, qvViewType(view)), expected);
    l.font.setBold(true);
    QCOMPARE(ItemHeight(l, qvViewType(view)), expected);
    l.font.setBold(false);

    // The tallest drawing an item makes fits: a pressed, moved, focused bold
    // caption under or beside a whole icon.
    l.moveWithClick = true;
    ItemPaint i = item(ItemPressed, QStringLiteral("Outbox"));
    i.bold = true;
    i.hasFocus = true;
    i.icon = 1;
    const QImage image = paint(l, qvViewType(view), i, 1, 20);
    if (iconSide)
        QCOMPARE(find(image, Colors.value("red")).count, side * side);
    const QRect caption = find(image, Colors.value("down")).bounds;
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
    QTest::addColumn<QPoint>("at"); // from the lit area's corner given by `corner`
    QTest::addColumn<int>("corner"); // Qt::Corner
    QTest::addColumn<QString>("expected");

    struct Probe
    {
        const char *name;
        QPoint at;
        Qt::Corner corner;
        const char *color;
    };
    // Each segment leaves out its end point, which belongs to the segment
    // starting there.
    const QList<Probe> raised { { "top-left", {}, Qt::TopLeftCorner, "hl" },
                                { "top end", { -1, 0 }, Qt::TopRightCorner, "hl" },
                                { "top-right", {}, Qt::TopRightCorner, "dk" },
                                { "bottom-left", {}, Qt::BottomLeftCorner, "hl" },
                                { "bottom row", { 1, 0 }, Qt::BottomLeftCorner, "dk" },
                                { "bottom-right", {}, Qt::BottomRightCorner, "dk" },
                                { "filled", { 1, 1 }, Qt::TopLeftCorner, "overBack" } };
    const QList<Probe> sunken { { "top-left", {}, Qt::TopLeftCorner, "dk" },
                                { "top end", { -1, 0 }, Qt::TopRightCorner, "dk" },
                                { "top-right", {}, Qt::TopRightCorner, "hl" },
                                { "bottom-left", {}, Qt::BottomLeftCorner, "dk" },
                                { "bottom row", { 1, 0 }, Qt::BottomLeftCorner, "hl" },
                                { "bottom-right", {}, Qt::BottomRightCorner, "hl" },
                                { "filled", { 1, 1 }, Qt::TopLeftCorner, "downBack" } };
    QList<Probe> flatHot;
    for (Probe probe : raised) {
        if (QByteArray(probe.color) != "overBack")
            probe.color = "dk";
        flatHot << probe;
    }
    // The check pattern starts with its check colour at the lit area's
    // top-left and alternates with the highlight colour.
    const QList<Probe> check { { "top-left", {}, Qt::TopLeftCorner, "dk" },
                               { "pattern", { 1, 1 }, Qt::TopLeftCorner, "check" },
                               { "pattern right", { 2, 1 }, Qt::TopLeftCorner, "hl" },
                               { "pattern below", { 1, 2 }, Qt::TopLeftCorner, "hl" },
                               { "pattern diagonal", { 2, 2 }, Qt::TopLeftCorner, "check" },
                               { "bottom-right", {}, Qt::BottomRightCorner, "hl" } };

    const auto add = [](const char *what, qvStyle style, qvViewType view, int state, bool staysDown,
                        const QList<Probe> &probes) {
        for (qreal dpr : { 1.0, 2.0 })
            for (const Probe &p : probes)
                QTest::addRow("%s, %s, dpr %g", what, p.name, dpr) << int(style) << int(view) << state << staysDown
                                                                   << dpr << p.at << int(p.corner)
                                                                   << QString::fromLatin1(p.color);
    };
    add("outlook large hot", qvStyleOutlook, qvViewLargeIcons, ItemHot, false, raised);
    add("outlook large pressed", qvStyleOutlookXP, qvViewLargeIcons, ItemPressed, false, sunken);
    add("outlook large stays down", qvStyleOutlook, qvViewLargeIcons, ItemNormal, true, check);
    add("outlook small hot", qvStyleOutlook, qvViewSmallIcons, ItemHot, false, raised);
    add("outlook small stays down", qvStyleOutlookXP, qvViewSmallIcons, ItemHot, true, check);
    add("windows hot", qvStyleWindows2000, qvViewLargeIcons, ItemHot, false, raised);
    add("windows pressed", qvStyleWindowsXP, qvViewSmallIcons, ItemPressed, false, sunken);
    add("windows stays down", qvStyleWindowsXP, qvViewLargeIcons, ItemNormal, true, check);
    add("flat hot", qvStyleVisualStudio, qvViewSmallIcons, ItemHot, false, flatHot);
    add("flat stays down", qvStyleVisualStudio, qvViewLargeIcons, ItemNormal, true, {
        { "frame", {}, Qt::BottomRightCorner, "dk" }, { "pattern", { 1, 1 }, Qt::TopLeftCorner, "check" } });
}

void tst_DrawItem::edges()
{
    QFETCH(int, style);
    QFETCH(int, view);
    QFETCH(int, state);
    QFETCH(bool, staysDown);
    QFETCH(qreal, dpr);
    QFETCH(QPoint, at);
    QFETCH(int, corner);
    QFETCH(QString, expected);

    const ItemLook l = look(qvStyle(style));
    ItemPaint i = item(state);
    i.staysDown = staysDown;
    const QImage image = paint(l, qvViewType(view), i, dpr);
    // Outlook's large icons light their 36-pixel icon cell, centred in the
    // row two pixels down; everything else lights the whole row.
    const QRect lit = (style != qvStyleOutlook && style != qvStyleOutlookXP) || view == qvViewSmallIcons
        ? QRect(0, 0, Width, ItemHeight(l, qvViewType(view)))
        : QRect((Width - 36) / 2, 2, 36, 36);
    const QPoint corners[] = { lit.topLeft(), lit.topRight(), lit.bottomLeft(), lit.bottomRight() };
    const QPoint p = corners[corner] + at;
    // One logical pixel covers dpr x dpr device pixels, all of one colour.
    const int n = int(dpr);
    for (int dy = 0; dy < n; ++dy)
        for (int dx = 0; dx < n; ++dx)
            QCOMPARE(image.pixelColor(p.x() * n + dx, p.y() * n + dy), Colors.value(expected));
    // A normal item draws no edges at all.
    if (!staysDown) {
        const QImage plain = paint(l, qvViewType(view), item(), dpr);
        QCOMPARE(find(plain, Colors.value("back")).count, plain.width() * plain.height());
    }
}

void tst_DrawItem::caption_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("view");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<bool>("underlineOnMove");
    QTest::addColumn<bool>("moveWithClick");
    QTest::addColumn<QStringList>("colors");
    QTest::addColumn<bool>("underlined");
    QTest::addColumn<QPoint>("shift"); // against the same item drawn normal

    const QStringList fore { "fore" }, over { "over" }, down { "down" };
    const auto row = [](const char *name, qvStyle style, qvViewType view) -> QTestData & {
        return QTest::newRow(name) << int(style) << int(view);
    };
    row("outlook large normal", qvStyleOutlook, qvViewLargeIcons)
        << int(ItemNormal) << true << false << true << false << fore << false << QPoint();
    row("outlook large hot, underline", qvStyleOutlook, qvViewLargeIcons)
        << int(ItemHot) << true << false << true << false << over << true << QPoint();
    row("outlook small hot, no underline asked", qvStyleOutlook, qvViewSmallIcons)
        << int(ItemHot) << true << false << false << false << over << false << QPoint();
    row("outlook small pressed, no underline", qvStyleOutlookXP, qvViewSmallIcons)
        << int(ItemPressed) << true << false << true << false << down << false << QPoint();
    row("windows pressed moves", qvStyleWindows2000, qvViewLargeIcons)
        << int(ItemPressed) << true << false << false << true << down << false << QPoint(1, 1);
    row("windows hot does not move", qvStyleWindowsXP, qvViewSmallIcons)
        << int(ItemHot) << true << false << false << true << over << false << QPoint();
    row("flat bold", qvStyleVisualStudio, qvViewSmallIcons)
        << int(ItemNormal) << true << true << false << false << fore << false << QPoint();
    row("flat pressed moves", qvStyleVisualStudio, qvViewLargeIcons)
        << int(ItemPressed) << true << false << false << true << down << false << QPoint(1, 1);
    row("disabled is etched", qvStyleOutlook, qvViewLargeIcons)
        << int(ItemNormal) << false << false << false << false << QStringList { "hl", "sh" } << false << QPoint();
    row("unknown state paints normal", qvStyleOutlook, qvViewLargeIcons)
        << 7 << true << false << true << false << fore << false << QPoint();
}

void tst_DrawItem::caption()
{
    QFETCH(int, style);
    QFETCH(int, view);
    QFETCH(int, state);
    QFETCH(bool, enabled);
    QFETCH(bool, bold);
    QFETCH(bool, underlineOnMove);
    QFETCH(bool, moveWithClick);
    QFETCH(QStringList, colors);
    QFETCH(bool, underlined);
    QFETCH(QPoint, shift);

    ItemLook l = look(qvStyle(style));
    l.underlineOnMove = underlineOnMove;
    l.moveWithClick = moveWithClick;
    ItemPaint i = item(state, QStringLiteral("Inbox"));
    i.enabled = enabled;
    i.bold = bold;
    const QImage image = paint(l, qvViewType(view), i);

    // Inside the edges, only the fill and the caption's colours.
    QSet<QRgb> seen;
    for (int y = 1; y < image.height() - 1; ++y)
        for (int x = 1; x < image.width() - 1; ++x)
            seen.insert(image.pixel(x, y));
    for (const char *fill : { "back", "overBack", "downBack", "hl", "dk" })
        if (!colors.contains(QLatin1String(fill)))
            seen.remove(Colors.value(QLatin1String(fill)).rgb());
    QSet<QRgb> expected;
    for (const QString &name : colors)
        expected.insert(Colors.value(name).rgb());
    QCOMPARE(seen, expected);

    const QColor ink = Colors.value(colors.last());
    const Found text = find(image, ink);
    QCOMPARE(text.longestRun >= text.bounds.width() - 1, underlined);

    ItemPaint plain = item(ItemNormal, i.caption);
    plain.enabled = enabled;
    const Found reference
        = find(paint(look(qvStyle(style)), qvViewType(view), plain), Colors.value(enabled ? "fore" : "sh"));
    if (bold)
        QVERIFY(text.count > reference.count);
    else if (!underlined)
        QCOMPARE(text.bounds, reference.bounds.translated(shift));
}

void tst_DrawItem::icon_data()
{
    QTest::addColumn<int>("view");
    QTest::addColumn<QVariant>("icon");
    QTest::addColumn<QString>("expected"); // empty: no icon

    QTest::newRow("by key") << int(qvViewLargeIcons) << QVariant(QStringLiteral("green")) << "green";
    QTest::newRow("by index") << int(qvViewLargeIcons) << QVariant(1) << "red";
    QTest::newRow("by index, small view") << int(qvViewSmallIcons) << QVariant(2) << "green";
    QTest::newRow("by fractional index") << int(qvViewLargeIcons) << QVariant(2.5) << "green";
    QTest::newRow("unknown key") << int(qvViewLargeIcons) << QVariant(QStringLiteral("blue")) << "";
    QTest::newRow("key letter case") << int(qvViewLargeIcons) << QVariant(QStringLiteral("Red")) << "";
    QTest::newRow("digits are a key") << int(qvViewLargeIcons) << QVariant(QStringLiteral("1")) << "";
    QTest::newRow("index 0") << int(qvViewLargeIcons) << QVariant(0) << "";
    QTest::newRow("past the end") << int(qvViewLargeIcons) << QVariant(3) << "";
    QTest::newRow("negative") << int(qvViewSmallIcons) << QVariant(-1) << "";
    QTest::newRow("huge") << int(qvViewLargeIcons) << QVariant(1e300) << "";
    QTest::newRow("not a number") << int(qvViewLargeIcons) << QVariant(qQNaN()) << "";
    QTest::newRow("empty") << int(qvViewLargeIcons) << QVariant() << "";
    QTest::newRow("a truth value") << int(qvViewLargeIcons) << QVariant(true) << "";
}

void tst_DrawItem::icon()
{
    QFETCH(int, view);
    QFETCH(QVariant, icon);
    QFETCH(QString, expected);

    const int side = view == qvViewSmallIcons ? 16 : 32;
    const auto list = solidIcons(side);
    // The other view's list holds other pictures: an item draws from its own.
    const auto other = solidIcons(side == 16 ? 32 : 16);
    ItemLook l = look(qvStyleOutlook);
    l.icons = view == qvViewSmallIcons ? other.get() : list.get();
    l.smallIcons = view == qvViewSmallIcons ? list.get() : other.get();
    ItemPaint i = item();
    i.icon = icon;
    const QImage image = paint(l, qvViewType(view), i);
    for (const char *name : { "red", "green" })
        QCOMPARE(find(image, Colors.value(QLatin1String(name))).count,
                 expected == QLatin1String(name) ? side * side : 0);

    // A list that is gone paints nothing.
    ItemLook gone = look(qvStyleOutlook);
    {
        const auto shortLived = solidIcons(side);
        gone.icons = gone.smallIcons = shortLived.get();
    }
    QCOMPARE(find(paint(gone, qvViewType(view), i), Colors.value("back")).count, image.width() * image.height());
}

void tst_DrawItem::disabledIcon()
{
    const auto list = solidIcons(32);
    ItemLook l = look(qvStyleWindows2000);
    l.icons = list.get();
    ItemPaint i = item();
    i.icon = QStringLiteral("red");
    const QImage enabled = paint(l, qvViewLargeIcons, i);
    i.enabled = false;
    const QImage disabled = paint(l, qvViewLargeIcons, i);
    QCOMPARE(find(enabled, Colors.value("red")).count, 32 * 32);
    QCOMPARE(find(disabled, Colors.value("red")).count, 0);
    // Still drawn: the icon's area is not left blank.
    const QRect cell((Width - 32) / 2, 4, 32, 32);
    QVERIFY(find(disabled.copy(cell), Colors.value("back")).count < 32 * 32);
}

// With QUIVER_PAINTING_PICTURES naming a folder, saves a column of items
// for every style and view there (the pictures of docs/painting.md).
void tst_DrawItem::pictures()
{
    const QString folder = qEnvironmentVariable("QUIVER_PAINTING_PICTURES");
    if (folder.isEmpty())
        QSKIP("QUIVER_PAINTING_PICTURES is not set");
    QVERIFY(QDir().mkpath(folder));

    const auto makeList = [](int side) {
        auto list = std::make_unique<ImageList>();
        list->setImageWidth(side);
        list->setImageHeight(side);
        const QColor tones[] = { QColor(40, 110, 200), QColor(220, 150, 30), QColor(60, 160, 80),
                                 QColor(190, 60, 60), QColor(120, 80, 170) };
        for (const QColor &tone : tones) {
            QPixmap pixmap(side, side);
            pixmap.fill(Qt::transparent);
            QPainter p(&pixmap);
            p.setRenderHint(QPainter::Antialiasing);
            p.setBrush(tone);
            p.setPen(tone.darker());
            p.drawRoundedRect(QRectF(1.5, 1.5, side - 3, side - 3), side / 5.0, side / 5.0);
            p.setBrush(Qt::white);
            p.setPen(Qt::NoPen);
            p.drawEllipse(QRectF(side * 0.3, side * 0.3, side * 0.4, side * 0.4));
            p.end();
            list->AddFromPicture(QIcon(pixmap));
        }
        return list;
    };
    const auto large = makeList(32);
    const auto small = makeList(16);
    const char *const styles[] = { "outlook", "windows2000", "outlookxp", "windowsxp", "visualstudio" };
    // Each style's preset colours, as the Styles page applies them to a new
    // control: back, fore, over fore, down fore, over back, down back, check,
    // shadow, dark shadow, highlight.
    const OLE_COLOR Shadow = SystemColors::ButtonShadow, Face = SystemColors::ButtonFace,
                    White = rgbColor(255, 255, 255), Black = 0, OverXP = rgbColor(181, 190, 214),
                    DownXP = rgbColor(132, 146, 181), CheckXP = rgbColor(8, 36, 107),
                    Studio = rgbColor(233, 229, 221);
    const OLE_COLOR presets[][10] = {
        { Shadow, SystemColors::Window, SystemColors::Window, SystemColors::Window, Shadow, Shadow, Face, Shadow,
          SystemColors::ButtonDarkShadow, SystemColors::ButtonHighlight },
        { Shadow, SystemColors::Window, SystemColors::Window, SystemColors::Window, Shadow, Shadow, Face, Shadow,
          SystemColors::ButtonDarkShadow, SystemColors::ButtonHighlight },
        { Face, Black, Black, Black, OverXP, DownXP, CheckXP, Shadow, SystemColors::ButtonDarkShadow,
          SystemColors::ButtonHighlight },
        { rgbColor(222, 219, 214), Black, White, Black, OverXP, DownXP, CheckXP, rgbColor(132, 130, 132), Black,
          White },
        { Face, SystemColors::ButtonText, SystemColors::ButtonText, SystemColors::Window, Shadow, Studio, Studio,
          Shadow, SystemColors::ButtonDarkShadow, SystemColors::ButtonHighlight },
    };
    const char *const captions[] = { "Inbox", "Calendar", "Contacts", "Tasks", "Deleted Items" };
    constexpr int PictureWidth = 120;
    for (int style = qvStyleOutlook; style <= qvStyleVisualStudio; ++style) {
        for (int view : { int(qvViewLargeIcons), int(qvViewSmallIcons) }) {
            ItemLook l;
            l.style = qvStyle(style);
            const OLE_COLOR *c = presets[style];
            l.colors = { c[0], c[2], c[4], c[3], c[5], c[6], c[9], c[7], c[8] };
            l.icons = large.get();
            l.smallIcons = small.get();
            l.underlineOnMove = true;
            const int height = ItemHeight(l, qvViewType(view));
            const int gap = itemGap(l.style, qvViewType(view));
            QImage image(PictureWidth, 5 * (height + gap), QImage::Format_RGB32);
            image.fill(translateColor(l.colors.back, classicPalette()));
            QPainter p(&image);
            const IconGeometry geometry = iconGeometryFor(l.style, qvViewType(view), PictureWidth, IconGeometry());
            for (int k = 0; k < 5; ++k) {
                ItemPaint i = item(k == 1 ? ItemHot : k == 2 ? ItemPressed : ItemNormal, QLatin1String(captions[k]));
                i.foreColor = c[1];
                i.icon = k + 1;
                i.staysDown = k == 3;
                i.hasFocus = k == 3;
                i.enabled = k != 4;
                DrawItem(p, QRect(0, k * (height + gap), PictureWidth, height), l, qvViewType(view), geometry, i,
                         classicPalette());
            }
            p.end();
            const QString name = QStringLiteral("items-%1-%2.png")
                                     .arg(QLatin1String(styles[style]),
                                          view == qvViewSmallIcons ? QStringLiteral("small") : QStringLiteral("large"));
            QVERIFY(image.save(QDir(folder).filePath(name)));
        }
    }
}

QTEST_MAIN(tst_DrawItem)
#include "tst_drawitem.moc"
