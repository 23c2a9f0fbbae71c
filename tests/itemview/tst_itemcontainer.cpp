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
#include <QtTest/QTest>

using namespace OrrinQuiver;

namespace {

// A view showing `count` items of a collection of its own; the view goes
// last, after the collection has let it go.
struct Shown
{
    explicit Shown(int count, qvStyle style = qvStyleOutlook, int height = 200)
    {
        ItemLook look;
        look.style = style;
        look.font.setPixelSize(12);
        view.setLook(look);
        view.resize(120, height);
        view.setActive(true);
        view.setView(qvViewLargeIcons);
        items.setItemView(&view);
        for (int i = 0; i < count; ++i)
            items.Add();
        QObject::connect(&view, &ItemContainer::SetScrollArrows, &view, [this](bool *up, bool *down) {
            events << QStringLiteral("arrows:%1%2").arg(*up).arg(*down);
        });
        QObject::connect(&view, &ItemContainer::ScrollUp, &view, [this] { events << "ScrollUp"; });
        QObject::connect(&view, &ItemContainer::ScrollDown, &view, [this] { events << "ScrollDown"; });
    }
    ~Shown() { items.setItemView(nullptr); }
    int row() const { return view.itemRect(1).height(); }

    ItemContainer view;
    Items items;
    // Every SetScrollArrows ("arrows:" and the up and down flags), ScrollUp
    // and ScrollDown raised once the items are in.
    QStringList events;
};

} // namespace

class tst_ItemContainer : public QObject
{
    Q_OBJECT

private slots:
    // A Windows 2000 view with room for three and a half rows runs `actions`
    // in turn, each a verb and a count: "down N" and "up N" one item at a
    // time, "other" (an unknown direction), "slideDown" and "slideUp"
    // (animated), "arrows" (SetArrows), "keep N" (removes the items after N),
    // "hide N", "show N" (EnsureVisible), "width N", "smallIcons".
    void scrolling_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QStringList>("actions");
        // The surface's top in rows, the top item, the last fully visible item, the icon's left.
        QTest::addColumn<QList<int>>("expected");
        QTest::addColumn<QStringList>("events"); // raised by the last scroll or SetArrows

        const auto row = [](const char *name, int count, const QStringList &actions,
                            const QList<int> &expected, const QStringList &events = {}) {
            QTest::newRow(name) << count << actions << expected << events;
        };
        row("up at the top still slides", 10, { "up" }, { 1, 1, 4, 42 }, { "arrows:01", "ScrollUp" });
        row("down", 10, { "down" }, { -1, 2, 4, 42 }, { "arrows:11", "ScrollDown" });
        row("slide down", 10, { "slideDown" }, { -1, 2, 4, 42 }, { "arrows:11", "ScrollDown" });
        row("slide up", 10, { "down 2", "slideUp" }, { -1, 2, 4, 42 }, { "arrows:11", "ScrollUp" });
        row("unknown direction", 10, { "down", "other" }, { -1, 2, 4, 42 });
        row("down past the last changes nothing", 5, { "down 5", "down" }, { -5, 0, 5, 42 });
        row("up after the items below went", 10, { "down 6", "keep 3", "up" }, { -2, 3, 3, 42 },
            { "arrows:10", "ScrollUp" });
        row("view switch returns to the top", 10, { "down 3", "smallIcons" }, { 0, 1, 4, 42 });
        row("arrows: no items", 0, { "arrows" }, { 0, 0, 0, 42 }, { "arrows:00" });
        row("arrows: all fit", 2, { "arrows" }, { 0, 1, 2, 42 }, { "arrows:00" });
        row("arrows: more below", 20, { "arrows" }, { 0, 1, 3, 42 }, { "arrows:01" });
        row("arrows: scrolled to the end", 5, { "down 2", "arrows" }, { -2, 3, 5, 42 }, { "arrows:10" });
        row("hidden item", 5, { "hide 2", "arrows" }, { 0, 1, 4, 42 }, { "arrows:01" });
        row("resize keeps the top slot", 10, { "down 3", "width 60" }, { -3, 4, 6, 12 });
        row("resize narrower than an icon", 10, { "down 2", "width 30" }, { -2, 3, 5, -3 });
        row("deep item shown", 50, { "show 37" }, { -34, 35, 37, 42 });
        row("back to the first", 50, { "show 37", "show 1" }, { 0, 1, 3, 42 });
        row("hidden last item shown", 50, { "hide 50", "show 50" }, { -47, 48, 50, 42 });
    }
    void scrolling()
    {
        QFETCH(int, count);
        QFETCH(QStringList, actions);
        QFETCH(QList<int>, expected);
        QFETCH(QStringList, events);
        const int row = Shown(1, qvStyleWindows2000).row();
        Shown shown(count, qvStyleWindows2000, row * 7 / 2);
        for (const QString &action : actions) {
            const QString verb = action.section(u' ', 0, 0);
            const int n = action.section(u' ', 1).toInt();
            shown.events.clear();
            if (verb == QLatin1String("down") || verb == QLatin1String("up")) {
                for (int step = 0; step < std::max(n, 1); ++step)
                    shown.view.Scroll(verb == QLatin1String("down") ? 1 : 0, false);
            } else if (verb == QLatin1String("other")) {
                shown.view.Scroll(2, false);
            } else if (verb.startsWith(QLatin1String("slide"))) {
                shown.view.Scroll(verb == QLatin1String("slideDown") ? 1 : 0, true);
                // The events follow the slide's end; the slide decelerates
                // from twice a tenth of the row.
                QVERIFY(shown.events.isEmpty());
                const int before = shown.view.sliderTop();
                QVERIFY(shown.view.advanceSlide());
                QCOMPARE(qAbs(shown.view.sliderTop() - before), 2 * (row / 10));
                while (shown.view.advanceSlide()) { }
                QVERIFY(!shown.view.isSliding());
            } else if (verb == QLatin1String("arrows")) {
                shown.view.SetArrows();
            } else if (verb == QLatin1String("keep")) {
                while (shown.items.Count() > n)
                    shown.items.RemoveAt(n + 1);
            } else if (verb == QLatin1String("hide")) {
                shown.items.at(n)->setVisible(false);
            } else if (verb == QLatin1String("show")) {
                shown.items.at(n)->EnsureVisible();
                shown.events.clear();
            } else if (verb == QLatin1String("width")) {
                shown.view.show();
                shown.view.resize(n, shown.view.height());
                shown.events.clear();
            } else if (verb == QLatin1String("smallIcons")) {
                shown.view.setView(qvViewSmallIcons);
            } else {
                QFAIL("unknown action");
            }
        }
        QCOMPARE(shown.events, events);
        QCOMPARE((QList { shown.view.sliderTop(), shown.view.TopItem(), shown.view.LastFullyVisibleItem(),
                          shown.view.iconGeometry().iconLeft }),
                 (QList { expected[0] * row, expected[1], expected[2], expected[3] }));
    }

    void hitTest_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("scrolled");
        QTest::addColumn<int>("expected");

        QTest::newRow("left of the bar") << -1 << 0 << 5 << 0 << 0;
        QTest::newRow("above the view") << 10 << 0 << -1 << 0 << 0;
        QTest::newRow("in the gap") << 10 << 1 << 1 << 0 << 0;
        QTest::newRow("second item") << 10 << 1 << 2 << 0 << 2;
        QTest::newRow("scrolled: tops stay unscrolled") << 10 << 0 << 3 << 2 << 1;
    }
    // Outlook items, a row and then a gap of two, at `rows` rows and `offset`
    // pixels below the view's top.
    void hitTest()
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
        const int y = view->y() + rows * view->itemRect(1).height() + offset;
        QCOMPARE(bar.HitTest(x, y), header->Items()->at(expected));
        QCOMPARE(bar.GetFirstVisible(), header->Items()->at(scrolled + 1));
    }

    void barHandsViewsItsLook_data()
    {
        QTest::addColumn<QString>("property");
        QTest::addColumn<QVariant>("value");
        QFont font;
        font.setPixelSize(31);
        QTest::newRow("Style") << "Style" << QVariant::fromValue(qvStyleVisualStudio);
        QTest::newRow("ShadowColor, highlight too") << "ShadowColor" << QVariant::fromValue(OLE_COLOR(255));
        QTest::newRow("ItemDownForeColor") << "ItemDownForeColor" << QVariant::fromValue(OLE_COLOR(0xFF00));
        QTest::newRow("ItemsMoveWithClick") << "ItemsMoveWithClick" << QVariant(true);
        QTest::newRow("Font") << "Font" << QVariant(font);
    }
    // Views made before and after the change both paint with it.
    void barHandsViewsItsLook()
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
                { "ShadowColor", QVariant::fromValue(look.colors.shadow & look.colors.highlight) },
                { "ItemDownForeColor", QVariant::fromValue(look.colors.downFore) },
                { "ItemsMoveWithClick", look.moveWithClick },
                { "Font", look.font },
            };
            QCOMPARE(seen.value(property), value);
        }
    }

    void hostedWindowFollowsItsItem()
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

    void hostChildWindow_data()
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
    // A hosted window outlives the view, parentless until its item gives it back.
    void hostChildWindow()
    {
        QFETCH(int, viewId);
        QFETCH(QString, window);
        QFETCH(bool, hosted);
        QWidget host;
        QWidget form;
        QPointer<QWidget> child = new QWidget(&form);
        auto *view = new ItemContainer(&host);
        QCOMPARE(view->addItemWindow(1, QString()), 1);
        QCOMPARE(view->addItemWindow(2, QString()), 2);
        view->removeItemWindow(2);
        view->removeItemWindow(2);
        QCOMPARE(view->MaxPhysItems(), 2);
        const quintptr handle = window == "child" ? quintptr(child->winId())
            : window == "host"                    ? quintptr(host.winId())
                                                  : 0;

        QCOMPARE(view->hostChildWindow(viewId, handle), hosted ? quintptr(form.winId()) : 0);
        QCOMPARE(child->parentWidget(), hosted ? static_cast<QWidget *>(view) : &form);
        QVERIFY(!host.parentWidget());
        delete view;
        QVERIFY(child);
        QCOMPARE(child->parentWidget(), hosted ? nullptr : &form);
        if (hosted)
            delete child;
    }

    void manyItemsPaint()
    {
        Shown shown(100000);
        QImage image(shown.view.size(), QImage::Format_ARGB32);
        image.fill(Qt::white);
        shown.view.render(&image);
        shown.events.clear();
        shown.view.Scroll(1, false);
        QCOMPARE(shown.events, (QStringList { "arrows:11", "ScrollDown" }));
        QCOMPARE(shown.view.TopItem(), 2);
        QVERIFY(shown.view.lastFullyVisiblePosition() < 10);
        QVERIFY(image.pixel(0, 0) != QColor(Qt::white).rgb());
    }
};

QTEST_MAIN(tst_ItemContainer)
#include "tst_itemcontainer.moc"
