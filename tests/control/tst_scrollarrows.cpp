#include "control/DrawArrow.h"
#include "control/HeaderStrip.h"
#include "control/StylePreset.h"
#include "itemview/ItemContainer.h"
#include "platform/SystemColors.h"
#include "QuiverTest.h"

#include <QtCore/QDir>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

// The scroll arrows: their paint, where they go, their repeat while held,
// and the wheel, which scrolls in the arrows' steps.
class tst_ScrollArrows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setWheelScrollLines(3); }
    void colors_data();
    void colors();
    void triangle_data();
    void triangle();
    void placement_data();
    void placement();
    void hold_data();
    void hold();
    void lastStepEndsRepeat();
    void wheel_data();
    void wheel();
    void pictures();
};

namespace {

// A shown bar of two headers whose first one holds `count` items, too many to fit.
struct Bar : NewQuiver
{
    explicit Bar(int count, qvStyle style = qvStyleOutlook)
    {
        setSmoothScroll(false);
        setStyle(style);
        for (int i = 1; i <= count; ++i)
            Headers()->at(1)->Items()->Add(0, {}, QStringLiteral("Item %1").arg(i));
        Headers()->Add(0, {}, QStringLiteral("Second"));
        resize(180, 300);
        show();
        QCoreApplication::processEvents();
    }
    QWidget *arrow(int index) const { return findChild<QWidget *>(QStringLiteral("picArrows%1").arg(index)); }
    QTimer *timer() const { return findChild<QTimer *>(QStringLiteral("ArrowTimer")); }
    ItemContainer *view() const { return static_cast<ItemContainer *>(SelectedHeader()->itemView()); }
    int top() const
    {
        view()->finishSlide();
        return GetFirstVisible() ? GetFirstVisible()->Index() : 0;
    }
    // One tick of the repeat, as its timer gives it; a stopped timer gives none.
    void tick() const
    {
        QTimerEvent event(timer()->timerId());
        if (timer()->isActive())
            QCoreApplication::sendEvent(timer(), &event);
    }
    void mouse(QEvent::Type type, int index, QPoint at, Qt::MouseButtons buttons) const
    {
        QMouseEvent event(type, at, arrow(index)->mapToGlobal(at), Qt::LeftButton, buttons, {});
        QCoreApplication::sendEvent(arrow(index), &event);
    }
    QString shown() const
    {
        return QStringLiteral("%1%2").arg(arrow(0)->isVisible() ? "up" : "",
                                          arrow(1)->isVisible() ? "down" : "");
    }
};

// Frame colours apart from each other and from the palette's 3-D light.
constexpr OLE_COLOR Back = rgbColor(1, 2, 3), Highlight = rgbColor(250, 250, 250),
                    Shadow = rgbColor(100, 100, 100), Dark = rgbColor(30, 30, 30), Light = systemColor(22);

QImage arrowImage(int side, int index, int state, const ArrowLook &look)
{
    QImage image(side, side, QImage::Format_RGB32);
    QPainter painter(&image);
    DrawArrow(painter, image.size(), index, state, look, classicPalette());
    return image;
}

} // namespace

void tst_ScrollArrows::colors_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("state");
    // outer top-left, outer bottom-right, inner top-left, inner bottom-right
    QTest::addColumn<QList<OLE_COLOR>>("frame");

    const QList<OLE_COLOR> raised { Light, Dark, Highlight, Shadow };
    QTest::newRow("Outlook, up") << int(qvStyleOutlook) << 0 << raised;
    QTest::newRow("Windows XP, up") << int(qvStyleWindowsXP) << 0 << raised;
    QTest::newRow("unknown state paints raised") << int(qvStyleOutlook) << 1 << raised;
    QTest::newRow("Outlook, pressed")
        << int(qvStyleOutlook) << 2 << QList<OLE_COLOR> { Shadow, Highlight, Dark, Light };
    QTest::newRow("Visual Studio, up")
        << int(qvStyleVisualStudio) << 0 << QList<OLE_COLOR> { Highlight, Shadow, Back, Back };
    QTest::newRow("Visual Studio, pressed")
        << int(qvStyleVisualStudio) << 2 << QList<OLE_COLOR> { Dark, Light, Back, Back };
}

void tst_ScrollArrows::colors()
{
    QFETCH(int, style);
    QFETCH(int, state);
    QFETCH(QList<OLE_COLOR>, frame);

    ArrowLook look;
    look.style = qvStyle(style);
    look.colors = { .back = Back, .highlight = Highlight, .shadow = Shadow, .dkShadow = Dark };
    const QImage image = arrowImage(16, 0, state, look);
    // Each side's line leaves out its end point, which the next side paints:
    // the top-right corner belongs to the right side, the bottom-left to the left.
    const QList<std::pair<QPoint, OLE_COLOR>> probes { { { 5, 0 }, frame[0] },  { { 0, 15 }, frame[0] },
                                                       { { 15, 0 }, frame[1] }, { { 5, 15 }, frame[1] },
                                                       { { 5, 1 }, frame[2] },  { { 1, 14 }, frame[2] },
                                                       { { 14, 1 }, frame[3] }, { { 5, 14 }, frame[3] },
                                                       { { 3, 3 }, Back } };
    for (const auto &[at, color] : probes)
        QCOMPARE(image.pixel(at), translateColor(color, classicPalette()).rgb());
}

void tst_ScrollArrows::triangle_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("rows");

    QTest::newRow("16, up") << 16 << 0 << 4;
    QTest::newRow("15, down: rounded up to 16") << 15 << 1 << 4;
    QTest::newRow("20") << 20 << 0 << 5;
}

void tst_ScrollArrows::triangle()
{
    QFETCH(int, side);
    QFETCH(int, index);
    QFETCH(int, rows);

    ArrowLook look;
    look.colors.fore = rgbColor(255, 0, 0);
    const QImage image = arrowImage(side, index, ArrowUp, look);
    QList<int> widths;
    int left = side, right = -1;
    for (int y = 0; y < side; ++y) {
        QList<int> red;
        for (int x = 0; x < side; ++x)
            red << (image.pixel(x, y) == qRgb(255, 0, 0) ? x : -1);
        red.removeAll(-1);
        if (red.isEmpty())
            continue;
        widths << red.size();
        left = qMin(left, red.first());
        right = qMax(right, red.last());
    }
    QCOMPARE(widths.size(), rows);
    // A one-pixel point, at the top for the arrow towards the first item.
    QCOMPARE(widths.at(index == 0 ? 0 : rows - 1), 1);
    QCOMPARE(widths.at(index == 0 ? rows - 1 : 0), 2 * rows - 1);
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
        for (int i = 1; i <= 40; ++i)
            bar.Headers()->at(2)->Items()->Add();
        bar.Headers()->at(2)->setSelected(true);
        QCoreApplication::processEvents();
    }
    QCOMPARE(bar.shown(), QStringLiteral("down"));
    bar.view()->Scroll(1, false);
    QCOMPARE(bar.shown(), QStringLiteral("updown"));

    const QRect up = bar.arrow(0)->geometry(), down = bar.arrow(1)->geometry();
    if (style != qvStyleVisualStudio) {
        QVERIFY(bar.view()->geometry().contains(up) && bar.view()->geometry().contains(down));
        QCOMPARE(up.right(), down.right());
        QVERIFY(up.bottom() < down.top());
        return;
    }
    // Beside the open header's bar and the bar after it, in the squares they leave.
    const auto square = [&](const Header *header) {
        const QRect barRect = bar.findChild<HeaderStrip *>()->bar(header->barId())->geometry();
        return QRect(barRect.right() + 1, barRect.top(), barRect.height(), barRect.height());
    };
    QCOMPARE(up, square(bar.SelectedHeader()));
    QCOMPARE(up.right(), bar.width() - 1);
    QCOMPARE(down,
             lastOpen ? up.translated(0, bar.height() - up.height() - up.top())
                      : square(bar.Headers()->at(2)));
}

void tst_ScrollArrows::hold_data()
{
    QTest::addColumn<bool>("smooth");
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("interval");
    QTest::addColumn<QPoint>("away"); // where the held mouse leaves to and comes back from; null: it stays

    QTest::newRow("smooth") << true << 120 << 120 << QPoint();
    QTest::newRow("instant waits twice as long") << false << 50 << 100 << QPoint();
    QTest::newRow("leaves above") << false << 120 << 240 << QPoint(8, -4);
    QTest::newRow("leaves onto the first column") << false << 120 << 240 << QPoint(0, 8);
    QTest::newRow("leaves below") << false << 120 << 240 << QPoint(8, 40);
}

void tst_ScrollArrows::hold()
{
    QFETCH(bool, smooth);
    QFETCH(int, delay);
    QFETCH(int, interval);
    QFETCH(QPoint, away);

    Bar bar(40);
    bar.setSmoothScroll(smooth);
    bar.setScrollDelay(delay);
    QTimer *timer = bar.timer();
    const QPoint centre = bar.arrow(1)->rect().center();
    bar.mouse(QEvent::MouseButtonPress, 1, centre, Qt::LeftButton);
    QCOMPARE(timer->property("Tag").toString(), QStringLiteral("1"));
    QList<int> intervals { timer->interval() };
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
    if (away.isNull()) {
        // A move over the held arrow keeps the rhythm.
        bar.mouse(QEvent::MouseMove, 1, centre + QPoint(1, 0), Qt::LeftButton);
        QCOMPARE(timer->interval(), interval);
    } else {
        bar.mouse(QEvent::MouseMove, 1, away, Qt::LeftButton);
        QVERIFY(!timer->isActive());
        bar.tick();
        QCOMPARE(bar.top(), 4);
        bar.mouse(QEvent::MouseMove, 1, centre, Qt::LeftButton);
        QCOMPARE(timer->isActive() ? timer->interval() : 0, 1);
        bar.tick();
    }
    bar.mouse(QEvent::MouseButtonRelease, 1, centre, Qt::NoButton);
    QVERIFY(!timer->isActive());
    QCOMPARE(timer->interval(), 0);
    QCOMPARE(timer->property("Tag").toString(), QString());
    QCOMPARE(bar.top(), away.isNull() ? 4 : 5);
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
    bar.resize(180, 4000);
    QCOMPARE(bar.shown(), QString());
    timer->setProperty("Tag", QStringLiteral("1"));
    timer->start(1);
    bar.tick();
    QVERIFY(!timer->isActive());
    QCOMPARE(timer->property("Tag").toString(), QString());
    QCOMPARE(bar.top(), 1);
}

void tst_ScrollArrows::wheel_data()
{
    QTest::addColumn<int>("startTop");
    QTest::addColumn<QList<int>>("deltas");
    QTest::addColumn<int>("top"); // -1: at the end; a wheel notch is three lines

    QTest::newRow("a notch down") << 1 << QList<int> { -120 } << 4;
    QTest::newRow("two high-resolution halves") << 1 << QList<int> { -60, -60 } << 4;
    QTest::newRow("a half is not a step") << 1 << QList<int> { -60 } << 1;
    QTest::newRow("a half back forgets the half") << 10 << QList<int> { -60, 60, 60 } << 7;
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
        QWheelEvent event(at, view->mapToGlobal(at), {}, { 0, delta }, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
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

// With QUIVER_PAINTING_PICTURES naming a folder, saves there the pictures of
// docs/painting.md: a bar in each style's preset colours, scrolled so that
// both arrows show, the first arrow held down.
void tst_ScrollArrows::pictures()
{
    const QString folder = qEnvironmentVariable("QUIVER_PAINTING_PICTURES");
    if (folder.isEmpty())
        QSKIP("QUIVER_PAINTING_PICTURES is not set");
    QVERIFY(QDir().mkpath(folder));
    const char *const styles[] = { "outlook", "windows2000", "outlookxp", "windowsxp", "visualstudio" };
    for (int style = qvStyleOutlook; style <= qvStyleVisualStudio; ++style) {
        Bar bar(12);
        bar.setPalette(classicPalette());
        StylePreset::apply(style, bar);
        bar.Headers()->Add(0, {}, QStringLiteral("Third"));
        bar.Headers()->at(1)->setView(qvViewSmallIcons);
        bar.resize(150, 220);
        QCoreApplication::processEvents();
        bar.view()->Scroll(1, false);
        const QPoint centre = bar.arrow(0)->rect().center();
        bar.mouse(QEvent::MouseButtonPress, 0, centre, Qt::LeftButton);
        QVERIFY(bar.grab().save(QStringLiteral("%1/arrows-%2.png").arg(folder, styles[style])));
        bar.mouse(QEvent::MouseButtonRelease, 0, centre, Qt::NoButton);
    }
}

QTEST_MAIN(tst_ScrollArrows)
#include "tst_scrollarrows.moc"
