#include "config/routing/direct_lines.h"

#include <algorithm>
#include <array>
#include <set>

#include "config/grid_rows.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

enum Column : std::size_t { Index, Number, Extension, Calls };

constexpr int readBudget = 2500;
constexpr std::size_t mostNumber = 14;
constexpr std::size_t mostExtension = 8;
constexpr std::int64_t mostCalls = 9999;
constexpr const char* dialled = "0123456789*#+";

struct Erasing {
    const char* command;
    const char* caption;
};
constexpr std::array<Erasing, 3> erasings{
    {{"C_DLC", "Erase all limited calls"}, {"C_DUC", "Erase all unlimited calls"}, {"C_DAC", "Erase all DELA calls"}}};

std::string numberFault(const std::string& text) { return text.empty() ? "An entry needs a number." : std::string(); }
std::string extensionFault(const std::string& text) {
    return text.empty() ? "An entry needs an extension." : std::string();
}
std::string callsFault(const std::string& text) {
    const bool fits = text.empty() || wholeWithin(text, 1, mostCalls);
    return fits ? std::string() : "Calls: 1 to 9999, or nothing for an entry without limit.";
}

// The gateway's rows with the entries' numbers in front; places that are not in use are no rows.
std::vector<TextRow> entriesOf(const BlockTable& table) {
    std::vector<TextRow> rows;
    for (std::size_t entry = 0; entry < table.rows().size(); ++entry) {
        const auto& told = table.rows()[entry];
        if (isBlank(told)) continue;
        auto& row = rows.emplace_back(TextRow{std::to_string(entry + 1)});
        for (const auto& cell : told) row.push_back(escaped(cell));
    }
    return rows;
}

}  // namespace

DirectLines::DirectLines(const PageTools& tools, RoutingRecords& routing)
    : RoutingSide(tools, "Direct lines", "cmdDelaUndo", "cmdDelaWriteAll"),
      ucDela("ucDela",
             {{"Entry", 0, "", true, {}, true},
              {"Number", mostNumber, dialled, false, numberFault},
              {"Extension", mostExtension, dialled, false, extensionFault},
              {"Calls left", 0, "", true, callsFault}},
             RoutingRecords::mostDirectLines),
      csv(tools, ucDela, {"cmdDelaImport", "cmdDelaExport", "dela.csv", Number},
          [this](const std::string& word) { tell(word); }),
      routing_(routing) {
    firstText_ = "send data to: ";
    write.setCaption("Write table");
    lines_.add(ucDela);
    records.add(lines_, "Direct lines");
    routing_.directLines.table.changed().connect([this] { showTable(); });
    cmdDELA.pressed().connect([this] { readTable(); });
    cmdDelaWrite.pressed().connect([this] { writeRow(); });
    cmdDelaDelete.pressed().connect([this] { deleteRow(); });
    cmdDelaErase.pressed().connect([this] { erase(); });
    ucDela.valueChanged().connect([this] { followRow(); });
    cmbDelaErase.setIndex(Limited);
    followRow();
}

void DirectLines::readTable() {
    if (!tools_.connected() || !tools_.mayLose(lines_)) return;
    tools_.read("cmdDELA",
                {tableRead("R_DAC", "ALL Direct extension line"), command("R_DST", "Direct extension line"),
                 tableRead("R_ICL", "Access to E1")},
                readBudget);
}

void DirectLines::showTable() {
    const auto& told = routing_.directLines;
    if (told.table.whole()) lines_.take({{&ucDela, GridField::valueOf(entriesOf(told.table))}});
    lblDelaMode.setText(told.mode.empty() ? ""
                                          : "Mode " + escaped(told.mode) + ". Entries with a number of calls: " +
                                                escaped(told.limited) + ", without: " + escaped(told.unlimited));
    records.changed().emit();
}

void DirectLines::setRow(std::size_t row) {
    row_ = row;
    followRow();
}

void DirectLines::holdWrites(bool held) {
    writesHeld_ = held;
    write.setEnabled(!held);
    cmdDelaErase.setEnabled(!held);
    followRow();
}

void DirectLines::followRow() {
    const bool row = row_ < ucDela.rowCount() && !isBlank(ucDela.row(row_)) && !writesHeld_;
    cmdDelaWrite.setEnabled(row);
    cmdDelaDelete.setEnabled(row && indexOf(row_) > 0);
}

// The entry of the gateway's that a row stands for; 0 for a new one.
std::size_t DirectLines::indexOf(std::size_t row) const {
    const auto& text = ucDela.cell(row, Index);
    return isWhole(text) ? static_cast<std::size_t>(val(text)) : 0;
}

// Rows that were typed, pasted or imported take the entry of the row with the same number, else the lowest free place.
// The rows then stand in the gateway's order, as they will be told.
void DirectLines::giveIndexes() {
    std::set<std::size_t> taken;
    auto rows = rowsOf(ucDela);
    std::erase_if(rows, isBlank);
    for (auto& row : rows)
        if (isWhole(row[Index]) && !taken.insert(static_cast<std::size_t>(val(row[Index]))).second) row[Index].clear();
    const auto held = entriesOf(routing_.directLines.table);
    for (auto& row : rows) {
        const auto twin = std::ranges::find_if(held, [&](const TextRow& one) {
            return one[Number] == row[Number] && !taken.contains(static_cast<std::size_t>(val(one[Index])));
        });
        if (!row[Index].empty() || twin == held.end()) continue;
        row[Index] = (*twin)[Index];
        taken.insert(static_cast<std::size_t>(val(row[Index])));
    }
    std::size_t place = 1;
    for (auto& row : rows) {
        if (!row[Index].empty()) continue;
        while (taken.contains(place)) ++place;
        taken.insert(place);
        row[Index] = std::to_string(place);
    }
    std::ranges::stable_sort(rows, {}, [](const TextRow& row) { return val(row[Index]); });
    if (rows != rowsOf(ucDela)) lines_.respell({{&ucDela, GridField::valueOf(rows)}});
}

void DirectLines::addEntry(RoutingBatch& batch, std::size_t row) const {
    const auto index = indexOf(row);
    const auto& held = routing_.directLines.table.rows();
    const bool isNew = index > held.size() || isBlank(held[index - 1]);
    const auto& calls = ucDela.cell(row, Calls);
    const std::string kind = calls.empty() ? "unlimited" : "limited";
    batch.add((calls.empty() ? "C_DUC" : "C_DLC") + pad(std::to_string(index), 3, '0', PadSide::Left) + ",1," +
                  ucDela.cell(row, Number) + "," + ucDela.cell(row, Extension) + (calls.empty() ? "" : "," + calls),
              (isNew ? "Add " : "Update ") + kind + " DELA call");
    batch.names.back() += " " + std::to_string(index);
}

void DirectLines::addDeletion(RoutingBatch& batch, std::size_t index) const {
    const auto& held = routing_.directLines.table.rows().at(index - 1);
    const bool unlimited = held.back().empty();
    batch.add((unlimited ? "C_DUC" : "C_DLC") + pad(std::to_string(index), 3, '0', PadSide::Left) + ",0",
              unlimited ? "Delete unlimited DELA call" : "Delete limited DELA call");
    batch.names.back() += " " + std::to_string(index);
}

// Only what changed goes out: first what is no more, so that its place is free.
RoutingBatch DirectLines::build() {
    if (auto wrong = gridFault(ucDela, routing_.directLines.table); !wrong.word.empty())
        return RoutingBatch::wrong(std::move(wrong));
    giveIndexes();
    RoutingBatch batch;
    const auto held = entriesOf(routing_.directLines.table);
    const auto rows = rowsOf(ucDela);
    for (const auto& entry : held)
        if (std::ranges::none_of(rows, [&](const TextRow& row) { return row[Index] == entry[Index]; }))
            addDeletion(batch, static_cast<std::size_t>(val(entry[Index])));
    for (std::size_t row = 0; row < rows.size(); ++row)
        if (!isBlank(rows[row]) && std::ranges::find(held, rows[row]) == held.end()) addEntry(batch, row);
    if (batch.items.empty()) return RoutingBatch::wrong({{}, noChangeText, nullptr, "info"});
    return batch;
}

// What the gateway has dropped is no row any more, whatever else is edited; what was typed and never written stays.
void DirectLines::dropRows(const std::set<std::size_t>& gone) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < ucDela.rowCount(); ++row)
        if (gone.contains(indexOf(row))) rows.push_back(row);
    const auto word = records.word();
    ucDela.removeRows(rows);
    tell(word);
}

void DirectLines::writeRow() {
    if (!tools_.connected() || row_ >= ucDela.rowCount()) return;
    auto word = incompleteText(routing_.directLines.table);
    for (std::size_t column = 0; column < ucDela.columnCount() && word.empty(); ++column)
        word = ucDela.problemOf({row_, column});
    if (!word.empty()) {
        BuiltLine::wrong(word, ucDela).orTell(tools_.dialogs);
        return;
    }
    const auto cells = ucDela.row(row_);
    giveIndexes();
    const auto same = [&](const TextRow& row) {
        return std::equal(row.begin() + Number, row.end(), cells.begin() + Number) &&
               (cells[Index].empty() || row[Index] == cells[Index]);
    };
    const auto rows = rowsOf(ucDela);
    const auto row = static_cast<std::size_t>(std::ranges::find_if(rows, same) - rows.begin());
    if (row >= rows.size()) return;
    RoutingBatch batch;
    addEntry(batch, row);
    start(std::move(batch), "Entry " + ucDela.cell(row, Index));
}

void DirectLines::deleteRow() {
    if (!tools_.connected() || row_ >= ucDela.rowCount()) return;
    const auto index = indexOf(row_);
    const auto& held = routing_.directLines.table.rows();
    if (index == 0 || index > held.size() || isBlank(held[index - 1])) return;
    const auto entry = "Entry " + std::to_string(index) + ", number " + escaped(held[index - 1][0]);
    if (!tools_.dialogs.agreed(
            Button::Yes,
            {entry + ", is deleted in the gateway. Delete it?", "Warning", ButtonSet::YesNo, BoxIcon::Warning, 2},
            forSession(tools_.session) && Ticket::of([&] { return held; })))
        return;
    RoutingBatch batch;
    addDeletion(batch, index);
    batch.whole = [this, index] { dropRows({index}); };
    start(std::move(batch), entry);
}

void DirectLines::erase() {
    if (!tools_.connected() || cmbDelaErase.index() == ChoiceField::none) return;
    const auto& erasing = erasings.at(static_cast<std::size_t>(cmbDelaErase.index()));
    if (!tools_.dialogs.agreed(
            Button::Yes,
            {"Are you sure you want to clear the DELA table?", "Warning", ButtonSet::YesNo, BoxIcon::Warning, 2},
            forSession(tools_.session)))
        return;
    RoutingBatch batch;
    batch.add(erasing.command, erasing.caption);
    std::set<std::size_t> gone;
    for (const auto& row : entriesOf(routing_.directLines.table))
        if (cmbDelaErase.index() == All || (cmbDelaErase.index() == Limited) == !row[Calls].empty())
            gone.insert(static_cast<std::size_t>(val(row[Index])));
    batch.whole = [this, gone = std::move(gone)] { dropRows(gone); };
    start(std::move(batch), erasing.caption);
}

}  // namespace trunvex
