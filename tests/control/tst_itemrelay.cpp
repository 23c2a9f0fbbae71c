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
};

void tst_ItemRelay::click_data()
{
    QTest::addColumn<int>("item"); // 0: the empty space below the items
    QTest::addColumn<QString>("sounds"); // "system", "item" or "off"
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QString>("played");

    const QStringList clickB { "item down b", "changed CurrentItem", "item click b", "item up b" };
    QTest::newRow("item, system sound") << 2 << "system" << clickB << "MenuCommand";
    QTest::newRow("item, its own sound") << 2 << "item" << clickB << "WAVE";
    QTest::newRow("item, sounds off") << 2 << "off" << clickB << "";
    QTest::newRow("empty space") << 0 << "system" << QStringList { "header down", "header up" } << "";
}

void tst_ItemRelay::click()
{
    QFETCH(int, item);
    QFETCH(QString, sounds);
    QFETCH(QStringList, events);
    QFETCH(QString, played);

    Quiver bar;
    bar.InitProperties();
    bar.setSmoothScroll(false);
    Items *items = bar.Headers()->at(1)->Items();
    for (const char *key : { "a", "b", "c" })
        items->Add(0, QLatin1String(key), QLatin1String(key));
    bar.resize(200, 400);
    bar.show();
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
    connect(&bar, &Quiver::HeaderMouseDown, this, [&](Header *, int, int, float x, float y) {
        log << QStringLiteral("header down");
        headerPoint = QPointF(x, y);
    });
    connect(&bar, &Quiver::HeaderMouseUp, this,
            [&log](Header *, int, int, float, float) { log << QStringLiteral("header up"); });
    connect(&bar, &Quiver::PropertyChanged, this,
            [&log](const QString &name) { log << QStringLiteral("changed ") + name; });

    auto *view = static_cast<ItemContainer *>(bar.SelectedHeader()->itemView());
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
        // Moved out of the view into the open header's bar.
        const QWidget *headerBar = bar.findChild<HeaderStrip *>()->bar(bar.SelectedHeader()->barId());
        QCOMPARE(headerPoint, QPointF(at + view->pos() - QPoint(0, headerBar->y())));
    }
}

QTEST_MAIN(tst_ItemRelay)
#include "tst_itemrelay.moc"
