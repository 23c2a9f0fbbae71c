#include "itemview/ItemLayout.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;

namespace {

// Items whose Visible flags are written as a text: '1' shown, '0' hidden.
struct Rows
{
    explicit Rows(const QString &flags, int height = 10, int gap = 2)
    {
        for (const QChar c : flags)
            shown.push_back(c == QLatin1Char('1'));
        layout.setCount(int(shown.size()));
        layout.setRowHeight(height);
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
        QTest::newRow("outlookLarge36") << 0 << 0 << 36 << QList { 2, 0, 36, 2 };
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
        QCOMPARE((QList { g.layoutMode, g.iconLeft, g.iconCellWidth, itemGap(qvStyle(style), qvViewType(view)) }),
                 expected);
    }

    void stacking_data()
    {
        QTest::addColumn<QString>("flags");
        QTest::addColumn<int>("gap");
        QTest::addColumn<QList<int>>("tops");
        QTest::addColumn<int>("height");

        QTest::newRow("allShown") << "111" << 2 << QList { 0, 12, 24 } << 34;
        QTest::newRow("noGap") << "111" << 0 << QList { 0, 10, 20 } << 30;
        QTest::newRow("hiddenFirst") << "011" << 2 << QList { 0, 0, 12 } << 22;
        QTest::newRow("hiddenMiddle") << "10101" << 2 << QList { 0, 12, 12, 24, 24 } << 34;
        QTest::newRow("hiddenEnd") << "1100" << 0 << QList { 0, 10, 20, 20 } << 30;
        QTest::newRow("allHidden") << "000" << 2 << QList { 0, 0, 0 } << 10;
        QTest::newRow("none") << "" << 2 << QList<int>() << 0;
    }

    void stacking()
    {
        QFETCH(QString, flags);
        QFETCH(int, gap);
        QFETCH(QList<int>, tops);
        QFETCH(int, height);
        Rows rows(flags, 10, gap);
        QList<int> actual;
        for (int p = 1; p <= rows.layout.count(); ++p) {
            actual << rows.layout.top(p);
            QCOMPARE(rows.layout.isVisible(p), flags.at(p - 1) == QLatin1Char('1'));
        }
        QCOMPARE(actual, tops);
        QCOMPARE(rows.layout.surfaceHeight(), height);
        QCOMPARE(rows.layout.top(0), 0);
        QCOMPARE(rows.layout.top(rows.layout.count() + 1), 0);
        QVERIFY(rows.layout.checkInvariants());
    }

    void positionAt_data()
    {
        QTest::addColumn<QString>("flags");
        QTest::addColumn<int>("gap");
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("expected");

        QTest::newRow("sharedEdgeEarlierWins") << "111" << 0 << 10 << 1;
        QTest::newRow("belowSharedEdge") << "111" << 0 << 11 << 2;
        QTest::newRow("lastBottomEdge") << "111" << 0 << 30 << 3;
        QTest::newRow("belowLast") << "111" << 0 << 31 << 0;
        QTest::newRow("inGap") << "111" << 2 << 11 << 0;
        QTest::newRow("afterGap") << "111" << 2 << 12 << 2;
        QTest::newRow("above") << "111" << 2 << -1 << 0;
        QTest::newRow("hiddenBeforeShownWins") << "011" << 2 << 5 << 1;
        QTest::newRow("hiddenRunFirstWins") << "10011" << 2 << 12 << 2;
        QTest::newRow("hiddenLast") << "10" << 2 << 22 << 2;
        QTest::newRow("allHidden") << "000" << 2 << 10 << 1;
        QTest::newRow("none") << "" << 2 << 0 << 0;
    }

    void positionAt()
    {
        QFETCH(QString, flags);
        QFETCH(int, gap);
        QFETCH(int, y);
        QFETCH(int, expected);
        Rows rows(flags, 10, gap);
        QCOMPARE(rows.layout.positionAt(y), expected);
    }

    void visibleRange_data()
    {
        QTest::addColumn<QString>("flags");
        QTest::addColumn<int>("y0");
        QTest::addColumn<int>("y1");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");

        QTest::newRow("all") << "1111" << 0 << 100 << 1 << 4;
        QTest::newRow("startsInsideSecond") << "1111" << 21 << 30 << 2 << 3;
        QTest::newRow("endsAtATop") << "1111" << 0 << 24 << 1 << 2;
        QTest::newRow("onlyGap") << "1111" << 10 << 12 << 0 << -1;
        QTest::newRow("hiddenEndsSkipped") << "01110" << 0 << 100 << 2 << 4;
        QTest::newRow("hiddenInsideSkipped") << "10011" << 0 << 13 << 1 << 4;
        QTest::newRow("allHidden") << "000" << 0 << 100 << 0 << -1;
        QTest::newRow("aboveSurface") << "111" << -50 << 0 << 0 << -1;
    }

    void visibleRange()
    {
        QFETCH(QString, flags);
        QFETCH(int, y0);
        QFETCH(int, y1);
        QFETCH(int, first);
        QFETCH(int, last);
        Rows rows(flags);
        QCOMPARE(rows.layout.visibleRange(y0, y1), std::make_pair(first, last));
    }

    void downArrow_data()
    {
        QTest::addColumn<QString>("flags");
        QTest::addColumn<int>("surfaceTop");
        QTest::addColumn<int>("viewHeight");
        QTest::addColumn<bool>("expected");

        QTest::newRow("noItems") << "" << 0 << 0 << false;
        QTest::newRow("fitsExactly") << "111" << 0 << 34 << false;
        QTest::newRow("onePixelShort") << "111" << 0 << 33 << true;
        QTest::newRow("scrolledToEnd") << "111" << -12 << 22 << false;
        QTest::newRow("positiveTopCountsAsScrolled") << "111" << 12 << 22 << false;
        QTest::newRow("lastHiddenStillCounts") << "110" << 0 << 24 << true;
        QTest::newRow("allHiddenShortView") << "000" << 0 << 9 << true;
        QTest::newRow("sumWrapsTo16Bits") << "111" << -32000 << 1000 << true;
    }

    void downArrow()
    {
        QFETCH(QString, flags);
        QFETCH(int, surfaceTop);
        QFETCH(int, viewHeight);
        QFETCH(bool, expected);
        Rows rows(flags);
        QCOMPARE(rows.layout.isDownArrowNeeded(surfaceTop, viewHeight), expected);
    }

    void obscure_data()
    {
        QTest::addColumn<QString>("flags");
        QTest::addColumn<QString>("moves"); // 'd' one item down, 'u' one up
        QTest::addColumn<QList<int>>("lastSlots"); // after the reset, then after each move

        QTest::newRow("down") << "1111111111" << "ddd" << QList { 3, 4, 5, 6 };
        QTest::newRow("downThenUp") << "1111111111" << "ddu" << QList { 3, 4, 5, 4 };
        QTest::newRow("hiddenInView") << "1101111111" << "dd" << QList { 4, 5, 6 };
        QTest::newRow("pastTheEnd") << "11111" << "dddd" << QList { 3, 4, 5, 5, 5 };
        QTest::newRow("none") << "" << "d" << QList { 1, 1 };
    }

    // A view 40 pixels high over rows 12 pixels apart, scrolled one item at a time
    // as the view does: up moves the top slot before sliding, down after.
    void obscure()
    {
        QFETCH(QString, flags);
        QFETCH(QString, moves);
        QFETCH(QList<int>, lastSlots);
        constexpr int viewHeight = 40;
        Rows rows(flags);
        ItemLayout &layout = rows.layout;
        layout.setSurfaceTop(-24);
        layout.setTopSlot(3);
        layout.setLastFullyVisibleSlot(7);
        layout.resetScroll();
        const auto obscure = [&] { layout.setObscure(qAbs(layout.surfaceTop()) + viewHeight); };
        obscure();
        QList<int> actual { layout.lastFullyVisibleSlot() };
        for (const QChar move : moves) {
            if (move == QLatin1Char('u')) {
                layout.setTopSlot(layout.topSlot() - 1);
                layout.setSurfaceTop(layout.surfaceTop() + layout.slideDistance());
            } else {
                layout.setSurfaceTop(layout.surfaceTop() - layout.slideDistance());
                layout.setTopSlot(layout.topSlot() + 1);
            }
            obscure();
            actual << layout.lastFullyVisibleSlot();
        }
        QCOMPARE(actual, lastSlots);
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

    // The layout has read every item before the change; afterwards it must see
    // the new flags from the changed position on.
    void changes()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(int, from);
        QFETCH(int, through);
        Rows rows(before);
        rows.layout.surfaceHeight();
        Rows expected(after);
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

    void appending_data()
    {
        QTest::addColumn<int>("hiddenEvery"); // 0: none hidden
        QTest::addColumn<int>("ownerOfLastTop");
        QTest::newRow("noneHidden") << 0 << 1000;
        QTest::newRow("everySeventh") << 7 << 1000;
        QTest::newRow("allHidden") << 1 << 1;
    }

    // Items appended one at a time with the surface measured after each, as a
    // view does while a header fills.
    void appending()
    {
        QFETCH(int, hiddenEvery);
        QFETCH(int, ownerOfLastTop);
        constexpr int total = 1000;
        Rows rows { QString() };
        int shown = 0;
        for (int p = 1; p <= total; ++p) {
            const bool visible = hiddenEvery == 0 || p % hiddenEvery != 0;
            rows.shown.push_back(visible);
            rows.layout.setCount(p);
            QCOMPARE(rows.layout.surfaceHeight(), shown * 12 + 10);
            shown += visible;
        }
        QVERIFY(rows.layout.checkInvariants());
        QCOMPARE(rows.layout.positionAt(rows.layout.top(total)), ownerOfLastTop);
    }

    void scrollState()
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
