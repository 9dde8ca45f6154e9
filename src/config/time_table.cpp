#include "config/time_table.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* midnight = "00:00";
constexpr const char* lastMinute = "23:59";

// HH:MM with digits around the colon; which hour and which minute is another question.
bool hasForm(std::string_view text) { return text.size() == 5 && text[2] == ':'; }
bool hasDigits(std::string_view text) { return isWhole(text.substr(0, 2)) && isWhole(text.substr(3)); }
int hourOf(std::string_view text) { return static_cast<int>(val(text.substr(0, 2))); }
int minuteOf(std::string_view text) { return static_cast<int>(val(text.substr(3))); }
bool isTime(std::string_view text) {
    return hasForm(text) && hasDigits(text) && hourOf(text) < 24 && minuteOf(text) < 60;
}

bool isUsed(const TimeRow& row) { return !row.time.empty() && (fromOf(row) != midnight || toOf(row) != midnight); }
// The days of an unused row mean nothing.
int daysOf(const TimeRow& row) { return isUsed(row) ? static_cast<int>(val(row.days)) : 0; }
bool isOfSomeDays(const TimeRow& row) { return isUsed(row) && daysOf(row) != everyDay; }

const char* mark(bool set) { return set ? "1" : "0"; }

// Before it is checked a text may be anything.
std::string wireTime(std::string_view text) {
    if (!hasForm(text)) return "0000";
    return std::string(text.substr(3)) + std::string(text.substr(0, 2));
}

}  // namespace

TimeTable::TimeTable(RecordForm& form) : form_(form) {
    for (std::size_t row = 0; row < timeRowCount; ++row) {
        const auto number = static_cast<int>(row) + 1;
        txtTimeIntFrom.emplace_back(arrayName("txtTimeIntFrom", number));
        txtTimeIntTo.emplace_back(arrayName("txtTimeIntTo", number));
        for (std::size_t day = 0; day < daysOfWeek; ++day)
            chkSIMDayOfWk[row].emplace_back(arrayName(arrayName("chkSIMDayOfWk", number), static_cast<int>(day)),
                                            dayNames[day]);
    }
}

TimeTable::Row TimeTable::row(std::size_t box, const char* caption) {
    const auto anyRow = [](bool (*holds)(const TimeRow&)) {
        return [holds](const SimRec& sim) { return mark(std::any_of(sim.rows.begin(), sim.rows.end(), holds)); };
    };
    Row all{box, caption, {{chkTimeIntEnable, anyRow(isUsed)}, {chkDayOfWkEnable, anyRow(isOfSomeDays)}}, {}};
    for (std::size_t row = 0; row < timeRowCount; ++row) bindRow(all, row);
    return all;
}

void TimeTable::bindRow(Row& all, std::size_t row) {
    all.shown.push_back({txtTimeIntFrom[row], [row](const SimRec& sim) { return fromOf(sim.rows[row]); }});
    all.shown.push_back({txtTimeIntTo[row], [row](const SimRec& sim) { return toOf(sim.rows[row]); }});
    for (std::size_t day = 0; day < daysOfWeek; ++day)
        all.shown.push_back({chkSIMDayOfWk[row][day], [row, day](const SimRec& sim) {
                                 return mark((daysOf(sim.rows[row]) & dayBit(day)) != 0);
                             }});
    all.sent.push_back({sim_at::timeOf(row), [this, row](const SimRec& to) { return wireTimes(row, to); }});
    all.sent.push_back({sim_at::daysOf(row), [this, row](const SimRec& to) {
                            const auto& days = chkSIMDayOfWk[row];
                            const bool asHeld = inUse(row) && untouched(txtTimeIntFrom[row]) &&
                                                untouched(txtTimeIntTo[row]) && untouched(chkDayOfWkEnable) &&
                                                std::all_of(days.begin(), days.end(),
                                                            [](const CheckField& day) { return untouched(day); });
                            return asHeld ? to.rows[row].days : std::to_string(dayMask(row));
                        }});
}

void TimeTable::followTurns() {
    onTurn(chkTimeIntEnable, [this] { switchTimes(); });
    onTurn(chkDayOfWkEnable, [this] { switchDays(); });
}

// The operator has turned a switch; a record that comes in brings its own rows.
void TimeTable::onTurn(CheckField& box, std::function<void()> act) {
    box.valueChanged().connect([this, act = std::move(act)] {
        if (!form_.filling()) act();
    });
}

bool TimeTable::inUse(std::size_t row) const {
    const auto& from = txtTimeIntFrom[row].text();
    const auto& to = txtTimeIntTo[row].text();
    const bool nothing = (from == midnight || from.empty()) && (to == midnight || to.empty());
    return chkTimeIntEnable.checked() && !nothing;
}

int TimeTable::dayMask(std::size_t row) const {
    if (!inUse(row)) return 0;
    if (!chkDayOfWkEnable.checked()) return everyDay;
    int mask = 0;
    for (std::size_t day = 0; day < daysOfWeek; ++day)
        if (chkSIMDayOfWk[row][day].checked()) mask += dayBit(day);
    return mask;
}

void TimeTable::setDays(std::size_t row, bool set) {
    for (auto& box : chkSIMDayOfWk[row]) box.setChecked(set);
}

void TimeTable::switchTimes() {
    for (std::size_t row = 0; row < timeRowCount; ++row) {
        const bool begins = chkTimeIntEnable.checked() && (row == 0 || forGroup_);
        txtTimeIntFrom[row].setText(midnight);
        txtTimeIntTo[row].setText(begins ? lastMinute : midnight);
        setDays(row, begins);
    }
}

void TimeTable::switchDays() {
    if (chkDayOfWkEnable.checked()) return;
    for (std::size_t row = 0; row < timeRowCount; ++row) setDays(row, inUse(row));
}

void TimeTable::followSwitches() {
    const bool times = chkTimeIntEnable.checked();
    chkDayOfWkEnable.setEnabled(times);
    for (std::size_t row = 0; row < timeRowCount; ++row) {
        txtTimeIntFrom[row].setEnabled(times);
        txtTimeIntTo[row].setEnabled(times);
        // A row that comes into use while all days count shows them all.
        if (times && !chkDayOfWkEnable.checked()) setDays(row, inUse(row));
        for (auto& box : chkSIMDayOfWk[row]) box.setEnabled(times && chkDayOfWkEnable.checked());
    }
}

BuiltLine TimeTable::timeFault(TextField& field, bool from, std::size_t row, bool lineByLine) const {
    const auto& text = field.text();
    const std::string side = from ? "from" : "to";
    if (!hasForm(text))
        return BuiltLine::wrong("ERROR: 'Time table limit " + side + "' must to be in the format: HH:MM ", field);
    if (!hasDigits(text))
        return BuiltLine::wrong("ERROR: 'Time table limit " + side + "' must to be Number in the format: HH:MM ",
                                field);
    if (!lineByLine) return {};
    const auto line = std::string("ERROR: 'Time table limit ") + (from ? "From" : "To") + "' (Line " +
                      std::to_string(row + 1) + ") , ";
    if (hourOf(text) > 23) return BuiltLine::wrong(line + "Hour not correct .", field);
    if (minuteOf(text) > 59) return BuiltLine::wrong(line + "Minutes not correct . ", field);
    return {};
}

BuiltLine TimeTable::firstFault(bool lineByLine) {
    for (std::size_t row = 0; row < timeRowCount; ++row) {
        if (!inUse(row)) continue;
        for (const bool from : {true, false}) {
            auto& field = from ? txtTimeIntFrom[row] : txtTimeIntTo[row];
            if (untouched(field)) continue;
            if (auto fault = timeFault(field, from, row, lineByLine); !fault.word.empty()) return fault;
        }
    }
    return {};
}

// What nobody touched goes back as it is held, time of a day or not.
std::string TimeTable::wireTimes(std::size_t row, const SimRec& to) const {
    const auto& held = to.rows[row].time;
    if (untouched(txtTimeIntFrom[row]) && untouched(txtTimeIntTo[row]) && !held.empty()) return held;
    return inUse(row) ? wireTime(txtTimeIntFrom[row].text()) + wireTime(txtTimeIntTo[row].text()) : "00000000";
}

std::array<TimeRow, timeRowCount> TimeTable::rowsOf(const RecordForm::Values& values) const {
    const auto value = [&values](const InputField& field) {
        const auto found = values.find(&field);
        return found == values.end() ? std::string() : found->second;
    };
    std::array<TimeRow, timeRowCount> rows;
    for (std::size_t row = 0; row < timeRowCount; ++row) {
        const auto from = value(txtTimeIntFrom[row]);
        const auto to = value(txtTimeIntTo[row]);
        const bool nothing = (from == midnight || from.empty()) && (to == midnight || to.empty());
        if (value(chkTimeIntEnable) != "1" || nothing) continue;
        int mask = value(chkDayOfWkEnable) == "1" ? 0 : everyDay;
        for (std::size_t day = 0; mask != everyDay && day < daysOfWeek; ++day)
            if (value(chkSIMDayOfWk[row][day]) == "1") mask += dayBit(day);
        rows[row] = {wireTime(from) + wireTime(to), std::to_string(mask)};
    }
    return rows;
}

TimeTable::Bar TimeTable::bar(std::size_t row) const {
    Bar bar;
    const auto& from = txtTimeIntFrom[row].text();
    const auto& to = txtTimeIntTo[row].text();
    bar.readable = isTime(from) && isTime(to);
    bar.days = dayMask(row);
    if (!bar.readable) return bar;
    bar.from = hourOf(from) * 60 + minuteOf(from);
    bar.to = hourOf(to) * 60 + minuteOf(to);
    return bar;
}

std::string TimeTable::meaning(std::size_t row) const {
    const auto shown = bar(row);
    if (!inUse(row)) return "not in use";
    if (!shown.readable) return "not a time of day: HH:MM, 00:00 to 23:59";
    if (shown.days == 0) return "never: no day is marked";
    const auto words = dayWords(shown.days);
    const auto& from = txtTimeIntFrom[row].text();
    const auto& to = txtTimeIntTo[row].text();
    if (from == midnight && to == lastMinute) return words + ", all day";
    return words + " " + from + "-" + to + (shown.from > shown.to ? ", over midnight" : "");
}

}  // namespace trunvex
