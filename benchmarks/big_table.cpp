// A table of a million calls: listing, sorting and exporting it against the database engine's own ways over the same
// rows, the memory that a row takes, and how long a key press waits while the page works.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include "call_maker.h"
#include "cdr/call_export.h"
#include "cdr/call_list.h"
#include "fakes/console_bench.h"
#include "platform/qt/qt_platform.h"
#include "platform/sqlite/sqlite_engine.h"
#include "screens/main_window_screen.h"
#include "screens/screens.h"

namespace {

using Clock = std::chrono::steady_clock;
using trunvex::callColumnCount;
using trunvex::callColumns;

constexpr const char* wholeTable = "SELECT * FROM CDR";
constexpr std::size_t sliceRows = 4000;

double seconds(Clock::duration span) { return std::chrono::duration<double>(span).count(); }

void listAll(trunvex::CallList& list) {
    trunvex::SqliteEngine engine;
    const auto database = engine.open(bench::bigCallDatabase());
    const auto rows = database->query(wholeTable);
    while (list.addFrom(*rows, sliceRows)) {
    }
}

const trunvex::CallList& bigList() {
    static trunvex::CallList list;
    if (list.held() == 0) listAll(list);
    return list;
}

// A field of /proc/self/status, in bytes.
double processBytes(const std::string& field) {
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);)
        if (line.rfind(field, 0) == 0) return std::strtod(line.c_str() + field.size() + 1, nullptr) * 1024;
    return 0;
}

// First of all, so that nothing that others have freed is used again unseen. The peak counts everything that listing
// and sorting take from the machine, the engine's own part too.
void memory(benchmark::State& state) {
    bench::bigCallDatabase();
    for (auto _ : state) {
        ::malloc_trim(0);
        const auto before = processBytes("VmRSS");
        std::ofstream("/proc/self/clear_refs") << 5;
        trunvex::CallList list;
        listAll(list);
        state.counters["listed"] = (processBytes("VmHWM") - before) / static_cast<double>(list.held());
        list.sort({4, true});
        while (list.work(sliceRows)) {
        }
        state.counters["sorted"] = (processBytes("VmHWM") - before) / static_cast<double>(list.held());
        if (list.size() != bench::callRows()) state.SkipWithError("not all rows were listed");
    }
}

void list(benchmark::State& state) {
    bench::bigCallDatabase();
    for (auto _ : state) {
        trunvex::CallList list;
        listAll(list);
        if (list.size() != bench::callRows()) state.SkipWithError("not all rows were listed");
    }
}

class Statement {
public:
    explicit Statement(const std::string& sql) {
        sqlite3_open_v2(bench::bigCallDatabase().c_str(), &database_, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement_, nullptr);
    }
    ~Statement() {
        sqlite3_finalize(statement_);
        sqlite3_close(database_);
    }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    bool step() { return sqlite3_step(statement_) == SQLITE_ROW; }
    sqlite3_stmt* get() { return statement_; }

private:
    sqlite3* database_ = nullptr;
    sqlite3_stmt* statement_ = nullptr;
};

void step(benchmark::State& state) {
    bench::bigCallDatabase();
    for (auto _ : state) {
        Statement rows(wholeTable);
        std::vector<std::string> blocks(1);
        while (rows.step()) {
            if (blocks.back().size() > 1 << 20) blocks.emplace_back().reserve(1 << 21);
            for (int column = 0; column < static_cast<int>(callColumnCount); ++column) {
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), column));
                blocks.back().append(text, static_cast<std::size_t>(sqlite3_column_bytes(rows.get(), column)) + 1);
            }
        }
        benchmark::DoNotOptimize(blocks);
    }
}

void sort(benchmark::State& state) {
    auto& list = const_cast<trunvex::CallList&>(bigList());
    const auto column = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        list.sort({column, true});
        while (list.work(16000)) {
        }
    }
    for (std::size_t row = 1; row < list.size(); ++row) {
        const auto kind = callColumns[column].sort;
        const auto before = list.text(row - 1, column);
        const auto here = list.text(row, column);
        if (kind == trunvex::SortKind::Text ? here < before : sortKey(here, kind) < sortKey(before, kind))
            state.SkipWithError("the list is not in order");
    }
}

void orderBy(benchmark::State& state) {
    bench::bigCallDatabase();
    const std::string column = callColumns[static_cast<std::size_t>(state.range(0))].name;
    for (auto _ : state) {
        Statement rows("SELECT rowid FROM CDR ORDER BY " + column);
        std::size_t count = 0;
        while (rows.step()) ++count;
        benchmark::DoNotOptimize(count);
    }
}

void exportCsv(benchmark::State& state) {
    const trunvex::fakes::TemporaryFolder folder;
    const auto& list = bigList();
    for (auto _ : state)
        while (trunvex::CSVExport(folder.path() / "calls.csv", list, true)->write(list.size())) {
        }
}

void shellCsv(benchmark::State& state) {
    const trunvex::fakes::TemporaryFolder folder;
    const auto command = "sqlite3 -header -csv '" + bench::bigCallDatabase().string() + "' 'SELECT * FROM CDR' > '" +
                         (folder.path() / "calls.csv").string() + "'";
    for (auto _ : state)
        if (std::system(command.c_str()) != 0) state.SkipWithError("the shell failed");
}

// Presses a key every few milliseconds, whatever the window does, and notes how long each press waits until it was
// handled.
class Typist : public QObject {
public:
    explicit Typist(QWidget* target) : target_(target), thread_([this] { type(); }) {}
    ~Typist() override {
        stop_ = true;
        thread_.join();
        QCoreApplication::removePostedEvents(this);
    }
    double longestMs() const { return seconds(longest_) * 1000; }

protected:
    bool event(QEvent* event) override {
        const auto* press = dynamic_cast<Press*>(event);
        if (!press) return QObject::event(event);
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QApplication::sendEvent(target_, &key);
        longest_ = std::max(longest_, Clock::now() - press->at);
        pending_ = false;
        return true;
    }

private:
    struct Press : QEvent {
        Press() : QEvent(QEvent::User), at(Clock::now()) {}
        Clock::time_point at;
    };
    void type() {
        while (!stop_) {
            if (!pending_.exchange(true)) QCoreApplication::postEvent(this, new Press);
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }

    QWidget* target_;
    Clock::duration longest_{};
    std::atomic<bool> stop_{false};
    std::atomic<bool> pending_{false};
    std::thread thread_;
};

// Dialogs are answered by themselves.
class UnaskedPlatform : public trunvex::QtPlatform {
public:
    trunvex::Dialogs& dialogs() override { return boxes; }
    trunvex::fakes::ScriptedDialogs boxes;
};

void window(benchmark::State& state) {
    const trunvex::fakes::TemporaryFolder folder(CALL_TEMPLATE);
    bench::linkBigCallDatabase(folder.path(), "4711");
    UnaskedPlatform platform;
    trunvex::Console console(platform, folder.path());
    trunvex::Screens screens(console);
    screens.startWithoutSplash();
    auto& page = console.calls;
    console.session.state.gESN = "4711";
    console.callStore.setGateway("4711");
    auto* table = screens.mainWindow().findChild<QWidget*>("lsvCallReport");
    const auto during = [&](const char* what, const std::function<void()>& begin) {
        Typist typist(table);
        begin();
        // What comes after, a table's new layout for one, holds keys up as well.
        for (int quiet = 0; quiet < 50; quiet = page.busy() ? 0 : quiet + 1)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        state.counters[what] = typist.longestMs();
    };
    const auto write = [&](std::size_t button, const char* name) {
        platform.boxes.file = folder.path() / name;
        page.cmdCDRExport.at(button).press();
    };
    for (auto _ : state) {
        during("open", [&] { console.mainWindow.openPage("call"); });
        during("sort_text", [&] { page.lsvCallReport.sort({5, true}); });
        during("sort_time", [&] { page.lsvCallReport.sort({7, false}); });
        during("search", [&] { page.txtCDRSearch.setText("0525"); });
        during("search_none", [&] { page.txtCDRSearch.setText("0525no"); });
        during("show_all", [&] { page.txtCDRSearch.setText(""); });
        during("csv", [&] { write(1, "calls.csv"); });
        during("xml", [&] { write(3, "calls.xml"); });
        during("copy", [&] { write(2, "calls.mdb"); });
        during("values", [&] { page.cmbCDRColumn.setText("Dialed CLI"); });
        during("filter", [&] { page.BuildCDRListGroup("Port", "5"); });
        during("all", [&] { page.cmbCDRColumn.setText("ALL"); });
        during("roll_over", [&] { page.SaveCDRFile(); });
        if (!std::filesystem::exists(folder.path() / "calls.mdb")) state.SkipWithError("nothing was exported");
        if (page.lsvCallReport.held() != 0) state.SkipWithError("the table was not rolled over");
    }
}

BENCHMARK(memory)->Name("calls/memory")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(step)->Name("calls/step")->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(list)->Name("calls/list")->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(exportCsv)->Name("calls/csv")->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(shellCsv)->Name("calls/shell_csv")->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(sort)->Name("calls/sort")->DenseRange(0, callColumnCount - 1)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(orderBy)
    ->Name("calls/order_by")
    ->DenseRange(0, callColumnCount - 1)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(window)->Name("calls/window")->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
