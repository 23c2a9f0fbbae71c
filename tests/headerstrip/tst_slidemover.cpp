#include "control/SlideMover.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;

using Tops = QList<int>;
using Frames = QList<Tops>;

class tst_SlideMover : public QObject
{
    Q_OBJECT

private slots:
    void frames_data();
    void frames();
    void finishJumpsToTheEnd();
};

void tst_SlideMover::frames_data()
{
    QTest::addColumn<Tops>("start");
    QTest::addColumn<int>("distance");
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("fast");
    QTest::addColumn<bool>("smooth");
    QTest::addColumn<Frames>("expected"); // every frame's tops, the final snap last

    QTest::newRow("100 down, tenth steps")
        << Tops { 0 } << 100 << false << false << true
        << Frames { { 20 }, { 38 }, { 54 }, { 68 }, { 81 }, { 92 }, { 100 } };
    QTest::newRow("100 down, fifth steps")
        << Tops { 0 } << 100 << false << true << true << Frames { { 30 }, { 57 }, { 81 }, { 100 } };
    QTest::newRow("100 up, tenth steps")
        << Tops { 300 } << 100 << true << false << true
        << Frames { { 280 }, { 262 }, { 246 }, { 232 }, { 219 }, { 208 }, { 200 } };
    QTest::newRow("short distance moves a pixel a frame")
        << Tops { 0 } << 3 << false << false << true << Frames { { 1 }, { 2 }, { 3 } };
    QTest::newRow("short fast distance moves a pixel a frame")
        << Tops { 10 } << 4 << true << true << true << Frames { { 9 }, { 8 }, { 7 }, { 6 } };
    QTest::newRow("no distance snaps at once")
        << Tops { 5 } << 0 << false << false << true << Frames { { 5 } };
    QTest::newRow("negative distance moves the other way")
        << Tops { 0 } << -30 << false << false << true
        << Frames { { -6 }, { -11 }, { -15 }, { -19 }, { -23 }, { -26 }, { -29 }, { -30 } };
    QTest::newRow("members follow the leader, then share its target")
        << Tops { 10, 30 } << 50 << false << false << true
        << Frames { { 20, 40 }, { 29, 49 }, { 37, 57 }, { 44, 64 }, { 50, 70 }, { 56, 76 }, { 60, 60 } };
    QTest::newRow("without smoothing one move of the whole distance")
        << Tops { 10, 30 } << 100 << false << false << false << Frames { { 110, 130 } };
    QTest::newRow("without smoothing upward")
        << Tops { 300, 320 } << 100 << true << true << false << Frames { { 200, 220 } };
    QTest::newRow("empty set ends at once") << Tops {} << 100 << false << false << true << Frames {};
}

void tst_SlideMover::frames()
{
    QFETCH(Tops, start);
    QFETCH(int, distance);
    QFETCH(bool, up);
    QFETCH(bool, fast);
    QFETCH(bool, smooth);
    QFETCH(Frames, expected);

    SlideMover mover(start, distance, up, fast, smooth);
    Frames seen;
    bool more = !mover.isFinished();
    while (more) {
        more = mover.advance();
        seen.append(mover.tops());
        QVERIFY(seen.size() <= 50);
    }
    QCOMPARE(seen, expected);
    QVERIFY(mover.isFinished());
    QVERIFY(!mover.advance());
    QCOMPARE(mover.tops(), expected.isEmpty() ? start : expected.last());
}

void tst_SlideMover::finishJumpsToTheEnd()
{
    SlideMover mover({ 0, 25 }, 100, false, false, true);
    QVERIFY(mover.advance());
    mover.finish();
    QVERIFY(mover.isFinished());
    QCOMPARE(mover.tops(), (Tops { 100, 100 }));
    QCOMPARE(mover.target(), 100);
}

QTEST_APPLESS_MAIN(tst_SlideMover)
#include "tst_slidemover.moc"
