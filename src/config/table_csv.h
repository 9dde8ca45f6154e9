#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "config/page_tools.h"
#include "fields/grid_field.h"

namespace trunvex {

// What a file holds for a table, and what taking it would do to the rows that stand there.
struct TableImport {
    struct BadLine {
        std::size_t number;  // of the file's line, counted from 1
        std::string why;
    };
    std::vector<TextRow> rows;
    std::vector<BadLine> bad;
    std::size_t unfitting = 0;  // rows behind the last that the table has room for
    // By the column that names a row; a row that stands twice counts twice.
    std::size_t added = 0;
    std::size_t changed = 0;
    std::size_t dropped = 0;

    // For people, the first lines that can't be read with it.
    std::string summary() const;
};

// Rows as spreadsheets write them: UTF-8 with a byte order mark or without, any line ends, quoted cells, and commas,
// semicolons or tabs between them. Columns that the operator does not fill are not in the file. Empty lines are passed
// over; a line with too many fields or with one that the grid finds fault with is bad.
TableImport readImport(std::string_view text, const GridField& grid, std::size_t nameColumn);

// The import and export of one grid by its two buttons.
class TableCsv {
public:
    struct Names {
        const char* import;  // of the buttons
        const char* exporting;
        const char* file;  // that is proposed
        std::size_t nameColumn;
    };

    // `tell` gets what came of it.
    TableCsv(const PageTools& tools, GridField& grid, const Names& names, std::function<void(const std::string&)> tell);
    TableCsv(const TableCsv&) = delete;
    TableCsv& operator=(const TableCsv&) = delete;

    ActionField importing;
    ActionField exporting;

private:
    void import();
    void write();
    std::string joined() const;
    Ticket forThisTable() const;

    const PageTools& tools_;
    GridField& grid_;
    const char* file_;
    const std::size_t nameColumn_;
    std::function<void(const std::string&)> tell_;
};

}  // namespace trunvex
