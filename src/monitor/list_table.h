#pragma once

#include <optional>
#include <string>
#include <vector>

#include "fields/table.h"
#include "text/text_table.h"

namespace trunvex {

// A table of a few hundred rows at most, each known by a key: filled row by row, sorted by a heading, narrowed by a
// text. A row that comes again takes the place of the one before.
class ListTable final : public Table {
public:
    struct Column {
        std::string heading;
        bool figures = false;
    };
    struct Row {
        std::string key;
        TextRow cells;
        // What the cells are sorted by, one a cell. Without them the number a text begins with counts, then the text.
        std::vector<double> weights = {};
    };

    explicit ListTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

    void clear();
    void put(Row row);
    void setRows(std::vector<Row> rows);
    // Only rows that hold the text in some column are shown, letters of either case alike.
    void setFilter(const std::string& text);

    // All that are held, in the order in which they came.
    const std::vector<Row>& all() const { return rows_; }
    // As shown.
    const Row& row(std::size_t shownRow) const { return rows_[shown_.at(shownRow)]; }

    std::size_t rowCount() const override { return shown_.size(); }
    std::size_t columnCount() const override { return columns_.size(); }
    std::string heading(std::size_t column) const override { return columns_.at(column).heading; }
    bool hasFigures(std::size_t column) const override { return columns_.at(column).figures; }
    std::string text(std::size_t row, std::size_t column) const override;
    void sort(std::size_t column, bool ascending) override;

private:
    bool matches(const Row& row) const;
    bool before(const Row& one, const Row& other) const;
    void arrange();

    std::vector<Column> columns_;
    std::vector<Row> rows_;
    std::vector<std::size_t> shown_;
    std::string filter_;
    std::optional<std::size_t> sortColumn_;
    bool ascending_ = true;
};

}  // namespace trunvex
