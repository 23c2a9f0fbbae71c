#include "RecordingControlLink.h"

#include "model/Navigation.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace OrrinQuiver;

class tst_Navigation : public QObject
{
    Q_OBJECT

private slots:
    void history_data()
    {
        // Steps: "h:i" records the pair, "-n" is GoBack(n), "+n" GoForward(n),
        // "=n" sets CurrentPosition, "clear" and "off" as named.
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("canGoBack");
        QTest::addColumn<bool>("canGoForward");
        QTest::addColumn<QStringList>("moves");
        QTest::addColumn<QStringList>("headerKeys");

        const QStringList abc { "a:1", "b:2", "c:3" };
        const QStringList abcde = abc + QStringList { "d:4", "e:5" };
        QTest::newRow("nothing yet") << QStringList() << 0 << false << false << QStringList() << QStringList();
        QTest::newRow("same pair twice is one entry")
            << QStringList { "a:1", "a:1" } << 1 << false << false << QStringList() << QStringList { "a" };
        QTest::newRow("compared with letter case") << QStringList { "a:1", "A:1" } << 2 << true << false << QStringList()
                                                   << QStringList { "a", "A" };
        QTest::newRow("empty keys are not recorded")
            << QStringList { ":1", "a:" } << 0 << false << false << QStringList() << QStringList();
        QTest::newRow("three entries") << abc << 3 << true << false << QStringList() << QStringList { "a", "b", "c" };
        QTest::newRow("back reads one place on") << abc + QStringList { "-1" } << 2 << true << false
                                                 << QStringList { "c:3" } << QStringList { "a", "b", "c" };
        QTest::newRow("back 10 from 5 stops at 1") << abcde + QStringList { "-10" } << 1 << false << true
                                                   << QStringList { "b:2" } << QStringList { "a", "b", "c", "d", "e" };
        QTest::newRow("forward stops at the last list index")
            << abcde + QStringList { "-10", "+10" } << 4 << true << false << QStringList { "b:2", "e:5" }
            << QStringList { "a", "b", "c", "d", "e" };
        QTest::newRow("recording after back drops the forward part")
            << abc + QStringList { "-2", "d:4" } << 2 << true << false << QStringList { "b:2" } << QStringList { "a", "d" };
        QTest::newRow("position set back") << abcde + QStringList { "=2" } << 2 << true << true << QStringList { "c:3" }
                                           << QStringList { "a", "b", "c", "d", "e" };
        QTest::newRow("position set to itself") << abc + QStringList { "=3" } << 3 << true << false << QStringList()
                                                << QStringList { "a", "b", "c" };
        QTest::newRow("clear") << abc + QStringList { "clear" } << 0 << false << false << QStringList()
                               << QStringList { "" };
        QTest::newRow("disabled: no recording, no moves")
            << QStringList { "a:1", "b:2", "off", "c:3", "-1" } << 2 << false << false << QStringList()
            << QStringList { "a", "b" };
    }
    void history()
    {
        QFETCH(QStringList, steps);
        QFETCH(int, position);
        QFETCH(bool, canGoBack);
        QFETCH(bool, canGoForward);
        QFETCH(QStringList, moves);
        QFETCH(QStringList, headerKeys);

        Navigation navigation;
        navigation.setEnabled(true);
        QSignalSpy spy(&navigation, &Navigation::ChangePosition);
        for (const QString &step : steps) {
            const int n = step.mid(1).toInt();
            if (step == QLatin1String("clear"))
                navigation.Clear();
            else if (step == QLatin1String("off"))
                navigation.setEnabled(false);
            else if (step.startsWith(QLatin1Char('-')))
                navigation.GoBack(n);
            else if (step.startsWith(QLatin1Char('+')))
                navigation.GoForward(n);
            else if (step.startsWith(QLatin1Char('=')))
                navigation.setCurrentPosition(n);
            else
                navigation.Record(step.section(QLatin1Char(':'), 0, 0), step.section(QLatin1Char(':'), 1));
        }
        QCOMPARE(navigation.CurrentPosition(), position);
        QCOMPARE(navigation.CanGoBack(), canGoBack);
        QCOMPARE(navigation.CanGoForward(), canGoForward);
        QStringList emitted;
        for (const QList<QVariant> &arguments : spy)
            emitted << arguments.at(0).toString() + QLatin1Char(':') + arguments.at(1).toString();
        QCOMPARE(emitted, moves);
        QCOMPARE(navigation.headerKeys(), headerKeys);
        QCOMPARE(navigation.itemKeys().size(), headerKeys.size());
    }

    void historyXml()
    {
        QCOMPARE(Navigation().property("HistoryXML").toString(), QString());
        RecordingControlLink control;
        control.xml = QStringLiteral("<orrinquiver/>");
        QCOMPARE(Navigation(&control).property("HistoryXML").toString(), control.xml);
    }
};

QTEST_GUILESS_MAIN(tst_Navigation)
#include "tst_navigation.moc"
