#include "ModelTestSupport.h"
#include "RecordingControlLink.h"

#include <QtCore/QPointer>

using namespace OrrinQuiver;

class tst_Items : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void add_data();
    void add();
    void generatedKeys();
    void generatedKeysAtScale_data();
    void generatedKeysAtScale();
    void itemLifetimes_data();
    void itemLifetimes();
    void lookups_data();
    void lookups();
    void remove_data();
    void remove();
    void moveItem_data();
    void moveItem();
    void changeKey_data();
    void changeKey();
    void captions_data();
    void captions();
    void setters_data();
    void setters();
    void clear();
    void ensureVisible_data();
    void ensureVisible();
    void childWindow();

private:
    // Linked items keyed k1, k2, ... with captions c1, c2, ...
    void fill(int count);

    std::unique_ptr<Items> items;
    RecordingItemViewLink view;
    RecordingControlLink control;
};

void tst_Items::init()
{
    view = RecordingItemViewLink();
    control = RecordingControlLink();
    items = std::make_unique<Items>();
    items->setItemView(&view);
    items->setControl(&control);
}

void tst_Items::cleanup()
{
    items.reset();
    flushDeletions();
}

void tst_Items::fill(int count)
{
    for (int i = 1; i <= count; ++i)
        QVERIFY(items->Add(0, QStringLiteral("k%1").arg(i), QStringLiteral("c%1").arg(i)));
    view.take();
}

void tst_Items::add_data()
{
    QTest::addColumn<int>("existing");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QList<int>>("indexes");
    QTest::addColumn<int>("viewPosition");

    const QString n = QStringLiteral("NEW_ITEM00001");
    QTest::newRow("empty header") << 0 << 0 << QStringList { n } << QList<int> { 1 } << 1;
    QTest::newRow("zero appends") << 2 << 0 << QStringList { "k1", "k2", n } << QList<int> { 1, 2, 3 } << 3;
    QTest::newRow("one goes after the first")
        << 3 << 1 << QStringList { "k1", n, "k2", "k3" } << QList<int> { 1, 2, 3, 4 } << 2;
    QTest::newRow("above count appends")
        << 3 << 99 << QStringList { "k1", "k2", "k3", n } << QList<int> { 1, 2, 3, 4 } << 4;
    QTest::newRow("before the last, which keeps its Index")
        << 3 << 2 << QStringList { "k1", "k2", n, "k3" } << QList<int> { 1, 2, 3, 3 } << 3;
    QTest::newRow("negative onto one item: both Index 1")
        << 1 << -5 << QStringList { "k1", n } << QList<int> { 1, 1 } << 1;
    QTest::newRow("negative onto three items appends")
        << 3 << -5 << QStringList { "k1", "k2", "k3", n } << QList<int> { 1, 2, 3, 4 } << 1;
}

void tst_Items::add()
{
    QFETCH(int, existing);
    QFETCH(int, index);
    QFETCH(QStringList, keys);
    QFETCH(QList<int>, indexes);
    QFETCH(int, viewPosition);

    fill(existing);
    Item *item = items->Add(index, QString(), QStringLiteral("New"), QStringLiteral("big"));
    QVERIFY(item);
    QCOMPARE(keysOf(*items), keys);
    QCOMPARE(indexesOf(*items), indexes);
    QCOMPARE(view.take(),
             (QStringList { QStringLiteral("addItemWindow(%1,New)").arg(viewPosition), "relayoutItems(false)",
                            QStringLiteral("redrawItem(%1)").arg(existing + 1) }));
    QVERIFY(item->Enabled());
    QCOMPARE(item->ToolTipText(), QStringLiteral("New"));
    QCOMPARE(item->ForeColor(), control.foreColor);
    QCOMPARE(item->MaskColor(), view.maskColor);
    QCOMPARE(item->Icon(), QVariant(QStringLiteral("big")));
    QCOMPARE(item->SmallIcon(), QVariant());
    CHECK_ITEMS(*items);
}

void tst_Items::generatedKeys()
{
    Items alone;
    QCOMPARE(alone.Add()->Key(), QStringLiteral("NEW_ITEM00001"));
    QCOMPARE(alone.Add()->Key(), QStringLiteral("NEW_ITEM00002"));
    alone.Clear();
    QCOMPARE(alone.Add()->Key(), QStringLiteral("NEW_ITEM00003"));
    // Keys are unique whatever their letter case, generated ones included.
    QCOMPARE(alone.Add(0, QStringLiteral("new_item00004")) != nullptr, true);
    QCOMPARE(alone.Add(), nullptr);
    QCOMPARE(alone.Add(0, QStringLiteral("NEW_ITEM00003")), nullptr);
    QVERIFY(alone.Add(0, QStringLiteral("\u00C9mile")));
    QCOMPARE(alone.Add(0, QStringLiteral("\u00E9MILE")), nullptr);
    QCOMPARE(alone.Count(), 3);
    // Generated keys are found in any letter case, and only as written.
    Item *third = alone.at(1);
    QCOMPARE(alone.withKey(QStringLiteral("new_item00003")), third);
    QCOMPARE(alone.withKey(QStringLiteral("NEW_ITEM3")), nullptr);
    QCOMPARE(alone.withKey(QStringLiteral("NEW_ITEM000003")), nullptr);
    third->setKey(QStringLiteral("mine"));
    QCOMPARE(alone.withKey(QStringLiteral("NEW_ITEM00003")), nullptr);
    QCOMPARE(alone.withKey(QStringLiteral("MINE")), third);
    CHECK_ITEMS(alone);
    for (int i = 5; i < 99999; ++i)
        alone.NextKey();
    QCOMPARE(alone.NextKey(), QStringLiteral("ITEM99999"));
    QCOMPARE(alone.NextKey(), QStringLiteral("ITEM100000"));
}

void tst_Items::generatedKeysAtScale_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("removals");
    QTest::addColumn<int>("skippedNumbers");
    QTest::addColumn<int>("added");

    QList<int> front(250, 1);
    QList<int> everyOther;
    for (int p = 2; p <= 150; ++p)
        everyOther << p;
    QList<int> lastFirst;
    for (int p = 300; p >= 1; --p)
        lastFirst << p;
    QTest::newRow("removing from the front") << 300 << front << 0 << 20;
    QTest::newRow("middle removals, then more adds") << 300 << everyOther << 0 << 200;
    QTest::newRow("a far number after a gap") << 3 << QList<int> { 2 } << 500 << 3;
    QTest::newRow("the first removed after a gap") << 3 << QList<int> { 1, 1 } << 500 << 3;
    QTest::newRow("all removed, then adds") << 300 << lastFirst << 0 << 5;
}

void tst_Items::generatedKeysAtScale()
{
    QFETCH(int, count);
    QFETCH(QList<int>, removals);
    QFETCH(int, skippedNumbers);
    QFETCH(int, added);

    Items alone;
    for (int i = 0; i < count; ++i)
        alone.Add();
    QStringList removed;
    for (int position : removals) {
        removed << alone.at(position)->Key();
        alone.RemoveAt(position);
        CHECK_ITEMS(alone);
    }
    for (int i = 0; i < skippedNumbers; ++i)
        alone.NextKey();
    for (int i = 0; i < added; ++i)
        QVERIFY(alone.Add());
    CHECK_ITEMS(alone);
    QCOMPARE(alone.Count(), count - int(removals.size()) + added);
    for (const Item *item : alone)
        QCOMPARE(alone.Item(item->Key().toLower()), item);
    for (const QString &key : std::as_const(removed))
        QVERIFY(!alone.Exists(key));
    while (alone.Count() > 0) {
        alone.RemoveAt(alone.Count());
        CHECK_ITEMS(alone);
    }
    flushDeletions();
}

void tst_Items::itemLifetimes_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("stride");
    QTest::addColumn<bool>("deleteDirectly");

    // Items share slabs of a few hundred; these counts end inside one, at
    // its edge and a slot past it, and over several.
    QTest::newRow("one item, removed") << 1 << 1 << false;
    QTest::newRow("all of a slab's worth, deleted") << 744 << 1 << true;
    QTest::newRow("a slot past a slab, every other removed") << 745 << 2 << false;
    QTest::newRow("several slabs, every third deleted") << 2000 << 3 << true;
    QTest::newRow("several slabs, all removed") << 2000 << 1 << false;
}

void tst_Items::itemLifetimes()
{
    QFETCH(int, count);
    QFETCH(int, stride);
    QFETCH(bool, deleteDirectly);

    Items alone;
    QList<QPointer<Item>> gone;
    for (int i = 1; i <= count; ++i)
        alone.Add(0, QString(), QStringLiteral("c%1").arg(i))->setTag(i);
    for (int p = count - count % stride; p >= 1; p -= stride) {
        gone << alone.at(p);
        if (deleteDirectly)
            delete alone.at(p);
        else
            alone.RemoveAt(p);
    }
    flushDeletions();
    for (const QPointer<Item> &item : std::as_const(gone))
        QVERIFY(item.isNull());
    for (int i = 1; i <= count; ++i)
        alone.Add(0, QString(), QStringLiteral("c%1").arg(count + i))->setTag(count + i);
    CHECK_ITEMS(alone);
    QCOMPARE(alone.Count(), 2 * count - int(gone.size()));
    for (const Item *item : alone)
        QCOMPARE(item->Caption(), QStringLiteral("c%1").arg(item->Tag().toInt()));
}

void tst_Items::lookups_data()
{
    QTest::addColumn<QVariant>("index");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QString>("found");

    QTest::newRow("position") << QVariant(1) << true << "k1";
    QTest::newRow("position 0") << QVariant(0) << false << "";
    QTest::newRow("past the end") << QVariant(4) << false << "";
    QTest::newRow("half rounds to even") << QVariant(2.5) << true << "k2";
    QTest::newRow("fraction below 1 exists, finds nothing") << QVariant(0.7) << true << "";
    QTest::newRow("huge number") << QVariant(1e12) << false << "";
    QTest::newRow("True is -1") << QVariant(true) << false << "";
    QTest::newRow("empty") << QVariant() << false << "";
    QTest::newRow("key in another case") << QVariant("K2") << true << "k2";
    QTest::newRow("caption only") << QVariant("c2") << true << "";
    QTest::newRow("caption of one, key of another") << QVariant("C1") << true << "C1";
    QTest::newRow("digits are a text") << QVariant("2") << false << "";
    QTest::newRow("unknown") << QVariant("zz") << false << "";
}

void tst_Items::lookups()
{
    QFETCH(QVariant, index);
    QFETCH(bool, exists);
    QFETCH(QString, found);

    fill(2);
    items->Add(0, QStringLiteral("C1"), QStringLiteral("c3"));
    QCOMPARE(items->Exists(index), exists);
    Item *item = items->Item(index);
    QCOMPARE(item ? item->Key() : QString(), found);
    CHECK_ITEMS(*items);
}

void tst_Items::remove_data()
{
    QTest::addColumn<QVariant>("index");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QList<int>>("indexes");

    const QStringList all { "k1", "k2", "k3", "k4" };
    QTest::newRow("first") << QVariant(1) << true << QStringList { "k2", "k3", "k4" } << QList<int> { 1, 2, 3 };
    QTest::newRow("last") << QVariant(4) << true << QStringList { "k1", "k2", "k3" } << QList<int> { 1, 2, 3 };
    QTest::newRow("past the end reports True") << QVariant(1000) << true << all << QList<int> { 1, 2, 3, 4 };
    QTest::newRow("second to last by key: the last keeps its Index")
        << QVariant("K3") << true << QStringList { "k1", "k2", "k4" } << QList<int> { 1, 2, 4 };
    QTest::newRow("caption only") << QVariant("c2") << false << all << QList<int> { 1, 2, 3, 4 };
    QTest::newRow("unknown") << QVariant("zz") << false << all << QList<int> { 1, 2, 3, 4 };
}

void tst_Items::remove()
{
    QFETCH(QVariant, index);
    QFETCH(bool, result);
    QFETCH(QStringList, keys);
    QFETCH(QList<int>, indexes);

    fill(4);
    QPointer<Item> gone = items->Item(index);
    QCOMPARE(items->Remove(index), result);
    QCOMPARE(keysOf(*items), keys);
    QCOMPARE(indexesOf(*items), indexes);
    CHECK_ITEMS(*items);
    if (keys.size() == 4) {
        QCOMPARE(view.take(), QStringList());
        return;
    }
    QCOMPARE(view.take().first(), QStringLiteral("removeItemWindow(%1)").arg(gone->viewId()));
    // The removed item stays usable, unlinked, until the event loop runs.
    QVERIFY(!gone->isLive());
    gone->setCaption(QStringLiteral("after"));
    QCOMPARE(view.take(), QStringList());
    flushDeletions();
    QVERIFY(gone.isNull());
}

void tst_Items::moveItem_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("value");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QList<int>>("indexes");

    QTest::newRow("first to third") << 1 << 3 << QStringList { "k2", "k3", "k1", "k4" } << QList<int> { 1, 2, 3, 4 };
    QTest::newRow("last to first") << 4 << 1 << QStringList { "k4", "k1", "k2", "k3" } << QList<int> { 1, 2, 3, 4 };
    QTest::newRow("above count clamps to the end")
        << 2 << 99 << QStringList { "k1", "k3", "k4", "k2" } << QList<int> { 1, 2, 3, 4 };
    QTest::newRow("negative means 1") << 3 << -2 << QStringList { "k3", "k1", "k2", "k4" } << QList<int> { 1, 2, 3, 4 };
    QTest::newRow("zero goes first and renumbers nothing")
        << 3 << 0 << QStringList { "k3", "k1", "k2", "k4" } << QList<int> { 0, 1, 2, 4 };
}

void tst_Items::moveItem()
{
    QFETCH(int, from);
    QFETCH(int, value);
    QFETCH(QStringList, keys);
    QFETCH(QList<int>, indexes);

    fill(4);
    Item *item = items->at(from);
    item->setIndex(value);
    QCOMPARE(keysOf(*items), keys);
    QCOMPARE(indexesOf(*items), indexes);
    QCOMPARE(view.take(), QStringList { "relayoutItems(false)" });
    CHECK_ITEMS(*items);
}

void tst_Items::changeKey_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");

    QTest::newRow("free") << "fresh" << "fresh";
    QTest::newRow("own key in another case") << "K2" << "K2";
    QTest::newRow("own caption") << "c2" << "c2";
    QTest::newRow("another member's key") << "k3" << "ITEM00001";
    QTest::newRow("another member's caption") << "C1" << "ITEM00001";
    // While the member is out, the ones after it sit one place before their
    // cached Index, so the caption test misses the last one.
    QTest::newRow("last member's caption") << "C3" << "C3";
    QTest::newRow("empty") << "" << "ITEM00001";
}

void tst_Items::changeKey()
{
    QFETCH(QString, key);
    QFETCH(QString, stored);

    fill(3);
    Item *item = items->at(2);
    item->setKey(key);
    QCOMPARE(item->Key(), stored);
    QCOMPARE(keysOf(*items), (QStringList { "k1", stored, "k3" }));
    QCOMPARE(items->withKey(stored), item);
    QCOMPARE(items->Exists(QStringLiteral("k2")), key.compare(QLatin1String("k2"), Qt::CaseInsensitive) == 0);
    CHECK_ITEMS(*items);
}

void tst_Items::captions_data()
{
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QStringList>("captions");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("expectedToolTip");

    QTest::newRow("CR LF removed") << "" << QStringList { "A\r\nB\r\n" } << "AB" << "AB";
    QTest::newRow("lone LF stays") << "" << QStringList { "A\nB" } << "A\nB" << "A\nB";
    QTest::newRow("CR before CR LF stays") << "" << QStringList { "A\r\r\nB" } << "A\rB" << "A\rB";
    QTest::newRow("tool tip set apart stays") << "tip" << QStringList { "New" } << "New" << "tip";
    QTest::newRow("tool tip set to the caption follows") << "Start" << QStringList { "Next" } << "Next" << "Next";
    QTest::newRow("caption meets the tool tip, then both move")
        << "X" << QStringList { "X", "Y" } << "Y" << "Y";
    QTest::newRow("tool tip compared exactly") << "start" << QStringList { "Next" } << "Next" << "start";
}

void tst_Items::captions()
{
    QFETCH(QString, toolTip);
    QFETCH(QStringList, captions);
    QFETCH(QString, caption);
    QFETCH(QString, expectedToolTip);

    Item *item = items->Add(0, QString(), QStringLiteral("Start"));
    if (!toolTip.isEmpty())
        item->setToolTipText(toolTip);
    for (const QString &text : captions)
        item->setCaption(text);
    QCOMPARE(item->Caption(), caption);
    QCOMPARE(item->ToolTipText(), expectedToolTip);
    QVERIFY(items->Exists(caption));
    QCOMPARE(items->Exists(QStringLiteral("start")), caption == QLatin1String("Start"));
    CHECK_ITEMS(*items);
}

void tst_Items::setters_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("viewCalls");
    QTest::addColumn<QStringList>("controlCalls");

    const QStringList none;
    QTest::newRow("Bold") << QByteArray("Bold") << QVariant(true) << QStringList { "relayoutItems(false)" } << none;
    QTest::newRow("Caption") << QByteArray("Caption") << QVariant("x") << QStringList { "relayoutItems(false)" } << none;
    QTest::newRow("Enabled") << QByteArray("Enabled") << QVariant(false)
                             << QStringList { "redrawItem(2)", "releaseMouseGrab()" } << none;
    QTest::newRow("ForeColor") << QByteArray("ForeColor") << QVariant(255u) << QStringList { "redrawItem(2)" } << none;
    QTest::newRow("MaskColor") << QByteArray("MaskColor") << QVariant(255u) << QStringList { "redrawItem(2)" } << none;
    QTest::newRow("ToolTipText") << QByteArray("ToolTipText") << QVariant("t") << QStringList { "redrawItem(2)" } << none;
    QTest::newRow("Icon") << QByteArray("Icon") << QVariant(3) << QStringList { "redrawItem(2)" } << none;
    QTest::newRow("Visible") << QByteArray("Visible") << QVariant(false) << QStringList { "relayoutItems(false)" } << none;
    QTest::newRow("Tag") << QByteArray("Tag") << QVariant("data") << none << none;
    QTest::newRow("Index unchanged") << QByteArray("Index") << QVariant(2) << none << none;
    QTest::newRow("URLIcon") << QByteArray("URLIcon") << QVariant("http://h/a.ico") << none
                             << QStringList { "loadUrlIcon(http://h/a.ico,true)" };
    QTest::newRow("URLSmallIcon") << QByteArray("URLSmallIcon") << QVariant("b.png") << none
                                  << QStringList { "loadUrlIcon(b.png,false)" };
    QTest::newRow("Selected False selects") << QByteArray("Selected") << QVariant(false) << none
                                            << QStringList { "openHeader(7)", "selectItem(2)" };
}

void tst_Items::setters()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(QStringList, viewCalls);
    QFETCH(QStringList, controlCalls);

    fill(3);
    items->SetHeaderIndex(7);
    Item *item = items->at(2);
    QVERIFY(item->setProperty(property, value));
    QCOMPARE(view.take(), viewCalls);
    QCOMPARE(control.take(), controlCalls);
    if (property != "Selected")
        QCOMPARE(item->property(property), value);

    // Once removed, the item no longer reaches the view or the control.
    items->Remove(2);
    view.take();
    QVERIFY(item->setProperty(property, value));
    QCOMPARE(view.take(), QStringList());
    QCOMPARE(control.take(), QStringList());
    CHECK_ITEMS(*items);
}

void tst_Items::clear()
{
    fill(3);
    QPointer<Item> first = items->at(1);
    items->Clear();
    QCOMPARE(view.take(), (QStringList { "removeItemWindow(3)", "removeItemWindow(2)", "removeItemWindow(1)",
                                         "resetItems()" }));
    QCOMPARE(items->Count(), 0);
    QVERIFY(first);
    flushDeletions();
    QVERIFY(first.isNull());
    items->Clear();
    QCOMPARE(view.take(), QStringList());
    QCOMPARE(items->Add()->Index(), 1);
    CHECK_ITEMS(*items);
}

void tst_Items::ensureVisible_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("viewCount");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("expectedFirst");
    QTest::addColumn<int>("steps");

    QTest::newRow("visible already") << 1 << 10 << 2 << 1 << 0;
    QTest::newRow("below the view") << 1 << 10 << 6 << 4 << 3;
    QTest::newRow("above the view") << 5 << 10 << 2 << 2 << 3;
    QTest::newRow("out of the view's reach stops") << 1 << 5 << 8 << 3 << 3;
}

void tst_Items::ensureVisible()
{
    QFETCH(int, first);
    QFETCH(int, viewCount);
    QFETCH(int, position);
    QFETCH(int, expectedFirst);
    QFETCH(int, steps);

    fill(10);
    view.first = first;
    view.count = viewCount;
    items->at(position)->EnsureVisible();
    QCOMPARE(view.first, expectedFirst);
    QCOMPARE(view.take().size(), steps);
    CHECK_ITEMS(*items);
}

void tst_Items::childWindow()
{
    Items viewless;
    Item *loose = viewless.Add();
    loose->setChildhWnd(42);
    QCOMPARE(loose->ChildhWnd(), quintptr(0));

    fill(2);
    view.windows[42] = QRect(100, 50, 30, 20);
    view.formerParents[42] = 7;
    view.landingOffset = QPoint(5, 5);
    Item *item = items->at(2);
    item->setChildhWnd(42);
    QCOMPARE(item->ChildhWnd(), quintptr(42));
    QCOMPARE(view.take(), (QStringList { "hostChildWindow(2,42)", "moveChildWindow(42,0,0,30,20)",
                                         "relayoutItems(false)" }));
    // Removal gives the window back where it was on screen, correcting once
    // for where the move in parent coordinates landed.
    items->Remove(2);
    QCOMPARE(view.take(), (QStringList { "setChildWindowParent(42,7)", "moveChildWindow(42,100,50,30,20)",
                                         "moveChildWindow(42,95,45,30,20)", "removeItemWindow(2)",
                                         "relayoutItems(true)" }));
    QCOMPARE(item->ChildhWnd(), quintptr(0));
    // A window that had no parent is not given back.
    items->at(1)->setChildhWnd(43);
    items->Remove(1);
    QCOMPARE(view.take(), (QStringList { "hostChildWindow(1,43)", "moveChildWindow(43,0,0,0,0)",
                                         "relayoutItems(false)", "removeItemWindow(1)", "relayoutItems(true)" }));
    CHECK_ITEMS(*items);
}

QTEST_GUILESS_MAIN(tst_Items)
#include "tst_items.moc"
