#pragma once

#include <deque>
#include <functional>
#include <span>
#include <vector>

#include "fields/fields.h"
#include "fields/table.h"
#include "text/text_table.h"

namespace trunvex {

// A table that the operator edits: a field of a record like any other, with a mark and a reason a cell. Whatever can't
// be written is kept and marked, never cut or dropped. Each edit is one step that can be undone.
class GridField final : public InputField, public Table {
public:
    struct Column {
        std::string heading;
        std::size_t greatestLength = 0;  // characters; 0 is any number
        std::string allowed;             // the characters a cell may have; empty allows all
        bool figures = false;
        // The word on what is wrong with a cell; it goes before those on length and characters. Empty when nothing is.
        std::function<std::string(const std::string& text)> check = {};
        bool fixed = false;  // not for the operator to change
    };

    GridField(std::string name, std::vector<Column> columns, std::size_t mostRows);
    virtual ~GridField() = default;

    const Column& column(std::size_t index) const { return columns_.at(index); }
    void setHeading(std::size_t column, std::string heading);
    std::size_t mostRows() const { return mostRows_; }
    // The rows are as many as they are, and in their order; only cells are edited.
    void fixRows() { rowsFixed_ = true; }
    bool rowsFixed() const { return rowsFixed_; }
    bool hasRoom() const { return !rowsFixed_ && rows_.size() < mostRows_; }
    const std::string& cell(std::size_t row, std::size_t column) const { return rows_.at(row).cells.at(column); }
    const TextRow& row(std::size_t index) const { return rows_.at(index).cells; }

    // Edits. Rows that are short are filled up with empty cells, and cells beyond the last column are left out.
    // The cell behind the last row begins a new one, while there may be more.
    void setCell(Cell cell, const std::string& text);
    void clearCells(std::span<const Cell> cells);
    void insertRow(std::size_t before);
    void removeRows(std::vector<std::size_t> rows);
    // Puts the texts over the cells from `at` on, and begins rows behind the last one; tells how many did not fit.
    std::size_t paste(Cell at, const std::vector<TextRow>& texts);
    // Whole rows in place of all that are there; tells how many did not fit.
    std::size_t replaceAll(const std::vector<TextRow>& rows);
    // Numbers stand before texts and by their value, empty cells last; rows of equal value keep their order.
    void sort(std::size_t column, bool ascending) override;
    bool canUndo() const { return done_ > 0; }
    bool canRedo() const { return done_ < steps_.size(); }
    void undoStep();
    void redoStep();

    // The cell differs from what the gateway holds at its row's place.
    bool edited(Cell cell) const;
    // Why the cell can't be written; empty while nothing is known against it, and in a row that is empty as a whole.
    std::string problemOf(Cell cell) const;
    // The same of a text that stands in a row which is not empty.
    std::string faultOf(std::size_t column, const std::string& text) const;
    // A reason that no check knows, such as a refusal; gone with the next edit of the row.
    void setProblemOf(std::size_t row, std::string problem);
    std::optional<Cell> firstProblem() const;

    // All cells, in one text; setValue() takes it back. Another value than the one that stands ends what can be undone.
    std::string value() const override;
    void setValue(const std::string& value) override;
    void setHeld(const std::string& value) override;
    static std::string valueOf(const std::vector<TextRow>& rows);

    // As a table.
    std::size_t rowCount() const override { return rows_.size(); }
    std::size_t columnCount() const override { return columns_.size(); }
    std::string heading(std::size_t column) const override { return columns_.at(column).heading; }
    bool hasFigures(std::size_t column) const override { return columns_.at(column).figures; }
    std::string text(std::size_t row, std::size_t column) const override { return cell(row, column); }

private:
    static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

    struct Row {
        TextRow cells;
        std::size_t origin = nowhere;  // the row of the gateway's that it was made from
        std::string problem;
    };
    using Rows = std::vector<Row>;
    // At `first`, some rows gave way to others.
    struct Swap {
        std::size_t first = 0;
        Rows before;
        Rows after;
    };
    using Step = std::vector<Swap>;

    Row makeRow(TextRow cells) const;
    Row withCell(const Row& row, std::size_t column, const std::string& text) const;
    void take(Step step);
    void swap(std::size_t first, const Rows& out, const Rows& in);
    void replaceRows(const Rows& rows);
    void forgetSteps();
    void findOrigins();

    std::vector<Column> columns_;
    std::size_t mostRows_;
    bool rowsFixed_ = false;
    Rows rows_;
    std::vector<TextRow> held_;
    std::deque<Step> steps_;
    std::size_t done_ = 0;  // of the steps; those behind were undone
};

}  // namespace trunvex
