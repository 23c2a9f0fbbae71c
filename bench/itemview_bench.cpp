// The item view at scale: with 10^2, 10^4 and 10^6 items in one header, the
// cost of opening that header, of scrolling it one step, of repainting it and
// of finding the item under a point. The goal is a cost that stays flat from
// 10^2 to 10^6 items and no higher than Qt's own views holding the same
// captions in the same run: a QListWidget in icon mode and a QListView over a
// QStringListModel, each shown in a QToolBox page beside an empty one, as a
// Qt developer would build the same bar.

#include "control/Quiver.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Items.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringListModel>
#include <QtWidgets/QListView>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolBox>

#include <benchmark/benchmark.h>

#include <memory>

using namespace OrrinQuiver;

namespace {

constexpr int BarWidth = 200;
constexpr int BarHeight = 480;
// Hit tests per iteration, spread over the view's height.
constexpr int HitProbes = 16;

QString captionOf(int64_t i)
{
    return QStringLiteral("Item ") + QString::number(i);
}

// A shown bar of two headers: an empty one and one holding `count` items,
// which is open.
struct Bar
{
    explicit Bar(int64_t count)
    {
        quiver.InitProperties();
        quiver.setSmoothScroll(false);
        first = quiver.Headers()->at(1);
        full = quiver.Headers()->Add(0, QString(), QStringLiteral("Full"));
        Items *items = full->Items();
        for (int64_t i = 0; i < count; ++i)
            items->Add(0, QString(), captionOf(i));
        quiver.resize(BarWidth, BarHeight);
        quiver.show();
        full->setSelected(true);
        QCoreApplication::processEvents();
    }

    // The open header's view is the one item view that shows.
    ItemContainer *view() const
    {
        for (ItemContainer *view : quiver.findChildren<ItemContainer *>()) {
            if (view->isVisible())
                return view;
        }
        return nullptr;
    }

    Quiver quiver;
    Header *first = nullptr;
    Header *full = nullptr;
};

// The same for Qt's views: a toolbox with an empty page and a full one.
template<typename View>
struct QtBar
{
    explicit QtBar(int64_t count)
    {
        box.addItem(new QListWidget, QStringLiteral("Header 1"));
        view = new View;
        fill(count);
        box.addItem(view, QStringLiteral("Full"));
        box.resize(BarWidth, BarHeight);
        box.show();
        box.setCurrentIndex(1);
        QCoreApplication::processEvents();
    }

    void fill(int64_t count)
    {
        if constexpr (std::is_same_v<View, QListWidget>) {
            view->setViewMode(QListView::IconMode);
            view->setUniformItemSizes(true);
            for (int64_t i = 0; i < count; ++i)
                view->addItem(captionOf(i));
        } else {
            QStringList captions;
            captions.reserve(count);
            for (int64_t i = 0; i < count; ++i)
                captions.append(captionOf(i));
            model = std::make_unique<QStringListModel>(captions);
            view->setUniformItemSizes(true);
            view->setModel(model.get());
        }
    }

    std::unique_ptr<QStringListModel> model;
    QToolBox box;
    View *view = nullptr;
};

void setItemLabel(benchmark::State &state)
{
    state.SetLabel(std::to_string(state.range(0)) + " items");
}

// --- Quiver ------------------------------------------------------------------

void QuiverOpenHeader(benchmark::State &state)
{
    Bar bar(state.range(0));
    bool open = true;
    for (auto _ : state) {
        (open ? bar.first : bar.full)->setSelected(true);
        open = !open;
        QCoreApplication::processEvents();
    }
    setItemLabel(state);
}

void QuiverScrollStep(benchmark::State &state)
{
    Bar bar(state.range(0));
    ItemContainer *view = bar.view();
    bool down = true;
    for (auto _ : state) {
        view->Scroll(down ? 1 : 0, false);
        down = !down;
        QCoreApplication::processEvents();
    }
    setItemLabel(state);
}

void QuiverRepaint(benchmark::State &state)
{
    Bar bar(state.range(0));
    for (auto _ : state)
        bar.quiver.repaint();
    setItemLabel(state);
}

void QuiverHitTest(benchmark::State &state)
{
    Bar bar(state.range(0));
    for (auto _ : state) {
        for (int i = 0; i < HitProbes; ++i)
            benchmark::DoNotOptimize(bar.quiver.HitTest(BarWidth / 2, i * BarHeight / HitProbes));
    }
    setItemLabel(state);
}

// --- Qt's views --------------------------------------------------------------

template<typename View>
void QtOpenHeader(benchmark::State &state)
{
    QtBar<View> bar(state.range(0));
    bool open = true;
    for (auto _ : state) {
        bar.box.setCurrentIndex(open ? 0 : 1);
        open = !open;
        QCoreApplication::processEvents();
    }
    setItemLabel(state);
}

template<typename View>
void QtScrollStep(benchmark::State &state)
{
    QtBar<View> bar(state.range(0));
    QScrollBar *scroll = bar.view->verticalScrollBar();
    bool down = true;
    for (auto _ : state) {
        scroll->setValue(scroll->value() + (down ? scroll->singleStep() : -scroll->singleStep()));
        down = !down;
        QCoreApplication::processEvents();
    }
    setItemLabel(state);
}

template<typename View>
void QtRepaint(benchmark::State &state)
{
    QtBar<View> bar(state.range(0));
    for (auto _ : state)
        bar.box.repaint();
    setItemLabel(state);
}

template<typename View>
void QtHitTest(benchmark::State &state)
{
    QtBar<View> bar(state.range(0));
    QWidget *viewport = bar.view->viewport();
    for (auto _ : state) {
        for (int i = 0; i < HitProbes; ++i)
            benchmark::DoNotOptimize(bar.view->indexAt(QPoint(viewport->width() / 2,
                                                              i * viewport->height() / HitProbes)));
    }
    setItemLabel(state);
}

void counts(benchmark::internal::Benchmark *b)
{
    b->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(QuiverOpenHeader)->Apply(counts);
BENCHMARK(QtOpenHeader<QListWidget>)->Apply(counts);
BENCHMARK(QtOpenHeader<QListView>)->Apply(counts);
BENCHMARK(QuiverScrollStep)->Apply(counts);
BENCHMARK(QtScrollStep<QListWidget>)->Apply(counts);
BENCHMARK(QtScrollStep<QListView>)->Apply(counts);
BENCHMARK(QuiverRepaint)->Apply(counts);
BENCHMARK(QtRepaint<QListWidget>)->Apply(counts);
BENCHMARK(QtRepaint<QListView>)->Apply(counts);
BENCHMARK(QuiverHitTest)->Apply(counts);
BENCHMARK(QtHitTest<QListWidget>)->Apply(counts);
BENCHMARK(QtHitTest<QListView>)->Apply(counts);

} // namespace
