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

        // Every list as a text of words; '' stands for an empty key.
        const auto row = [](const char *name, const QString &steps, int position, bool back, bool forward,
                            const char *moves, const char *keys) {
            const auto words = [](const QString &text) {
                return text.split(u' ', Qt::SkipEmptyParts).replaceInStrings(QStringLiteral("''"), QString());
            };
            QTest::newRow(name) << words(steps) << position << back << forward << words(moves) << words(keys);
        };
        const QString abc = QStringLiteral("a:1 b:2 c:3 "), abcde = abc + QStringLiteral("d:4 e:5 ");
        row("nothing yet", "", 0, false, false, "", "");
        row("same pair twice is one entry", "a:1 a:1", 1, false, false, "", "a");
        row("compared with letter case", "a:1 A:1", 2, true, false, "", "a A");
        row("empty keys are not recorded", ":1 a:", 0, false, false, "", "");
        row("three entries", abc, 3, true, false, "", "a b c");
        row("back reads one place on", abc + "-1", 2, true, false, "c:3", "a b c");
        row("back 10 from 5 stops at 1", abcde + "-10", 1, false, true, "b:2", "a b c d e");
        row("forward stops at the last list index", abcde + "-10 +10", 4, true, false, "b:2 e:5",
            "a b c d e");
        row("recording after back drops the forward part", abc + "-2 d:4", 2, true, false, "b:2", "a d");
        row("position set back", abcde + "=2", 2, true, true, "c:3", "a b c d e");
        row("position set to itself", abc + "=3", 3, true, false, "", "a b c");
        row("clear", abc + "clear", 0, false, false, "", "''");
        row("disabled: no recording, no moves", "a:1 b:2 off c:3 -1", 2, false, false, "", "a b");
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
