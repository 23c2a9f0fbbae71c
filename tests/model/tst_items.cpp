#include "ModelTestSupport.h"
#include "RecordingControlLink.h"

#include <QtCore/QPointer>

using namespace OrrinQuiver;

class tst_Items : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        view = RecordingItemViewLink();
        control = RecordingControlLink();
        items = std::make_unique<Items>();
        items->setItemView(&view);
        items->setControl(&control);
    }

    void cleanup()
    {
        items.reset();
        flushDeletions();
    }

    void add_data()
    {
        QTest::addColumn<int>("existing");
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("viewPosition");

        QTest::newRow("empty header") << 0 << 0 << 1;
        QTest::newRow("one goes after the first") << 3 << 1 << 2;
        QTest::newRow("negative is shown first") << 3 << -5 << 1;
    }
    void add()
    {
        QFETCH(int, existing);
        QFETCH(int, index);
        QFETCH(int, viewPosition);

        fill(existing);
        Item *item = items->Add(index, QString(), QStringLiteral("New"), QStringLiteral("big"));
        QVERIFY(item);
        QCOMPARE(
            view.take(),
            (QStringList { QStringLiteral("addItemWindow(%1,New)").arg(viewPosition), "relayoutItems(false)",
                           QStringLiteral("redrawItem(%1)").arg(existing + 1) }));
        QCOMPARE(item->ToolTipText(), QStringLiteral("New"));
        QCOMPARE(item->ForeColor(), control.foreColor);
        QCOMPARE(item->MaskColor(), view.maskColor);
        QCOMPARE(item->Icon(), QVariant(QStringLiteral("big")));
        QCOMPARE(item->SmallIcon(), QVariant());
        CHECK_MODEL(*items);
    }

    // Generated keys are kept apart from keys of the host's own; they are found
    // in any letter case, and only as written.
    void generatedKeys()
    {
        Items alone;
        alone.Add();
        Item *second = alone.Add();
        QVERIFY(second);
        QCOMPARE(alone.withKey(QStringLiteral("new_item00002")), second);
        QCOMPARE(alone.withKey(QStringLiteral("NEW_ITEM2")), nullptr);
        QCOMPARE(alone.withKey(QStringLiteral("NEW_ITEM000002")), nullptr);
        second->setKey(QStringLiteral("mine"));
        QCOMPARE(alone.withKey(QStringLiteral("NEW_ITEM00002")), nullptr);
        QCOMPARE(alone.withKey(QStringLiteral("MINE")), second);
        QVERIFY(alone.Add(0, QStringLiteral("NEW_ITEM00004")));
        QCOMPARE(alone.Add()->Key(), QStringLiteral("NEW_ITEM00003"));
        QCOMPARE(alone.Add(), nullptr);
        CHECK_MODEL(alone);
    }

    void generatedKeysAtScale_data()
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
    void generatedKeysAtScale()
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
            CHECK_MODEL(alone);
        }
        for (int i = 0; i < skippedNumbers; ++i)
            alone.NextKey();
        for (int i = 0; i < added; ++i)
            QVERIFY(alone.Add());
        CHECK_MODEL(alone);
        QCOMPARE(alone.Count(), count - int(removals.size()) + added);
        for (const Item *item : alone)
            QCOMPARE(alone.Item(item->Key().toLower()), item);
        for (const QString &key : std::as_const(removed))
            QVERIFY(!alone.Exists(key));
        while (alone.Count() > 0) {
            alone.RemoveAt(alone.Count());
            CHECK_MODEL(alone);
        }
        flushDeletions();
    }

    void itemLifetimes_data()
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
    void itemLifetimes()
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
        CHECK_MODEL(alone);
        QCOMPARE(alone.Count(), 2 * count - int(gone.size()));
        for (const Item *item : alone)
            QCOMPARE(item->Caption(), QStringLiteral("c%1").arg(item->Tag().toInt()));
    }

    // A removed item stays usable, unlinked, until the event loop runs.
    void removedItem()
    {
        fill(3);
        Item *item = items->at(2);
        QVERIFY(items->Remove(QStringLiteral("k2")));
        QCOMPARE(view.take(), (QStringList { "removeItemWindow(2)", "relayoutItems(true)" }));
        item->setCaption(QStringLiteral("after"));
        item->setIndex(1);
        QCOMPARE(view.take(), QStringList());
        QCOMPARE(control.take(), QStringList());
    }

    void captions_data()
    {
        QTest::addColumn<QString>("toolTip");
        QTest::addColumn<QStringList>("captions");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("expectedToolTip");

        QTest::newRow("CR LF removed") << "" << QStringList { "A\r\nB\r\n" } << "AB"
                                       << "AB";
        QTest::newRow("lone LF stays") << "" << QStringList { "A\nB" } << "A\nB"
                                       << "A\nB";
        QTest::newRow("CR before CR LF stays") << "" << QStringList { "A\r\r\nB" } << "A\rB"
                                               << "A\rB";
        QTest::newRow("tool tip set apart stays") << "tip" << QStringList { "New" } << "New"
                                                  << "tip";
        QTest::newRow("tool tip set to the caption follows") << "Start" << QStringList { "Next" } << "Next"
                                                             << "Next";
        QTest::newRow("caption meets the tool tip, then both move") << "X" << QStringList { "X", "Y" } << "Y"
                                                                    << "Y";
        QTest::newRow("tool tip compared exactly") << "start" << QStringList { "Next" } << "Next"
                                                   << "start";
    }
    void captions()
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
        CHECK_MODEL(*items);
    }

    void setters_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QStringList>("viewCalls");
        QTest::addColumn<QStringList>("controlCalls");

        const QStringList none;
        QTest::newRow("Bold") << QByteArray("Bold") << QVariant(true)
                              << QStringList { "relayoutItems(false)" } << none;
        QTest::newRow("Caption") << QByteArray("Caption") << QVariant("x")
                                 << QStringList { "relayoutItems(false)" } << none;
        QTest::newRow("Enabled") << QByteArray("Enabled") << QVariant(false)
                                 << QStringList { "redrawItem(2)", "releaseMouseGrab()" } << none;
        QTest::newRow("ForeColor") << QByteArray("ForeColor") << QVariant(255u)
                                   << QStringList { "redrawItem(2)" } << none;
        QTest::newRow("MaskColor") << QByteArray("MaskColor") << QVariant(255u)
                                   << QStringList { "redrawItem(2)" } << none;
        QTest::newRow("ToolTipText") << QByteArray("ToolTipText") << QVariant("t")
                                     << QStringList { "redrawItem(2)" } << none;
        QTest::newRow("Icon") << QByteArray("Icon") << QVariant(3) << QStringList { "redrawItem(2)" } << none;
        QTest::newRow("Visible") << QByteArray("Visible") << QVariant(false)
                                 << QStringList { "relayoutItems(false)" } << none;
        QTest::newRow("Index unchanged") << QByteArray("Index") << QVariant(2) << none << none;
        QTest::newRow("Index moves") << QByteArray("Index") << QVariant(3)
                                     << QStringList { "relayoutItems(false)" } << none;
        QTest::newRow("URLIcon") << QByteArray("URLIcon") << QVariant("http://h/a.ico") << none
                                 << QStringList { "loadUrlIcon(http://h/a.ico,true)" };
        QTest::newRow("URLSmallIcon") << QByteArray("URLSmallIcon") << QVariant("b.png") << none
                                      << QStringList { "loadUrlIcon(b.png,false)" };
        QTest::newRow("Selected False selects") << QByteArray("Selected") << QVariant(false) << none
                                                << QStringList { "openHeader(7)", "selectItem(2)" };
    }
    void setters()
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
        items->Remove(item->Key());
        view.take();
        QVERIFY(item->setProperty(property, value));
        QCOMPARE(view.take(), QStringList());
        QCOMPARE(control.take(), QStringList());
        CHECK_MODEL(*items);
    }

    void clear()
    {
        fill(3);
        QPointer<Item> first = items->at(1);
        items->Clear();
        QCOMPARE(view.take(),
                 (QStringList { "removeItemWindow(3)", "removeItemWindow(2)", "removeItemWindow(1)",
                                "resetItems()" }));
        QCOMPARE(items->Count(), 0);
        QVERIFY(first);
        flushDeletions();
        QVERIFY(first.isNull());
        items->Clear();
        QCOMPARE(view.take(), QStringList());
        QCOMPARE(items->Add()->Index(), 1);
        CHECK_MODEL(*items);
    }

    void ensureVisible_data()
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
    void ensureVisible()
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
        CHECK_MODEL(*items);
    }

    void childWindow()
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
        QCOMPARE(view.take(),
                 (QStringList { "hostChildWindow(2,42)", "moveChildWindow(42,0,0,30,20)",
                                "relayoutItems(false)" }));
        // Removal gives the window back where it was on screen, correcting once
        // for where the move in parent coordinates landed.
        items->Remove(2);
        QCOMPARE(view.take(),
                 (QStringList { "setChildWindowParent(42,7)", "moveChildWindow(42,100,50,30,20)",
                                "moveChildWindow(42,95,45,30,20)", "removeItemWindow(2)",
                                "relayoutItems(true)" }));
        QCOMPARE(item->ChildhWnd(), quintptr(0));
        // A window that had no parent is not given back.
        items->at(1)->setChildhWnd(43);
        items->Remove(1);
        QCOMPARE(view.take(),
                 (QStringList { "hostChildWindow(1,43)", "moveChildWindow(43,0,0,0,0)",
                                "relayoutItems(false)", "removeItemWindow(1)", "relayoutItems(true)" }));
        CHECK_MODEL(*items);
    }

private:
    // Linked items keyed k1, k2, ... with captions c1, c2, ...

    void fill(int count)
    {
        for (int i = 1; i <= count; ++i)
            QVERIFY(items->Add(0, QStringLiteral("k%1").arg(i), QStringLiteral("c%1").arg(i)));
        view.take();
    }

    std::unique_ptr<Items> items;
    RecordingItemViewLink view;
    RecordingControlLink control;
};

QTEST_GUILESS_MAIN(tst_Items)
#include "tst_items.moc"
