// The cost of opening another header: the selection, the slide (without
// animation, as with SmoothScroll off) and the layout and repaint of the
// strip that follow, with 10 or 100,000 items in the header that opens. The
// goal is the same cost for both: nothing in a switch may walk the items.
// For comparison, the same switch in what a Qt developer would otherwise
// use: a QToolBox whose pages are QListWidgets.

#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Items.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolBox>

#include <benchmark/benchmark.h>

using namespace OrrinQuiver;

namespace {

constexpr int BarWidth = 200;
constexpr int BarHeight = 480;

void HeaderSwitch(benchmark::State &state)
{
    Quiver q;
    q.InitProperties();
    q.setSmoothScroll(false);
    Header *full = q.Headers()->Add(0, QString(), QStringLiteral("Full"));
    q.Headers()->Add(0, QString(), QStringLiteral("Last"));
    Items *items = full->Items();
    for (int64_t i = 0; i < state.range(0); ++i)
        items->Add(0, QString(), QStringLiteral("Item %1").arg(i));
    q.resize(BarWidth, BarHeight);
    q.show();
    QCoreApplication::processEvents();

    Header *first = q.Headers()->at(1);
    bool open = false;
    for (auto _ : state) {
        // One switch per iteration, alternating between the first header and
        // the full one, each followed by the repaint it causes.
        (open ? first : full)->setSelected(true);
        open = !open;
        QCoreApplication::processEvents();
    }
    state.SetLabel(std::to_string(state.range(0)) + " items");
}
BENCHMARK(HeaderSwitch)->Arg(10)->Arg(100000)->Unit(benchmark::kMicrosecond);

void ToolBoxSwitch(benchmark::State &state)
{
    QToolBox box;
    box.addItem(new QListWidget, QStringLiteral("Header 1"));
    auto *full = new QListWidget;
    for (int64_t i = 0; i < state.range(0); ++i)
        full->addItem(QStringLiteral("Item %1").arg(i));
    box.addItem(full, QStringLiteral("Full"));
    box.addItem(new QListWidget, QStringLiteral("Last"));
    box.resize(BarWidth, BarHeight);
    box.show();
    QCoreApplication::processEvents();

    bool open = false;
    for (auto _ : state) {
        box.setCurrentIndex(open ? 0 : 1);
        open = !open;
        QCoreApplication::processEvents();
    }
    state.SetLabel(std::to_string(state.range(0)) + " items");
}
BENCHMARK(ToolBoxSwitch)->Arg(10)->Arg(100000)->Unit(benchmark::kMicrosecond);

} // namespace
