#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "fields/sliced_work.h"
#include "monitor/time_chart.h"

namespace trunvex {

// Past calls against the time tables as they are edited, written or not: how many would have found no SIM of their port
// active.
class Rehearsal {
public:
    // The calls that are listed, from 0: the port's number and the stamp "MM-DD-YY HH:MM:SS Wd".
    struct Calls {
        std::function<std::size_t()> count;
        std::function<std::pair<std::string_view, std::string_view>(std::size_t)> call;
    };
    struct Mark {
        PortAddress port;
        int minute;
        bool missed;
    };

    Rehearsal(Session& session, TimeChart& chart);

    // Where the calls come from, and when the tables may be others.
    void follow(Calls calls) { calls_ = std::move(calls); }
    void tablesChanged();
    // The calls of the chart's day, each minute of a port once.
    std::vector<Mark> marks() const;

    CheckField chkRehearse{"chkRehearse", "Lay past calls over the chart"};
    LabelField lblRehearsal{"lblRehearsal"};
    LabelField lblRehearsalWork{"lblRehearsalWork"};
    ActionField cmdRehearsalCancel{"cmdRehearsalCancel", "Cancel"};

private:
    static constexpr std::size_t cellCount = std::size_t{portCount} * daysOfWeek * TimeChart::minutesOfDay;
    static std::size_t cell(PortAddress port, int day, int minute);

    void gather();
    bool gatherSome(std::size_t most);
    void judge();

    TimeChart& chart_;
    Calls calls_;
    SlicedWork work_;
    std::size_t at_ = 0;
    std::vector<unsigned> counts_;  // by port, day and minute
    std::vector<bool> active_;      // some SIM of the port is, likewise
};

}  // namespace trunvex
