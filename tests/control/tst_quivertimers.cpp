#include "QuiverTest.h"
#include "control/HeaderStrip.h"
#include "itemview/ItemContainer.h"
#include "platform/FrameInterval.h"
#include "platform/SystemColors.h"

#include <QtCore/QTimer>
#include <QtGui/QImage>
#include <QtGui/QScreen>

namespace {

constexpr OLE_COLOR Red = 0x0000FF;

QColor colorOf(OLE_COLOR value) { return translateColor(value, classicPalette()); }

// A timer's tick, without waiting for it.
void tick(QTimer *timer) { QMetaObject::invokeMethod(timer, "timeout"); }

// A shown bar with the headers a, b and c; b holds `items` items.
struct Bar : NewQuiver
{
    explicit Bar(int items = 0)
    {
        Headers()->at(1)->setKey(QStringLiteral("a"));
        Headers()->Add(0, QStringLiteral("b"), QStringLiteral("B"));
        Headers()->Add(0, QStringLiteral("c"), QStringLiteral("C"));
        for (int i = 0; i < items; ++i)
            Headers()->Item(QStringLiteral("b"))->Items()->Add();
        resize(200, 400);
        show();
    }
    HeaderStrip *strip() const { return findChild<HeaderStrip *>(); }
};

} // namespace

// The control's flashing and deferred-redraw timers.
class tst_QuiverTimers : public QObject
{
    Q_OBJECT

private slots:
    void flash_data();
    void flash();
    void redrawTimerRedrawsTheOpenView();
    void slidesFollowTheScreensRefresh();
};

void tst_QuiverTimers::flash_data()
{
    // Steps, each with how the bars look after it: per header, "n" for a bar
    // in the control's header back colour, "f" for one in the flash colour;
    // then whether FlashTimer runs.
    QTest::addColumn<QString>("script");

    QTest::newRow("alternates") << "flash b=nnn on; tick=nfn on; tick=nnn on; tick=nfn on";
    QTest::newRow("another header ends the first")
        << "flash b=nnn on; tick=nfn on; flash c=nnn on; tick=nnf on; tick=nnn on";
    QTest::newRow("flashing again starts over") << "flash b=nnn on; tick=nfn on; flash b=nnn on; tick=nfn on";
    QTest::newRow("Flash(False) stops it") << "flash b=nnn on; tick=nfn on; stop b=nnn off; tick=nnn off";
    QTest::newRow("removal ends it at the next tick")
        << "flash b=nnn on; tick=nfn on; remove b=nn on; tick=nn off";
    QTest::newRow("restyled while flashing") << "flash b=nnn on; tick=nfn on; restyle=nnn on; tick=nfn on";
}

void tst_QuiverTimers::flash()
{
    QFETCH(QString, script);

    Bar bar;
    bar.setSmoothScroll(false);
    bar.setHeaderBackColor(0xC0C0C0);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    auto *timer = bar.findChild<QTimer *>(QStringLiteral("FlashTimer"));
    // How the bars look: their background, left of the caption.
    const auto look = [&] {
        QString result;
        for (const Header *header : *bar.Headers()) {
            QWidget *headerBar = bar.strip()->bar(header->barId());
            const QColor back = headerBar->grab().toImage().pixelColor(4, headerBar->height() / 2);
            result += back == colorOf(bar.HeaderBackColor()) ? 'n' : back == colorOf(Red) ? 'f' : '?';
        }
        return result + (timer->isActive() ? " on" : " off");
    };
    for (const QString &step : script.split(QStringLiteral("; "))) {
        const QString action = step.section('=', 0, 0), key = action.section(' ', 1);
        if (action == "tick")
            tick(timer);
        else if (action.startsWith("flash"))
            bar.Headers()->Item(key)->Flash(true, Red, 0xFFFFFF);
        else if (action.startsWith("stop"))
            bar.Headers()->Item(key)->Flash(false);
        else if (action.startsWith("remove"))
            bar.Headers()->Remove(key);
        else
            bar.setHeaderBackColor(0x00FF00);
        QCOMPARE(action + '=' + look(), step);
    }
}

void tst_QuiverTimers::redrawTimerRedrawsTheOpenView()
{
    Bar bar;
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    auto *timer = bar.findChild<QTimer *>(QStringLiteral("RedrawTimer"));
    QTRY_VERIFY(!timer->isActive());
    QCoreApplication::processEvents();
    QSignalSpy open(bar.strip()->viewOf(bar.SelectedHeader()), &ItemContainer::SetScrollArrows);
    QSignalSpy closed(bar.strip()->viewOf(bar.Headers()->at(2)), &ItemContainer::SetScrollArrows);

    timer->start();
    tick(timer);
    QVERIFY(!timer->isActive());
    QTRY_COMPARE(open.size(), 1);
    QCOMPARE(closed.size(), 0);
}

// A header slide and an item slide each paint a frame per refresh of the
// control's screen.
void tst_QuiverTimers::slidesFollowTheScreensRefresh()
{
    Bar bar(40);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    const int interval = slideFrameInterval(bar.screen()->refreshRate());
    Header *second = bar.Headers()->at(2);
    ItemContainer *view = bar.strip()->viewOf(second);
    const auto *headerFrames = bar.strip()->findChild<QTimer *>(QStringLiteral("SlideTimer"));
    const auto *itemFrames = view->findChild<QTimer *>(QStringLiteral("SlideTimer"));

    second->setSelected(true);
    QCOMPARE(headerFrames->isActive() ? headerFrames->interval() : 0, interval);
    QTRY_VERIFY(!bar.strip()->isSliding());
    view->Scroll(1, true);
    QCOMPARE(itemFrames->isActive() ? itemFrames->interval() : 0, interval);
}

QTEST_MAIN(tst_QuiverTimers)
#include "tst_quivertimers.moc"
