#include "Demo.h"
#include "EventLog.h"
#include "control/Quiver.h"
#include "model/Item.h"

#include <QtTest/QTest>
#include <QtWidgets/QPushButton>

using namespace OrrinQuiver;

// The demo as a place to try the bar: its event log and the history buttons.
class tst_Demo : public QObject
{
    Q_OBJECT

private slots:
    void logAndHistory();
};

static QPushButton *button(const Demo &demo, const QString &text)
{
    for (QPushButton *candidate : demo.findChildren<QPushButton *>()) {
        if (candidate->text() == text)
            return candidate;
    }
    return nullptr;
}

// Clicks the middle of the open header's item with that caption, as a user
// does: the widget under the point gets the press and the release.
static void clickItem(Quiver *bar, const QString &caption)
{
    int first = -1, last = -1;
    for (int y = 0; y < bar->height(); ++y) {
        const Item *item = bar->HitTest(10, y);
        if (!item || item->Caption() != caption)
            continue;
        if (first < 0)
            first = y;
        last = y;
    }
    const QPoint at(10, (first + last) / 2);
    QWidget *child = bar->childAt(at);
    QTest::mouseClick(child, Qt::LeftButton, {}, child->mapFrom(bar, at));
}

void tst_Demo::logAndHistory()
{
    Demo demo;
    demo.show();
    QVERIFY(QTest::qWaitForWindowExposed(&demo));
    auto *log = demo.findChild<EventLog *>();
    QPushButton *back = button(demo, QStringLiteral("Back"));
    QVERIFY(!back->isEnabled());

    clickItem(demo.control(), QStringLiteral("Inbox"));
    QCOMPARE(log->lines().size(), 3);
    QVERIFY2(log->lines().at(0).startsWith(QStringLiteral("ItemMouseDown item=\"Inbox\" Button=1 Shift=0 X=")),
             qPrintable(log->lines().at(0)));
    QCOMPARE(log->lines().at(1), QStringLiteral("ItemClick item=\"Inbox\""));
    clickItem(demo.control(), QStringLiteral("Calendar"));
    QVERIFY(back->isEnabled());

    button(demo, QStringLiteral("Clear"))->click();
    QVERIFY(log->lines().isEmpty());
    back->click();
    // Back from the second entry reads the history at list index 1: the
    // second entry again.
    QCOMPARE(log->lines(),
             QStringList { "Navigation.ChangePosition psHeader=\"NEW_HEADER00002\" psItem=\"NEW_ITEM00003\"" });
}

QTEST_MAIN(tst_Demo)
#include "tst_demo.moc"
