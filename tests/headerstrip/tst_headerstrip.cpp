#include "QuiverTest.h"

#include "RecordingSoundOutput.h"

#include "control/DrawHeader.h"
#include "control/HeaderBar.h"
#include "control/HeaderGeometry.h"
#include "control/HeaderStrip.h"
#include "control/QuiverSounds.h"
#include "itemview/ItemContainer.h"
#include "model/ControlLink.h"
#include "platform/SlideMover.h"
#include "platform/SystemColors.h"

#include <QtCore/QMimeData>
#include <QtGui/QDrag>
#include <QtGui/QFontMetrics>

namespace {

constexpr int Width = 200;
constexpr int Height = 400;

// A shown bar with `count` headers "Header 1".. in `style`, the first open,
// at a fixed font and palette, without animation.
std::unique_ptr<Quiver> makeBar(int count, qvStyle style = qvStyleOutlook)
{
    auto q = std::make_unique<NewQuiver>();
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    q->setFont(font);
    q->setPalette(classicPalette());
    q->setStyle(style);
    for (int i = 2; i <= count; ++i)
        q->Headers()->Add(0, QString(), QStringLiteral("Header %1").arg(i));
    q->setSmoothScroll(false);
    q->resize(Width, Height);
    q->show();
    if (!QTest::qWaitForWindowExposed(q.get()))
        return nullptr;
    q->Headers()->control()->relayoutStrip();
    return q;
}

HeaderStrip *stripOf(Quiver *q) { return q->findChild<HeaderStrip *>(); }

HeaderBar *barAt(Quiver *q, int position) { return stripOf(q)->bar(q->Headers()->at(position)->barId()); }

// Checks that every bar and the open view are where the layout puts them for
// the control as it stands.
void checkPlaced(Quiver *q)
{
    const int open = q->Headers()->control()->selectedHeaderPosition();
    const int count = q->Headers()->Count();
    // A header's Index may lag behind its position after a removal at the end.
    const HeaderGeometry::StripLayout expected
        = HeaderGeometry::layoutStrip({ q->Style(), Width, Height, q->HeaderHeight() - 1,
                                        QList<bool>(count, true), open, q->AlwaysShowFirstHeader() });
    for (int p = 1; p <= count; ++p) {
        QCOMPARE(barAt(q, p)->geometry(), expected.bars.at(p - 1).rect);
        QCOMPARE(barAt(q, p)->isVisibleTo(q), expected.bars.at(p - 1).visible);
        const QWidget *view = stripOf(q)->viewOf(q->Headers()->at(p));
        QCOMPARE(view->isVisibleTo(q), p == open);
        QCOMPARE(view->x(), expected.viewLeft);
        QCOMPARE(view->width(), expected.viewWidth);
    }
    QCOMPARE(stripOf(q)->viewOf(q->SelectedHeader())->geometry(), expected.openView);
}

QPoint middle(const QWidget *w) { return QPoint(w->width() / 2, w->height() / 2); }

// Records every header event as one line, in the order raised.
QStringList *recordEvents(Quiver *q)
{
    auto *log = new QStringList;
    QObject::connect(q, &QObject::destroyed, [log] { delete log; });
    const auto mouse = [q, log](const char *name, auto signal) {
        QObject::connect(q, signal, q, [log, name](Header *h, int button, int, float, float) {
            log->append(QStringLiteral("%1 %2 %3").arg(QLatin1String(name), h->Caption()).arg(button));
        });
    };
    mouse("down", &Quiver::HeaderMouseDown);
    mouse("move", &Quiver::HeaderMouseMove);
    mouse("up", &Quiver::HeaderMouseUp);
    QObject::connect(q, &Quiver::HeaderClick, q,
                     [log](Header *h) { log->append(QStringLiteral("click ") + h->Caption()); });
    return log;
}

// Counts a widget's paint events and records its tops as it moves.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *w) { w->installEventFilter(this); }
    int paints = 0;
    QList<int> tops;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        if (event->type() == QEvent::Move)
            tops.append(static_cast<QWidget *>(watched)->y());
        return false;
    }
};

} // namespace

class tst_HeaderStrip : public QObject
{
    Q_OBJECT

private slots:
    void placesBarsAndViews_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("alwaysFirst");
        QTest::addColumn<int>("textMargins");

        QTest::newRow("outlook") << int(qvStyleOutlook) << 4 << true << 8;
        QTest::newRow("visual studio") << int(qvStyleVisualStudio) << 4 << true << 3;
        QTest::newRow("lone bar hidden") << int(qvStyleOutlook) << 1 << false << 8;
    }
    void placesBarsAndViews()
    {
        QFETCH(int, style);
        QFETCH(int, count);
        QFETCH(bool, alwaysFirst);
        QFETCH(int, textMargins);

        auto q = makeBar(count, qvStyle(style));
        QVERIFY(q);
        q->setAlwaysShowFirstHeader(alwaysFirst);
        q->Headers()->at(count)->setSelected(true);
        QCOMPARE(q->HeaderHeight(), QFontMetrics(q->font()).height() + textMargins + 1);
        checkPlaced(q.get());
        for (int p = 1; p <= count; ++p) {
            QCOMPARE(barAt(q.get(), p)->record().text(), QStringLiteral("%1:0;Header %1").arg(p));
            QVERIFY(!q->Headers()->at(p)->needsPaint());
        }
    }

    void mouseEvents_data()
    {
        QTest::addColumn<int>("target");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<int>("button");
        QTest::addColumn<QPoint>("releaseOffset"); // from the bar's middle
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("opened");
        QTest::addColumn<int>("state"); // the bar's look afterwards

        // Opening a header lays the strip out, which draws every bar normal.
        const auto events
            = [](const char *list) { return QString::fromLatin1(list).split(QLatin1Char('|')); };
        QTest::newRow("click a closed header")
            << 3 << true << int(Qt::LeftButton) << QPoint()
            << events("move Header 3 0|down Header 3 1|click Header 3|up Header 3 1") << 3
            << int(HeaderNormal);
        QTest::newRow("click the open header")
            << 1 << true << int(Qt::LeftButton) << QPoint()
            << events("move Header 1 0|down Header 1 1|click Header 1|up Header 1 1") << 1 << int(HeaderHot);
        QTest::newRow("release outside")
            << 3 << true << int(Qt::LeftButton) << QPoint(0, -40)
            << events("move Header 3 0|down Header 3 1|up Header 3 1") << 1 << int(HeaderHot);
        QTest::newRow("disabled header") << 3 << false << int(Qt::LeftButton) << QPoint()
                                         << events("down Header 3 1|up Header 3 1") << 1 << int(HeaderNormal);
        QTest::newRow("right button")
            << 2 << true << int(Qt::RightButton) << QPoint()
            << events("move Header 2 0|down Header 2 2|up Header 2 2") << 1 << int(HeaderHot);
    }
    void mouseEvents()
    {
        QFETCH(int, target);
        QFETCH(bool, enabled);
        QFETCH(int, button);
        QFETCH(QPoint, releaseOffset);
        QFETCH(QStringList, expected);
        QFETCH(int, opened);
        QFETCH(int, state);

        auto q = makeBar(4);
        QVERIFY(q);
        q->Headers()->at(target)->setEnabled(enabled);
        QStringList *log = recordEvents(q.get());
        HeaderBar *bar = barAt(q.get(), target);
        const QPoint at = middle(bar);
        QTest::mouseMove(bar, at);
        QTest::mousePress(bar, Qt::MouseButton(button), {}, at);
        if (!releaseOffset.isNull())
            QTest::mouseMove(bar, at + releaseOffset);
        QTest::mouseRelease(bar, Qt::MouseButton(button), {}, at + releaseOffset);

        QCOMPARE(*log, expected);
        QCOMPARE(q->SelectedHeader(), q->Headers()->at(opened));
        QCOMPARE(barAt(q.get(), target)->drawnState(), state);

        // Design mode leaves the mouse to the form designer.
        log->clear();
        q->setDesignMode(true);
        QTest::mouseClick(barAt(q.get(), 2), Qt::LeftButton, {}, at);
        QVERIFY(log->isEmpty());
    }

    void hoverRepaintsOnce()
    {
        auto q = makeBar(3);
        QVERIFY(q);
        HeaderBar *bar = barAt(q.get(), 2);
        QCoreApplication::processEvents();
        PaintCounter counter(bar);
        for (int x : { 10, 20, 30, 40 }) {
            QTest::mouseMove(bar, QPoint(x, 5));
            QCoreApplication::processEvents();
        }
        QTRY_COMPARE(counter.paints, 1);
        QCOMPARE(bar->drawnState(), int(HeaderHot));
        // Moving onto the bar's first column counts as leaving it.
        QTest::mouseMove(bar, QPoint(0, 5));
        QTRY_COMPARE(counter.paints, 2);
        QCOMPARE(bar->drawnState(), int(HeaderNormal));
    }

    void sounds_data()
    {
        QTest::addColumn<bool>("play");
        QTest::addColumn<bool>("system");
        QTest::addColumn<bool>("loaded");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("target");
        QTest::addColumn<QByteArray>("expected"); // empty: no sound

        QTest::newRow("built-in") << true << true << false << 1 << 3 << QByteArray("RIFF");
        QTest::newRow("up") << true << false << true << 1 << 3 << QByteArray("UP");
        QTest::newRow("down") << true << false << true << 3 << 1 << QByteArray("DOWN");
        QTest::newRow("never loaded") << true << false << false << 1 << 3 << QByteArray();
        QTest::newRow("sounds off") << false << true << true << 1 << 3 << QByteArray();
        QTest::newRow("already open") << true << true << true << 2 << 2 << QByteArray();
    }
    void sounds()
    {
        QFETCH(bool, play);
        QFETCH(bool, system);
        QFETCH(bool, loaded);
        QFETCH(int, from);
        QFETCH(int, target);
        QFETCH(QByteArray, expected);

        auto q = makeBar(3);
        QVERIFY(q);
        q->Headers()->at(from)->setSelected(true);
        q->setPlaySounds(play);
        q->setUseSystemSounds(system);
        auto *control = q->findChild<QuiverSounds *>();
        auto *sounds = new RecordingSoundOutput;
        control->setOutput(std::unique_ptr<SoundOutput>(sounds));
        if (loaded) {
            control->downloadComplete(QStringLiteral("SoundHeaderUpURL"), "UP");
            control->downloadComplete(QStringLiteral("SoundHeaderDownURL"), "DOWN");
        }

        QTest::mouseClick(barAt(q.get(), target), Qt::LeftButton, {}, QPoint(10, 5));
        QCOMPARE(q->SelectedHeader(), q->Headers()->at(target));
        QCOMPARE(sounds->played.size(), expected.isEmpty() ? 0 : 1);
        if (!expected.isEmpty())
            QVERIFY(sounds->played.first().wave.startsWith(expected));
    }

    void slideFrames()
    {
        auto q = makeBar(4);
        QVERIFY(q);
        q->setSmoothScroll(true);
        const int hh = q->HeaderHeight() - 1;
        HeaderBar *bar3 = barAt(q.get(), 3);
        const int start = bar3->y();
        QCOMPARE(start, Height - 2 * hh);
        PaintCounter moves(bar3);

        QTest::mouseClick(bar3, Qt::LeftButton, {}, QPoint(10, 5));
        // The selection is final at once; only the pixels move afterwards.
        QCOMPARE(q->SelectedHeader(), q->Headers()->at(3));
        QVERIFY(stripOf(q.get())->isSliding());
        QTRY_VERIFY(!stripOf(q.get())->isSliding());

        // Two bars travel up by the content height less one bar, plus 12.
        const int content = Height - 13 - 4 * hh;
        SlideMover mover({ start }, content - hh + 12, true, false, true);
        QList<int> expected;
        while (mover.advance())
            expected.append(mover.tops().first());
        expected.append(mover.target());
        expected.append(1 + 2 * hh); // the layout's place after the slide
        QCOMPARE(moves.tops, expected);
    }

    void slideInterrupted_data()
    {
        QTest::addColumn<QString>("interruption");
        QTest::newRow("click on another bar is held off") << "click";
        QTest::newRow("opening another header finishes the slide") << "select";
        QTest::newRow("removing a sliding header") << "remove";
        QTest::newRow("removing the opened header") << "remove opened";
    }
    void slideInterrupted()
    {
        QFETCH(QString, interruption);

        auto q = makeBar(5);
        QVERIFY(q);
        q->setSmoothScroll(true);
        QStringList *log = recordEvents(q.get());
        QTest::mouseClick(barAt(q.get(), 4), Qt::LeftButton, {}, QPoint(10, 5));
        QVERIFY(stripOf(q.get())->isSliding());
        log->clear();

        Header *expectedOpen = q->Headers()->at(4);
        if (interruption == "click") {
            QTest::mouseClick(barAt(q.get(), 1), Qt::LeftButton, {}, QPoint(10, 5));
            QVERIFY(log->isEmpty());
        } else if (interruption == "select") {
            // The running slide ends where it was going before the next starts.
            PaintCounter moves(barAt(q.get(), 3));
            expectedOpen = q->Headers()->at(2);
            expectedOpen->setSelected(true);
            QVERIFY(moves.tops.contains(1 + 2 * (q->HeaderHeight() - 1)));
        } else if (interruption == "remove") {
            q->Headers()->Remove(3);
        } else {
            q->Headers()->Remove(4);
            expectedOpen = q->Headers()->at(4);
        }
        QCOMPARE(q->SelectedHeader(), expectedOpen);
        QTRY_VERIFY(!stripOf(q.get())->isSliding());

        // Whatever happened meanwhile, the bars end where the layout puts them.
        checkPlaced(q.get());
        QVERIFY(stripOf(q.get())->viewOf(q->SelectedHeader())->isVisible());

        // The mouse reaches the bars again.
        QTest::mouseClick(barAt(q.get(), 1), Qt::LeftButton, {}, QPoint(10, 5));
        QVERIFY(log->contains("click Header 1"));
    }

    void automaticDrag()
    {
        auto q = makeBar(2);
        QVERIFY(q);
        q->setOLEDragMode(qvOLEDragAutomatic);
        Header *header = q->Headers()->at(2);
        header->setKey(QStringLiteral("Mail"));
        HeaderBar *bar = barAt(q.get(), 2);

        QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(10, 5));
        QTest::mouseMove(bar, QPoint(11, 5));
        QTest::mouseMove(bar, QPoint(12, 6));
        QVERIFY(!bar->findChild<QDrag *>());
        QTest::mouseMove(bar, QPoint(14, 6));
        const QDrag *drag = bar->findChild<QDrag *>();
        QVERIFY(drag);
        QCOMPARE(drag->mimeData()->text(), QStringLiteral("Header 2"));
        QCOMPARE(drag->mimeData()->data(HeaderStrip::headerKeyMimeType()), QByteArray("Mail"));
        QCOMPARE(bar->drawnState(), int(HeaderNormal));
    }

    void barsFollowPalette()
    {
        auto q = makeBar(2);
        QVERIFY(q);
        HeaderBar *bar = barAt(q.get(), 1);
        QImage image = bar->grab().toImage();
        QCOMPARE(image.pixelColor(5, 5), QColor(212, 208, 200));
        QCOMPARE(image.pixelColor(0, 0), QColor(255, 255, 255));

        QPalette dark = classicPalette();
        dark.setColor(QPalette::Button, QColor(45, 45, 48));
        q->setPalette(dark);
        image = bar->grab().toImage();
        QCOMPARE(image.pixelColor(5, 5), QColor(45, 45, 48));
    }
};

QTEST_MAIN(tst_HeaderStrip)
#include "tst_headerstrip.moc"
