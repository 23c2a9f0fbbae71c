// Scrolling a header of up to 10^6 items the ways a user does: 100 steps of a
// held scroll arrow (the repeat timer's ticks), and 100 wheel notches of one
// item each, next to 100 single steps of a QListView's scroll bar over the
// same captions, each step painted before the next. The goal is a cost per
// step that stays flat from 10^2 to 10^6 items and is no higher than the
// QListView's.

#include "control/Quiver.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Items.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringListModel>
#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListView>
#include <QtWidgets/QScrollBar>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace OrrinQuiver;

namespace {

constexpr int BarWidth = 200;
constexpr int BarHeight = 480;
constexpr int Steps = 100;
constexpr int Notch = 120;

QString captionOf(int64_t i) { return QStringLiteral("Item ") + QString::number(i); }

// A shown bar whose one header holds `count` items.
struct Bar
{
    explicit Bar(int64_t count)
    {
        quiver.InitProperties();
        quiver.setSmoothScroll(false);
        Items *items = quiver.Headers()->at(1)->Items();
        for (int64_t i = 0; i < count; ++i)
            items->Add(0, QString(), captionOf(i));
        quiver.resize(BarWidth, BarHeight);
        quiver.show();
        QCoreApplication::processEvents();
        view = static_cast<ItemContainer *>(quiver.SelectedHeader()->itemView());
        timer = quiver.findChild<QTimer *>(QStringLiteral("ArrowTimer"));
    }

    void mouse(QWidget *arrow, QEvent::Type type, Qt::MouseButtons buttons)
    {
        const QPointF at = arrow->rect().center();
        QMouseEvent event(type, at, arrow->mapToGlobal(at), Qt::LeftButton, buttons, {});
        QCoreApplication::sendEvent(arrow, &event);
    }

    // Holds arrow `index` down for `Steps` ticks of its repeat; returns the
    // steps that scrolled (a short header ends sooner).
    int holdArrow(int index)
    {
        QWidget *arrow = quiver.findChild<QWidget *>(QStringLiteral("picArrows%1").arg(index));
        const int top = view->firstVisiblePosition();
        mouse(arrow, QEvent::MouseButtonPress, Qt::LeftButton);
        for (int step = 0; step < Steps && timer->isActive(); ++step) {
            QTimerEvent tick(timer->timerId());
            QCoreApplication::sendEvent(timer, &tick);
            QCoreApplication::processEvents();
        }
        mouse(arrow, QEvent::MouseButtonRelease, Qt::NoButton);
        return std::abs(view->firstVisiblePosition() - top);
    }

    int turnWheel(int delta)
    {
        const QPointF at = view->rect().center();
        const int top = view->firstVisiblePosition();
        for (int notch = 0; notch < Steps; ++notch) {
            QWheelEvent event(at, view->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, {},
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(view, &event);
            QCoreApplication::processEvents();
        }
        return std::abs(view->firstVisiblePosition() - top);
    }

    Quiver quiver;
    ItemContainer *view = nullptr;
    QTimer *timer = nullptr;
};

// The time of one step: the whole time spread over the steps that scrolled.
void report(benchmark::State &state, int64_t steps)
{
    state.SetLabel(std::to_string(state.range(0)) + " items");
    state.counters["per_step"]
        = benchmark::Counter(double(steps), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// Every other iteration goes back up, so that every step scrolls.
void QuiverArrowSteps(benchmark::State &state)
{
    Bar bar(state.range(0));
    int index = 1;
    int64_t steps = 0;
    for (auto _ : state) {
        steps += bar.holdArrow(index);
        index = 1 - index;
    }
    report(state, steps);
}

void QuiverWheelNotches(benchmark::State &state)
{
    QApplication::setWheelScrollLines(1);
    Bar bar(state.range(0));
    int delta = -Notch;
    int64_t steps = 0;
    for (auto _ : state) {
        steps += bar.turnWheel(delta);
        delta = -delta;
    }
    report(state, steps);
}

void QListViewSingleSteps(benchmark::State &state)
{
    QStringList captions;
    captions.reserve(state.range(0));
    for (int64_t i = 0; i < state.range(0); ++i)
        captions.append(captionOf(i));
    QStringListModel model(captions);
    QListView view;
    view.setUniformItemSizes(true);
    view.setModel(&model);
    view.resize(BarWidth, BarHeight);
    view.show();
    QCoreApplication::processEvents();
    QScrollBar *scroll = view.verticalScrollBar();
    auto action = QAbstractSlider::SliderSingleStepAdd;
    int64_t steps = 0;
    for (auto _ : state) {
        const int value = scroll->value();
        for (int step = 0; step < Steps; ++step) {
            scroll->triggerAction(action);
            QCoreApplication::processEvents();
        }
        steps += std::abs(scroll->value() - value) / scroll->singleStep();
        action = action == QAbstractSlider::SliderSingleStepAdd ? QAbstractSlider::SliderSingleStepSub
                                                                : QAbstractSlider::SliderSingleStepAdd;
    }
    report(state, steps);
}

void counts(benchmark::internal::Benchmark *b)
{
    b->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(QuiverArrowSteps)->Apply(counts);
BENCHMARK(QuiverWheelNotches)->Apply(counts);
BENCHMARK(QListViewSingleSteps)->Apply(counts);

} // namespace
