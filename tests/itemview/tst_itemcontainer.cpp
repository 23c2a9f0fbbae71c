#include "control/Quiver.h"
#include "itemview/DrawItem.h"
#include "itemview/ItemContainer.h"
#include "itemview/ItemLook.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtGui/QImage>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace OrrinQuiver;

namespace {

// A view showing `count` items of a collection of its own; the view goes
// last, after the collection has let it go.
struct Shown
{
    explicit Shown(int count, qvStyle style = qvStyleOutlook, qvViewType kind = qvViewLargeIcons,
                   int height = 200, int pixelSize = 12)
    {
        ItemLook look;
        look.style = style;
        look.font.setPixelSize(pixelSize);
        view.setLook(look);
        view.resize(120, height);
        view.setActive(true);
        view.setView(kind);
        items.setItemView(&view);
        for (int i = 0; i < count; ++i)
            items.Add();
    }
    ~Shown() { items.setItemView(nullptr); }
    int row() const { return view.itemRect(1).height(); }
    // From now on `arrows` gets the values of every SetScrollArrows raised.
    void recordArrows()
    {
        QObject::connect(&view, &ItemContainer::SetScrollArrows, &view, [this](bool *up, bool *down) {
            arrows.append({ *up, *down });
        });
    }

    ItemContainer view;
    Items items;
    QList<std::pair<bool, bool>> arrows;
};

} // namespace

class tst_ItemContainer : public QObject
{
    Q_OBJECT

private slots:
    void stacking_data();
    void stacking();
    void viewSwitchReturnsToTop();
    void resize_data();
    void resize();
    void scroll_data();
    void scroll();
    void slideFrames_data();
    void slideFrames();
    void scrollArrows_data();
    void scrollArrows();
    void ensureVisible_data();
    void ensureVisible();
    void hitTest_data();
    void hitTest();
    void barHandsViewsItsLook_data();
    void barHandsViewsItsLook();
    void hostedWindowFollowsItsItem();
    void hostChildWindow_data();
    void hostChildWindow();
    void hostedChildOutlivesView();
    void manyItemsPaint();
};

void tst_ItemContainer::stacking_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QList<int>>("hidden");
    QTest::addColumn<int>("gap");
    // For each of five items: how many visible items lie above it.
    QTest::addColumn<QList<int>>("above");

    QTest::newRow("outlook") << int(qvStyleOutlook) << QList<int>() << 2 << QList<int> { 0, 1, 2, 3, 4 };
    QTest::newRow("windows 2000") << int(qvStyleWindows2000) << QList<int>() << 0
                                  << QList<int> { 0, 1, 2, 3, 4 };
    QTest::newRow("outlook xp, hidden middle")
        << int(qvStyleOutlookXP) << QList<int> { 3 } << 2 << QList<int> { 0, 1, 2, 2, 3 };
    QTest::newRow("visual studio, hidden first")
        << int(qvStyleVisualStudio) << QList<int> { 1 } << 0 << QList<int> { 0, 0, 1, 2, 3 };
    QTest::newRow("windows xp, all hidden")
        << int(qvStyleWindowsXP) << QList<int> { 1, 2, 3, 4, 5 } << 0 << QList<int> { 0, 0, 0, 0, 0 };
}

void tst_ItemContainer::stacking()
{
    QFETCH(int, style);
    QFETCH(QList<int>, hidden);
    QFETCH(int, gap);
    QFETCH(QList<int>, above);
    Shown shown(5, qvStyle(style));
    const int row = shown.row();
    for (int position : hidden)
        shown.items.at(position)->setVisible(false);

    for (int position = 1; position <= 5; ++position) {
        const int top = above.at(position - 1) * (row + gap);
        QCOMPARE(shown.view.itemRect(position).top(), top);
        QCOMPARE(shown.view.ItemTop(position), top);
    }
}

void tst_ItemContainer::viewSwitchReturnsToTop()
{
    Shown shown(10);
    for (int step = 0; step < 3; ++step)
        shown.view.Scroll(1, false);
    QCOMPARE(shown.view.TopItem(), 4);

    shown.view.setView(qvViewSmallIcons);

    QCOMPARE(shown.view.sliderTop(), 0);
    QCOMPARE(shown.view.TopItem(), 1);
    QCOMPARE(shown.view.firstVisiblePosition(), 1);
}

void tst_ItemContainer::resize_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("iconLeft");

    QTest::newRow("at the top") << 0 << 100 << 32;
    QTest::newRow("scrolled") << 3 << 60 << 12;
    QTest::newRow("narrower than an icon") << 2 << 30 << -3;
}

void tst_ItemContainer::resize()
{
    QFETCH(int, steps);
    QFETCH(int, width);
    QFETCH(int, iconLeft);
    Shown shown(10);
    for (int step = 0; step < steps; ++step)
        shown.view.Scroll(1, false);
    const int top = shown.view.sliderTop();
    shown.view.show();

    shown.view.resize(width, 90);

    QCOMPARE(shown.view.iconGeometry().iconLeft, iconLeft);
    QCOMPARE(shown.view.sliderTop(), top);
    QCOMPARE(shown.view.ItemTop(steps + 1), 0);
    QCOMPARE(shown.view.TopItem(), steps + 1);
}

void tst_ItemContainer::scroll_data()
{
    QTest::addColumn<int>("downFirst");
    // Items left of ten after scrolling down.
    QTest::addColumn<int>("kept");
    QTest::addColumn<int>("direction");
    // Expected surface top in rows (+1 when the up step starts at the top).
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("topItem");
    QTest::addColumn<QStringList>("events");

    const QStringList up { "arrows", "ScrollUp" };
    const QStringList down { "arrows", "ScrollDown" };
    QTest::newRow("up at the top still slides") << 0 << 10 << 0 << 1 << 1 << up;
    QTest::newRow("down") << 0 << 10 << 1 << -1 << 2 << down;
    QTest::newRow("down twice, then up") << 2 << 10 << 0 << -1 << 2 << up;
    QTest::newRow("unknown direction") << 1 << 10 << 2 << -1 << 2 << QStringList();
    QTest::newRow("down past the last changes nothing") << 10 << 10 << 1 << -10 << 0 << QStringList();
    QTest::newRow("up after the items below went") << 6 << 3 << 0 << -2 << 3 << up;
}

void tst_ItemContainer::scroll()
{
    QFETCH(int, downFirst);
    QFETCH(int, kept);
    QFETCH(int, direction);
    QFETCH(int, rows);
    QFETCH(int, topItem);
    QFETCH(QStringList, events);
    Shown shown(10, qvStyleWindows2000);
    for (int step = 0; step < downFirst; ++step)
        shown.view.Scroll(1, false);
    while (shown.items.Count() > kept)
        shown.items.RemoveAt(kept + 1);
    QStringList seen;
    connect(&shown.view, &ItemContainer::SetScrollArrows, this, [&] { seen << "arrows"; });
    connect(&shown.view, &ItemContainer::ScrollUp, this, [&] { seen << "ScrollUp"; });
    connect(&shown.view, &ItemContainer::ScrollDown, this, [&] { seen << "ScrollDown"; });

    shown.view.Scroll(direction, false);

    QCOMPARE(seen, events);
    QCOMPARE(shown.view.sliderTop(), rows * shown.row());
    QCOMPARE(shown.view.TopItem(), topItem);
}

void tst_ItemContainer::slideFrames_data()
{
    QTest::addColumn<int>("pixelSize");
    QTest::addColumn<int>("direction");
    QTest::addColumn<bool>("animate");

    QTest::newRow("small row, down") << 6 << 1 << true;
    QTest::newRow("larger row, down") << 40 << 1 << true;
    QTest::newRow("larger row, up") << 40 << 0 << true;
    QTest::newRow("without animation") << 40 << 1 << false;
}

void tst_ItemContainer::slideFrames()
{
    QFETCH(int, pixelSize);
    QFETCH(int, direction);
    QFETCH(bool, animate);
    Shown shown(10, qvStyleWindows2000, qvViewLargeIcons, 200, pixelSize);
    const int distance = shown.row();
    QSignalSpy scrolled(&shown.view, direction ? &ItemContainer::ScrollDown : &ItemContainer::ScrollUp);

    shown.view.Scroll(direction, animate);
    // The event follows the slide's end.
    QCOMPARE(scrolled.size(), animate ? 0 : 1);
    QList<int> tops { 0 };
    while (shown.view.advanceSlide())
        tops << shown.view.sliderTop();

    const int sign = direction ? -1 : 1;
    QCOMPARE(shown.view.sliderTop(), sign * distance);
    QCOMPARE(scrolled.size(), 1);
    QVERIFY(!shown.view.isSliding());
    if (!animate) {
        QCOMPARE(tops.size(), 1);
        return;
    }
    // Decelerating frames: the first a tenth of the row twice (quick flag
    // off), none shorter than a tenth until the last.
    const int step = std::max(1, distance / 10);
    QCOMPARE(tops.at(1), sign * std::min(distance, step + distance / 10));
    QVERIFY(tops.size() > 3);
    for (int i = 2; i < tops.size() - 1; ++i) {
        const int moved = sign * (tops.at(i) - tops.at(i - 1));
        QVERIFY(moved >= step);
        QVERIFY(moved <= sign * (tops.at(i - 1) - tops.at(i - 2)));
    }
}

void tst_ItemContainer::scrollArrows_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("downSteps");
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("down");
    QTest::addColumn<int>("lastFullyVisible");

    QTest::newRow("no items") << 0 << 0 << false << false << 0;
    QTest::newRow("all fit") << 2 << 0 << false << false << 2;
    QTest::newRow("more below") << 20 << 0 << false << true << 3;
    QTest::newRow("scrolled") << 20 << 2 << true << true << 5;
    QTest::newRow("scrolled to the end") << 5 << 2 << true << false << 5;
}

void tst_ItemContainer::scrollArrows()
{
    QFETCH(int, count);
    QFETCH(int, downSteps);
    QFETCH(bool, up);
    QFETCH(bool, down);
    QFETCH(int, lastFullyVisible);
    Shown probe(2, qvStyleWindows2000);
    // Room for three and a half rows.
    Shown shown(count, qvStyleWindows2000, qvViewLargeIcons, probe.row() * 7 / 2);
    for (int step = 0; step < downSteps; ++step)
        shown.view.Scroll(1, false);
    shown.recordArrows();

    shown.view.SetArrows();

    QCOMPARE(shown.arrows, (QList<std::pair<bool, bool>> { { up, down } }));
    QCOMPARE(shown.view.LastFullyVisibleItem(), lastFullyVisible);
}

void tst_ItemContainer::ensureVisible_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("hideIt");

    QTest::newRow("deep item") << 37 << false;
    QTest::newRow("last item") << 50 << false;
    QTest::newRow("hidden last item") << 50 << true;
}

void tst_ItemContainer::ensureVisible()
{
    QFETCH(int, position);
    QFETCH(bool, hideIt);
    Shown shown(50);
    Item *item = shown.items.at(position);
    item->setVisible(!hideIt);

    item->EnsureVisible();

    QVERIFY(shown.view.lastFullyVisiblePosition() >= position);
    const int top = shown.view.ItemTop(item->viewId());
    QVERIFY(top >= 0 && top + shown.row() <= shown.view.height());
    shown.items.at(1)->EnsureVisible();
    QCOMPARE(shown.view.sliderTop(), 0);
}

void tst_ItemContainer::hitTest_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("scrolled");
    QTest::addColumn<int>("expected");

    QTest::newRow("left of the bar") << -1 << 0 << 5 << 0 << 0;
    QTest::newRow("above the view") << 10 << 0 << -1 << 0 << 0;
    QTest::newRow("view top") << 10 << 0 << 0 << 0 << 1;
    QTest::newRow("shared edge: the earlier wins") << 10 << 1 << 0 << 0 << 1;
    QTest::newRow("in the gap") << 10 << 1 << 1 << 0 << 0;
    QTest::newRow("second item") << 10 << 1 << 2 << 0 << 2;
    QTest::newRow("scrolled: tops stay unscrolled") << 10 << 0 << 3 << 2 << 1;
    QTest::newRow("below the last") << 10 << 3 << 10 << 0 << 0;
}

void tst_ItemContainer::hitTest()
{
    QFETCH(int, x);
    QFETCH(int, rows);
    QFETCH(int, offset);
    QFETCH(int, scrolled);
    QFETCH(int, expected);
    Quiver bar;
    bar.InitProperties();
    bar.resize(150, 400);
    bar.show();
    Header *header = bar.Headers()->at(1);
    for (int i = 0; i < 3; ++i)
        header->Items()->Add();
    auto *view = dynamic_cast<ItemContainer *>(header->itemView());
    QVERIFY(view);
    for (int step = 0; step < scrolled; ++step)
        view->Scroll(1, false);
    // Outlook items: a row, then a gap of two.
    const int row = view->itemRect(1).height();

    Item *hit = bar.HitTest(x, view->y() + rows * row + offset);

    QCOMPARE(hit, header->Items()->at(expected));
    QCOMPARE(bar.GetFirstVisible(), header->Items()->at(scrolled + 1));
}

void tst_ItemContainer::barHandsViewsItsLook_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");

    const QVariant red = QVariant::fromValue(OLE_COLOR(0x0000FF));
    QFont font;
    font.setPixelSize(31);
    QTest::newRow("Style") << "Style" << QVariant::fromValue(qvStyleVisualStudio);
    QTest::newRow("BackColor") << "BackColor" << red;
    QTest::newRow("ShadowColor sets the highlight too") << "ShadowColor" << red;
    QTest::newRow("ItemDownForeColor") << "ItemDownForeColor" << red;
    QTest::newRow("ItemsMoveWithClick") << "ItemsMoveWithClick" << QVariant(true);
    QTest::newRow("Font") << "Font" << QVariant(font);
}

// Views made before and after the change both paint with it.
void tst_ItemContainer::barHandsViewsItsLook()
{
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    Quiver bar;
    bar.InitProperties();
    QVERIFY(bar.setProperty(property.toLatin1(), value));
    Header *added = bar.Headers()->Add();

    for (Header *header : { bar.Headers()->at(1), added }) {
        const ItemLook look = dynamic_cast<ItemContainer *>(header->itemView())->look();
        const QHash<QString, QVariant> seen {
            { "Style", QVariant::fromValue(look.style) },
            { "BackColor", QVariant::fromValue(look.colors.back) },
            { "ShadowColor", QVariant::fromValue(look.colors.shadow & look.colors.highlight) },
            { "ItemDownForeColor", QVariant::fromValue(look.colors.downFore) },
            { "ItemsMoveWithClick", look.moveWithClick },
            { "Font", look.font },
        };
        QCOMPARE(seen.value(property), value);
    }
}

void tst_ItemContainer::hostedWindowFollowsItsItem()
{
    Shown shown(5, qvStyleWindows2000);
    QWidget form;
    auto *child = new QWidget(&form);
    child->setGeometry(7, 9, 30, 20);
    form.show();
    Item *item = shown.items.at(3);

    item->setChildhWnd(child->winId());
    QCOMPARE(child->parentWidget(), &shown.view);
    QCOMPARE(child->pos(), QPoint(0, 2 * shown.row()));
    shown.view.Scroll(1, true);
    shown.view.advanceSlide();
    QVERIFY(child->y() < 2 * shown.row());
    shown.view.finishSlide();
    QCOMPARE(child->pos(), QPoint(0, shown.row()));
    item->setVisible(false);
    QTRY_VERIFY(child->isHidden());

    item->setChildhWnd(0);
    QCOMPARE(child->parentWidget(), &form);
    QCOMPARE(child->geometry(), QRect(7, 9, 30, 20));
    QVERIFY(!child->isHidden());
}

void tst_ItemContainer::hostChildWindow_data()
{
    QTest::addColumn<int>("viewId");
    QTest::addColumn<QString>("window");
    QTest::addColumn<bool>("hosted");

    QTest::newRow("live item") << 1 << "child" << true;
    QTest::newRow("removed item") << 2 << "child" << false;
    QTest::newRow("unknown item") << 9 << "child" << false;
    QTest::newRow("no window") << 1 << "none" << false;
    QTest::newRow("an ancestor of the view") << 1 << "host" << false;
}

void tst_ItemContainer::hostChildWindow()
{
    QFETCH(int, viewId);
    QFETCH(QString, window);
    QFETCH(bool, hosted);
    QWidget host;
    QWidget form;
    auto *child = new QWidget(&form);
    auto *view = new ItemContainer(&host);
    QCOMPARE(view->addItemWindow(1, QString()), 1);
    QCOMPARE(view->addItemWindow(2, QString()), 2);
    view->removeItemWindow(2);
    view->removeItemWindow(2);
    QCOMPARE(view->MaxPhysItems(), 2);
    const quintptr handle = window == "child" ? quintptr(child->winId())
        : window == "host"                    ? quintptr(host.winId())
                                              : 0;

    const quintptr former = view->hostChildWindow(viewId, handle);

    QCOMPARE(former, hosted ? quintptr(form.winId()) : 0);
    QCOMPARE(child->parentWidget(), hosted ? static_cast<QWidget *>(view) : &form);
    QVERIFY(!host.parentWidget());
}

void tst_ItemContainer::hostedChildOutlivesView()
{
    QWidget form;
    QPointer<QWidget> child = new QWidget(&form);
    auto *view = new ItemContainer;
    view->addItemWindow(1, QString());
    view->hostChildWindow(1, child->winId());

    delete view;

    QVERIFY(child);
    QVERIFY(!child->parentWidget());
    delete child;
}

void tst_ItemContainer::manyItemsPaint()
{
    Shown shown(100000);
    shown.recordArrows();

    QImage image(shown.view.size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    shown.view.render(&image);
    shown.view.Scroll(1, false);

    QTRY_VERIFY(!shown.arrows.isEmpty());
    QCOMPARE(shown.arrows.last(), std::make_pair(true, true));
    QCOMPARE(shown.view.TopItem(), 2);
    QVERIFY(shown.view.lastFullyVisiblePosition() < 10);
    QVERIFY(image.pixel(0, 0) != QColor(Qt::white).rgb());
}

QTEST_MAIN(tst_ItemContainer)
#include "tst_itemcontainer.moc"
