#pragma once

#include <sigc++/sigc++.h>

#include <optional>
#include <string>
#include <string_view>

namespace trunvex {

// Rows and columns as a screen shows them, whoever holds them. Rows and columns are numbered from 0.
class Table {
public:
    // At `first`, `removed` rows give way to `inserted` others.
    struct Splice {
        std::size_t first = 0;
        std::size_t removed = 0;
        std::size_t inserted = 0;
    };
    struct Cell {
        std::size_t row = 0;
        std::size_t column = 0;
        bool operator==(const Cell&) const = default;
    };

    virtual std::size_t rowCount() const = 0;
    virtual std::size_t columnCount() const = 0;
    virtual std::string heading(std::size_t column) const = 0;
    // True for a column of figures, which stand at its right.
    virtual bool hasFigures(std::size_t column) const = 0;
    // As the eye sees it.
    virtual std::string text(std::size_t row, std::size_t column) const = 0;
    // Puts the rows in order, at once or a little later.
    virtual void sort(std::size_t column, bool ascending) = 0;

    // The cell behind `from` (or before it) whose text holds the part, letters of either case alike; row by row, and
    // over the end to the front. It may be `from` again; nothing when no cell holds it.
    std::optional<Cell> find(const std::string& part, Cell from, bool forward) const;

    // A change of rows is about to come, and has come. A cell that changes is a row that gives way to itself.
    sigc::signal<void(Splice)>& splicing() { return splicing_; }
    sigc::signal<void(Splice)>& spliced() { return spliced_; }
    // All may be different.
    sigc::signal<void()>& replaced() { return replaced_; }

protected:
    ~Table() = default;

private:
    sigc::signal<void(Splice)> splicing_;
    sigc::signal<void(Splice)> spliced_;
    sigc::signal<void()> replaced_;
};

}  // namespace trunvex
