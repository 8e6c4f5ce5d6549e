// Speed and memory of the readers and writers on a list of 100,000 services, each time also as a
// multiple of a bare line scan (memchr for line feeds) over the same bytes, so that the figures
// mean the same on a faster or slower machine.

#include "Bouquet.h"
#include "LameDB.h"
#include "ListGenerator.h"

#include <benchmark/benchmark.h>

#include <QMap>

#include <cstring>
#include <malloc.h>
#include <map>
#include <string>

namespace {

const ListGenerator::List &list()
{
    static const ListGenerator::List generated = ListGenerator::generate();
    return generated;
}

QByteArray allBouquetText()
{
    QByteArray text;
    for (const auto &bouquet : list().bouquets)
        text += bouquet.text;
    return text;
}

const QByteArray &bouquetBytes()
{
    static const QByteArray text = allBouquetText();
    return text;
}

qsizetype countLineFeeds(QByteArrayView bytes)
{
    qsizetype count = 0;
    const char *p = bytes.data();
    const char *end = p + bytes.size();
    while (const void *hit = std::memchr(p, '\n', size_t(end - p))) {
        ++count;
        p = static_cast<const char *>(hit) + 1;
    }
    return count;
}

// Bytes in use by malloc, small and mapped blocks together.
size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// 50 renames and 50 deletions spread evenly over the services.
ServiceEdits hundredEdits()
{
    ServiceEdits edits;
    const auto &services = list().services;
    for (int i = 0; i < 100; ++i) {
        const Service &service = services.at(qsizetype(i) * services.size() / 100);
        edits.insert(service.key, i % 2 ? ServiceEdit::deletion()
                                        : ServiceEdit::rename(service.name + QStringLiteral(" (neu)")));
    }
    return edits;
}

void scan(benchmark::State &state, const QByteArray &bytes)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(countLineFeeds(bytes));
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void parse(benchmark::State &state, const QByteArray &bytes, LameDB::Database (*reader)(QByteArrayView))
{
    {
        const size_t before = heapInUse();
        const LameDB::Database kept = reader(bytes);
        state.counters["memory_x_file"] = double(heapInUse() - before) / double(bytes.size());
        state.counters["services"] = double(kept.services.size());
    }
    for (auto _ : state) {
        LameDB::Database database = reader(bytes);
        benchmark::DoNotOptimize(database);
        // Freeing the previous result is not part of reading.
        state.PauseTiming();
        database = {};
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void applying(benchmark::State &state, const QByteArray &bytes)
{
    const ServiceEdits edits = hundredEdits();
    for (auto _ : state)
        benchmark::DoNotOptimize(LameDB::applying(edits, bytes));
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void BM_ScanLamedb(benchmark::State &state) { scan(state, list().lamedb); }
void BM_ScanLamedb5(benchmark::State &state) { scan(state, list().lamedb5); }
void BM_ScanBouquets(benchmark::State &state) { scan(state, bouquetBytes()); }
void BM_ParseV4(benchmark::State &state) { parse(state, list().lamedb, LameDB::parseV4); }
void BM_ParseV5(benchmark::State &state) { parse(state, list().lamedb5, LameDB::parseV5); }
void BM_ApplyingV4(benchmark::State &state) { applying(state, list().lamedb); }
void BM_ApplyingV5(benchmark::State &state) { applying(state, list().lamedb5); }

void BM_BouquetParse(benchmark::State &state)
{
    for (auto _ : state) {
        for (const auto &file : list().bouquets) {
            Bouquet bouquet = Bouquet::parse(file.fileName, file.kind, file.text);
            benchmark::DoNotOptimize(bouquet);
        }
    }
    state.SetBytesProcessed(state.iterations() * bouquetBytes().size());
}

void BM_BouquetWrite(benchmark::State &state)
{
    QList<Bouquet> bouquets;
    for (const auto &file : list().bouquets)
        bouquets.append(Bouquet::parse(file.fileName, file.kind, file.text));
    for (auto _ : state) {
        for (const Bouquet &bouquet : bouquets)
            benchmark::DoNotOptimize(bouquet.serialized());
    }
    state.SetBytesProcessed(state.iterations() * bouquetBytes().size());
}

BENCHMARK(BM_ScanLamedb)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScanLamedb5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScanBouquets)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ParseV4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ParseV5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ApplyingV4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ApplyingV5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BouquetParse)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BouquetWrite)->Unit(benchmark::kMillisecond);

// Prints the usual table, then each measurement as a multiple of the scan of the same bytes.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            // Single runs, or the median when only aggregates are reported.
            const bool single = run.run_type == Run::RT_Iteration;
            if ((!single && run.aggregate_name != "median") || run.error_occurred || run.iterations == 0)
                continue;
            // CPU time: on a shared machine it does not count the time other programs take.
            const double seconds = single ? run.cpu_accumulated_time / double(run.iterations)
                                          : run.GetAdjustedCPUTime() * timeUnitSeconds(run.time_unit);
            const std::string name = run.run_name.function_name;
            const auto known = m_seconds.find(name);
            if (known == m_seconds.end() || seconds < known->second)
                m_seconds[name] = seconds;
            if (const auto memory = run.counters.find("memory_x_file"); memory != run.counters.end())
                m_memory[name] = memory->second.value;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void printSummary() const
    {
        struct Row
        {
            const char *name;
            const char *scan;
            double target;
        };
        static constexpr Row rows[] = {
            {"BM_ParseV5", "BM_ScanLamedb5", 30},   {"BM_ParseV4", "BM_ScanLamedb", 30},
            {"BM_ApplyingV5", "BM_ScanLamedb5", 15}, {"BM_ApplyingV4", "BM_ScanLamedb", 15},
            {"BM_BouquetParse", "BM_ScanBouquets", 0}, {"BM_BouquetWrite", "BM_ScanBouquets", 0},
        };
        std::printf("\n%-18s %10s %10s %8s %8s %12s\n", "measurement", "cpu ms", "scan ms", "x scan", "target",
                    "memory/file");
        for (const Row &row : rows) {
            const auto time = m_seconds.find(row.name);
            const auto reference = m_seconds.find(row.scan);
            if (time == m_seconds.end() || reference == m_seconds.end())
                continue;
            const auto memory = m_memory.find(row.name);
            std::printf("%-18s %10.2f %10.3f %8.1f %8s %12s\n", row.name, time->second * 1e3,
                        reference->second * 1e3, time->second / reference->second,
                        row.target > 0 ? (std::to_string(int(row.target)) + "x").c_str() : "-",
                        memory != m_memory.end() ? (std::to_string(memory->second).substr(0, 4) + "x").c_str()
                                                 : "-");
        }
        std::printf("lamedb %lld bytes, lamedb5 %lld bytes, bouquets %lld bytes, %lld services\n",
                    qint64(list().lamedb.size()), qint64(list().lamedb5.size()), qint64(bouquetBytes().size()),
                    qint64(list().services.size()));
    }

private:
    static double timeUnitSeconds(benchmark::TimeUnit unit)
    {
        switch (unit) {
        case benchmark::kNanosecond:
            return 1e-9;
        case benchmark::kMicrosecond:
            return 1e-6;
        case benchmark::kMillisecond:
            return 1e-3;
        case benchmark::kSecond:
            return 1;
        }
        return 1;
    }

    std::map<std::string, double> m_seconds;
    std::map<std::string, double> m_memory;
};

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printSummary();
    benchmark::Shutdown();
    return 0;
}
