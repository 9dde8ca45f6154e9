#include "text/text_table.h"

namespace trunvex {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool endsLine(char c) { return c == '\r' || c == '\n'; }

// Takes one cell from the front of the text, not what ends it.
std::string takeCell(std::string_view& text, char separator) {
    std::string cell;
    if (!text.empty() && text.front() == '"') {
        text.remove_prefix(1);
        while (!text.empty()) {
            const auto quote = text.find('"');
            cell += text.substr(0, quote);
            text.remove_prefix(quote == std::string_view::npos ? text.size() : quote + 1);
            if (text.empty() || text.front() != '"') break;
            cell += '"';
            text.remove_prefix(1);
        }
    }
    std::size_t end = 0;
    while (end < text.size() && text[end] != separator && !endsLine(text[end])) ++end;
    cell += text.substr(0, end);
    text.remove_prefix(end);
    return cell;
}

void takeLineEnd(std::string_view& text) {
    const bool both = text.starts_with("\r\n");
    text.remove_prefix(both ? 2 : 1);
}

}  // namespace

std::vector<TextRow> readTextTable(std::string_view text, char separator) {
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    std::vector<TextRow> rows;
    while (!text.empty()) {
        auto& row = rows.emplace_back();
        for (;;) {
            row.push_back(takeCell(text, separator));
            if (text.empty() || text.front() != separator) break;
            text.remove_prefix(1);
        }
        if (!text.empty()) takeLineEnd(text);
    }
    return rows;
}

std::string writeTextTable(const std::vector<TextRow>& rows, char separator) {
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (column > 0) text += separator;
            const auto& cell = row[column];
            if (cell.find_first_of(std::string("\"\r\n") + separator) == std::string::npos) {
                text += cell;
                continue;
            }
            text += '"';
            for (const char c : cell) text.append(c == '"' ? 2 : 1, c);
            text += '"';
        }
        text += '\n';
    }
    return text;
}

}  // namespace trunvex
