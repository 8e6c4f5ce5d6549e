// The document store on a list of 100,000 services and 200 bouquets of 500 entries: opening the
// folder (also as a multiple of reading its bytes), 200 edits with their undo snapshots (time and
// heap growth), one undo and one redo, and rebuilding the sorted catalogue.

#include "ListFolder.h"
#include "ListGenerator.h"
#include "Store.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <chrono>
#include <malloc.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

QString &folder()
{
    static QString path;
    return path;
}

std::size_t heapInUse()
{
    return mallinfo2().uordblks;
}

// Reads every file of the folder into memory: the floor under any way of opening it.
qint64 readAllBytes()
{
    qint64 total = 0;
    const QDir dir(folder());
    for (const QString &name : dir.entryList(QDir::Files)) {
        QFile file(dir.filePath(name));
        if (file.open(QIODevice::ReadOnly)) total += file.readAll().size();
    }
    return total;
}

std::unique_ptr<Store> loadedStore()
{
    auto store = std::make_unique<Store>();
    store->load(folder());
    return store;
}

// One edit of a kind the user makes, each in another bouquet, so that every snapshot keeps a
// copy of a different entry list.
void edit(Store &store, int step)
{
    const QList<Bouquet> bouquets = store.currentBouquets();
    const Bouquet &bouquet = bouquets.at(step % bouquets.size());
    store.setSelectedBouquetID(bouquet.id);
    switch (step % 5) {
    case 0:
        store.addMarker(u"Marker %1"_s.arg(step));
        break;
    case 1:
        store.insert({bouquet.entries.first().reference}, bouquet.id, 10);
        break;
    case 2:
        store.moveEntries({0, 1, 2}, bouquet.entries.size());
        break;
    case 3:
        store.renameEntry(bouquet.entries.at(5).id, u"Eigener Name %1"_s.arg(step));
        break;
    case 4:
        store.renameBouquet(bouquet.id, u"Bouquet %1"_s.arg(step));
        break;
    }
}

void BM_ReadFolderBytes(benchmark::State &state)
{
    qint64 bytes = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(bytes = readAllBytes());
    state.SetBytesProcessed(state.iterations() * bytes);
}

void BM_OpenFolder(benchmark::State &state)
{
    // The floor first: reading the same bytes, best of five.
    double floor = 1e9;
    for (int i = 0; i < 5; ++i) {
        const auto start = Clock::now();
        benchmark::DoNotOptimize(readAllBytes());
        floor = std::min(floor, secondsSince(start));
    }
    double total = 0;
    for (auto _ : state) {
        auto store = std::make_unique<Store>();
        const auto start = Clock::now();
        store->load(folder());
        const double seconds = secondsSince(start);
        state.SetIterationTime(seconds);
        total += seconds;
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
    state.counters["read_ms"] = floor * 1e3;
    state.counters["x_read"] = total / double(state.iterations()) / floor;
}

// The files parsed into records, without building the store's views.
void BM_ReadListFolder(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(ListFolder::read(folder()));
}

void BM_TwoHundredEdits(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto store = loadedStore();
        malloc_trim(0);
        const std::size_t before = heapInUse();
        state.ResumeTiming();
        for (int step = 0; step < 200; ++step)
            edit(*store, step);
        state.PauseTiming();
        state.counters["heap_growth_MB"] = double(heapInUse() - before) / 1e6;
        state.counters["snapshots"] = double(store->undoStack().size());
        store.reset();
        state.ResumeTiming();
    }
}

void BM_UndoAndRedo(benchmark::State &state)
{
    auto store = loadedStore();
    for (int step = 0; step < 200; ++step)
        edit(*store, step);
    double undo = 0;
    double redo = 0;
    for (auto _ : state) {
        auto start = Clock::now();
        store->undo();
        undo += secondsSince(start);
        start = Clock::now();
        store->redo();
        redo += secondsSince(start);
    }
    state.counters["undo_ms"] = undo / double(state.iterations()) * 1e3;
    state.counters["redo_ms"] = redo / double(state.iterations()) * 1e3;
}

void BM_RebuildServices(benchmark::State &state)
{
    auto store = loadedStore();
    for (auto _ : state)
        store->rebuildServices();
    state.counters["services"] = double(store->services().size());
}

} // namespace

BENCHMARK(BM_ReadFolderBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenFolder)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(BM_ReadListFolder)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TwoHundredEdits)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_UndoAndRedo)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RebuildServices)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    // Settings, log and data of the run stay in a folder of their own.
    QTemporaryDir home;
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
        qputenv(name, (home.path() + u'/' + QLatin1String(name)).toUtf8());
    QCoreApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    folder() = home.path() + u"/list"_s;
    if (!ListGenerator::writeFolder(ListGenerator::generate(), folder()))
        qFatal("the generated list could not be written");

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
