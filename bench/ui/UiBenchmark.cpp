// The main window on a list of 100,000 services, on the offscreen platform: showing it, one
// keystroke in the service search until the table has repainted, switching TV and radio, and
// scrolling the service table page by page.

#include "AppContext.h"
#include "ListGenerator.h"
#include "MainWindow.h"
#include "ServiceBrowser.h"
#include "ServiceFilterModel.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString listFolder;

// One window with the list loaded, shared by the benchmarks that do not make their own.
struct Shown
{
    AppContext context;
    MainWindow window{context};

    Shown()
    {
        context.store().load(listFolder);
        window.resize(1360, 820);
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("the window did not appear");
    }

    ServiceBrowser *browser() { return window.serviceBrowser(); }
    // Paints the service table now, as the next frame would.
    void repaintTable() { browser()->table()->viewport()->repaint(); }
};

// Made on first use, gone before the application object.
std::unique_ptr<Shown> sharedWindow;

Shown &shown()
{
    if (!sharedWindow)
        sharedWindow = std::make_unique<Shown>();
    return *sharedWindow;
}

void BM_ShowWindowWithList(benchmark::State &state)
{
    AppContext context;
    context.store().load(listFolder);
    for (auto _ : state) {
        auto window = std::make_unique<MainWindow>(context);
        window->resize(1360, 820);
        window->show();
        window->repaint();
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
    state.counters["services"] = double(context.store().services().size());
}
BENCHMARK(BM_ShowWindowWithList)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_OpenListInWindow(benchmark::State &state)
{
    AppContext context;
    MainWindow window(context);
    window.resize(1360, 820);
    window.show();
    for (auto _ : state) {
        context.store().load(listFolder);
        window.repaint();
    }
}
BENCHMARK(BM_OpenListInWindow)->Unit(benchmark::kMillisecond)->Iterations(3);

// Types `typed` after `before` stands in the search field: the key press until the table is painted.
void searchKeystroke(benchmark::State &state, const QString &before, Qt::Key key)
{
    Shown &window = shown();
    QLineEdit *field = window.browser()->searchField();
    for (auto _ : state) {
        state.PauseTiming();
        field->setText(before);
        window.repaintTable();
        state.ResumeTiming();
        QTest::keyClick(field, key);
        window.repaintTable();
    }
    state.counters["rows"] = window.browser()->filterModel()->rowCount();
    field->clear();
}

void BM_SearchFirstCharacter(benchmark::State &state)
{
    searchKeystroke(state, QString(), Qt::Key_D);
}
BENCHMARK(BM_SearchFirstCharacter)->Unit(benchmark::kMillisecond);

void BM_SearchNextCharacter(benchmark::State &state)
{
    searchKeystroke(state, u"d"_s, Qt::Key_E);
}
BENCHMARK(BM_SearchNextCharacter)->Unit(benchmark::kMillisecond);

void BM_SearchErase(benchmark::State &state)
{
    searchKeystroke(state, u"de"_s, Qt::Key_Backspace);
}
BENCHMARK(BM_SearchErase)->Unit(benchmark::kMillisecond);

void BM_SwitchKind(benchmark::State &state)
{
    Shown &window = shown();
    Store &store = window.context.store();
    for (auto _ : state) {
        store.setKind(store.kind() == MediaKind::tv ? MediaKind::radio : MediaKind::tv);
        window.window.repaint();
    }
    store.setKind(MediaKind::tv);
}
BENCHMARK(BM_SwitchKind)->Unit(benchmark::kMillisecond);

void BM_ScrollTablePage(benchmark::State &state)
{
    Shown &window = shown();
    QScrollBar *bar = window.browser()->table()->verticalScrollBar();
    for (auto _ : state) {
        const int next = bar->value() + bar->pageStep();
        bar->setValue(next > bar->maximum() ? 0 : next);
        window.repaintTable();
    }
    state.counters["rows"] = window.browser()->filterModel()->rowCount();
}
BENCHMARK(BM_ScrollTablePage)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    // Settings, data and the log of a throw-away user; no display needed.
    QTemporaryDir home;
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
        qputenv(name, (home.path() + u'/' + QLatin1String(name)).toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    listFolder = home.path() + u"/list"_s;
    if (!ListGenerator::writeFolder(ListGenerator::generate(), listFolder))
        qFatal("cannot write the generated list");
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    sharedWindow.reset();
    return 0;
}
