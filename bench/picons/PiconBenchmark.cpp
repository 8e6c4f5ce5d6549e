// Speed of the picon parts on a package of 20,000 picons: scanning the unpacked folder (also as a
// multiple of a bare directory walk over the same folder), unpacking a tar.gz with libarchive,
// reading the local index, looking up one service's picon, and building an upload plan against a
// list of 20,000 services.

#include "Picon.h"
#include "PiconArchives.h"
#include "PiconPackage.h"
#include "PiconUploadPlan.h"
#include "Picons.h"
#include "Paths.h"
#include "Store.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int piconCount = 20000;

// Service i of the synthetic list, and the name of its picon.
Service service(int i)
{
    Service s;
    s.key = ServiceKey{quint32(i + 1), quint32(1 + i / 500), 1, 0xC00000};
    s.type = i % 3 == 0 ? 0x19 : 1;
    s.name = u"Sender "_s + QString::number(i);
    return s;
}

QString piconName(int i)
{
    return Picon::fileNames(reference(service(i))).constLast();
}

QByteArray png()
{
    QImage image(100, 60, QImage::Format_ARGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// The temporary home of every folder below, and the data folder of the store.
QTemporaryDir &home()
{
    static QTemporaryDir dir;
    return dir;
}

// 20,000 picons below picon/, plus the other files a package carries.
const QString &unpackedFolder()
{
    static const QString folder = [] {
        const QString root = home().filePath(u"unpacked"_s);
        QDir().mkpath(root + u"/usr/share/enigma2/picon"_s);
        const QByteArray bytes = png();
        for (int i = 0; i < piconCount; ++i) {
            QFile file(root + u"/usr/share/enigma2/picon/"_s + piconName(i));
            file.open(QIODevice::WriteOnly);
            file.write(bytes);
        }
        for (const QString &name : {u"control"_s, u"README"_s, u"logo.png"_s}) {
            QFile file(root + u'/' + name);
            file.open(QIODevice::WriteOnly);
        }
        return root;
    }();
    return folder;
}

const QString &packageArchive()
{
    static const QString path = [] {
        QList<PiconArchives::Entry> entries;
        const QByteArray bytes = png();
        for (int i = 0; i < piconCount; ++i)
            entries << PiconArchives::file("picon/" + piconName(i).toUtf8(), bytes);
        const QString archive = home().filePath(u"picons.tar.gz"_s);
        PiconArchives::write(archive, PiconArchives::Format::tarGz, entries);
        return archive;
    }();
    return path;
}

const QList<Service> &services()
{
    static const QList<Service> list = [] {
        QList<Service> all;
        for (int i = 0; i < piconCount; ++i)
            all << service(i);
        return all;
    }();
    return list;
}

// A store whose picon cache holds the 20,000 picons.
Picons &picons()
{
    static Store store;
    static Picons instance(store);
    static const bool filled = [] {
        const QString cache = instance.piconFolder();
        QDir().mkpath(cache);
        const QString source = unpackedFolder() + u"/usr/share/enigma2/picon/"_s;
        for (int i = 0; i < piconCount; ++i)
            QFile::copy(source + piconName(i), cache + u'/' + piconName(i));
        instance.reloadPiconIndex();
        return true;
    }();
    Q_UNUSED(filled);
    return instance;
}

void bareDirectoryWalk(benchmark::State &state)
{
    const QString root = unpackedFolder();
    for (auto _ : state) {
        qsizetype count = 0;
        QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            it.next();
            ++count;
        }
        benchmark::DoNotOptimize(count);
    }
    state.SetItemsProcessed(state.iterations() * piconCount);
}
BENCHMARK(bareDirectoryWalk)->Unit(benchmark::kMillisecond);

void scanPackageFolder(benchmark::State &state)
{
    const QString root = unpackedFolder();
    for (auto _ : state) {
        const QList<PiconFile> files = PiconPackage::scan(root);
        if (files.size() != piconCount)
            state.SkipWithError("wrong number of picons");
        benchmark::DoNotOptimize(files.data());
    }
    state.SetItemsProcessed(state.iterations() * piconCount);
}
BENCHMARK(scanPackageFolder)->Unit(benchmark::kMillisecond);

void openTarGzPackage(benchmark::State &state)
{
    const QString archive = packageArchive();
    const QString workBase = home().filePath(u"work"_s);
    for (auto _ : state) {
        const PiconPackage package = PiconPackage::open(archive, workBase);
        if (package.files.size() != piconCount)
            state.SkipWithError("wrong number of picons");
    }
    state.SetItemsProcessed(state.iterations() * piconCount);
    state.counters["MB"] = double(QFileInfo(archive).size()) / 1e6;
}
BENCHMARK(openTarGzPackage)->Unit(benchmark::kMillisecond)->Iterations(3);

void reloadPiconIndex(benchmark::State &state)
{
    Picons &index = picons();
    for (auto _ : state)
        index.reloadPiconIndex();
    state.SetItemsProcessed(state.iterations() * piconCount);
}
BENCHMARK(reloadPiconIndex)->Unit(benchmark::kMillisecond);

// One service's picon, its image already decoded: two name candidates against the set of 20,000.
void piconOfService(benchmark::State &state)
{
    Picons &index = picons();
    // A type-0x19 service: its own name misses, the type-1 name hits.
    const Service wanted = service(piconCount / 2 + 2);
    if (!index.picon(wanted))
        state.SkipWithError("picon missing");
    for (auto _ : state)
        benchmark::DoNotOptimize(index.picon(wanted));
}
BENCHMARK(piconOfService);

void piconOfServiceWithout(benchmark::State &state)
{
    Picons &index = picons();
    const Service wanted = service(piconCount + 7);
    for (auto _ : state)
        benchmark::DoNotOptimize(index.picon(wanted));
}
BENCHMARK(piconOfServiceWithout);

void uploadPlanOf20000(benchmark::State &state)
{
    PiconPackage package{u"p.zip"_s, unpackedFolder(), PiconPackage::scan(unpackedFolder())};
    QStringList listing;
    for (int i = 0; i < piconCount; i += 2)
        listing << piconName(i);
    for (auto _ : state) {
        const PiconUploadPlan plan = PiconUploadPlan::build(package, u"/picon/"_s, listing, services());
        const int missing = plan.count(false, false);
        if (missing != piconCount / 2)
            state.SkipWithError("wrong selection");
        benchmark::DoNotOptimize(plan.files().size());
    }
    state.SetItemsProcessed(state.iterations() * piconCount);
}
BENCHMARK(uploadPlanOf20000)->Unit(benchmark::kMillisecond);

// What the upload sheet shows: the count of every choice, and the figures beside them.
void uploadPlanFigures(benchmark::State &state)
{
    PiconPackage package{u"p.zip"_s, unpackedFolder(), PiconPackage::scan(unpackedFolder())};
    const PiconUploadPlan plan = PiconUploadPlan::build(package, u"/picon/"_s, {}, services());
    for (auto _ : state) {
        int sum = plan.total() + plan.matchingCount() + plan.existingCount(false) + plan.existingCount(true);
        for (const bool all : {false, true}) {
            for (const bool overwrite : {false, true})
                sum += plan.count(all, overwrite);
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(uploadPlanFigures)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    // Settings, data and log of the benchmark stay in its temporary folder.
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QFile::encodeName(home().filePath(QString::fromLatin1(name))));
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
