// The content model at scale: adding, finding and removing items in one
// header of up to a million, next to QListWidget doing the same in the same
// run, and the memory each keeps per item.
//
//   model_bench                      timings (Google Benchmark flags apply)
//   model_bench --memory             bytes per item, each count measured in a
//                                    fresh process
//   model_bench --measure KIND COUNT one measurement (used by --memory)

#include "model/Item.h"
#include "model/Items.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListWidget>

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <random>

using namespace OrrinQuiver;

namespace {

constexpr int Counts[] = { 10'000, 100'000, 1'000'000 };
// Removals per timed batch: from the front each one renumbers the rest.
constexpr int FrontBatch = 20;
constexpr int BackBatch = 1000;
// Lookups cycle through this many random keys or positions.
constexpr int Probes = 4096;

QString captionOf(int i)
{
    return QStringLiteral("Item ") + QString::number(i);
}

void fill(Items &items, int count)
{
    for (int i = 0; i < count; ++i)
        items.Add(0, QString(), captionOf(i));
}

void fill(QListWidget &list, int count)
{
    for (int i = 0; i < count; ++i)
        list.addItem(captionOf(i));
}

void flushDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::vector<int> randomPositions(int count)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> position(1, count);
    std::vector<int> positions(Probes);
    for (int &p : positions)
        p = position(random);
    return positions;
}

void ItemsAdd(benchmark::State &state)
{
    const int count = int(state.range(0));
    for (auto _ : state) {
        auto items = std::make_unique<Items>();
        fill(*items, count);
        state.PauseTiming();
        items.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void ListWidgetAdd(benchmark::State &state)
{
    const int count = int(state.range(0));
    for (auto _ : state) {
        auto list = std::make_unique<QListWidget>();
        fill(*list, count);
        state.PauseTiming();
        list.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}

// Items.Item(key): a caption test (no caption matches) and a key probe.
void ItemsItemByKey(benchmark::State &state)
{
    const int count = int(state.range(0));
    Items items;
    fill(items, count);
    std::vector<QVariant> keys;
    for (int p : randomPositions(count))
        keys.emplace_back(items.at(p)->Key());
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(items.Item(keys[i++ % keys.size()]));
    state.SetItemsProcessed(state.iterations());
}

// What a QListWidget offers for the same question: a scan of the texts.
void ListWidgetFindItems(benchmark::State &state)
{
    const int count = int(state.range(0));
    QListWidget list;
    fill(list, count);
    const std::vector<int> positions = randomPositions(count);
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(list.findItems(captionOf(positions[i++ % positions.size()] - 1), Qt::MatchExactly));
    state.SetItemsProcessed(state.iterations());
}

void ItemsItemByPosition(benchmark::State &state)
{
    const int count = int(state.range(0));
    Items items;
    fill(items, count);
    std::vector<QVariant> positions;
    for (int p : randomPositions(count))
        positions.emplace_back(p);
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(items.Item(positions[i++ % positions.size()]));
    state.SetItemsProcessed(state.iterations());
}

// Removes a batch from the front (range 1 = 1) or the back, then refills
// untimed so every batch starts from the same count.
void ItemsRemove(benchmark::State &state)
{
    const int count = int(state.range(0));
    const bool front = state.range(1) == 1;
    const int batch = front ? FrontBatch : BackBatch;
    Items items;
    fill(items, count);
    for (auto _ : state) {
        for (int n = 0; n < batch; ++n)
            items.Remove(front ? 1 : items.Count());
        state.PauseTiming();
        flushDeletions();
        fill(items, batch);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * batch);
}

void ListWidgetRemove(benchmark::State &state)
{
    const int count = int(state.range(0));
    const bool front = state.range(1) == 1;
    const int batch = front ? FrontBatch : BackBatch;
    QListWidget list;
    fill(list, count);
    for (auto _ : state) {
        for (int n = 0; n < batch; ++n)
            delete list.takeItem(front ? 0 : list.count() - 1);
        state.PauseTiming();
        fill(list, batch);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * batch);
}

void counts(benchmark::internal::Benchmark *b)
{
    for (int count : Counts)
        b->Arg(count);
}

void countsAndEnds(benchmark::internal::Benchmark *b)
{
    for (int count : Counts) {
        b->Args({ count, 1 });
        b->Args({ count, 0 });
    }
    b->ArgNames({ "count", "front" });
}

BENCHMARK(ItemsAdd)->Apply(counts)->Unit(benchmark::kMillisecond);
BENCHMARK(ListWidgetAdd)->Apply(counts)->Unit(benchmark::kMillisecond);
BENCHMARK(ItemsItemByKey)->Apply(counts);
BENCHMARK(ListWidgetFindItems)->Apply(counts)->Unit(benchmark::kMicrosecond);
BENCHMARK(ItemsItemByPosition)->Apply(counts);
BENCHMARK(ItemsRemove)->Apply(countsAndEnds)->Unit(benchmark::kMicrosecond);
BENCHMARK(ListWidgetRemove)->Apply(countsAndEnds)->Unit(benchmark::kMicrosecond);

// Resident memory of the process in bytes.
qint64 residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields.at(1).toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

// Builds `count` members of one kind and prints the resident bytes they added per member.
int measure(const QByteArray &kind, int count)
{
    std::unique_ptr<Items> items;
    std::unique_ptr<QListWidget> list;
    const qint64 before = residentBytes();
    if (kind == "Items") {
        items = std::make_unique<Items>();
        fill(*items, count);
    } else {
        list = std::make_unique<QListWidget>();
        fill(*list, count);
    }
    std::printf("%lld\n", (residentBytes() - before) / count);
    return 0;
}

int memoryTable(const QString &program)
{
    std::printf("%-12s %10s %14s\n", "kind", "count", "bytes/item");
    for (const char *kind : { "Items", "QListWidget" }) {
        for (int count : Counts) {
            QProcess child;
            child.start(program, { QStringLiteral("--measure"), QLatin1String(kind), QString::number(count) });
            child.waitForFinished(-1);
            std::printf("%-12s %10d %14s\n", kind, count, child.readAllStandardOutput().trimmed().constData());
        }
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (argc == 4 && std::strcmp(argv[1], "--measure") == 0)
        return measure(argv[2], std::atoi(argv[3]));
    if (argc == 2 && std::strcmp(argv[1], "--memory") == 0)
        return memoryTable(QCoreApplication::applicationFilePath());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
