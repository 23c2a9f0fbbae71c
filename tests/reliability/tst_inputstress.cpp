#include "ModelStress.h"

#include "control/HeaderStrip.h"

#include <QtCore/QTimer>
#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

// Drives a shown Quiver the way a user and its host do at once: clicks,
// drags, wheel turns, keys and presses and holds of the scroll arrows, mixed
// with the content changes of ModelStress, style and view changes, flashing
// and resizes. Slides animate and the event loop runs only now and then, so
// much of the input arrives while headers or items are still moving or an
// arrow repeats. After every step the model and the open view are checked.
namespace {

constexpr int DefaultInputSteps = 4000;
constexpr quint64 DefaultInputSeed = 20261125;

struct Recent
{
    int step;
    QString what;
};

class InputStress
{
public:
    InputStress(Quiver &bar, quint64 seed)
        : m_bar(bar)
        , m_random(seed)
        , m_content(bar, seed ^ 0x9e3779b97f4a7c15ull, { 8, 40 })
    { }

    QStringList step()
    {
        QStringList problems;
        switch (pick({ 18, 8, 10, 10, 6, 22, 4, 3, 3, 3, 3, 10 })) {
        case 0: click(); break;
        case 1: drag(); break;
        case 2: wheel(); break;
        case 3: key(); break;
        case 4: holdArrow(); break;
        case 5: problems = m_content.step();
            note(m_content.recentOperations().constLast());
            break;
        case 6: restyle(); break;
        case 7: changeView(); break;
        case 8: flash(); break;
        case 9: resize(); break;
        case 10: ensureVisible(); break;
        default: runEventLoop(); break;
        }
        ++m_steps;
        // Layout work queued by the step runs before anything is painted.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
        return problems + checkModel(*m_bar.Headers()) + checkOpenView();
    }

    QStringList recent() const
    {
        QStringList lines;
        for (const Recent &r : m_recent)
            lines << QStringLiteral("%1: %2").arg(r.step).arg(r.what);
        return lines;
    }

private:
    int pick(std::initializer_list<double> weights)
    {
        std::discrete_distribution<int> choose(weights);
        return choose(m_random);
    }
    int between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }

    void note(const QString &what)
    {
        m_recent.push_back({ m_steps, what });
        if (m_recent.size() > 24)
            m_recent.erase(m_recent.begin());
    }

    QPoint anyPoint() { return { between(-2, m_bar.width() + 1), between(-2, m_bar.height() + 1) }; }

    // The widget a real pointer at `p` would reach, and `p` in its frame.
    std::pair<QWidget *, QPoint> under(QPoint p)
    {
        QWidget *target = m_bar.childAt(p);
        if (!target)
            target = &m_bar;
        return { target, target->mapFrom(&m_bar, p) };
    }

    static Qt::MouseButton button(int which)
    {
        return which == 0 ? Qt::LeftButton : which == 1 ? Qt::RightButton : Qt::MiddleButton;
    }

    void click()
    {
        const QPoint p = anyPoint();
        const Qt::MouseButton b = button(pick({ 8, 2, 1 }));
        note(QStringLiteral("click %1,%2 button %3").arg(p.x()).arg(p.y()).arg(int(b)));
        auto [target, local] = under(p);
        QPointer<QWidget> guard = target;
        QTest::mousePress(target, b, {}, local);
        // A click may open a header or remove the widget under the pointer.
        if (guard)
            QTest::mouseRelease(target, b, {}, local);
    }

    // Press, move about while the button is held (the pressed widget keeps
    // the mouse, as Qt's implicit grab does), release somewhere else.
    void drag()
    {
        const QPoint from = anyPoint();
        note(QStringLiteral("drag from %1,%2").arg(from.x()).arg(from.y()));
        auto [target, local] = under(from);
        QPointer<QWidget> grab = target;
        QTest::mousePress(target, Qt::LeftButton, {}, local);
        for (int moves = between(1, 5); moves > 0 && grab; --moves)
            QTest::mouseMove(grab, grab->mapFrom(&m_bar, anyPoint()));
        if (grab)
            QTest::mouseRelease(grab, Qt::LeftButton, {}, grab->mapFrom(&m_bar, anyPoint()));
    }

    void wheel()
    {
        const QPoint p = anyPoint();
        static constexpr int Deltas[] = { 120, -120, 240, -360, 40, -40, 15, -15 };
        const int delta = Deltas[between(0, 7)];
        note(QStringLiteral("wheel %1 at %2,%3").arg(delta).arg(p.x()).arg(p.y()));
        auto [target, local] = under(p);
        QWheelEvent event(local, target->mapToGlobal(local), {}, { 0, delta }, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(target, &event);
    }

    void key()
    {
        static constexpr Qt::Key Keys[] = { Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End,
                                            Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Space, Qt::Key_Return };
        const Qt::Key k = Keys[between(0, 7)];
        const Qt::KeyboardModifiers mods = pick({ 3, 1 }) ? Qt::ControlModifier : Qt::NoModifier;
        note(QStringLiteral("key %1 mods %2").arg(int(k), 0, 16).arg(int(mods)));
        Header *open = m_bar.SelectedHeader();
        ItemContainer *view = open ? viewOf(open) : nullptr;
        if (!view)
            return;
        view->setFocus(Qt::TabFocusReason);
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : view, k, mods);
    }

    // Presses an arrow that is shown, lets the repeat run a little, sometimes
    // leaves and comes back while holding, then releases.
    void holdArrow()
    {
        QWidget *arrow = shownArrow(between(0, 1));
        note(QStringLiteral("hold arrow %1").arg(arrow ? arrow->objectName() : QStringLiteral("(none shown)")));
        if (!arrow)
            return;
        QPointer<QWidget> guard = arrow;
        const QPoint inside = arrow->rect().center();
        QTest::mousePress(arrow, Qt::LeftButton, {}, inside);
        wait(between(0, 40));
        if (guard && pick({ 2, 1 })) {
            QTest::mouseMove(guard, inside + QPoint(arrow->width() * 3, 0));
            wait(between(0, 20));
            if (guard)
                QTest::mouseMove(guard, inside);
        }
        if (guard)
            QTest::mouseRelease(guard, Qt::LeftButton, {}, inside);
    }

    void restyle()
    {
        const int style = between(0, 4);
        note(QStringLiteral("style %1").arg(style));
        m_bar.setStyle(qvStyle(style));
    }

    void changeView()
    {
        Header *header = anyHeader();
        const int view = between(0, 1);
        note(QStringLiteral("view %1 of %2").arg(view).arg(header ? header->Key() : QString()));
        if (header)
            header->setView(qvViewType(view));
    }

    void flash()
    {
        Header *header = anyHeader();
        const bool on = pick({ 1, 1 });
        note(QStringLiteral("flash %1 %2").arg(header ? header->Key() : QString()).arg(on));
        if (header)
            header->Flash(on);
    }

    void resize()
    {
        const QSize size(between(40, 320), between(30, 560));
        note(QStringLiteral("resize %1x%2").arg(size.width()).arg(size.height()));
        m_bar.resize(size);
    }

    void ensureVisible()
    {
        Header *open = m_bar.SelectedHeader();
        const int count = open ? open->Items()->Count() : 0;
        const int index = count ? between(1, count) : 0;
        note(QStringLiteral("ensure visible %1").arg(index));
        if (index)
            open->Items()->Item(index)->EnsureVisible();
    }

    void runEventLoop()
    {
        const int ms = between(0, 30);
        note(QStringLiteral("event loop %1 ms").arg(ms));
        wait(ms);
    }

    // Real time passes, so that slides and the arrow repeat move on; what
    // the event loop deletes, the content checker expects gone.
    void wait(int ms)
    {
        QTest::qWait(ms);
        m_content.returnToEventLoop();
    }

    Header *anyHeader()
    {
        const int count = m_bar.Headers()->Count();
        return count ? m_bar.Headers()->Item(between(1, count)) : nullptr;
    }

    static ItemContainer *viewOf(const Header *header)
    {
        return dynamic_cast<ItemContainer *>(header->itemView());
    }

    QWidget *arrow(int index) const
    {
        return m_bar.findChild<QWidget *>(QStringLiteral("picArrows%1").arg(index));
    }

    QWidget *shownArrow(int preferred) const
    {
        for (int index : { preferred, 1 - preferred })
            if (QWidget *a = arrow(index); a && a->isVisible())
                return a;
        return nullptr;
    }

    // What a user sees of the open view once nothing moves: its surface
    // rests with the top slot's item at the view's top edge, and each arrow
    // shows exactly when there is something to scroll to on its side.
    QStringList checkOpenView() const
    {
        const HeaderStrip *strip = m_bar.findChild<HeaderStrip *>();
        Header *open = m_bar.SelectedHeader();
        if (!open || (strip && strip->isSliding()))
            return {};
        ItemContainer *view = viewOf(open);
        if (!view)
            return { QStringLiteral("the open header %1 shows no item view").arg(open->Key()) };
        // A hidden open header (no visible one left) shows nothing to check.
        if (view->isSliding() || !view->isVisibleTo(&m_bar))
            return {};
        QStringList problems;
        if (!m_bar.rect().contains(view->geometry()) && view->height() > 0 && view->width() > 0
            && m_bar.height() > 60)
            problems << QStringLiteral("the open view %1 lies outside the control %2")
                            .arg(rectText(view->geometry()), rectText(m_bar.rect()));
        const int count = open->Items()->Count();
        const int slot = view->topSlot();
        const int rowsAbove = slot <= count ? view->itemRect(open->Items()->Item(slot)->viewId()).top() : -1;
        if (count && view->sliderTop() != -rowsAbove)
            problems << QStringLiteral("the surface's top is %1 with the rows above top slot %2 of %3 at %4")
                            .arg(view->sliderTop())
                            .arg(slot)
                            .arg(count)
                            .arg(rowsAbove);
        const bool upWanted = view->sliderTop() < 0;
        const bool downWanted = view->IsDownArrowNeeded(view->sliderTop(), view->height());
        const QWidget *up = arrow(0);
        const QWidget *down = arrow(1);
        const QString where = QStringLiteral(" (surface top %1, top slot %2 of %3, view %4)")
                                  .arg(view->sliderTop())
                                  .arg(slot)
                                  .arg(count)
                                  .arg(rectText(view->geometry()));
        if (up && up->isVisible() != upWanted)
            problems << QStringLiteral("up arrow shown %1, wanted %2").arg(up->isVisible()).arg(upWanted) + where;
        if (down && down->isVisible() != downWanted)
            problems << QStringLiteral("down arrow shown %1, wanted %2").arg(down->isVisible()).arg(downWanted) + where;
        return problems;
    }

    static QString rectText(QRect r)
    {
        return QStringLiteral("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    }

    Quiver &m_bar;
    std::mt19937_64 m_random;
    ModelStress m_content;
    std::vector<Recent> m_recent;
    int m_steps = 0;
};

quint64 environmentNumber(const char *name, quint64 fallback)
{
    bool given = false;
    const quint64 value = qEnvironmentVariable(name).toULongLong(&given);
    if (qEnvironmentVariable(name) == QLatin1String("random"))
        return (quint64(std::random_device()()) << 32) | std::random_device()();
    return given && value > 0 ? value : fallback;
}

} // namespace

class tst_InputStress : public QObject
{
    Q_OBJECT

private slots:
    void userAndHost();
};

void tst_InputStress::userAndHost()
{
    const quint64 seed = environmentNumber("QUIVER_INPUT_SEED", DefaultInputSeed);
    const auto steps = int(environmentNumber("QUIVER_INPUT_STEPS", DefaultInputSteps));
    Quiver bar;
    bar.InitProperties();
    bar.setScrollDelay(10);
    bar.resize(200, 420);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));

    InputStress stress(bar, seed);
    for (int step = 1; step <= steps; ++step) {
        const QStringList problems = stress.step();
        if (!problems.isEmpty())
            QFAIL(qPrintable(QStringLiteral("seed %1 (replay with QUIVER_INPUT_SEED=%1), step %2:\n%3\n"
                                            "last steps:\n%4")
                                 .arg(seed)
                                 .arg(step)
                                 .arg(problems.join(QLatin1Char('\n')), stress.recent().join(QLatin1Char('\n')))));
    }
}

QTEST_MAIN(tst_InputStress)
#include "tst_inputstress.moc"
