#include "QuiverTest.h"

#include "itemview/DrawItem.h"
#include "itemview/ItemContainer.h"
#include "itemview/ItemLook.h"

#include <QtCore/QHash>
#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtGui/QDropEvent>
#include <QtGui/QImage>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

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

// A bar with one header of three items A, B, C between two line edits; every
// event of its item view is written to `log` as "Event:item" (plus the
// command of a key event, the state of a drag over, the text and effect of a
// drop), in the order raised.
struct Bar
{
    Bar()
    {
        auto *column = new QVBoxLayout(&form);
        column->addWidget(before);
        column->addWidget(quiver, 1);
        column->addWidget(after);
        form.resize(200, 500);
        items = quiver->Headers()->Add(0, "H", "Header")->Items();
        for (const char *key : { "A", "B", "C" })
            items->Add(0, key, QStringLiteral("Item ") + key);
        view = quiver->findChild<ItemContainer *>();
        const auto note = [this](const char *event) {
            return [this, event](const QString &item) { log << QStringLiteral("%1:%2").arg(event, item); };
        };
        const auto mouse = [note](const char *event) {
            return [write = note(event)](const QString &item, int, int, float, float) { write(item); };
        };
        QObject::connect(view, &ItemContainer::MouseDown, mouse("MouseDown"));
        QObject::connect(view, &ItemContainer::MouseMove, mouse("MouseMove"));
        QObject::connect(view, &ItemContainer::MouseUp, mouse("MouseUp"));
        QObject::connect(view, &ItemContainer::ItemClick, note("ItemClick"));
        const auto key = [this](const QString &item, const QString &command, const bool *cancel) {
            log << QStringLiteral("ItemKeyEvent:%1:%2:%3").arg(item, command, *cancel ? "cancel" : "go");
        };
        QObject::connect(view, &ItemContainer::ItemKeyEvent, key);
        form.show();
        form.activateWindow();
    }
    // A point on the item at `position`: its centre, or its bottom edge row.
    QPoint on(int position, bool bottomEdge = false) const
    {
        const QRect rect = view->itemRect(position).translated(0, view->sliderTop());
        return bottomEdge ? QPoint(rect.center().x(), rect.top() + rect.height()) : rect.center();
    }
    bool ready()
    {
        return QTest::qWaitForWindowActive(&form)
            && QTest::qWaitFor([this] { return !view->itemRect(3).isEmpty(); });
    }
    // The setup of a row: "disable B", "design", "no focus", "style N" (the
    // look's style), "stay down N" (style N and StayDownWithClick) or nothing.
    void setUp(const QString &setup)
    {
        items->Item(2)->setEnabled(setup != QLatin1String("disable B"));
        view->setCanGetFocus(setup != QLatin1String("no focus"));
        view->setDesignMode(setup == QLatin1String("design"));
        view->setStayDownWithClick(setup.startsWith(QLatin1String("stay down")));
        if (setup.startsWith(QLatin1String("stay down")) || setup.startsWith(QLatin1String("style"))) {
            ItemLook look = view->look();
            look.style = qvStyle(setup.back().digitValue());
            view->setLook(look);
        }
    }
    bool focus(int current)
    {
        view->setCurrentItem(qint16(current));
        view->setFocus(Qt::TabFocusReason);
        return QTest::qWaitFor([this] { return view->hasFocus(); });
    }

    QWidget form;
    QLineEdit *before = new QLineEdit;
    Quiver *quiver = new Quiver;
    QLineEdit *after = new QLineEdit;
    Items *items = nullptr;
    ItemContainer *view = nullptr;
    QStringList log;
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
    // "hide N", "show N" (EnsureVisible), "width N", "smallIcons", "paint"
    // (the view paints its top-left pixel).
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
        row("down from the last item changes nothing", 5, { "down 5", "down" }, { -4, 5, 5, 42 });
        row("up after the items below went", 10, { "down 6", "keep 3", "up" }, { -1, 2, 3, 42 },
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
        row("many items", 100000, { "paint", "down" }, { -1, 2, 4, 42 }, { "arrows:11", "ScrollDown" });
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
            } else if (verb == QLatin1String("paint")) {
                QImage image(shown.view.size(), QImage::Format_RGB32);
                image.fill(Qt::white);
                shown.view.render(&image);
                QVERIFY(image.pixel(0, 0) != qRgb(255, 255, 255));
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
        Bar bar;
        QVERIFY(bar.ready());
        for (int step = 0; step < scrolled; ++step)
            bar.view->Scroll(1, false);
        const int y = bar.view->y() + rows * bar.view->itemRect(1).height() + offset;
        QCOMPARE(bar.quiver->HitTest(x, y), bar.items->at(expected));
        QCOMPARE(bar.quiver->GetFirstVisible(), bar.items->at(scrolled + 1));
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
        NewQuiver bar;
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

    void mouse_data()
    {
        // Positions; 0 is the background, a negative one the item's bottom edge.
        QTest::addColumn<int>("press");
        QTest::addColumn<int>("release");
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<QString>("setup");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<QList<int>>("current"); // CurrentItem after the press and the release; A is current

        const auto row = [](const char *name, int press, int release, const char *setup,
                            const QStringList &expected, const QList<int> &current = { 1 },
                            Qt::MouseButton button = Qt::LeftButton) {
            QTest::newRow(name) << press << release << button << QString::fromLatin1(setup) << expected
                                << current;
        };
        const QStringList clickB { "MouseDown:B", "ItemClick:B", "MouseUp:B" };
        const QStringList noClickB { "MouseDown:B", "MouseUp:B" };
        row("left click: click before up", 2, 2, "", clickB);
        row("right click", 2, 2, "", noClickB, { 1 }, Qt::RightButton);
        row("disabled item", 2, 2, "disable B", noClickB);
        row("release on another item", 2, 3, "", { "MouseDown:B", "MouseMove:B", "MouseUp:B" });
        row("press on the bottom edge", -2, -2, "", noClickB);
        row("background", 0, 0, "", { "MouseDown:", "MouseUp:" });
        row("design mode", 2, 2, "design", {});
        row("Visual Studio marks on the press", 2, 2, "stay down 4", clickB, { 2, 2 });
        row("Outlook marks on the release", 2, 2, "stay down 0", clickB, { 1, 2 });
        row("Visual Studio without the mark", 2, 2, "style 4", clickB);
    }
    // Without the mark the bar alone decides what a click makes current.
    void mouse()
    {
        QFETCH(int, press);
        QFETCH(int, release);
        QFETCH(Qt::MouseButton, button);
        QFETCH(QString, setup);
        QFETCH(QStringList, expected);
        QFETCH(QList<int>, current);
        Bar bar;
        QVERIFY(bar.ready());
        bar.setUp(setup);
        bar.view->setCurrentItem(1);
        const auto point = [&bar](int position) {
            return position == 0 ? QPoint(5, bar.view->height() - 2) : bar.on(qAbs(position), position < 0);
        };
        QTest::mousePress(bar.view, button, {}, point(press));
        QCOMPARE(bar.view->CurrentItem(), current[0]);
        if (release != press)
            QTest::mouseMove(bar.view, point(release));
        QTest::mouseRelease(bar.view, button, {}, point(release));
        QCOMPARE(bar.log, expected);
        if (current.size() > 1)
            QCOMPARE(bar.view->CurrentItem(), current[1]);
    }

    void hover_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("item");
        QTest::newRow("over an item: its own frame") << 2 << "B";
        QTest::newRow("below the last item: the view's frame") << 0 << "";
    }
    void hover()
    {
        QFETCH(int, position);
        QFETCH(QString, item);
        Bar bar;
        QVERIFY(bar.ready());
        QSignalSpy moves(bar.view, &ItemContainer::MouseMove);
        const QPoint point = position ? bar.on(position) + QPoint(3, 1) : QPoint(7, bar.view->height() - 3);
        QTest::mouseMove(bar.view, point);
        QTRY_COMPARE(moves.count(), 1);
        const QRect rect = bar.view->itemRect(position);
        const QPoint origin = position ? bar.on(position) - rect.center() + rect.topLeft() : QPoint();
        QCOMPARE(moves.at(0).at(0).toString(), item);
        QCOMPARE(moves.at(0).at(1).toInt(), 0);
        QCOMPARE(QPointF(moves.at(0).at(3).toFloat(), moves.at(0).at(4).toFloat()), QPointF(point - origin));
    }

    void keys_data()
    {
        QTest::addColumn<int>("focus");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("setup");
        QTest::addColumn<QString>("expected"); // the command for B, or the event raised
        QTest::addColumn<int>("focusAfter"); // -1: the line edit after the bar, -2: the one before

        const Qt::KeyboardModifiers none, ctrl = Qt::ControlModifier;
        QTest::newRow("Page Up") << 2 << Qt::Key_PageUp << none << "" << "SCROLL-" << 2;
        QTest::newRow("Ctrl+Page Up") << 2 << Qt::Key_PageUp << ctrl << "" << "Header-" << 2;
        QTest::newRow("Page Down") << 2 << Qt::Key_PageDown << none << "" << "SCROLL+" << 2;
        QTest::newRow("Ctrl+Page Down") << 2 << Qt::Key_PageDown << ctrl << "" << "Header+" << 2;
        QTest::newRow("Home") << 2 << Qt::Key_Home << none << "" << "MOVE-" << 2;
        QTest::newRow("Ctrl+Home") << 2 << Qt::Key_Home << ctrl << "" << "MOVEHeader-" << 2;
        QTest::newRow("End") << 2 << Qt::Key_End << none << "" << "MOVE+" << 2;
        QTest::newRow("Ctrl+End") << 2 << Qt::Key_End << ctrl << "" << "MOVEHeader+" << 2;
        QTest::newRow("Ctrl+Shift+End is no Ctrl") << 2 << Qt::Key_End << (ctrl | Qt::ShiftModifier) << ""
                                                   << "MOVE+" << 2;
        QTest::newRow("Space") << 2 << Qt::Key_Space << none << "" << "ItemClick:B" << 2;
        QTest::newRow("Ctrl+Enter") << 2 << Qt::Key_Return << ctrl << "" << "ItemClick:B" << 2;
        QTest::newRow("Space on a disabled item") << 2 << Qt::Key_Space << none << "disable B" << "" << 2;
        QTest::newRow("other key") << 2 << Qt::Key_X << none << "" << "" << 2;
        QTest::newRow("design mode") << 2 << Qt::Key_PageUp << none << "design" << "" << 2;
        QTest::newRow("Down") << 2 << Qt::Key_Down << none << "" << "" << 3;
        QTest::newRow("Up") << 2 << Qt::Key_Up << ctrl << "" << "" << 1;
        QTest::newRow("Down on the last") << 3 << Qt::Key_Down << none << "" << "" << 3;
        QTest::newRow("Up on the first") << 1 << Qt::Key_Up << none << "" << "" << 1;
        QTest::newRow("no current item: the top item") << 0 << Qt::Key_Down << none << "" << "" << 2;
        QTest::newRow("items cannot take the focus") << 2 << Qt::Key_Space << none << "no focus" << "" << 0;
        QTest::newRow("Tab leaves the control") << 0 << Qt::Key_Tab << none << "" << "" << -1;
        QTest::newRow("Shift+Tab leaves the control")
            << 0 << Qt::Key_Backtab << Qt::KeyboardModifiers(Qt::ShiftModifier) << "" << "" << -2;
    }
    // Taking the focus from the keyboard passes it to the current item.
    void keys()
    {
        QFETCH(int, focus);
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, setup);
        QFETCH(QString, expected);
        QFETCH(int, focusAfter);
        Bar bar;
        QVERIFY(bar.ready());
        bar.setUp(setup);
        if (focusAfter < 0)
            bar.quiver->setFocusPolicy(Qt::StrongFocus);
        QVERIFY(bar.focus(focus));
        QTest::keyClick(bar.view, key, modifiers);
        if (focusAfter < 0)
            QTRY_VERIFY((focusAfter == -1 ? bar.after : bar.before)->hasFocus());
        const bool command = !expected.isEmpty() && !expected.contains(u':');
        const QString logged = command ? QStringLiteral("ItemKeyEvent:B:%1:go").arg(expected) : expected;
        QCOMPARE(bar.log.join(u' '), logged);
        if (focusAfter >= 0)
            QCOMPARE(bar.view->focusPosition(), focusAfter);
    }

    void focusScrollsIntoView()
    {
        Bar bar;
        QVERIFY(bar.ready());
        while (bar.view->lastFullyVisiblePosition() >= bar.items->Count())
            bar.items->Add();
        const int last = bar.view->lastFullyVisiblePosition();
        QVERIFY(bar.focus(last));
        QTest::keyClick(bar.view, Qt::Key_Down);
        QCOMPARE(bar.view->focusPosition(), last + 1);
        QTRY_VERIFY(bar.view->lastFullyVisiblePosition() > last);
        QVERIFY(bar.view->firstVisiblePosition() > 1);
    }

    // Items that move under the mouse or keyboard state take none of it with
    // them: a release after a removal clicks nothing, and the focus stays
    // within the items that are left.
    void itemsMoveUnderTheState()
    {
        Bar bar;
        QVERIFY(bar.ready());
        QVERIFY(bar.focus(3));
        const QPoint second = bar.on(2);
        QTest::mousePress(bar.view, Qt::LeftButton, {}, second);
        bar.items->Remove(1);
        QCOMPARE(bar.view->focusPosition(), 2);
        QTest::mouseRelease(bar.view, Qt::LeftButton, {}, second);
        QVERIFY2(!bar.log.join(u' ').contains(QStringLiteral("ItemClick")), qPrintable(bar.log.join(u' ')));
    }

    // Only B takes a drag over it, as a move, and the drop becomes a copy; a
    // bar that allows no effect stops an item's own drag before it starts, and
    // the end is still reported.
    void drag()
    {
        Bar bar;
        QVERIFY(bar.ready());
        const auto over = [&bar](const QString &item, const QMimeData *, int *effect, int, int, float,
                                 float y, int state) {
            bar.log << QStringLiteral("%1:%2:%3").arg(item).arg(state).arg(y < 0 ? "out" : "in");
            *effect = item == "B" ? Qt::MoveAction : 0;
        };
        const auto drop = [&bar](const QString &item, const QMimeData *data, int *effect) {
            bar.log << QStringLiteral("drop:%1:%2:%3").arg(item, data->text()).arg(*effect);
            *effect = Qt::CopyAction;
        };
        const auto start = [&bar](const QString &item, QMimeData *data, int *allowed) {
            bar.log << QStringLiteral("start:%1:%2:%3").arg(item, data->text()).arg(*allowed);
            *allowed = 0;
        };
        const auto complete = [&bar](const QString &item, int effect) {
            bar.log << QStringLiteral("complete:%1:%2").arg(item).arg(effect);
        };
        QObject::connect(bar.view, &ItemContainer::ItemOLEDragOver, over);
        QObject::connect(bar.view, &ItemContainer::ItemOLEDragDrop, drop);
        QObject::connect(bar.view, &ItemContainer::ItemOLEStartDrag, start);
        QObject::connect(bar.view, &ItemContainer::ItemOLECompleteDrag, complete);
        bar.view->setAcceptDrops(true);
        QMimeData data;
        data.setText("dragged");
        const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(bar.on(1), offered, &data, Qt::LeftButton, {});
        QApplication::sendEvent(bar.view, &enter);
        QDragMoveEvent overA(bar.on(1), offered, &data, Qt::LeftButton, {});
        QApplication::sendEvent(bar.view, &overA);
        QVERIFY(!overA.isAccepted());
        QDragMoveEvent overB(bar.on(2), offered, &data, Qt::LeftButton, {});
        QApplication::sendEvent(bar.view, &overB);
        QVERIFY(overB.isAccepted());
        QCOMPARE(overB.dropAction(), Qt::MoveAction);
        QDropEvent dropped(bar.on(2), offered, &data, Qt::LeftButton, {});
        QApplication::sendEvent(bar.view, &dropped);
        QCOMPARE(dropped.dropAction(), Qt::CopyAction);
        bar.items->Item(2)->OLEDrag();
        QCOMPARE(bar.log, (QStringList { "A:0:in", "A:2:in", "A:1:in", "B:0:in", "drop:B:dragged:3",
                                         "start:B:Item B:3", "complete:B:0" }));
    }
};

QTEST_MAIN(tst_ItemContainer)
#include "tst_itemcontainer.moc"
