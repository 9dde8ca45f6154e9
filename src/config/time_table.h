#pragma once

#include <array>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "config/page_tools.h"
#include "fields/record_form.h"
#include "model/sim_record.h"

namespace trunvex {

inline constexpr std::size_t daysOfWeek = 7;
inline constexpr int everyDay = 127;                        // the mask of all seven days
extern const std::array<const char*, daysOfWeek> dayNames;  // "Su" to "Sa", from the mask's highest bit to its lowest

// The times at which a SIM may carry calls: four rows, each with a from, a to and its days.
class TimeTable {
public:
    explicit TimeTable(RecordForm& form);

    // Adds its fields to the form it was made with; heldValues() has their values in the same order.
    void addFields();
    static std::vector<std::string> heldValues(const SimRec& sim);
    // The panel is turned to a group: what begins a table then begins all its rows.
    void setForGroup(bool group) { forGroup_ = group; }
    // Enables what the two switches leave to be set.
    void followSwitches();

    // The first thing that is wrong. Hours and minutes are looked at for a single SIM only; in a write to a group the
    // gateway itself is the judge of them.
    BuiltLine firstFault(bool lineByLine);
    // As they are written; meaningful when firstFault() finds nothing.
    std::array<TimeRow, timeRowCount> rows() const;

    // A row for the eye.
    struct Bar {
        bool readable = false;  // both times are times of a day
        int from = 0;           // minutes since midnight; from > to goes over midnight
        int to = 0;
        int days = 0;  // mask; 0: the row lets no call through
    };
    Bar bar(std::size_t row) const;
    // What a row means in plain words: "Mo-Fr 08:00-20:00".
    std::string meaning(std::size_t row) const;

    CheckField chkTimeIntEnable{"chkTimeIntEnable", "Time limits"};
    CheckField chkDayOfWkEnable{"chkDayOfWkEnable", "Days of the week"};
    std::deque<TextField> txtTimeIntFrom;  // HH:MM, _1 to _4 as all arrays of rows
    std::deque<TextField> txtTimeIntTo;
    std::array<std::deque<CheckField>, timeRowCount> chkSIMDayOfWk;  // by row, then by day

private:
    bool inUse(std::size_t row) const;
    int dayMask(std::size_t row) const;
    void setDays(std::size_t row, bool set);
    void onTurn(CheckField& box, std::function<void()> act);
    void switchTimes();
    void switchDays();
    BuiltLine timeFault(TextField& field, bool from, std::size_t row, bool lineByLine) const;

    RecordForm& form_;
    bool forGroup_ = false;
};

// Four digits of the wire, MMHH, as HH:MM; empty for a text of another length.
std::string shownTime(std::string_view wire);
// "Mo-Fr", "Su, We", "every day"; empty for the mask 0.
std::string dayWords(int mask);

}  // namespace trunvex
