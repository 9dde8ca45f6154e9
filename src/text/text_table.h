#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace trunvex {

// Rows of cells, as spreadsheets put them into files and on the clipboard. Rows may differ in length.
using TextRow = std::vector<std::string>;

// Cuts a text into rows and cells. A row ends with CR, LF or both, the last one also without. A cell in double quotes
// may hold the separator, line ends, and quotes that are doubled; a quote within a cell is a character like any other.
// A quote that is never closed holds the rest of the text. A byte order mark at the front is no part of it.
std::vector<TextRow> readTextTable(std::string_view text, char separator);

// The same way back: a line feed behind each row, quotes around the cells that need them.
std::string writeTextTable(const std::vector<TextRow>& rows, char separator);

}  // namespace trunvex
