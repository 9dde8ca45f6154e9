#pragma once

#include <sigc++/sigc++.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "text/text_table.h"

namespace trunvex {

// A table of the gateway's that travels in numbered blocks of rows. What a read brings is gathered until the gateway is
// quiet; without a gap it then takes the place of what was known. A block that comes twice counts once. What the
// console wrote is laid over block by block: an empty cell leaves the old value, as it does in the gateway.
class BlockTable {
public:
    enum class State { Unread, Coming, Whole, Incomplete };
    struct Shape {
        std::size_t columns;
        std::size_t rowsPerBlock;  // of a full block
        std::size_t mostBlocks;
        bool sparse = false;  // blocks may be left out: they are entries, and not all are in use
    };

    BlockTable(Platform& platform, Shape shape);

    // A block of the gateway's answer, numbered from 1; block 0 is the table's header and has no rows. Throws for a
    // block that there can't be.
    void tell(std::size_t block, std::vector<TextRow> rows);
    // What was told is known to be a part only.
    void doubt();
    // A block that the gateway has accepted. Of a run of them changed() tells once, when the run is over.
    void overlay(std::size_t block, const std::vector<TextRow>& rows);
    // The gateway has erased it all; or put one row in another's place, counted from 0, where a block is a row. Without
    // cells it is gone.
    void erase();
    void putRow(std::size_t row, TextRow cells);
    // Nothing is known any more.
    void forget();

    State state() const { return state_; }
    bool whole() const { return state_ == State::Whole; }
    // All that was told, to be shown as well when it is incomplete. Empty rows at the end are left out.
    const std::vector<TextRow>& rows() const { return rows_; }
    // Blocks that did not come.
    std::vector<std::size_t> missing() const;
    // Counts the tables that were read.
    unsigned reads() const { return reads_; }
    const Shape& shape() const { return shape_; }

    sigc::signal<void()>& changed() { return changed_; }

private:
    void lay(std::vector<TextRow>& over, std::size_t first, const std::vector<TextRow>& rows) const;
    void settle();
    void setRows(std::vector<TextRow> rows);
    void trimRows();
    void checked(std::size_t block) const;

    const Shape shape_;
    std::unique_ptr<Timer> quiet_;
    State state_ = State::Unread;
    std::map<std::size_t, std::vector<TextRow>> blocks_;  // as they came last
    std::vector<TextRow> rows_;
    bool damaged_ = false;  // a block among them is cut off within a row, or has too many
    unsigned reads_ = 0;
    sigc::signal<void()> changed_;
};

}  // namespace trunvex
