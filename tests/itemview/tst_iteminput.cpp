#include "control/Quiver.h"
#include "itemview/ItemContainer.h"
#include "itemview/ItemLook.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

using namespace OrrinQuiver;

namespace {

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

class tst_ItemInput : public QObject
{
    Q_OBJECT

private slots:
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
        QTest::addColumn<int>("focusAfter");

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
        QVERIFY(bar.focus(focus));
        QTest::keyClick(bar.view, key, modifiers);
        const bool command = !expected.isEmpty() && !expected.contains(u':');
        const QString logged = command ? QStringLiteral("ItemKeyEvent:B:%1:go").arg(expected) : expected;
        QCOMPARE(bar.log.join(u' '), logged);
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

    void tabLeavesTheControl_data()
    {
        QTest::addColumn<bool>("forward");
        QTest::newRow("Tab") << true;
        QTest::newRow("Shift+Tab") << false;
    }
    void tabLeavesTheControl()
    {
        QFETCH(bool, forward);
        Bar bar;
        QVERIFY(bar.ready());
        bar.quiver->setFocusPolicy(Qt::StrongFocus);
        QVERIFY(bar.focus(0));
        QTest::keyClick(bar.view, forward ? Qt::Key_Tab : Qt::Key_Backtab,
                        forward ? Qt::NoModifier : Qt::ShiftModifier);
        QTRY_VERIFY((forward ? bar.after : bar.before)->hasFocus());
    }

    void dragOver()
    {
        Bar bar;
        QVERIFY(bar.ready());
        // Only B takes the drag, as a move; the drop becomes a copy.
        const auto over = [&bar](const QString &item, const QMimeData *, int *effect, int, int, float,
                                 float y, int state) {
            bar.log << QStringLiteral("%1:%2:%3").arg(item).arg(state).arg(y < 0 ? "out" : "in");
            *effect = item == "B" ? Qt::MoveAction : 0;
        };
        const auto drop = [&bar](const QString &item, const QMimeData *data, int *effect) {
            bar.log << QStringLiteral("drop:%1:%2:%3").arg(item, data->text()).arg(*effect);
            *effect = Qt::CopyAction;
        };
        QObject::connect(bar.view, &ItemContainer::ItemOLEDragOver, over);
        QObject::connect(bar.view, &ItemContainer::ItemOLEDragDrop, drop);
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
        QCOMPARE(bar.log, (QStringList { "A:0:in", "A:2:in", "A:1:in", "B:0:in", "drop:B:dragged:3" }));
    }

    // A bar that allows no effect stops the drag before it starts; the end is
    // still reported.
    void dragRefusedByTheBar()
    {
        Bar bar;
        QVERIFY(bar.ready());
        const auto start = [&bar](const QString &item, QMimeData *data, int *allowed) {
            bar.log << QStringLiteral("start:%1:%2:%3").arg(item, data->text()).arg(*allowed);
            *allowed = 0;
        };
        const auto complete = [&bar](const QString &item, int effect) {
            bar.log << QStringLiteral("complete:%1:%2").arg(item).arg(effect);
        };
        QObject::connect(bar.view, &ItemContainer::ItemOLEStartDrag, start);
        QObject::connect(bar.view, &ItemContainer::ItemOLECompleteDrag, complete);
        bar.items->Item(2)->OLEDrag();
        QCOMPARE(bar.log, (QStringList { "start:B:Item B:3", "complete:B:0" }));
    }
};

QTEST_MAIN(tst_ItemInput)
#include "tst_iteminput.moc"
