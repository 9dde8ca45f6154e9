// A page of a table after the other, painted: the grid that the operator edits, with all its marks, against a plain
// view of Qt's over a model of ready texts, both with 10,000 rows of three columns.
#include <benchmark/benchmark.h>

#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>

#include "fields/record_form.h"
#include "screens/kit/grid_editor.h"
#include "screens/kit/table_view.h"

namespace {

constexpr int rows = 10000;
constexpr int rowsAPage = 20;

std::string textOf(int row, int column) { return std::to_string(100000 + row * 3 + column); }

void scrollThrough(benchmark::State& state, QTableView& view) {
    view.resize(600, 480);
    view.show();
    auto* bar = view.verticalScrollBar();
    for (auto _ : state)
        for (int row = 0; row < rows; row += rowsAPage) {
            bar->setValue(row);
            benchmark::DoNotOptimize(view.viewport()->grab());
        }
    state.SetItemsProcessed(state.iterations() * (rows / rowsAPage));
}

void plain(benchmark::State& state) {
    QStandardItemModel model(rows, 3);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < 3; ++column)
            model.setItem(row, column, new QStandardItem(QString::fromStdString(textOf(row, column))));
    QTableView view;
    view.setModel(&model);
    scrollThrough(state, view);
}

void grid(benchmark::State& state) {
    trunvex::GridField field(
        "grid", {{"A", 15, "0123456789", true, {}}, {"B", 15, {}, false, {}}, {"C", 4, {}, false, {}}}, rows);
    trunvex::RecordForm form;
    form.add(field);
    form.turnTo("table");
    std::vector<trunvex::TextRow> texts;
    for (int row = 0; row < rows; ++row) texts.push_back({textOf(row, 0), textOf(row, 1), textOf(row, 2)});
    form.take({{&field, {}}});
    field.replaceAll(texts);  // every cell is edited, and the last of each row is too long
    trunvex::TableView view(field, "grid");
    scrollThrough(state, view);
}

BENCHMARK(plain)->Name("grid/plain")->Unit(benchmark::kMillisecond);
BENCHMARK(grid)->Name("grid/edited")->Unit(benchmark::kMillisecond);

}  // namespace
