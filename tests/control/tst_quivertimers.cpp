#include "control/HeaderStrip.h"
#include "control/Quiver.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Items.h"
#include "platform/FrameInterval.h"

#include <QtCore/QTimer>
#include <QtGui/QImage>
#include <QtGui/QScreen>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace OrrinQuiver;

namespace {

constexpr OLE_COLOR Grey = 0xC0C0C0;
constexpr OLE_COLOR Green = 0x00FF00;
constexpr OLE_COLOR Red = 0x0000FF;
constexpr OLE_COLOR White = 0xFFFFFF;

QColor colorOf(OLE_COLOR value)
{
    return QColor(int(value & 0xFF), int(value >> 8 & 0xFF), int(value >> 16 & 0xFF));
}

// A timer's tick, without waiting for it.
void tick(QTimer *timer) { QMetaObject::invokeMethod(timer, "timeout"); }

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
    QTest::addColumn<QStringList>("steps");
    // After each step: per header, "n" for a bar in the control's header back
    // colour, "f" for one in the flash colour; then whether FlashTimer runs.
    QTest::addColumn<QStringList>("looks");

    QTest::newRow("alternates") << QStringList { "flash b", "tick", "tick", "tick" }
                                << QStringList { "nnn on", "nfn on", "nnn on", "nfn on" };
    QTest::newRow("another header ends the first")
        << QStringList { "flash b", "tick", "flash c", "tick", "tick" }
        << QStringList { "nnn on", "nfn on", "nnn on", "nnf on", "nnn on" };
    QTest::newRow("flashing again starts over") << QStringList { "flash b", "tick", "flash b", "tick" }
                                                << QStringList { "nnn on", "nfn on", "nnn on", "nfn on" };
    QTest::newRow("Flash(False) stops it") << QStringList { "flash b", "tick", "stop b", "tick" }
                                           << QStringList { "nnn on", "nfn on", "nnn off", "nnn off" };
    QTest::newRow("removal ends it at the next tick")
        << QStringList { "flash b", "tick", "remove b", "tick" }
        << QStringList { "nnn on", "nfn on", "nn on", "nn off" };
    QTest::newRow("restyled while flashing")
        << QStringList { "flash b", "tick", "restyle", "tick", "tick" }
        << QStringList { "nnn on", "nfn on", "nnn on", "nfn on", "nnn on" };
}

void tst_QuiverTimers::flash()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, looks);

    Quiver bar;
    bar.InitProperties();
    bar.setSmoothScroll(false);
    bar.setHeaderBackColor(Grey);
    bar.Headers()->at(1)->setKey(QStringLiteral("a"));
    bar.Headers()->Add(0, QStringLiteral("b"), QStringLiteral("B"));
    bar.Headers()->Add(0, QStringLiteral("c"), QStringLiteral("C"));
    bar.resize(200, 400);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    auto *timer = bar.findChild<QTimer *>(QStringLiteral("FlashTimer"));
    const auto *strip = bar.findChild<HeaderStrip *>();

    // How the bars look: their background, left of the caption.
    const auto look = [&] {
        QString result;
        for (const Header *header : *bar.Headers()) {
            QWidget *headerBar = strip->bar(header->barId());
            const QColor back = headerBar->grab().toImage().pixelColor(4, headerBar->height() / 2);
            result += back == colorOf(bar.HeaderBackColor()) ? 'n' : back == colorOf(Red) ? 'f' : '?';
        }
        return result + (timer->isActive() ? " on" : " off");
    };
    for (qsizetype i = 0; i < steps.size(); ++i) {
        const QStringList step = steps.at(i).split(' ');
        if (step.first() == "tick")
            tick(timer);
        else if (step.first() == "flash")
            bar.Headers()->Item(step.last())->Flash(true, Red, White);
        else if (step.first() == "stop")
            bar.Headers()->Item(step.last())->Flash(false);
        else if (step.first() == "remove")
            bar.Headers()->Remove(step.last());
        else if (step.first() == "restyle")
            bar.setHeaderBackColor(Green);
        QCOMPARE(look(), looks.at(i));
    }
}

void tst_QuiverTimers::redrawTimerRedrawsTheOpenView()
{
    Quiver bar;
    bar.InitProperties();
    bar.Headers()->Add(0, QStringLiteral("b"), QStringLiteral("B"));
    bar.resize(200, 400);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    auto *timer = bar.findChild<QTimer *>(QStringLiteral("RedrawTimer"));
    QTRY_VERIFY(!timer->isActive());
    QCoreApplication::processEvents();
    const auto *strip = bar.findChild<HeaderStrip *>();
    QSignalSpy open(strip->viewOf(bar.SelectedHeader()), &ItemContainer::SetScrollArrows);
    QSignalSpy closed(strip->viewOf(bar.Headers()->at(2)), &ItemContainer::SetScrollArrows);

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
    Quiver bar;
    bar.InitProperties();
    Header *second = bar.Headers()->Add(0, QStringLiteral("b"), QStringLiteral("B"));
    for (int i = 0; i < 40; ++i)
        second->Items()->Add();
    bar.resize(200, 400);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    const int interval = slideFrameInterval(bar.screen()->refreshRate());
    const auto *strip = bar.findChild<HeaderStrip *>();
    const auto *headerFrames = strip->findChild<QTimer *>(QStringLiteral("SlideTimer"));
    ItemContainer *view = strip->viewOf(second);
    const auto *itemFrames = view->findChild<QTimer *>(QStringLiteral("SlideTimer"));

    second->setSelected(true);
    QVERIFY(headerFrames->isActive());
    QCOMPARE(headerFrames->interval(), interval);
    QTRY_VERIFY(!strip->isSliding());
    view->Scroll(1, true);
    QVERIFY(itemFrames->isActive());
    QCOMPARE(itemFrames->interval(), interval);
}

QTEST_MAIN(tst_QuiverTimers)
#include "tst_quivertimers.moc"
