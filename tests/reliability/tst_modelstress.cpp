#include "ModelStress.h"

#include <QtTest/QTest>

#include <random>


namespace {

quint64 runSeed()
{
    const QString asked = qEnvironmentVariable("QUIVER_STRESS_SEED");
    if (asked == QLatin1String("random"))
        return (quint64(std::random_device()()) << 32) | std::random_device()();
    bool given = false;
    const quint64 seed = asked.toULongLong(&given);
    return given ? seed : DefaultSeed;
}

int runSteps()
{
    bool given = false;
    const int steps = qEnvironmentVariableIntValue("QUIVER_STRESS_STEPS", &given);
    return given && steps > 0 ? steps : DefaultSteps;
}

} // namespace

class tst_ModelStress : public QObject
{
    Q_OBJECT

private slots:
    void operations_data()
    {
        QTest::addColumn<int>("headers");
        QTest::addColumn<int>("itemsPerHeader");

        // Many members: renumbering, moves and lookups over long collections.
        QTest::newRow("crowded") << 12 << 60;
        // A few members: the edges (empty, one, last) come up all the time.
        QTest::newRow("sparse") << 3 << 4;
    }
    void operations()
    {
        QFETCH(int, headers);
        QFETCH(int, itemsPerHeader);

        const quint64 seed = runSeed();
        NewQuiver bar;
        // Slides jump at once, so that a seed replays the same sequence.
        bar.setSmoothScroll(false);
        bar.resize(200, 480);
        bar.show();

        ModelStress stress(bar, seed, { headers, itemsPerHeader });
        const int steps = runSteps();
        for (int step = 1; step <= steps; ++step) {
            const QStringList problems = stress.step();
            if (!problems.isEmpty()) {
                QFAIL(qPrintable(
                    QStringLiteral("seed %1 (replay with QUIVER_STRESS_SEED=%1), operation %2:\n%3\n"
                                   "last operations:\n%4")
                        .arg(seed)
                        .arg(step)
                        .arg(problems.join(QLatin1Char('\n')),
                             stress.recentOperations().join(QLatin1Char('\n')))));
            }
        }
        QVERIFY2(stress.comparedRoundTrips() > 0 || steps < DefaultSteps,
                 "no XML round trip could be compared: the run no longer exercises the document format");
    }
};

QTEST_MAIN(tst_ModelStress)
#include "tst_modelstress.moc"
