#include "RecordingSoundOutput.h"

#include "control/HeaderStrip.h"
#include "control/Quiver.h"
#include "control/QuiverSounds.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"

#include <QtCore/QMimeData>
#include <QtGui/QDrag>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace OrrinQuiver;

// What the control makes of its item views' events: sounds, the selection,
// the host's item events, and header events from the views' empty space.
class tst_ItemRelay : public QObject
{
    Q_OBJECT

private slots:
    void click_data();
    void click();
    void dragEffect_data();
    void dragEffect();
    void forceRedraw();
    void scroll_data();
    void scroll();
};

// A shown bar of `headers` headers with the items a, b and c each, the last
// header open.
static void fill(Quiver &bar, int headers, bool alwaysShowFirstHeader = true)
{
    bar.InitProperties();
    bar.setSmoothScroll(false);
    bar.setAlwaysShowFirstHeader(alwaysShowFirstHeader);
    for (int h = 2; h <= headers; ++h)
        bar.Headers()->Add();
    for (Header *header : *bar.Headers()) {
        for (const char *key : { "a", "b", "c" })
            header->Items()->Add(0, QLatin1String(key), QLatin1String(key));
    }
    bar.Headers()->at(headers)->setSelected(true);
    bar.resize(200, 400);
    bar.show();
}

static ItemContainer *viewOf(const Header *header)
{
    return static_cast<ItemContainer *>(header->itemView());
}

static QWidget *barOf(Quiver &bar, const Header *header)
{
    return bar.findChild<HeaderStrip *>()->bar(header->barId());
}

void tst_ItemRelay::click_data()
{
    QTest::addColumn<int>("item"); // 0: the empty space below the items
    QTest::addColumn<int>("headers");
    QTest::addColumn<bool>("alwaysShowFirstHeader");
    QTest::addColumn<QString>("sounds"); // "system", "item" or "off"
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QString>("played");

    const QStringList clickB { "item down b", "changed CurrentItem", "item click b", "item up b" };
    QTest::newRow("item, system sound") << 2 << 1 << true << "system" << clickB << "MenuCommand";
    QTest::newRow("item, its own sound") << 2 << 1 << true << "item" << clickB << "WAVE";
    QTest::newRow("item, sounds off") << 2 << 1 << true << "off" << clickB << "";
    const QStringList headerOne { "header down 1", "header up 1" },
        headerTwo { "header down 2", "header up 2" };
    QTest::newRow("empty space") << 0 << 1 << true << "system" << headerOne << "";
    QTest::newRow("empty space, lone bar hidden") << 0 << 1 << false << "system" << headerOne << "";
    QTest::newRow("empty space, second of two") << 0 << 2 << true << "system" << headerTwo << "";
    QTest::newRow("empty space, second of two, first not always shown")
        << 0 << 2 << false << "system" << headerTwo << "";
}

// A click on an item selects it with its sound; a press over the open view's
// empty space is the open header's, moved into its bar, or into the control
// while its lone bar is hidden.
void tst_ItemRelay::click()
{
    QFETCH(int, item);
    QFETCH(int, headers);
    QFETCH(bool, alwaysShowFirstHeader);
    QFETCH(QString, sounds);
    QFETCH(QStringList, events);
    QFETCH(QString, played);

    Quiver bar;
    fill(bar, headers, alwaysShowFirstHeader);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    auto *output = new RecordingSoundOutput;
    auto *control = bar.findChild<QuiverSounds *>();
    control->setOutput(std::unique_ptr<SoundOutput>(output));
    control->downloadComplete(QStringLiteral("SoundItemURL"), "WAVE");
    bar.setUseSystemSounds(sounds == "system");
    bar.setPlaySounds(sounds != "off");

    QStringList log;
    QPointF headerPoint;
    const auto onItem = [&log](const char *what) {
        return [&log, what](Item *i, int, int, float, float) {
            log << QStringLiteral("item %1 %2").arg(what, i->Key());
        };
    };
    connect(&bar, &Quiver::ItemMouseDown, this, onItem("down"));
    connect(&bar, &Quiver::ItemMouseUp, this, onItem("up"));
    connect(&bar, &Quiver::ItemClick, this,
            [&log](Item *i) { log << QStringLiteral("item click ") + i->Key(); });
    connect(&bar, &Quiver::HeaderMouseDown, this, [&](Header *header, int, int, float x, float y) {
        log << QStringLiteral("header down %1").arg(header->Index());
        headerPoint = QPointF(x, y);
    });
    connect(&bar, &Quiver::HeaderMouseUp, this, [&log](Header *header, int, int, float, float) {
        log << QStringLiteral("header up %1").arg(header->Index());
    });
    connect(&bar, &Quiver::PropertyChanged, this,
            [&log](const QString &name) { log << QStringLiteral("changed ") + name; });

    Items *items = bar.SelectedHeader()->Items();
    ItemContainer *view = viewOf(bar.SelectedHeader());
    const QPoint at
        = item ? view->itemRect(items->at(item)->viewId()).center() : QPoint(20, view->height() - 5);
    QTest::mouseClick(view, Qt::LeftButton, {}, at);

    QCOMPARE(log, events);
    QCOMPARE(output->played.size(), played.isEmpty() ? 0 : 1);
    if (!played.isEmpty())
        QCOMPARE(output->played.first().event + QString::fromLatin1(output->played.first().wave), played);
    if (item) {
        QCOMPARE(bar.SelectedItem(), items->at(item));
        QCOMPARE(bar.Navigation()->itemKeys(), QStringList { "b" });
    } else {
        const QWidget *headerBar = barOf(bar, bar.SelectedHeader());
        QCOMPARE(headerBar->isVisible(), headers > 1 || alwaysShowFirstHeader);
        QCOMPARE(headerPoint,
                 QPointF(at + view->pos() - QPoint(0, headerBar->isVisible() ? headerBar->y() : 0)));
    }
}

void tst_ItemRelay::dragEffect_data()
{
    QTest::addColumn<bool>("overItem");
    QTest::addColumn<int>("effect"); // what the handler sets; -1 leaves it
    QTest::addColumn<int>("action"); // of the drag; -1: refused

    for (const bool overItem : { true, false }) {
        const char *where = overItem ? "item" : "empty space";
        // The proposed action, copy, unless the handler rules it out.
        QTest::addRow("%s, offered effects kept", where) << overItem << -1 << int(Qt::CopyAction);
        QTest::addRow("%s, move chosen", where) << overItem << int(Qt::MoveAction) << int(Qt::MoveAction);
        QTest::addRow("%s, no drop", where) << overItem << 0 << -1;
    }
}

// The Effect a slot writes is what the view makes of the drag, over an item
// and over the empty space alike; the empty space's reports are the open
// header's, their point moved into its bar as a press's is.
void tst_ItemRelay::dragEffect()
{
    QFETCH(bool, overItem);
    QFETCH(int, effect);
    QFETCH(int, action);

    Quiver bar;
    fill(bar, 2);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    ItemContainer *view = viewOf(bar.SelectedHeader());
    const QPoint at = overItem ? view->itemRect(bar.SelectedHeader()->Items()->at(2)->viewId()).center()
                               : QPoint(20, view->height() - 5);
    const QPointF inBar = at + view->pos() - QPoint(0, barOf(bar, bar.SelectedHeader())->y());
    QStringList log;
    QList<QPointF> points; // of the header's reports
    const auto seen = [&](const QString &what, int *chosen, std::optional<QPointF> point = {}) {
        log << what;
        if (point)
            points << *point;
        if (effect >= 0)
            *chosen = effect;
    };
    connect(&bar, &Quiver::ItemOLEDragOver, this,
            [&](Item *item, const QMimeData *, int *e, int, int, float, float, int state) {
                seen(QStringLiteral("item over %1 %2").arg(item->Key()).arg(state), e);
            });
    connect(&bar, &Quiver::HeaderOLEDragOver, this,
            [&](Header *header, const QMimeData *, int *e, int, int, float x, float y, int state) {
                seen(QStringLiteral("header %1 over %2").arg(header->Index()).arg(state), e, QPointF(x, y));
            });
    connect(&bar, &Quiver::ItemOLEDragDrop, this,
            [&](Item *item, const QMimeData *, int *e, int, int, float, float) {
                seen("item drop " + item->Key(), e);
            });
    connect(&bar, &Quiver::HeaderOLEDragDrop, this,
            [&](Header *header, const QMimeData *, int *e, int, int, float x, float y) {
                seen(QStringLiteral("header %1 drop").arg(header->Index()), e, QPointF(x, y));
            });

    // Which views take drops is the drop rules' to say; here this one does.
    view->setAcceptDrops(true);
    QMimeData data;
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, offered, &data, Qt::LeftButton, {});
    QDragMoveEvent move(at, offered, &data, Qt::LeftButton, {});
    QDropEvent drop(at, offered, &data, Qt::LeftButton, {});
    for (QDropEvent *event : std::initializer_list<QDropEvent *> { &enter, &move, &drop }) {
        QCoreApplication::sendEvent(view, event);
        if (event != &enter)
            QCOMPARE(event->isAccepted() ? int(event->dropAction()) : -1, action);
    }
    QCOMPARE(points, QList<QPointF>(overItem ? 0 : 3, inBar));
    QCOMPARE(log.join(", "),
             overItem ? "item over b 0, item over b 2, item drop b"
                      : "header 2 over 0, header 2 over 2, header 2 drop");
}

// The view asks for every bar drawn again: the bars take their places and
// lose colours a flash left on them.
void tst_ItemRelay::forceRedraw()
{
    Quiver bar;
    fill(bar, 2);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    auto *first = static_cast<HeaderBar *>(barOf(bar, bar.Headers()->at(1)));
    const QRect placed = first->geometry();
    first->setColors(0x0000FF, 0x00FF00);
    first->move(0, 300);

    emit viewOf(bar.Headers()->at(2))->ForceRedraw();
    QCOMPARE(first->geometry(), placed);
    QCOMPARE(QList<OLE_COLOR>({ first->backColor(), first->foreColor() }),
             QList<OLE_COLOR>(2, HeaderBar::DefaultColor));
}

void tst_ItemRelay::scroll_data()
{
    QTest::addColumn<int>("header");
    QTest::addColumn<int>("direction");

    QTest::newRow("open view, down") << 2 << 1;
    QTest::newRow("open view, up") << 2 << 0;
    QTest::newRow("closed view, down") << 1 << 1;
}

// ScrollUp and ScrollDown carry the header of the view that scrolled, also
// after headers moved and for a view that is not open.
void tst_ItemRelay::scroll()
{
    QFETCH(int, header);
    QFETCH(int, direction);

    Quiver bar;
    fill(bar, 2);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    Header *scrolled = bar.Headers()->at(header);
    bar.Headers()->Add(1);
    QList<QVariant> raised;
    connect(&bar, &Quiver::ScrollUp, this, [&](Header *h) { raised << "up" << QVariant::fromValue(h); });
    connect(&bar, &Quiver::ScrollDown, this, [&](Header *h) { raised << "down" << QVariant::fromValue(h); });

    viewOf(scrolled)->Scroll(direction, false);
    QCOMPARE(raised, (QList<QVariant> { direction ? "down" : "up", QVariant::fromValue(scrolled) }));
}

QTEST_MAIN(tst_ItemRelay)
#include "tst_itemrelay.moc"
