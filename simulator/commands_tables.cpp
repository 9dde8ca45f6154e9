#include "simulator/command_table.h"
#include "simulator/field_checks.h"

#include <span>
#include <vector>

namespace simulator {

namespace {

constexpr std::size_t rowsPerBlock = 9;
constexpr int mostDirectLines = 300;
using Check = bool (*)(const std::string&);

bool dialled(const std::string& text) { return text.size() <= 14 && consistsOf(text, "0123456789*#+"); }

void trimEnd(TableRows& rows) {
    while (!rows.empty() && joinFields(rows.back()).find_first_not_of(',') == std::string::npos) rows.pop_back();
}

// Lays the cells over the rows from `first` on. An empty cell leaves what stands there; one that is wrong changes
// nothing.
bool lay(TableRows& rows, std::size_t first, std::span<const std::string> cells, std::span<const Check> checks) {
    const auto columns = checks.size();
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (!cells[i].empty() && !checks[i % columns](cells[i])) return false;
    rows.resize(std::max(rows.size(), first + cells.size() / columns), std::vector<std::string>(columns));
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (!cells[i].empty()) rows[first + i / columns][i % columns] = cells[i];
    trimEnd(rows);
    return true;
}

void tellBlocks(Request& request, const std::string& letters, const TableRows& rows, int digits) {
    for (std::size_t first = 0; first < rows.size(); first += rowsPerBlock) {
        std::string line = letters + padded(static_cast<int>(first / rowsPerBlock) + 1, digits);
        for (auto row = first; row < std::min(first + rowsPerBlock, rows.size()); ++row)
            line += "," + joinFields(rows[row]);
        request.answer(line);
    }
}

// <block>,<up to nine rows>; what stands behind the block's number. Nothing when it is no such block.
struct Block {
    int number;
    std::vector<std::string> cells;
};

std::optional<Block> parseBlock(const Request& request, std::size_t digits, int most, std::size_t columns) {
    auto fields = splitFields(request.body);
    const auto at = number(fields[0], 0, most);
    if (!at || fields[0].size() != digits) return std::nullopt;
    fields.erase(fields.begin());
    if (*at > 0 && (fields.empty() || fields.size() % columns != 0 || fields.size() > rowsPerBlock * columns))
        return std::nullopt;
    return Block{*at, std::move(fields)};
}

void readAccess(Request& request, const std::string& letters, const AccessTable& table) {
    if (!request.body.empty()) return request.malformed();
    request.answer(letters + "000," + table.mode + "," + table.unlisted);
    tellBlocks(request, letters, table.rows, 3);
}

void writeAccess(Request& request, AccessTable& table) {
    constexpr Check checks[] = {dialled, within<0, 1>};
    const auto block = parseBlock(request, 3, 999, 2);
    if (!block || (block->number == 0 && block->cells.size() != 2)) return request.malformed();
    if (block->number > 0) {
        const auto first = static_cast<std::size_t>(block->number - 1) * rowsPerBlock;
        return lay(table.rows, first, block->cells, checks) ? request.accepted() : request.refused();
    }
    for (const auto& cell : block->cells)
        if (!cell.empty() && !within<0, 1>(cell)) return request.refused();
    if (!block->cells[0].empty()) table.mode = block->cells[0];
    if (!block->cells[1].empty()) table.unlisted = block->cells[1];
    request.accepted();
}

// C_DUC and C_DLC: alone all entries of the kind go. <entry, three digits>,0 takes one away,
// <entry>,1,<number>,<extension> puts one there, for limited calls with ,<calls> behind.
void writeDirectLine(Request& request, bool limited) {
    auto& lines = request.state.routing.directLines;
    if (request.body.empty()) {
        std::erase_if(lines, [limited](const auto& line) { return line.second.calls.empty() != limited; });
        return request.accepted();
    }
    const auto fields = splitFields(request.body);
    const auto entry = number(fields[0], 1, mostDirectLines);
    if (!entry || fields[0].size() != 3) return request.malformed();
    if (fields.size() == 2 && fields[1] == "0") {
        lines.erase(*entry);
        return request.accepted();
    }
    if (fields.size() != (limited ? 5U : 4U) || fields[1] != "1") return request.malformed();
    const bool fits = !fields[2].empty() && dialled(fields[2]) && !fields[3].empty() && fields[3].size() <= 8 &&
                      consistsOf(fields[3], "0123456789*#+") && (!limited || within<1, 9999>(fields[4]));
    if (!fits) return request.refused();
    lines[*entry] = {fields[2], fields[3], limited ? fields[4] : ""};
    request.accepted();
}

}  // namespace

// R_EDN: A_EDN00,<mode>, then A_EDN<line>,<ignored digits>,<added digits> for each
void readModifications(Request& request) {
    if (!request.body.empty()) return request.malformed();
    const auto& routing = request.state.routing;
    request.answer("A_EDN00," + routing.modificationMode);
    for (std::size_t row = 0; row < routing.modifications.size(); ++row)
        request.answer("A_EDN" + padded(static_cast<int>(row) + 1, 2) + "," + joinFields(routing.modifications[row]));
}

void writeModification(Request& request) {
    constexpr auto digits = [](const std::string& text) {
        return text.size() <= 16 && consistsOf(text, "0123456789*#+");
    };
    constexpr Check checks[] = {digits, digits};
    const auto fields = splitFields(request.body);
    const auto line = number(fields[0], 0, 99);
    if (!line || fields[0].size() != 2 || fields.size() != (*line == 0 ? 2U : 3U)) return request.malformed();
    auto& routing = request.state.routing;
    if (*line > 0) {
        const auto first = static_cast<std::size_t>(*line - 1);
        return lay(routing.modifications, first, std::span(fields).subspan(1), checks) ? request.accepted()
                                                                                       : request.refused();
    }
    if (!within<0, 9>(fields[1])) return request.refused();
    routing.modificationMode = fields[1];
    request.accepted();
}

// R_PRF: A_PRF<block>,<up to nine rows of four>; A_PRF00 when there is none
void readPrefixes(Request& request) {
    if (!request.body.empty()) return request.malformed();
    const auto& rows = request.state.routing.prefixes;
    if (rows.empty()) request.answer("A_PRF00");
    tellBlocks(request, "A_PRF", rows, 2);
}

// C_PRF00 erases all; C_PRF<block> and up to nine rows
void writePrefixes(Request& request) {
    constexpr auto prefix = [](const std::string& text) { return digitsUpTo<14>(text); };
    constexpr Check checks[] = {prefix, within<0, 255>, within<0, 255>, within<0, 255>};
    auto& rows = request.state.routing.prefixes;
    const auto block = parseBlock(request, 2, 99, std::size(checks));
    if (!block || (block->number == 0 && !block->cells.empty())) return request.malformed();
    if (block->number == 0) {
        rows.clear();
        return request.accepted();
    }
    const auto first = static_cast<std::size_t>(block->number - 1) * rowsPerBlock;
    lay(rows, first, block->cells, checks) ? request.accepted() : request.refused();
}

// R_ICL, R_IIL: block 000 is mode and what becomes of callers that are not listed, then <block>,<up to nine rows>
void readGsmAccess(Request& request) { readAccess(request, "A_ICL", request.state.routing.fromGsm); }
void readIsdnAccess(Request& request) { readAccess(request, "A_IIL", request.state.routing.fromIsdn); }
void writeGsmAccess(Request& request) { writeAccess(request, request.state.routing.fromGsm); }
void writeIsdnAccess(Request& request) { writeAccess(request, request.state.routing.fromIsdn); }

// R_DST: A_DST<mode>,<entries with limited calls>,<without limit>
void readDirectMode(Request& request) {
    if (!request.body.empty()) return request.malformed();
    int limited = 0;
    for (const auto& [entry, line] : request.state.routing.directLines) limited += line.calls.empty() ? 0 : 1;
    const int all = static_cast<int>(request.state.routing.directLines.size());
    request.answer("A_DST" + request.state.routing.directMode + "," + std::to_string(limited) + "," +
                   std::to_string(all - limited));
}

// R_DAC: A_DAC<entry>,<number>,<extension>,<calls that are left, or nothing> for each; A_DAC000 when there is none
void readDirectLines(Request& request) {
    if (!request.body.empty()) return request.malformed();
    const auto& lines = request.state.routing.directLines;
    if (lines.empty()) request.answer("A_DAC000");
    for (const auto& [entry, line] : lines)
        request.answer("A_DAC" + padded(entry, 3) + "," + line.number + "," + line.extension + "," + line.calls);
}

// C_DAC: all go
void eraseDirectLines(Request& request) {
    if (!request.body.empty()) return request.malformed();
    request.state.routing.directLines.clear();
    request.accepted();
}

void writeLimitedLine(Request& request) { writeDirectLine(request, true); }
void writeUnlimitedLine(Request& request) { writeDirectLine(request, false); }

}  // namespace simulator
