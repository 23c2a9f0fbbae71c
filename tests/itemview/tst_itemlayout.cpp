#include "itemview/ItemLayout.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;

namespace {

// Rows 10 pixels high whose Visible flags are written as a text: '1' shown,
// '0' hidden.
struct Rows
{
    explicit Rows(const QString &flags, int gap = 2)
    {
        for (const QChar c : flags)
            shown.push_back(c == QLatin1Char('1'));
        layout.setCount(int(shown.size()));
        layout.setRowHeight(10);
        layout.setGap(gap);
    }
    std::vector<bool> shown;
    ItemLayout layout { [this](int position) { return bool(shown.at(position - 1)); } };
};

} // namespace

class tst_ItemLayout : public QObject
{
    Q_OBJECT

private slots:
    void geometry_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("view");
        QTest::addColumn<int>("width");
        QTest::addColumn<QList<int>>("expected"); // mode, left, cell, gap

        QTest::newRow("outlookLarge") << 0 << 0 << 100 << QList { 2, 32, 36, 2 };
        QTest::newRow("outlookLarge35Truncates") << 2 << 0 << 35 << QList { 2, 0, 36, 2 };
        QTest::newRow("outlookLarge30Negative") << 0 << 0 << 30 << QList { 2, -3, 36, 2 };
        QTest::newRow("outlookXPSmall") << 2 << 1 << 100 << QList { 1, 0, 20, 2 };
        QTest::newRow("windows2000") << 1 << 0 << 100 << QList { 7, 32, 100, 0 };
        QTest::newRow("windowsXPSmallNarrow") << 3 << 1 << 31 << QList { 7, -2, 31, 0 };
        QTest::newRow("visualStudio") << 4 << 1 << 50 << QList { 0, 4, 50, 0 };
        QTest::newRow("styleAbove") << 5 << 0 << 100 << QList { 9, 9, 9, 0 };
        QTest::newRow("outlookUnknownView") << 0 << 2 << 100 << QList { 9, 9, 9, 0 };
    }
    void geometry()
    {
        QFETCH(int, style);
        QFETCH(int, view);
        QFETCH(int, width);
        QFETCH(QList<int>, expected);
        const IconGeometry g = iconGeometryFor(qvStyle(style), qvViewType(view), width, { 9, 9, 9 });
        const int gap = itemGap(qvStyle(style), qvViewType(view));
        QCOMPARE((QList { g.layoutMode, g.iconLeft, g.iconCellWidth, gap }), expected);
    }

    // Over the same rows: "tops" lists every top, then the surface height and
    // the tops of the positions given; "at" is positionAt(y), "range"
    // visibleRange(y0, y1), "arrow" isDownArrowNeeded(surfaceTop, viewHeight).
    void queries_data()
    {
        QTest::addColumn<QString>("flags");
        QTest::addColumn<int>("gap");
        QTest::addColumn<QString>("query");
        QTest::addColumn<QList<int>>("args");
        QTest::addColumn<QList<int>>("expected");

        const auto row = [](const char *name, const char *flags, int gap, const char *query, QList<int> args,
                            QList<int> expected) {
            QTest::newRow(name) << QString::fromLatin1(flags) << gap << QString::fromLatin1(query) << args
                                << expected;
        };
        row("tops: all shown", "111", 2, "tops", { 0, 4 }, { 0, 12, 24, 34, 0, 0 });
        row("tops: hidden first", "011", 2, "tops", {}, { 0, 0, 12, 22 });
        row("tops: hidden middle", "10101", 2, "tops", {}, { 0, 12, 12, 24, 24, 34 });
        row("tops: hidden end, no gap", "1100", 0, "tops", {}, { 0, 10, 20, 20, 30 });
        row("tops: all hidden", "000", 2, "tops", {}, { 0, 0, 0, 10 });
        row("tops: none", "", 2, "tops", { 1 }, { 0, 0 });
        row("at: shared edge, earlier wins", "111", 0, "at", { 10 }, { 1 });
        row("at: below shared edge", "111", 0, "at", { 11 }, { 2 });
        row("at: last bottom edge", "111", 0, "at", { 30 }, { 3 });
        row("at: below last", "111", 0, "at", { 31 }, { 0 });
        row("at: in gap", "111", 2, "at", { 11 }, { 0 });
        row("at: above", "111", 2, "at", { -1 }, { 0 });
        row("at: hidden before shown wins", "011", 2, "at", { 5 }, { 1 });
        row("at: hidden run, first wins", "10011", 2, "at", { 12 }, { 2 });
        row("at: hidden last", "10", 2, "at", { 22 }, { 2 });
        row("at: all hidden", "000", 2, "at", { 10 }, { 1 });
        row("at: none", "", 2, "at", { 0 }, { 0 });
        row("range: all", "1111", 2, "range", { 0, 100 }, { 1, 4 });
        row("range: starts inside second", "1111", 2, "range", { 21, 30 }, { 2, 3 });
        row("range: ends at a top", "1111", 2, "range", { 0, 24 }, { 1, 2 });
        row("range: only gap", "1111", 2, "range", { 10, 12 }, { 0, -1 });
        row("range: hidden ends skipped", "01110", 2, "range", { 0, 100 }, { 2, 4 });
        row("range: hidden inside skipped", "10011", 2, "range", { 0, 13 }, { 1, 4 });
        row("range: all hidden", "000", 2, "range", { 0, 100 }, { 0, -1 });
        row("range: above surface", "111", 2, "range", { -50, 0 }, { 0, -1 });
        row("arrow: no items", "", 2, "arrow", { 0, 0 }, { 0 });
        row("arrow: fits exactly", "111", 2, "arrow", { 0, 34 }, { 0 });
        row("arrow: one pixel short", "111", 2, "arrow", { 0, 33 }, { 1 });
        row("arrow: scrolled to end", "111", 2, "arrow", { -12, 22 }, { 0 });
        row("arrow: positive top counts as scrolled", "111", 2, "arrow", { 12, 22 }, { 0 });
        row("arrow: last hidden still counts", "110", 2, "arrow", { 0, 24 }, { 1 });
        row("arrow: all hidden, short view", "000", 2, "arrow", { 0, 9 }, { 1 });
        row("arrow: a sum past 16 bits does not wrap", "111", 2, "arrow", { -32000, 1000 }, { 0 });
    }
    void queries()
    {
        QFETCH(QString, flags);
        QFETCH(int, gap);
        QFETCH(QString, query);
        QFETCH(QList<int>, args);
        QFETCH(QList<int>, expected);
        const Rows rows(flags, gap);
        const ItemLayout &l = rows.layout;
        if (query == QLatin1String("tops")) {
            QList<int> tops;
            for (int p = 1; p <= l.count(); ++p)
                tops << l.top(p);
            tops << l.surfaceHeight();
            for (const int p : args)
                tops << l.top(p);
            QCOMPARE(tops, expected);
        } else if (query == QLatin1String("at")) {
            QCOMPARE(l.positionAt(args[0]), expected[0]);
        } else if (query == QLatin1String("range")) {
            QCOMPARE(l.visibleRange(args[0], args[1]), std::make_pair(expected[0], expected[1]));
        } else {
            QCOMPARE(int(l.isDownArrowNeeded(args[0], args[1])), expected[0]);
        }
        QVERIFY(l.checkInvariants());
    }

    void changes_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("from"); // first position that changed
        QTest::addColumn<int>("through"); // a count set on the way to the new one

        QTest::newRow("insertHiddenFirst") << "1111" << "01111" << 1 << 5;
        QTest::newRow("insertShownBeforeHidden") << "1101" << "11101" << 2 << 5;
        QTest::newRow("removeOnlyHidden") << "11011" << "1111" << 3 << 4;
        QTest::newRow("showAll") << "10001" << "11111" << 2 << 5;
        QTest::newRow("shrinkBelowHidden") << "110011" << "11" << 3 << 2;
        QTest::newRow("appendAfterHidden") << "101" << "10111" << 4 << 5;
        QTest::newRow("invalidateAll") << "0101" << "1010" << 0 << 4;
        QTest::newRow("changeAfterHidden") << "01111" << "01101" << 4 << 5;
        QTest::newRow("shrinkThenRegrow") << "1100" << "1111" << 99 << 2;
    }
    // The layout has read every item before the change; afterwards it must
    // see the new flags from the changed position on, and keep them through a
    // new row height and gap.
    void changes()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(int, from);
        QFETCH(int, through);
        Rows rows(before);
        rows.layout.surfaceHeight();
        const Rows expected(after);
        rows.shown = expected.shown;
        rows.layout.invalidateFrom(from);
        rows.layout.setCount(through);
        rows.layout.setCount(expected.layout.count());
        QVERIFY(rows.layout.checkInvariants());
        QCOMPARE(rows.layout.surfaceHeight(), expected.layout.surfaceHeight());
        rows.layout.setRowHeight(7);
        rows.layout.setGap(0);
        QVERIFY(rows.layout.checkInvariants());
    }

    void scrollClamps()
    {
        Rows rows(QStringLiteral("111"));
        rows.layout.setTopSlot(0);
        QCOMPARE(std::make_pair(rows.layout.topSlot(), rows.layout.slideDistance()), std::make_pair(1, 10));
        rows.layout.setTopSlot(4);
        QCOMPARE(rows.layout.slideDistance(), 0);
        rows.layout.setLastFullyVisibleSlot(-3);
        QCOMPARE(rows.layout.lastFullyVisibleSlot(), 1);
    }
};

QTEST_APPLESS_MAIN(tst_ItemLayout)
#include "tst_itemlayout.moc"
