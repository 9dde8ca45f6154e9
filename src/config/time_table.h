#pragma once

#include <array>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "config/page_table.h"
#include "config/page_tools.h"
#include "fields/record_form.h"
#include "model/sim_record.h"

namespace trunvex {

// The times at which a SIM may carry calls: four rows, each with a from, a to and its days.
class TimeTable {
public:
    explicit TimeTable(RecordForm& form);

    // What its fields show of a SIM and what is written of them, behind one include box. What is written is meaningful
    // when firstFault() finds nothing.
    PageTable<SimRec>::Row row(std::size_t box, const char* caption);
    // The two switches begin to act, once the fields are in the form.
    void followTurns();
    // The panel is turned to a group: what begins a table then begins all its rows.
    void setForGroup(bool group) { forGroup_ = group; }
    // Enables what the two switches leave to be set.
    void followSwitches();

    // The first thing that is wrong. Hours and minutes are looked at for a single SIM only; in a write to a group the
    // gateway itself is the judge of them.
    BuiltLine firstFault(bool lineByLine);
    // A row for the eye.
    struct Bar {
        bool readable = false;  // both times are times of a day
        int from = 0;           // minutes since midnight; from > to goes over midnight
        int to = 0;
        int days = 0;  // mask; 0: the row lets no call through
    };
    Bar bar(std::size_t row) const;
    // The rows that these values of the fields make, whatever the fields show.
    std::array<TimeRow, timeRowCount> rowsOf(const RecordForm::Values& values) const;
    // What a row means in plain words: "Mo-Fr 08:00-20:00".
    std::string meaning(std::size_t row) const;

    CheckField chkTimeIntEnable{"chkTimeIntEnable", "Time limits"};
    CheckField chkDayOfWkEnable{"chkDayOfWkEnable", "Days of the week"};
    std::deque<TextField> txtTimeIntFrom;  // HH:MM, _1 to _4 as all arrays of rows
    std::deque<TextField> txtTimeIntTo;
    std::array<std::deque<CheckField>, timeRowCount> chkSIMDayOfWk;  // by row, then by day

private:
    using Row = PageTable<SimRec>::Row;

    void bindRow(Row& all, std::size_t row);
    bool inUse(std::size_t row) const;
    std::string wireTimes(std::size_t row, const SimRec& to) const;
    int dayMask(std::size_t row) const;
    void setDays(std::size_t row, bool set);
    void onTurn(CheckField& box, std::function<void()> act);
    void switchTimes();
    void switchDays();
    BuiltLine timeFault(TextField& field, bool from, std::size_t row, bool lineByLine) const;

    RecordForm& form_;
    bool forGroup_ = false;
};

}  // namespace trunvex
