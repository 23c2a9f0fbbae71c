#include "RecordingControlLink.h"

#include "control/HeaderSelection.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"

#include <QtCore/QSet>
#include <QtTest/QTest>

using namespace OrrinQuiver;

namespace {

// Item views as far as selection goes: which are active, and the current
// item each header was given last.
struct Views : HeaderSelection::OpenViews
{
    bool isActive(const Header *header) const override { return active.contains(header); }
    void setActive(const Header *header, bool on) override
    {
        if (on)
            active.insert(header);
        else
            active.remove(header);
    }
    void setCurrentItem(const Header *header, qint16 index) override { current[header] = index; }

    QSet<const Header *> active;
    QHash<const Header *, int> current;
};

// Headers H1.. whose visibility `shown` gives ('1' shown), with H`open` open.
struct Fixture
{
    explicit Fixture(const QString &shown, int open = 0)
    {
        control.headers = &headers;
        navigation.setEnabled(true);
        for (int i = 1; i <= shown.size(); ++i) {
            Header *header = headers.Add(0, QStringLiteral("h%1").arg(i), QStringLiteral("H%1").arg(i));
            header->setVisible(shown.at(i - 1) == QLatin1Char('1'));
            header->Items()->Add(0, QStringLiteral("a%1").arg(i));
        }
        if (open)
            views.setActive(headers.at(open), true);
        selection.findOpenHeader();
    }

    RecordingControlLink control;
    Headers headers { &control };
    Navigation navigation;
    Views views;
    HeaderSelection selection { headers, navigation, views };
};

} // namespace

class tst_HeaderSelection : public QObject
{
    Q_OBJECT

private slots:
    void open_data()
    {
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("requested");
        QTest::addColumn<int>("opened");

        QTest::newRow("visible request") << "1111" << 1 << 3 << 3;
        QTest::newRow("hidden request takes the next") << "1101" << 1 << 3 << 4;
        QTest::newRow("none after: nearest before") << "1100" << 1 << 4 << 2;
        QTest::newRow("beyond the end: last visible") << "1110" << 1 << 9 << 3;
        QTest::newRow("below 1: first visible") << "0011" << 4 << -2 << 3;
        QTest::newRow("none visible") << "0000" << 1 << 2 << 0;
        QTest::newRow("the open one: reactivated only") << "1111" << 2 << 2 << -1;
    }
    void open()
    {
        QFETCH(QString, shown);
        QFETCH(int, start);
        QFETCH(int, requested);
        QFETCH(int, opened);
        Fixture f(shown, start);
        // A request for the open header finds its view inactive and activates it again.
        if (opened < 0)
            f.views.active.clear();

        const std::optional<HeaderSelection::Change> change = f.selection.open(requested);

        QCOMPARE(change.has_value(), opened >= 0);
        const int open = opened < 0 ? start : opened;
        if (change) {
            QCOMPARE(change->from, start);
            QCOMPARE(change->to, opened);
        }
        QCOMPARE(f.selection.position(), open);
        QCOMPARE(f.views.active, open ? QSet<const Header *> { f.headers.at(open) } : QSet<const Header *>());
    }

    void openHeaderRemoved()
    {
        Fixture f(QStringLiteral("1110"), 3);
        // A header added before the open one moves it, and it stays open.
        f.headers.Add(1);
        f.selection.findOpenHeader();
        QCOMPARE(f.selection.openHeader()->Caption(), QStringLiteral("H3"));
        QCOMPARE(f.selection.position(), 4);

        // The open header goes: the visible one nearest its place opens.
        f.views.active.clear();
        f.headers.Remove(4);
        f.selection.findOpenHeader();
        QCOMPARE(f.selection.openHeader()->Caption(), QStringLiteral("H2"));
        QVERIFY(f.views.isActive(f.selection.openHeader()));
    }

    void chooseItem()
    {
        Fixture f(QStringLiteral("11"), 2);
        f.headers.at(2)->Items()->Add(0, QStringLiteral("b2"));

        QVERIFY(f.selection.chooseItem(2));
        QVERIFY(!f.selection.chooseItem(3));
        QVERIFY(!f.selection.chooseItem(0));
        f.selection.setFollowingHistory(true);
        QVERIFY(f.selection.chooseItem(1));

        QCOMPARE(f.views.current.value(f.headers.at(2)), 1);
        // Only the choice made outside the history is recorded.
        QCOMPARE(f.navigation.headerKeys(), QStringList { "h2" });
        QCOMPARE(f.navigation.itemKeys(), QStringList { "b2" });
    }
};

QTEST_GUILESS_MAIN(tst_HeaderSelection)
#include "tst_headerselection.moc"
