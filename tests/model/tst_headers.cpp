#include "ModelTestSupport.h"
#include "RecordingControlLink.h"

#include <QtCore/QPointer>

using namespace OrrinQuiver;

class tst_Headers : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        control = RecordingControlLink();
        headers = std::make_unique<Headers>(&control);
        control.headers = headers.get();
    }

    void cleanup()
    {
        headers.reset();
        flushDeletions();
    }

    void add_data()
    {
        QTest::addColumn<int>("existing");
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("position");

        // The control is given the position Add settled on before inserting.
        QTest::newRow("empty control") << 0 << 0 << 1;
        QTest::newRow("one") << 2 << 1 << 1;
        QTest::newRow("negative is one") << 2 << -3 << 1;
        QTest::newRow("above Count is Count + 1") << 2 << 9 << 3;
    }
    void add()
    {
        QFETCH(int, existing);
        QFETCH(int, index);
        QFETCH(int, position);

        fill(existing);
        Header *header = headers->Add(index, QString(), QStringLiteral("A\r\nB"), qvViewSmallIcons);
        QVERIFY(header);
        // Nothing reaches the control before the header is linked.
        QCOMPARE(control.take(),
                 (QStringList { QStringLiteral("createHeaderViews(%1,A\r\nB,1)").arg(position),
                                "relayoutStrip()" }));
        QCOMPARE(header->Caption(), QStringLiteral("A\r\nB"));
        QCOMPARE(header->ToolTipText(), header->Caption());
        QCOMPARE(header->barId(), existing + 1);
        QCOMPARE(header->Items()->itemView(), control.view(header->barId()));
        QCOMPARE(header->Items()->headerIndex(), position);
        QVERIFY(header->needsPaint());
        // A taken key reaches nothing.
        QCOMPARE(headers->Add(0, header->Key().toLower()), nullptr);
        QCOMPARE(control.take(), QStringList());
        CHECK_MODEL(*headers);
    }

    void remove_data()
    {
        QTest::addColumn<QVariant>("index");
        QTest::addColumn<QStringList>("calls");
        QTest::addColumn<int>("removed");

        QTest::newRow("first") << QVariant(1) << QStringList { "destroyHeaderViews(1,true)" } << 1;
        QTest::newRow("by caption") << QVariant("CAPTION 3") << QStringList { "destroyHeaderViews(3,true)" }
                                    << 3;
        QTest::newRow("past the end") << QVariant(7) << QStringList() << 0;
    }
    void remove()
    {
        QFETCH(QVariant, index);
        QFETCH(QStringList, calls);
        QFETCH(int, removed);

        fill(3);
        for (Header *header : *headers)
            header->Items()->Add();
        QPointer<Header> gone = headers->at(removed);
        QPointer<Item> goneItem = gone ? gone->Items()->at(1) : nullptr;
        headers->Remove(index);
        QCOMPARE(control.take(), calls);
        CHECK_MODEL(*headers);
        if (!removed)
            return;
        // A removed header and its items reach neither the control nor the view.
        RecordingItemViewLink *view = control.view(gone->barId());
        view->take();
        goneItem->setCaption(QStringLiteral("x"));
        gone->setCaption(QStringLiteral("y"));
        QCOMPARE(view->take(), QStringList());
        QCOMPARE(control.take(), QStringList());
        flushDeletions();
        QVERIFY(goneItem.isNull());
    }

    void clear()
    {
        fill(3);
        headers->Clear();
        // Only the last removal renumbers and lays the strip out.
        QCOMPARE(control.take(),
                 (QStringList { "destroyHeaderViews(3,false)", "destroyHeaderViews(2,false)",
                                "destroyHeaderViews(1,true)" }));
        QCOMPARE(headers->Count(), 0);
        headers->Clear();
        QCOMPARE(control.take(), QStringList());
        CHECK_MODEL(*headers);
    }

    void visible_data()
    {
        QTest::addColumn<int>("open");
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("value");
        QTest::addColumn<QStringList>("calls");

        QTest::newRow("hiding another header") << 1 << 2 << false << QStringList { "relayoutStrip()" };
        QTest::newRow("hiding the open one opens the next")
            << 2 << 2 << false << QStringList { "openHeader(3)" };
        QTest::newRow("hiding the open last opens the previous")
            << 3 << 3 << false << QStringList { "openHeader(2)" };
        QTest::newRow("with none open the first opens") << 0 << 2 << false << QStringList { "openHeader(1)" };
        QTest::newRow("unchanged") << 2 << 2 << true << QStringList();
    }
    void visible()
    {
        QFETCH(int, open);
        QFETCH(int, position);
        QFETCH(bool, value);
        QFETCH(QStringList, calls);

        fill(3);
        control.selectedPosition = open;
        headers->at(position)->setVisible(value);
        QCOMPARE(headers->at(position)->Visible(), value);
        QCOMPARE(control.take(), calls);
        CHECK_MODEL(*headers);
    }

    void setters_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QStringList>("calls");
        QTest::addColumn<QStringList>("viewCalls");

        const QStringList none;
        const QStringList redraw { "redrawHeaderBar(2)" };
        QTest::newRow("Caption") << QByteArray("Caption") << QVariant("c") << QVariant("c") << redraw << none;
        QTest::newRow("Enabled") << QByteArray("Enabled") << QVariant(false) << QVariant(false) << redraw
                                 << none;
        QTest::newRow("ToolTipText") << QByteArray("ToolTipText") << QVariant("t") << QVariant("t") << redraw
                                     << none;
        QTest::newRow("View small") << QByteArray("View") << QVariant(1) << QVariant(1)
                                    << QStringList { "relayoutStrip()" } << QStringList { "setView(1)" };
        QTest::newRow("View 5 stores large")
            << QByteArray("View") << QVariant(5) << QVariant(0) << QStringList { "relayoutStrip()" }
            << QStringList { "setView(0)" };
        QTest::newRow("View unchanged") << QByteArray("View") << QVariant(0) << QVariant(0) << none << none;
        QTest::newRow("Index moves") << QByteArray("Index") << QVariant(9) << QVariant(3)
                                     << QStringList { "redrawHeaderBar(2)", "relayoutStrip()" } << none;
        QTest::newRow("Selected False opens") << QByteArray("Selected") << QVariant(false) << QVariant(false)
                                              << QStringList { "openHeader(2)" } << none;
    }
    void setters()
    {
        QFETCH(QByteArray, property);
        QFETCH(QVariant, value);
        QFETCH(QVariant, stored);
        QFETCH(QStringList, calls);
        QFETCH(QStringList, viewCalls);

        fill(3);
        Header *header = headers->at(2);
        header->setNeedsPaint(false);
        QVERIFY(header->setProperty(property, value));
        QCOMPARE(header->property(property).toInt(), stored.toInt());
        QCOMPARE(control.take(), calls);
        QCOMPARE(control.view(2)->take(), viewCalls);
        QCOMPARE(header->needsPaint(), calls.contains(QStringLiteral("redrawHeaderBar(2)")));
        CHECK_MODEL(*headers);
    }

    void methods()
    {
        fill(2);
        Header *header = headers->at(2);
        header->Flash(true);
        QCOMPARE(header->flashColor(), OLE_COLOR(0x80000002));
        QCOMPARE(header->flashTextColor(), OLE_COLOR(0x80000009));
        header->Flash(false, 0xFF, 0xFF00);
        QCOMPARE(header->flashTextColor(), OLE_COLOR(0xFF00));
        header->OLEDrag();
        header->StartLabelEdit();
        control.xml = QStringLiteral("<x/>");
        QCOMPARE(header->property("XML").toString(), control.xml);
        header->setXML(QStringLiteral("<y/>"));
        QCOMPARE(control.take(),
                 (QStringList { "flashHeader(h2,true)", "flashHeader(h2,false)", "startHeaderDrag(2)",
                                "startHeaderLabelEdit(h2)", "setHeaderXml(<y/>)" }));
        control.selected = header;
        QVERIFY(header->Selected());
        QVERIFY(!headers->at(1)->Selected());
        CHECK_MODEL(*headers);
    }

    // A header passes its key and position on to its items; renumbering the
    // strip stores Index directly, so the items keep the position their header
    // last set.
    void headerKeyAndIndex()
    {
        fill(2);
        Item *item = headers->at(2)->Items()->Add();
        QCOMPARE(item->Parent(), headers->at(2));
        headers->at(2)->setKey(QStringLiteral("renamed"));
        QCOMPARE(headers->at(2)->Items()->headerKey(), QStringLiteral("renamed"));
        headers->Add(-1);
        QCOMPARE(headers->at(3)->Items()->at(1), item);
        QCOMPARE(item->Parent(), headers->at(2));
        headers->at(3)->setIndex(1);
        QCOMPARE(item->Parent(), headers->at(1));
        CHECK_MODEL(*headers);
    }

    void withoutControl()
    {
        Headers alone(nullptr);
        Header *header = alone.Add(0, QString(), QStringLiteral("one"));
        QCOMPARE(header->barId(), -1);
        QCOMPARE(header->XML(), QString());
        header->setXML(QStringLiteral("<x/>"));
        header->setSelected(true);
        header->setVisible(false);
        QVERIFY(!header->Selected());
        Item *item = header->Items()->Add(0, QString(), QStringLiteral("i"));
        item->setSelected(true);
        QCOMPARE(item->MaskColor(), OLE_COLOR(0xC0C0C0));
        QCOMPARE(item->ForeColor(), OLE_COLOR(0));
        QCOMPARE(item->Parent(), header);
        CHECK_MODEL(alone);
    }

private:
    // Headers keyed h1, h2, ... with captions "Caption 1", ...

    void fill(int count)
    {
        for (int i = 1; i <= count; ++i)
            QVERIFY(headers->Add(0, QStringLiteral("h%1").arg(i), QStringLiteral("Caption %1").arg(i)));
        control.take();
    }

    RecordingControlLink control;
    std::unique_ptr<Headers> headers;
};

QTEST_GUILESS_MAIN(tst_Headers)
#include "tst_headers.moc"
