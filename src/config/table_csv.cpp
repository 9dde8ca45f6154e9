#include "config/table_csv.h"

#include <algorithm>
#include <array>
#include <map>

#include "config/grid_rows.h"
#include "platform/durable_file.h"
#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* filter = "Comma Separated Values file (*.csv)|*.csv";
constexpr std::size_t mostNamed = 12;                     // bad lines that a box lists
constexpr std::size_t mostBytes = std::size_t{64} << 20;  // far more than any table holds

// What parts the fields: what stands oftenest in the first line that is not empty, outside of quotes.
char separatorOf(std::string_view text) {
    constexpr std::array candidates{',', ';', '\t'};
    std::array<std::size_t, candidates.size()> counts{};
    bool quoted = false;
    bool begun = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (!quoted && begun && (c == '\r' || c == '\n')) break;
        begun = begun || (c != '\r' && c != '\n');
        for (std::size_t i = 0; i < candidates.size(); ++i)
            if (!quoted && c == candidates[i]) ++counts[i];
    }
    return candidates[static_cast<std::size_t>(std::ranges::max_element(counts) - counts.begin())];
}

std::size_t lineEndsIn(const std::string& cell) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < cell.size(); ++i)
        if (cell[i] == '\n' || (cell[i] == '\r' && (i + 1 == cell.size() || cell[i + 1] != '\n'))) ++count;
    return count;
}

std::vector<std::size_t> typedColumns(const GridField& grid) {
    std::vector<std::size_t> columns;
    for (std::size_t column = 0; column < grid.columnCount(); ++column)
        if (!grid.column(column).fixed) columns.push_back(column);
    return columns;
}

// The cells of a line in the grid's columns; or what is wrong with it.
std::string takeLine(const GridField& grid, const std::vector<std::size_t>& columns, const TextRow& line,
                     TextRow& row) {
    for (std::size_t i = columns.size(); i < line.size(); ++i)
        if (!trim(line[i]).empty()) return "more than " + std::to_string(columns.size()) + " fields";
    row.assign(grid.columnCount(), {});
    for (std::size_t i = 0; i < columns.size(); ++i) {
        auto& cell = row[columns[i]];
        if (i < line.size()) cell = trim(line[i]);
        if (auto why = grid.faultOf(columns[i], cell); !why.empty()) return why;
    }
    return {};
}

void compare(TableImport& import, const GridField& grid, std::size_t nameColumn,
             const std::vector<std::size_t>& columns) {
    std::map<std::string, std::vector<TextRow>> standing;
    const auto typed = [&columns](const TextRow& row) {
        TextRow cells;
        for (const auto column : columns) cells.push_back(row[column]);
        return cells;
    };
    for (const auto row : filledRows(grid)) standing[grid.cell(row, nameColumn)].push_back(typed(grid.row(row)));
    for (const auto& row : import.rows) {
        auto& same = standing[row[nameColumn]];
        if (same.empty()) {
            ++import.added;
            continue;
        }
        const auto twin = std::ranges::find(same, typed(row));
        if (twin == same.end()) ++import.changed;
        same.erase(twin == same.end() ? same.begin() : twin);
    }
    for (const auto& [name, rows] : standing) import.dropped += rows.size();
}

}  // namespace

TableImport readImport(std::string_view text, const GridField& grid, std::size_t nameColumn) {
    TableImport import;
    const auto columns = typedColumns(grid);
    std::size_t line = 1;
    for (const auto& cells : readTextTable(text, separatorOf(text))) {
        const auto number = line++;
        for (const auto& cell : cells) line += lineEndsIn(cell);
        if (isBlank(cells)) continue;
        TextRow row;
        if (auto why = takeLine(grid, columns, cells, row); !why.empty())
            import.bad.push_back({number, std::move(why)});
        else if (import.rows.size() >= grid.mostRows())
            ++import.unfitting;
        else
            import.rows.push_back(std::move(row));
    }
    compare(import, grid, nameColumn, columns);
    return import;
}

std::string TableImport::summary() const {
    std::string text = "Rows that are added: " + std::to_string(added) +
                       "\r\nRows that are changed: " + std::to_string(changed) +
                       "\r\nRows that are dropped: " + std::to_string(dropped);
    if (unfitting > 0) text += "\r\nRows that the table has no room for: " + std::to_string(unfitting);
    if (!bad.empty()) text += "\r\n\r\nLines that can't be read, and are left out: " + std::to_string(bad.size());
    for (std::size_t i = 0; i < std::min(bad.size(), mostNamed); ++i)
        text += "\r\nline " + std::to_string(bad[i].number) + ": " + bad[i].why;
    if (bad.size() > mostNamed) text += "\r\nand " + std::to_string(bad.size() - mostNamed) + " more";
    return text;
}

TableCsv::TableCsv(const PageTools& tools, GridField& grid, const Names& names,
                   std::function<void(const std::string&)> tell)
    : importing(names.import, "Import..."), exporting(names.exporting, "Export..."), tools_(tools), grid_(grid),
      file_(names.file), nameColumn_(names.nameColumn), tell_(std::move(tell)) {
    importing.pressed().connect([this] { import(); });
    exporting.pressed().connect([this] { write(); });
}

// Behind a box the table may have become another one.
Ticket TableCsv::forThisTable() const {
    return forSession(tools_.session) && Ticket::of([this] { return grid_.value(); });
}

void TableCsv::import() {
    const std::filesystem::path path = tools_.dialogs.openFile("Import", filter, forThisTable());
    if (path.empty()) return;
    std::string text;
    std::string why;
    const bool read = quietly(
        "table import",
        [&] {
            if (std::filesystem::file_size(path) > mostBytes) throw std::runtime_error("the file is too big");
            text = wholeContent(path);
        },
        &why);
    if (!read || text.find('\0') != std::string::npos) {
        tools_.dialogs.tell({"Error Import file !", "err", ButtonSet::Ok, BoxIcon::Critical});
        tell_(path.string() + " was not imported: " + (read ? "it is no text." : why));
        return;
    }
    const auto import = readImport(text, grid_, nameColumn_);
    if (import.rows.empty() && import.bad.empty()) {
        tell_(path.string() + " is empty. Nothing was imported.");
        return;
    }
    const MessageBox question{"The table on the page becomes what stands in\r\n" + path.string() + "\r\n\r\n" +
                                  import.summary() + "\r\n\r\nNothing is sent to the gateway yet. Import?",
                              "Import", ButtonSet::YesNo, BoxIcon::Question, 2};
    if (!tools_.dialogs.agreed(Button::Yes, question, forThisTable())) return;
    grid_.replaceAll(import.rows);
    tell_(std::to_string(import.rows.size()) + " rows were imported, and are not written yet.");
}

std::string TableCsv::joined() const {
    std::string text;
    const auto columns = typedColumns(grid_);
    for (const auto row : filledRows(grid_)) {
        for (std::size_t i = 0; i < columns.size(); ++i) text += (i == 0 ? "" : ",") + grid_.cell(row, columns[i]);
        text += "\r\n";
    }
    return text;
}

void TableCsv::write() {
    const std::filesystem::path path =
        tools_.dialogs.saveFile("Export", filter, file_, Dialogs::AskReplace::Caller, forThisTable());
    if (path.empty()) return;
    std::error_code error;
    const auto question = path.string() + "  already exists.\r\nDo you want to replace it?";
    if (std::filesystem::exists(path, error) &&
        !tools_.dialogs.agreed(Button::Yes, {question, "Export", ButtonSet::YesNo, BoxIcon::Question, 2},
                               forThisTable()))
        return;
    std::string why;
    if (quietly(
            "table export", [&] { replaceFile(path, joined()); }, &why)) {
        tell_(std::to_string(filledRows(grid_).size()) + " rows were written to " + path.string() + ".");
        return;
    }
    tools_.dialogs.tell({"Error export file !", "err", ButtonSet::Ok, BoxIcon::Critical});
    tell_(path.string() + " was not written: " + why);
}

}  // namespace trunvex
