#include "control/HeaderGeometry.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;
using namespace OrrinQuiver::HeaderGeometry;

using Rects = QList<QRect>;
using Flags = QList<bool>;

class tst_HeaderGeometry : public QObject
{
    Q_OBJECT

private slots:
    void barHeight_data();
    void barHeight();
    void content_data();
    void content();
    void strip_data();
    void strip();
    void slide_data();
    void slide();
};

void tst_HeaderGeometry::barHeight_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("measured");
    QTest::addColumn<int>("expected");

    QTest::newRow("outlook") << int(qvStyleOutlook) << 13 << 21;
    QTest::newRow("windows xp") << int(qvStyleWindowsXP) << 15 << 23;
    QTest::newRow("visual studio") << int(qvStyleVisualStudio) << 13 << 16;
    QTest::newRow("nothing measured keeps") << int(qvStyleOutlook) << 0 << 25;
    QTest::newRow("negative keeps") << int(qvStyleVisualStudio) << -3 << 25;
    QTest::newRow("unknown style as outlook") << 9 << 13 << 21;
}

void tst_HeaderGeometry::barHeight()
{
    QFETCH(int, style);
    QFETCH(int, measured);
    QFETCH(int, expected);
    QCOMPARE(headerHeight(qvStyle(style), measured, 25), expected);
}

void tst_HeaderGeometry::content_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<qreal>("height");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("selected");
    QTest::addColumn<bool>("alwaysFirst");
    QTest::addColumn<int>("expected");

    // Header height 20 throughout.
    QTest::newRow("outlook") << int(qvStyleOutlook) << 400.0 << 4 << 2 << true << 307;
    QTest::newRow("outlook xp") << int(qvStyleOutlookXP) << 400.0 << 4 << 4 << true << 307;
    QTest::newRow("windows 2000") << int(qvStyleWindows2000) << 400.0 << 4 << 2 << true << 317;
    QTest::newRow("flat, not last") << int(qvStyleVisualStudio) << 400.0 << 4 << 3 << true << 316;
    QTest::newRow("flat, last open") << int(qvStyleVisualStudio) << 400.0 << 4 << 4 << true << 295;
    QTest::newRow("lone bar hidden") << int(qvStyleWindowsXP) << 400.0 << 1 << 1 << false << 387;
    QTest::newRow("lone bar hidden, flat") << int(qvStyleVisualStudio) << 400.0 << 1 << 1 << false << 380;
    QTest::newRow("two bars shown anyway") << int(qvStyleOutlook) << 400.0 << 2 << 1 << false << 347;
    QTest::newRow("half rounds to even, up") << int(qvStyleOutlook) << 100.5 << 1 << 1 << true << 68;
    QTest::newRow("half rounds to even, down") << int(qvStyleOutlook) << 101.5 << 1 << 1 << true << 68;
    QTest::newRow("above half rounds up") << int(qvStyleWindows2000) << 50.6 << 1 << 1 << true << 28;
    QTest::newRow("negative half to even") << int(qvStyleOutlook) << 29.5 << 1 << 1 << true << -4;
}

void tst_HeaderGeometry::content()
{
    QFETCH(int, style);
    QFETCH(qreal, height);
    QFETCH(int, count);
    QFETCH(int, selected);
    QFETCH(bool, alwaysFirst);
    QFETCH(int, expected);
    QCOMPARE(contentHeight(qvStyle(style), height, 20, count, selected, alwaysFirst), expected);
}

void tst_HeaderGeometry::strip_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<Flags>("visible");
    QTest::addColumn<int>("selected");
    QTest::addColumn<bool>("alwaysFirst");
    QTest::addColumn<Rects>("bars");
    QTest::addColumn<Flags>("shown");
    QTest::addColumn<QRect>("view");

    // A 200 x 400 control with 20-pixel bars.
    const Flags four { true, true, true, true };
    QTest::newRow("outlook, second open")
        << int(qvStyleOutlook) << four << 2 << true
        << Rects { { 1, 1, 198, 20 }, { 1, 21, 198, 20 }, { 1, 360, 198, 20 }, { 1, 380, 198, 20 } } << four
        << QRect(7, 47, 187, 307);
    QTest::newRow("windows 2000, second open")
        << int(qvStyleWindows2000) << four << 2 << true
        << Rects { { 1, 1, 198, 20 }, { 1, 21, 198, 20 }, { 1, 360, 198, 20 }, { 1, 380, 198, 20 } } << four
        << QRect(2, 43, 196, 314);
    QTest::newRow("flat, second open")
        << int(qvStyleVisualStudio) << four << 2 << true
        << Rects { { 0, 0, 200, 20 }, { 0, 21, 180, 20 }, { 0, 359, 180, 20 }, { 0, 380, 200, 20 } } << four
        << QRect(0, 42, 200, 316);
    QTest::newRow("flat, last open") << int(qvStyleVisualStudio) << four << 4 << true
                                     << Rects { { 0, 0, 200, 20 },
                                                { 0, 21, 200, 20 },
                                                { 0, 42, 200, 20 },
                                                { 0, 63, 180, 20 } }
                                     << four << QRect(0, 84, 200, 295);
    QTest::newRow("hidden above takes no place")
        << int(qvStyleOutlookXP) << Flags { false, true, true, true } << 3 << true
        << Rects { { 1, 1, 198, 20 }, { 1, 1, 198, 20 }, { 1, 21, 198, 20 }, { 1, 380, 198, 20 } }
        << Flags { false, true, true, true } << QRect(7, 47, 187, 307);
    QTest::newRow("hidden below takes no place")
        << int(qvStyleWindowsXP) << Flags { true, true, false, true } << 1 << true
        << Rects { { 1, 1, 198, 20 }, { 1, 360, 198, 20 }, { 1, 360, 198, 20 }, { 1, 380, 198, 20 } }
        << Flags { true, true, false, true } << QRect(2, 23, 196, 314);
    QTest::newRow("flat, hidden below gaps")
        << int(qvStyleVisualStudio) << Flags { true, true, false, true } << 1 << true
        << Rects { { 0, 0, 180, 20 }, { 0, 359, 180, 20 }, { 0, 359, 200, 20 }, { 0, 380, 200, 20 } }
        << Flags { true, true, false, true } << QRect(0, 21, 200, 316);
    QTest::newRow("none open: all at the bottom")
        << int(qvStyleOutlook) << Flags { true, true } << 0 << true
        << Rects { { 1, 360, 198, 20 }, { 1, 380, 198, 20 } } << Flags { true, true } << QRect();
    QTest::newRow("lone bar hidden") << int(qvStyleOutlook) << Flags { true } << 1 << false
                                     << Rects { { 1, -19, 198, 20 } } << Flags { false }
                                     << QRect(7, 7, 187, 387);
    QTest::newRow("lone bar hidden, flat")
        << int(qvStyleVisualStudio) << Flags { true } << 1 << false << Rects { { 0, -20, 180, 20 } }
        << Flags { false } << QRect(0, 1, 200, 380);
    QTest::newRow("lone bar shown") << int(qvStyleOutlook) << Flags { true } << 1 << true
                                    << Rects { { 1, 1, 198, 20 } } << Flags { true }
                                    << QRect(7, 27, 187, 367);
}

void tst_HeaderGeometry::strip()
{
    QFETCH(int, style);
    QFETCH(Flags, visible);
    QFETCH(int, selected);
    QFETCH(bool, alwaysFirst);
    QFETCH(Rects, bars);
    QFETCH(Flags, shown);
    QFETCH(QRect, view);

    const StripLayout layout = layoutStrip({ qvStyle(style), 200, 400, 20, visible, selected, alwaysFirst });
    Rects rects;
    Flags flags;
    for (const BarPlacement &bar : layout.bars) {
        rects.append(bar.rect);
        flags.append(bar.visible);
    }
    QCOMPARE(rects, bars);
    QCOMPARE(flags, shown);
    QCOMPARE(layout.openView, view);
    if (!view.isNull()) {
        QCOMPARE(layout.viewLeft, view.left());
        QCOMPARE(layout.viewWidth, view.width());
    }
}

void tst_HeaderGeometry::slide_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("items");
    QTest::addColumn<bool>("up");
    QTest::addColumn<QList<int>>("positions");
    QTest::addColumn<bool>("fast");
    QTest::addColumn<int>("distance");

    // Six headers in a 400-pixel control, 20-pixel bars, content height 267.
    QTest::newRow("next one down") << 1 << 2 << 0 << true << QList<int> { 2 } << false << 279;
    QTest::newRow("two down") << 1 << 3 << 10 << true << QList<int> { 3, 2 } << false << 259;
    QTest::newRow("full view is fast") << 2 << 3 << 11 << true << QList<int> { 3 } << true << 279;
    QTest::newRow("five away is fast") << 1 << 6 << 0 << true << QList<int> { 6, 5, 4, 3, 2 } << true << 199;
    QTest::newRow("none open before") << 0 << 2 << 0 << true << QList<int> { 2, 1 } << false << 259;
    QTest::newRow("back up") << 4 << 1 << 0 << false << QList<int> { 2, 3, 4 } << false << 379;
    QTest::newRow("back up five") << 6 << 1 << 0 << false << QList<int> { 2, 3, 4, 5, 6 } << true << 379;
    QTest::newRow("same header") << 3 << 3 << 0 << false << QList<int> {} << false << 0;
    QTest::newRow("beyond the strip") << 2 << 7 << 0 << false << QList<int> {} << false << 0;
    QTest::newRow("last header upward") << 7 << 6 << 0 << false << QList<int> {} << false << 0;
}

void tst_HeaderGeometry::slide()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(int, items);
    QFETCH(bool, up);
    QFETCH(QList<int>, positions);
    QFETCH(bool, fast);
    QFETCH(int, distance);

    const SlidePlan plan = planSlide({ from, to, 6, items, 400, 20, 267 });
    QCOMPARE(plan.barPositions, positions);
    QCOMPARE(plan.isEmpty(), positions.isEmpty());
    if (plan.isEmpty())
        return;
    QCOMPARE(plan.up, up);
    QCOMPARE(plan.carriesView, !up);
    QCOMPARE(plan.fast, fast);
    QCOMPARE(plan.distance, distance);
}

QTEST_APPLESS_MAIN(tst_HeaderGeometry)
#include "tst_headergeometry.moc"
