#include "ModelStress.h"

#include <QtTest/QTest>

#include <random>

// Adding items outweighs removing them so that headers fill up to their limits. AddHeader and
// AddItem come first: step() runs them instead of an operation that lacks a header or item.
const ModelStress::OpInfo ModelStress::Ops[25] = {
    { 25, "AddHeader", 0, false, [](ModelStress &s, Header *, Item *) { s.add(*s.m_bar.Headers()); } },
    { 170, "AddItem", 1, false, [](ModelStress &s, Header *header, Item *) { s.add(*header->Items()); } },
    { 12, "RemoveHeader", 1, false, [](ModelStress &s, Header *, Item *) { s.remove(*s.m_bar.Headers()); } },
    { 70, "RemoveItem", 1, false,
      [](ModelStress &s, Header *header, Item *) { s.remove(*header->Items()); } },
    { 20, "MoveHeader", 1, false, [](ModelStress &s, Header *header, Item *) { s.move(header); } },
    { 80, "MoveItem", 2, false, [](ModelStress &s, Header *, Item *item) { s.move(item); } },
    { 12, "RekeyHeader", 1, false, [](ModelStress &s, Header *header, Item *) { s.rekey(header); } },
    { 50, "RekeyItem", 2, false, [](ModelStress &s, Header *, Item *item) { s.rekey(item); } },
    { 35, "SelectHeader", 1, false, [](ModelStress &s, Header *header, Item *) { s.select(header); } },
    { 90, "SelectItem", 2, false, [](ModelStress &s, Header *, Item *item) { s.select(item); } },
    { 20, "HideHeader", 1, false, [](ModelStress &s, Header *header, Item *) { s.hide(header); } },
    { 25, "HideItem", 2, false, [](ModelStress &s, Header *, Item *item) { s.hide(item); } },
    { 50, "Caption", 0, false,
      [](ModelStress &s, Header *header, Item *item) {
          if (item && s.chance(70))
              s.changeLooks(item);
          else if (header)
              s.changeLooks(header);
      } },
    { 6, "ClearItems", 0, false, [](ModelStress &s, Header *header, Item *) { s.clearItems(header); } },
    { 1, "ClearHeaders", 0, true,
      [](ModelStress &s, Header *, Item *) {
          s.note(s.m_bar.Headers()->Count());
          s.m_bar.Headers()->Clear();
          if (s.m_bar.Headers()->Count() != 0)
              s.fail(QStringLiteral("Headers.Clear left members"));
      } },
    { 2, "ControlXml", 0, true, [](ModelStress &s, Header *, Item *) { s.controlXml(); } },
    { 4, "HeaderXml", 0, false, [](ModelStress &s, Header *, Item *) { s.headerXml(); } },
    { 45, "GoBack", 0, false, [](ModelStress &s, Header *, Item *) { s.moveInHistory(true); } },
    { 35, "GoForward", 0, false, [](ModelStress &s, Header *, Item *) { s.moveInHistory(false); } },
    { 20, "SetPosition", 0, false,
      [](ModelStress &s, Header *, Item *) {
          Navigation &navigation = *s.m_bar.Navigation();
          const int position = s.pick(navigation.headerKeys().size() + 3) - 1;
          s.note(navigation.CurrentPosition(), position);
          navigation.setCurrentPosition(position);
      } },
    { 2, "ClearHistory", 0, false, [](ModelStress &s, Header *, Item *) { s.m_bar.Navigation()->Clear(); } },
    { 30, "KeepReference", 0, false,
      [](ModelStress &s, Header *, Item *) {
          s.chance(50) ? s.keepReference<Header>() : s.keepReference<Item>();
      } },
    { 40, "UseKeptReference", 0, false,
      [](ModelStress &s, Header *, Item *) {
          s.chance(50) ? s.useKeptReference<Header>() : s.useKeptReference<Item>();
      } },
    { 25, "ReturnToEventLoop", 0, true, [](ModelStress &s, Header *, Item *) { s.returnToEventLoop(); } },
    { 30, "BadInput", 0, false, [](ModelStress &s, Header *, Item *) { s.badInput(); } },
};

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
