#include "control/DrawArrow.h"
#include "control/HeaderStrip.h"
#include "control/Quiver.h"
#include "control/StylePreset.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "platform/SystemColors.h"

#include <QtCore/QDir>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace OrrinQuiver;

// The scroll arrows: their paint, where they go, their repeat while held,
// and the wheel, which scrolls in the arrows' steps.
class tst_ScrollArrows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void colors_data();
    void colors();
    void triangle_data();
    void triangle();
    void placement_data();
    void placement();
    void repeat_data();
    void repeat();
    void leaveAndReturn_data();
    void leaveAndReturn();
    void lastStepEndsRepeat();
    void wheel_data();
    void wheel();
    void pictures();
};

namespace {

constexpr int WheelLines = 3;

// A shown bar of two headers whose first one holds `count` items, too many to fit.
struct Bar
{
    explicit Bar(int count, qvStyle style = qvStyleOutlook)
    {
        quiver.InitProperties();
        quiver.setSmoothScroll(false);
        quiver.setStyle(style);
        Items *items = quiver.Headers()->at(1)->Items();
        for (int i = 1; i <= count; ++i)
            items->Add(0, {}, QStringLiteral("Item %1").arg(i));
        quiver.Headers()->Add(0, {}, QStringLiteral("Second"));
        quiver.resize(180, 300);
        quiver.show();
        QCoreApplication::processEvents();
    }
    QWidget *arrow(int index) const { return quiver.findChild<QWidget *>(QStringLiteral("picArrows%1").arg(index)); }
    QTimer *timer() const { return quiver.findChild<QTimer *>(QStringLiteral("ArrowTimer")); }
    ItemContainer *view() const { return static_cast<ItemContainer *>(quiver.SelectedHeader()->itemView()); }
    int top() const
    {
        view()->finishSlide();
        const Item *item = quiver.GetFirstVisible();
        return item ? item->Index() : 0;
    }
    // One tick of the repeat, as its timer gives it; a stopped timer gives none.
    void tick() const
    {
        if (!timer()->isActive())
            return;
        QTimerEvent event(timer()->timerId());
        QCoreApplication::sendEvent(timer(), &event);
    }
    void mouse(QEvent::Type type, int index, QPoint at, Qt::MouseButtons buttons) const
    {
        QMouseEvent event(type, at, arrow(index)->mapToGlobal(at), Qt::LeftButton, buttons, {});
        QCoreApplication::sendEvent(arrow(index), &event);
    }
    QString shown() const
    {
        return QStringLiteral("%1%2").arg(arrow(0)->isVisible() ? "up" : "").arg(arrow(1)->isVisible() ? "down" : "");
    }

    Quiver quiver;
};

QRgb ole(OLE_COLOR color) { return translateColor(color, classicPalette()).rgb(); }

// Frame colours apart from each other and from the palette's 3-D light.
constexpr OLE_COLOR Back = rgbColor(1, 2, 3);
constexpr OLE_COLOR Highlight = rgbColor(250, 250, 250);
constexpr OLE_COLOR Shadow = rgbColor(100, 100, 100);
constexpr OLE_COLOR Dark = rgbColor(30, 30, 30);
constexpr OLE_COLOR Light = systemColor(22);

} // namespace

void tst_ScrollArrows::initTestCase() { QApplication::setWheelScrollLines(WheelLines); }

void tst_ScrollArrows::colors_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("state");
    // outer top-left, outer bottom-right, inner top-left, inner bottom-right
    QTest::addColumn<QList<OLE_COLOR>>("frame");

    QTest::newRow("Outlook, up") << int(qvStyleOutlook) << 0 << QList<OLE_COLOR> { Light, Dark, Highlight, Shadow };
    QTest::newRow("Windows XP, up") << int(qvStyleWindowsXP) << 0
                                    << QList<OLE_COLOR> { Light, Dark, Highlight, Shadow };
    QTest::newRow("Outlook, pressed") << int(qvStyleOutlook) << 2
                                      << QList<OLE_COLOR> { Shadow, Highlight, Dark, Light };
    QTest::newRow("Visual Studio, up") << int(qvStyleVisualStudio) << 0
                                       << QList<OLE_COLOR> { Highlight, Shadow, Back, Back };
    QTest::newRow("Visual Studio, pressed") << int(qvStyleVisualStudio) << 2
                                            << QList<OLE_COLOR> { Dark, Light, Back, Back };
    QTest::newRow("unknown state paints raised") << int(qvStyleOutlook) << 1
                                                 << QList<OLE_COLOR> { Light, Dark, Highlight, Shadow };
}

void tst_ScrollArrows::colors()
{
    QFETCH(int, style);
    QFETCH(int, state);
    QFETCH(QList<OLE_COLOR>, frame);

    ArrowLook look;
    look.style = qvStyle(style);
    look.colors = { .back = Back, .highlight = Highlight, .shadow = Shadow, .dkShadow = Dark };
    QImage image(16, 16, QImage::Format_RGB32);
    QPainter painter(&image);
    DrawArrow(painter, image.size(), 0, state, look, classicPalette());
    painter.end();

    // Each side's line leaves out its end point, which the next side paints:
    // the top-right corner belongs to the right side, the bottom-left to the left.
    const struct {
        QPoint at;
        int color;
    } probes[] = { { { 5, 0 }, 0 },  { { 0, 9 }, 0 },  { { 0, 15 }, 0 }, { { 15, 0 }, 1 }, { { 15, 9 }, 1 },
                   { { 5, 15 }, 1 }, { { 5, 1 }, 2 },  { { 1, 9 }, 2 },  { { 1, 14 }, 2 }, { { 14, 1 }, 3 },
                   { { 14, 9 }, 3 }, { { 5, 14 }, 3 } };
    for (const auto &probe : probes)
        QCOMPARE(image.pixel(probe.at), ole(frame.at(probe.color)));
    QCOMPARE(image.pixel(3, 3), ole(look.colors.back));
}

void tst_ScrollArrows::triangle_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("rows");

    QTest::newRow("16, up") << 16 << 0 << 4;
    QTest::newRow("16, down") << 16 << 1 << 4;
    QTest::newRow("15: rounded up to 16") << 15 << 1 << 4;
    QTest::newRow("20") << 20 << 0 << 5;
}

void tst_ScrollArrows::triangle()
{
    QFETCH(int, side);
    QFETCH(int, index);
    QFETCH(int, rows);

    ArrowLook look;
    look.colors.fore = rgbColor(255, 0, 0);
    QImage image(side, side, QImage::Format_RGB32);
    QPainter painter(&image);
    DrawArrow(painter, image.size(), index, ArrowUp, look, classicPalette());
    painter.end();

    QList<int> widths;
    int left = side, right = -1;
    for (int y = 0; y < side; ++y) {
        int width = 0;
        for (int x = 0; x < side; ++x) {
            if (image.pixel(x, y) == qRgb(255, 0, 0)) {
                ++width;
                left = qMin(left, x);
                right = qMax(right, x);
            }
        }
        if (width)
            widths << width;
    }
    QCOMPARE(widths.size(), rows);
    // A one-pixel point, at the top for the arrow towards the first item.
    QCOMPARE(index == 0 ? widths.first() : widths.last(), 1);
    QCOMPARE(index == 0 ? widths.last() : widths.first(), 2 * rows - 1);
    QVERIFY(qAbs(left - (side - 1 - right)) <= 1);
}

void tst_ScrollArrows::placement_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("lastOpen");

    for (int style = qvStyleOutlook; style <= qvStyleVisualStudio; ++style)
        QTest::addRow("style %d", style) << style << false;
    QTest::newRow("Visual Studio, last header open") << int(qvStyleVisualStudio) << true;
}

void tst_ScrollArrows::placement()
{
    QFETCH(int, style);
    QFETCH(bool, lastOpen);

    Bar bar(lastOpen ? 0 : 40, qvStyle(style));
    if (lastOpen) {
        Header *last = bar.quiver.Headers()->at(2);
        for (int i = 1; i <= 40; ++i)
            last->Items()->Add();
        last->setSelected(true);
        QCoreApplication::processEvents();
    }
    QCOMPARE(bar.shown(), QStringLiteral("down"));
    bar.view()->Scroll(1, false);
    QCOMPARE(bar.shown(), QStringLiteral("updown"));

    const QRect up = bar.arrow(0)->geometry();
    const QRect down = bar.arrow(1)->geometry();
    const QRect view = bar.view()->geometry();
    if (style != qvStyleVisualStudio) {
        QVERIFY(view.contains(up) && view.contains(down));
        QCOMPARE(up.right(), down.right());
        QVERIFY(up.bottom() < down.top());
        return;
    }
    // Beside the open header's bar and the bar after it, in the squares they leave.
    const auto *strip = bar.quiver.findChild<HeaderStrip *>();
    const Header *open = bar.quiver.SelectedHeader();
    const QRect openBar = strip->bar(open->barId())->geometry();
    QCOMPARE(up, QRect(openBar.right() + 1, openBar.top(), openBar.height(), openBar.height()));
    QCOMPARE(up.right(), bar.quiver.width() - 1);
    if (lastOpen) {
        QCOMPARE(down, QRect(up.left(), bar.quiver.height() - up.height(), up.width(), up.height()));
    } else {
        const QRect nextBar = strip->bar(bar.quiver.Headers()->at(2)->barId())->geometry();
        QCOMPARE(down, QRect(nextBar.right() + 1, nextBar.top(), nextBar.height(), nextBar.height()));
    }
}

void tst_ScrollArrows::repeat_data()
{
    QTest::addColumn<bool>("smooth");
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("interval");

    QTest::newRow("smooth") << true << 120 << 120;
    QTest::newRow("instant waits twice as long") << false << 120 << 240;
    QTest::newRow("smooth, shortest delay") << true << 10 << 10;
}

void tst_ScrollArrows::repeat()
{
    QFETCH(bool, smooth);
    QFETCH(int, delay);
    QFETCH(int, interval);

    Bar bar(40);
    bar.quiver.setSmoothScroll(smooth);
    bar.quiver.setScrollDelay(delay);
    QTimer *timer = bar.timer();
    const QPoint centre = bar.arrow(1)->rect().center();

    bar.mouse(QEvent::MouseButtonPress, 1, centre, Qt::LeftButton);
    QList<int> intervals { timer->interval() };
    QCOMPARE(timer->property("Tag").toString(), QStringLiteral("1"));
    for (int step = 0; step < 3; ++step) {
        bar.tick();
        // A tick while the step before still slides lets it run.
        if (smooth)
            bar.tick();
        bar.view()->finishSlide();
        intervals << timer->interval();
    }
    QCOMPARE(intervals, (QList<int> { 1, interval, interval, interval }));
    QCOMPARE(bar.top(), 4);
    // A move over the held arrow keeps the rhythm.
    bar.mouse(QEvent::MouseMove, 1, centre + QPoint(1, 0), Qt::LeftButton);
    QCOMPARE(timer->interval(), interval);

    bar.mouse(QEvent::MouseButtonRelease, 1, centre, Qt::NoButton);
    QVERIFY(!timer->isActive());
    QCOMPARE(timer->interval(), 0);
    QCOMPARE(timer->property("Tag").toString(), QString());
    QCOMPARE(bar.top(), 4);
}

void tst_ScrollArrows::leaveAndReturn_data()
{
    QTest::addColumn<QPoint>("away");

    QTest::newRow("above") << QPoint(8, -4);
    QTest::newRow("to the left") << QPoint(-10, 8);
    QTest::newRow("onto the first column") << QPoint(0, 8);
    QTest::newRow("below") << QPoint(8, 40);
}

void tst_ScrollArrows::leaveAndReturn()
{
    QFETCH(QPoint, away);

    Bar bar(40);
    QTimer *timer = bar.timer();
    const QPoint centre = bar.arrow(1)->rect().center();
    bar.mouse(QEvent::MouseButtonPress, 1, centre, Qt::LeftButton);
    bar.tick();
    bar.mouse(QEvent::MouseMove, 1, away, Qt::LeftButton);
    QVERIFY(!timer->isActive());
    bar.tick();
    QCOMPARE(bar.top(), 2);

    bar.mouse(QEvent::MouseMove, 1, centre, Qt::LeftButton);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 1);
    bar.tick();
    QCOMPARE(bar.top(), 3);
}

void tst_ScrollArrows::lastStepEndsRepeat()
{
    Bar bar(40);
    ItemContainer *view = bar.view();
    while (view->LastFullyVisibleItem() < 39)
        view->Scroll(1, false);
    QTimer *timer = bar.timer();
    bar.mouse(QEvent::MouseButtonPress, 1, bar.arrow(1)->rect().center(), Qt::LeftButton);
    bar.tick();
    QCOMPARE(bar.shown(), QStringLiteral("up"));
    QVERIFY(!timer->isActive());
    QCOMPARE(timer->property("Tag").toString(), QString());

    // A tick that finds both arrows hidden stops the timer.
    while (bar.top() > 1)
        view->Scroll(0, false);
    bar.quiver.resize(180, 4000);
    QCOMPARE(bar.shown(), QString());
    timer->setProperty("Tag", QStringLiteral("1"));
    timer->start(1);
    const int top = bar.top();
    bar.tick();
    QVERIFY(!timer->isActive());
    QCOMPARE(timer->property("Tag").toString(), QString());
    QCOMPARE(bar.top(), top);
}

void tst_ScrollArrows::wheel_data()
{
    QTest::addColumn<int>("startTop");
    QTest::addColumn<QList<int>>("deltas");
    QTest::addColumn<int>("top");

    QTest::newRow("a notch down") << 1 << QList<int> { -120 } << 1 + WheelLines;
    QTest::newRow("a notch up") << 10 << QList<int> { 120 } << 10 - WheelLines;
    QTest::newRow("two high-resolution halves") << 1 << QList<int> { -60, -60 } << 1 + WheelLines;
    QTest::newRow("a half is not a step") << 1 << QList<int> { -60 } << 1;
    QTest::newRow("a half back forgets the half") << 10 << QList<int> { -60, 60, 60 } << 10 - WheelLines;
    QTest::newRow("up at the top") << 1 << QList<int> { 120 } << 1;
    QTest::newRow("stops where the up arrow goes") << 2 << QList<int> { 120 } << 1;
    QTest::newRow("stops where the down arrow goes") << 1 << QList<int>(20, -120) << -1;
}

void tst_ScrollArrows::wheel()
{
    QFETCH(int, startTop);
    QFETCH(QList<int>, deltas);
    QFETCH(int, top);

    Bar bar(40);
    ItemContainer *view = bar.view();
    while (bar.top() < startTop)
        view->Scroll(1, false);
    for (int delta : deltas) {
        const QPointF at = view->rect().center();
        QWheelEvent event(at, view->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view, &event);
    }
    if (top > 0) {
        QCOMPARE(bar.top(), top);
        return;
    }
    // At the end: the last item shows whole and the down arrow has gone.
    QCOMPARE(view->LastFullyVisibleItem(), 40);
    QCOMPARE(bar.shown(), QStringLiteral("up"));
    view->Scroll(0, false);
    QVERIFY(view->LastFullyVisibleItem() < 40);
}

// With QUIVER_PAINTING_PICTURES naming a folder, saves there a bar in each
// style's preset colours, scrolled so that both arrows show, the first arrow
// held down: the pictures of docs/painting.md.
void tst_ScrollArrows::pictures()
{
    const QString folder = qEnvironmentVariable("QUIVER_PAINTING_PICTURES");
    if (folder.isEmpty())
        QSKIP("QUIVER_PAINTING_PICTURES is not set");
    QVERIFY(QDir().mkpath(folder));
    const char *const styles[] = { "outlook", "windows2000", "outlookxp", "windowsxp", "visualstudio" };
    for (int style = qvStyleOutlook; style <= qvStyleVisualStudio; ++style) {
        Bar bar(0);
        bar.quiver.setPalette(classicPalette());
        StylePreset::apply(style, bar.quiver);
        bar.quiver.Headers()->Add(0, {}, QStringLiteral("Third"));
        Items *items = bar.quiver.Headers()->at(1)->Items();
        for (int i = 1; i <= 12; ++i)
            items->Add(0, {}, QStringLiteral("Item %1").arg(i));
        bar.quiver.Headers()->at(1)->setView(qvViewSmallIcons);
        bar.quiver.resize(150, 220);
        QCoreApplication::processEvents();
        bar.view()->Scroll(1, false);
        bar.mouse(QEvent::MouseButtonPress, 0, bar.arrow(0)->rect().center(), Qt::LeftButton);
        QVERIFY(bar.quiver.grab().save(QStringLiteral("%1/arrows-%2.png").arg(folder, styles[style])));
        bar.mouse(QEvent::MouseButtonRelease, 0, bar.arrow(0)->rect().center(), Qt::NoButton);
    }
}

QTEST_MAIN(tst_ScrollArrows)
#include "tst_scrollarrows.moc"
