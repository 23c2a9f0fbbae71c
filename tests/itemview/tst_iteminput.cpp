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
// command of a key event), in the order raised.
struct Bar
{
    Bar()
    {
        auto *column = new QVBoxLayout(&form);
        column->addWidget(before);
        column->addWidget(quiver, 1);
        column->addWidget(after);
        form.resize(200, 500);
        Items *items = quiver->Headers()->Add(0, "H", "Header")->Items();
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
        QObject::connect(
            view, &ItemContainer::ItemKeyEvent,
            [this](const QString &item, const QString &command, const bool *cancel) {
                log << QStringLiteral("ItemKeyEvent:%1:%2:%3").arg(item, command, *cancel ? "cancel" : "go");
            });
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

    QWidget form;
    QLineEdit *before = new QLineEdit;
    Quiver *quiver = new Quiver;
    QLineEdit *after = new QLineEdit;
    ItemContainer *view = nullptr;
    QStringList log;
};

} // namespace

class tst_ItemInput : public QObject
{
    Q_OBJECT

private slots:
    void mouse_data();
    void mouse();
    void hover_data();
    void hover();
    void staysDown_data();
    void staysDown();
    void keys_data();
    void keys();
    void focusScrollsIntoView();
    void tabLeavesTheControl_data();
    void tabLeavesTheControl();
    void dragOver();
    void dragRefusedByTheBar();
};

void tst_ItemInput::mouse_data()
{
    // Positions; 0 is the background, a negative one the item's bottom edge.
    QTest::addColumn<int>("press");
    QTest::addColumn<int>("release");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<QString>("setup");
    QTest::addColumn<QStringList>("expected");

    const QStringList clickB { "MouseDown:B", "ItemClick:B", "MouseUp:B" };
    const QStringList noClickB { "MouseDown:B", "MouseUp:B" };
    QTest::newRow("left click: click before up") << 2 << 2 << Qt::LeftButton << "" << clickB;
    QTest::newRow("right click") << 2 << 2 << Qt::RightButton << "" << noClickB;
    QTest::newRow("disabled item") << 2 << 2 << Qt::LeftButton << "disable B" << noClickB;
    QTest::newRow("release on another item")
        << 2 << 3 << Qt::LeftButton << "" << QStringList { "MouseDown:B", "MouseMove:B", "MouseUp:B" };
    QTest::newRow("press on the bottom edge") << -2 << -2 << Qt::LeftButton << "" << noClickB;
    QTest::newRow("background") << 0 << 0 << Qt::LeftButton << "" << QStringList { "MouseDown:", "MouseUp:" };
    QTest::newRow("design mode") << 2 << 2 << Qt::LeftButton << "design" << QStringList();
}

void tst_ItemInput::mouse()
{
    QFETCH(int, press);
    QFETCH(int, release);
    QFETCH(Qt::MouseButton, button);
    QFETCH(QString, setup);
    QFETCH(QStringList, expected);
    Bar bar;
    QVERIFY(bar.ready());
    bar.quiver->Headers()->Item(1)->Items()->Item(2)->setEnabled(setup != "disable B");
    bar.view->setDesignMode(setup == "design");
    const auto point = [&bar](int position) {
        return position == 0 ? QPoint(5, bar.view->height() - 2) : bar.on(qAbs(position), position < 0);
    };
    QTest::mousePress(bar.view, button, {}, point(press));
    if (release != press)
        QTest::mouseMove(bar.view, point(release));
    QTest::mouseRelease(bar.view, button, {}, point(release));
    QCOMPARE(bar.log, expected);
}

void tst_ItemInput::hover_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("item");

    QTest::newRow("over an item: its own frame") << 2 << "B";
    QTest::newRow("below the last item: the view's frame") << 0 << "";
}

void tst_ItemInput::hover()
{
    QFETCH(int, position);
    QFETCH(QString, item);
    Bar bar;
    QVERIFY(bar.ready());
    QSignalSpy moves(bar.view, &ItemContainer::MouseMove);
    const QPoint point = position ? bar.on(position) + QPoint(3, 1) : QPoint(7, bar.view->height() - 3);
    QTest::mouseMove(bar.view, point);
    QTRY_COMPARE(moves.count(), 1);
    const QPoint origin
        = position ? bar.view->itemRect(position).translated(0, bar.view->sliderTop()).topLeft() : QPoint();
    QCOMPARE(moves.at(0).at(0).toString(), item);
    QCOMPARE(moves.at(0).at(1).toInt(), 0);
    QCOMPARE(QPointF(moves.at(0).at(3).toFloat(), moves.at(0).at(4).toFloat()), QPointF(point - origin));
}

void tst_ItemInput::staysDown_data()
{
    QTest::addColumn<qvStyle>("style");
    QTest::addColumn<bool>("stayDown");
    QTest::addColumn<int>("afterPress");

    QTest::newRow("Visual Studio marks on the press") << qvStyleVisualStudio << true << 2;
    QTest::newRow("Outlook marks on the release") << qvStyleOutlook << true << 1;
    QTest::newRow("no stays-down") << qvStyleVisualStudio << false << 1;
}

void tst_ItemInput::staysDown()
{
    QFETCH(qvStyle, style);
    QFETCH(bool, stayDown);
    QFETCH(int, afterPress);
    Bar bar;
    QVERIFY(bar.ready());
    ItemLook look = bar.view->look();
    look.style = style;
    bar.view->setLook(look);
    bar.view->setStayDownWithClick(stayDown);
    bar.view->setCurrentItem(1);
    QTest::mousePress(bar.view, Qt::LeftButton, {}, bar.on(2));
    QCOMPARE(bar.view->CurrentItem(), afterPress);
    QTest::mouseRelease(bar.view, Qt::LeftButton, {}, bar.on(2));
    // Without the mark the bar alone decides what a click makes current.
    if (stayDown)
        QCOMPARE(bar.view->CurrentItem(), 2);
}

void tst_ItemInput::keys_data()
{
    QTest::addColumn<int>("focus");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("setup");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("focusAfter");

    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
    const auto command
        = [](const char *text) { return QStringList { QStringLiteral("ItemKeyEvent:B:%1:go").arg(text) }; };
    QTest::newRow("Page Up") << 2 << Qt::Key_PageUp << none << "" << command("SCROLL-") << 2;
    QTest::newRow("Ctrl+Page Up") << 2 << Qt::Key_PageUp << ctrl << "" << command("Header-") << 2;
    QTest::newRow("Page Down") << 2 << Qt::Key_PageDown << none << "" << command("SCROLL+") << 2;
    QTest::newRow("Ctrl+Page Down") << 2 << Qt::Key_PageDown << ctrl << "" << command("Header+") << 2;
    QTest::newRow("Home") << 2 << Qt::Key_Home << none << "" << command("MOVE-") << 2;
    QTest::newRow("Ctrl+Home") << 2 << Qt::Key_Home << ctrl << "" << command("MOVEHeader-") << 2;
    QTest::newRow("End") << 2 << Qt::Key_End << none << "" << command("MOVE+") << 2;
    QTest::newRow("Ctrl+End") << 2 << Qt::Key_End << ctrl << "" << command("MOVEHeader+") << 2;
    QTest::newRow("Ctrl+Shift+End is no Ctrl")
        << 2 << Qt::Key_End << (ctrl | Qt::ShiftModifier) << "" << command("MOVE+") << 2;
    QTest::newRow("Space") << 2 << Qt::Key_Space << none << "" << QStringList { "ItemClick:B" } << 2;
    QTest::newRow("Ctrl+Enter") << 2 << Qt::Key_Return << ctrl << "" << QStringList { "ItemClick:B" } << 2;
    QTest::newRow("Space on a disabled item")
        << 2 << Qt::Key_Space << none << "disable B" << QStringList() << 2;
    QTest::newRow("other key") << 2 << Qt::Key_X << none << "" << QStringList() << 2;
    QTest::newRow("design mode") << 2 << Qt::Key_PageUp << none << "design" << QStringList() << 2;
    QTest::newRow("Down") << 2 << Qt::Key_Down << none << "" << QStringList() << 3;
    QTest::newRow("Up") << 2 << Qt::Key_Up << ctrl << "" << QStringList() << 1;
    QTest::newRow("Down on the last") << 3 << Qt::Key_Down << none << "" << QStringList() << 3;
    QTest::newRow("Up on the first") << 1 << Qt::Key_Up << none << "" << QStringList() << 1;
    QTest::newRow("no current item: the top item") << 0 << Qt::Key_Down << none << "" << QStringList() << 2;
    QTest::newRow("items cannot take the focus")
        << 2 << Qt::Key_Space << none << "no focus" << QStringList() << 0;
}

void tst_ItemInput::keys()
{
    QFETCH(int, focus);
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, setup);
    QFETCH(QStringList, expected);
    QFETCH(int, focusAfter);
    Bar bar;
    QVERIFY(bar.ready());
    bar.quiver->Headers()->Item(1)->Items()->Item(2)->setEnabled(setup != "disable B");
    bar.view->setCanGetFocus(setup != "no focus");
    // Taking the focus from the keyboard passes it to the current item.
    bar.view->setCurrentItem(qint16(focus));
    bar.view->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(bar.view->hasFocus());
    bar.view->setDesignMode(setup == "design");
    QTest::keyClick(bar.view, key, modifiers);
    QCOMPARE(bar.log, expected);
    QCOMPARE(bar.view->focusPosition(), focusAfter);
}

void tst_ItemInput::focusScrollsIntoView()
{
    Bar bar;
    QVERIFY(bar.ready());
    Items *items = bar.quiver->Headers()->Item(1)->Items();
    while (bar.view->lastFullyVisiblePosition() >= items->Count())
        items->Add();
    const int last = bar.view->lastFullyVisiblePosition();
    bar.view->setCurrentItem(qint16(last));
    bar.view->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(bar.view->hasFocus());
    QTest::keyClick(bar.view, Qt::Key_Down);
    QCOMPARE(bar.view->focusPosition(), last + 1);
    QTRY_VERIFY(bar.view->lastFullyVisiblePosition() > last);
    QVERIFY(bar.view->firstVisiblePosition() > 1);
}

void tst_ItemInput::tabLeavesTheControl_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("forward");

    QTest::newRow("Tab") << Qt::KeyboardModifiers() << true;
    QTest::newRow("Shift+Tab") << Qt::KeyboardModifiers(Qt::ShiftModifier) << false;
}

void tst_ItemInput::tabLeavesTheControl()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(bool, forward);
    Bar bar;
    QVERIFY(bar.ready());
    bar.quiver->setFocusPolicy(Qt::StrongFocus);
    bar.view->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(bar.view->hasFocus());
    QTest::keyClick(bar.view, forward ? Qt::Key_Tab : Qt::Key_Backtab, modifiers);
    QTRY_VERIFY((forward ? bar.after : bar.before)->hasFocus());
}

void tst_ItemInput::dragOver()
{
    Bar bar;
    QVERIFY(bar.ready());
    QStringList drags;
    QObject::connect(
        bar.view, &ItemContainer::ItemOLEDragOver,
        [&drags](const QString &item, const QMimeData *, int *effect, int, int, float, float y, int state) {
            drags << QStringLiteral("%1:%2:%3").arg(item).arg(state).arg(y >= 0 ? "in" : "out");
            *effect = item == "B" ? Qt::MoveAction : 0;
        });
    QObject::connect(
        bar.view, &ItemContainer::ItemOLEDragDrop,
        [&drags](const QString &item, const QMimeData *data, int *effect, int, int, float, float) {
            drags << QStringLiteral("drop:%1:%2:%3").arg(item, data->text()).arg(*effect);
            *effect = Qt::CopyAction;
        });
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
    QDropEvent drop(bar.on(2), offered, &data, Qt::LeftButton, {});
    QApplication::sendEvent(bar.view, &drop);
    QCOMPARE(drop.dropAction(), Qt::CopyAction);
    QCOMPARE(drags, (QStringList { "A:0:in", "A:2:in", "A:1:in", "B:0:in", "drop:B:dragged:3" }));
}

// A bar that allows no effect stops the drag before it starts; the end is
// still reported.
void tst_ItemInput::dragRefusedByTheBar()
{
    Bar bar;
    QVERIFY(bar.ready());
    QStringList drags;
    QObject::connect(bar.view, &ItemContainer::ItemOLEStartDrag,
                     [&drags](const QString &item, QMimeData *data, int *allowed) {
                         drags << QStringLiteral("start:%1:%2:%3").arg(item, data->text()).arg(*allowed);
                         *allowed = 0;
                     });
    QObject::connect(bar.view, &ItemContainer::ItemOLECompleteDrag,
                     [&drags](const QString &item, int effect) {
                         drags << QStringLiteral("complete:%1:%2").arg(item).arg(effect);
                     });
    bar.quiver->Headers()->Item(1)->Items()->Item(2)->OLEDrag();
    QCOMPARE(drags, (QStringList { "start:B:Item B:3", "complete:B:0" }));
}

QTEST_MAIN(tst_ItemInput)
#include "tst_iteminput.moc"
