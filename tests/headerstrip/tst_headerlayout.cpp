#include "control/BarRecord.h"
#include "control/HeaderGeometry.h"
#include "platform/SlideMover.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;
using namespace OrrinQuiver::HeaderGeometry;

using Ints = QList<int>;
using Rects = QList<QRect>;
using Flags = QList<bool>;
using Frames = QList<Ints>;

// The widget-free parts of the strip: geometry, the slide's frames, the bar record.
class tst_HeaderLayout : public QObject
{
    Q_OBJECT

private slots:
    void heights_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<qreal>("height");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("alwaysFirst");
        QTest::addColumn<int>("measured");
        QTest::addColumn<int>("bar");
        QTest::addColumn<int>("content");

        // Bars of 20 pixels (kept when nothing is measured), the first header open.
        QTest::newRow("framed bar") << int(qvStyleOutlook) << 400.0 << 4 << true << 13 << 21 << 307;
        QTest::newRow("flat bar") << int(qvStyleVisualStudio) << 400.0 << 4 << true << 13 << 16 << 316;
        QTest::newRow("nothing measured") << int(qvStyleWindowsXP) << 400.0 << 4 << true << 0 << 20 << 317;
        QTest::newRow("lone bar hidden") << int(qvStyleWindows2000) << 400.0 << 1 << false << 0 << 20 << 387;
        QTest::newRow("lone flat bar hidden")
            << int(qvStyleVisualStudio) << 400.0 << 1 << false << 0 << 20 << 380;
        QTest::newRow("half to even, up") << int(qvStyleOutlook) << 100.5 << 1 << true << 0 << 20 << 68;
        QTest::newRow("half to even, down") << int(qvStyleOutlook) << 101.5 << 1 << true << 0 << 20 << 68;
        QTest::newRow("unknown style") << 9 << 400.0 << 4 << true << 13 << 21 << 307;
    }
    void heights()
    {
        QFETCH(int, style);
        QFETCH(qreal, height);
        QFETCH(int, count);
        QFETCH(bool, alwaysFirst);
        QFETCH(int, measured);
        QFETCH(int, bar);
        QFETCH(int, content);
        QCOMPARE(headerHeight(qvStyle(style), measured, 20), bar);
        QCOMPARE(contentHeight(qvStyle(style), height, 20, count, 1, alwaysFirst), content);
    }

    void strip_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<Flags>("visible");
        QTest::addColumn<int>("selected");
        QTest::addColumn<bool>("alwaysFirst");
        QTest::addColumn<Rects>("bars");
        QTest::addColumn<QRect>("view");

        // A 200 x 400 control with 20-pixel bars; hidden bars are placed all the same.
        // Bars as "left width top", 20 high.
        const auto rects = [](const char *bars) {
            Rects r;
            for (const QByteArray &bar : QByteArray(bars).split(',')) {
                const QList<QByteArray> f = bar.trimmed().split(' ');
                r.append(QRect(f[0].toInt(), f[2].toInt(), f[1].toInt(), 20));
            }
            return r;
        };
        const Flags four { true, true, true, true };
        QTest::newRow("outlook") << int(qvStyleOutlook) << four << 2 << true
                                 << rects("1 198 1, 1 198 21, 1 198 360, 1 198 380")
                                 << QRect(7, 47, 187, 307);
        QTest::newRow("windows") << int(qvStyleWindows2000) << four << 2 << true
                                 << rects("1 198 1, 1 198 21, 1 198 360, 1 198 380")
                                 << QRect(2, 43, 196, 314);
        QTest::newRow("flat") << int(qvStyleVisualStudio) << four << 2 << true
                              << rects("0 200 0, 0 180 21, 0 180 359, 0 200 380") << QRect(0, 42, 200, 316);
        QTest::newRow("flat, last open")
            << int(qvStyleVisualStudio) << four << 4 << true << rects("0 200 0, 0 200 21, 0 200 42, 0 180 63")
            << QRect(0, 84, 200, 295);
        QTest::newRow("hidden above")
            << int(qvStyleOutlookXP) << Flags { false, true, true, true } << 3 << true
            << rects("1 198 1, 1 198 1, 1 198 21, 1 198 380") << QRect(7, 47, 187, 307);
        // The bar that leaves room for the down arrow is the first one shown below the view.
        QTest::newRow("flat, hidden right below")
            << int(qvStyleVisualStudio) << Flags { true, false, true, true } << 1 << true
            << rects("0 180 0, 0 200 338, 0 180 359, 0 200 380") << QRect(0, 21, 200, 316);
        QTest::newRow("none open") << int(qvStyleOutlook) << Flags { true, true } << 0 << true
                                   << rects("1 198 360, 1 198 380") << QRect();
        QTest::newRow("lone bar hidden") << int(qvStyleOutlook) << Flags { true } << 1 << false
                                         << rects("1 198 -19") << QRect(7, 7, 187, 387);
    }
    void strip()
    {
        QFETCH(int, style);
        QFETCH(Flags, visible);
        QFETCH(int, selected);
        QFETCH(bool, alwaysFirst);
        QFETCH(Rects, bars);
        QFETCH(QRect, view);

        const StripLayout layout
            = layoutStrip({ qvStyle(style), 200, 400, 20, visible, selected, alwaysFirst });
        Rects rects;
        for (int i = 0; i < layout.bars.size(); ++i) {
            rects.append(layout.bars.at(i).rect);
            QCOMPARE(layout.bars.at(i).visible, visible.at(i) && alwaysFirst);
        }
        QCOMPARE(rects, bars);
        QCOMPARE(layout.openView, view);
    }

    void slidePlan_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<int>("items");
        QTest::addColumn<Ints>("positions"); // empty: nothing slides
        QTest::addColumn<bool>("fast");
        QTest::addColumn<int>("distance");

        // Six headers in a 400-pixel control, 20-pixel bars, content height 267.
        // Below the open one the bars go up (the new bar first), above it down.
        QTest::newRow("two below") << 1 << 3 << 10 << Ints { 3, 2 } << false << 259;
        QTest::newRow("full view is fast") << 2 << 3 << 11 << Ints { 3 } << true << 279;
        QTest::newRow("five away is fast") << 1 << 6 << 0 << Ints { 6, 5, 4, 3, 2 } << true << 199;
        QTest::newRow("none open before") << 0 << 2 << 0 << Ints { 2, 1 } << false << 259;
        QTest::newRow("above") << 4 << 1 << 0 << Ints { 2, 3, 4 } << false << 379;
        QTest::newRow("same header") << 3 << 3 << 0 << Ints {} << false << 0;
        QTest::newRow("beyond the strip") << 2 << 7 << 0 << Ints {} << false << 0;
        QTest::newRow("last header, upward") << 7 << 6 << 0 << Ints {} << false << 0;
    }
    void slidePlan()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(int, items);
        QFETCH(Ints, positions);
        QFETCH(bool, fast);
        QFETCH(int, distance);

        const SlidePlan plan = planSlide({ from, to, 6, items, 400, 20, 267 });
        QCOMPARE(plan.barPositions, positions);
        if (plan.isEmpty())
            return;
        QCOMPARE(plan.up, to > from);
        QCOMPARE(plan.carriesView, to < from);
        QCOMPARE(plan.fast, fast);
        QCOMPARE(plan.distance, distance);
    }

    void frames_data()
    {
        QTest::addColumn<Ints>("start");
        QTest::addColumn<int>("distance");
        QTest::addColumn<bool>("up");
        QTest::addColumn<bool>("fast");
        QTest::addColumn<bool>("smooth");
        QTest::addColumn<Frames>("expected"); // every frame's tops, the final snap last

        QTest::newRow("tenth steps") << Ints { 0 } << 100 << false << false << true
                                     << Frames { { 20 }, { 38 }, { 54 }, { 68 }, { 81 }, { 92 }, { 100 } };
        QTest::newRow("fifth steps") << Ints { 0 } << 100 << false << true << true
                                     << Frames { { 30 }, { 57 }, { 81 }, { 100 } };
        QTest::newRow("upward") << Ints { 300 } << 100 << true << false << true
                                << Frames { { 280 }, { 262 }, { 246 }, { 232 }, { 219 }, { 208 }, { 200 } };
        QTest::newRow("a pixel at least")
            << Ints { 10 } << 4 << true << true << true << Frames { { 9 }, { 8 }, { 7 }, { 6 } };
        QTest::newRow("no distance") << Ints { 5 } << 0 << false << false << true << Frames { { 5 } };
        QTest::newRow("negative distance")
            << Ints { 0 } << -30 << false << false << true
            << Frames { { -6 }, { -11 }, { -15 }, { -19 }, { -23 }, { -26 }, { -29 }, { -30 } };
        QTest::newRow("members share the leader's target")
            << Ints { 10, 30 } << 50 << false << false << true
            << Frames { { 20, 40 }, { 29, 49 }, { 37, 57 }, { 44, 64 }, { 50, 70 }, { 56, 76 }, { 60, 60 } };
        QTest::newRow("one jump") << Ints { 300, 320 } << 100 << true << true << false
                                  << Frames { { 200, 220 } };
        QTest::newRow("empty set") << Ints {} << 100 << false << false << true << Frames {};
    }
    void frames()
    {
        QFETCH(Ints, start);
        QFETCH(int, distance);
        QFETCH(bool, up);
        QFETCH(bool, fast);
        QFETCH(bool, smooth);
        QFETCH(Frames, expected);

        SlideMover mover(start, distance, up, fast, smooth);
        Frames seen;
        for (bool more = !mover.isFinished(); more && seen.size() < 50;) {
            more = mover.advance();
            seen.append(mover.tops());
        }
        QCOMPARE(seen, expected);
        QVERIFY(mover.isFinished());
        QVERIFY(!mover.advance());
    }

    void record_data()
    {
        QTest::addColumn<QString>("record");
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<int>("field"); // then written
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("written");

        QTest::newRow("empty") << "" << QStringList { "0", "0", "0" } << 1 << "4"
                               << "4:0;0";
        QTest::newRow("tip with separators")
            << "12:0;a;b:c" << QStringList { "12", "0", "a;b:c" } << 3 << "x;y"
            << "12:0;x;y";
        QTest::newRow("no separators") << "abc" << QStringList { "", "abc", "" } << 3 << "t"
                                       << ":abc;t";
        QTest::newRow("semicolon first") << "a;b:c" << QStringList { "a;b", "", "b:c" } << 1 << "2"
                                         << "2:;b:c";
        QTest::newRow("unknown field") << "4:0;t" << QStringList { "4", "0", "t" } << 0 << "x"
                                       << "4:0;t";
    }
    void record()
    {
        QFETCH(QString, record);
        QFETCH(QStringList, fields);
        QFETCH(int, field);
        QFETCH(QString, value);
        QFETCH(QString, written);

        BarRecord r(record);
        QCOMPARE((QStringList { r.field(1), r.field(2), r.field(3) }), fields);
        QCOMPARE(r.index(), fields.first().toInt());
        r.setField(field, value);
        QCOMPARE(r.text(), written);
    }
};

QTEST_APPLESS_MAIN(tst_HeaderLayout)
#include "tst_headerlayout.moc"
