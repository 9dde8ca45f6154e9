#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "fields/sliced_work.h"
#include "monitor/time_chart.h"

namespace trunvex {

// Past calls against the time tables as they are edited, written or not: how many would have found no SIM active. A
// call to a SIM can only be taken by its own port; one from the ISDN side by every port that has a SIM of the network
// it went to, as far as the calls tell which SIM is of which network.
class Rehearsal {
public:
    struct Call {
        std::string_view port;   // its number
        std::string_view sim;    // likewise
        std::string_view stamp;  // "MM-DD-YY HH:MM:SS Wd"
        bool outgoing;           // from the ISDN side
        std::string_view network;
    };
    // The calls that are listed, from 0.
    struct Calls {
        std::function<void()> load;  // if they are not yet
        std::function<std::size_t()> count;
        std::function<Call(std::size_t)> call;
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
    // Others are listed now.
    void callsChanged();
    // The calls of the chart's day, each minute of a port once.
    std::vector<Mark> marks() const;

    CheckField chkRehearse{"chkRehearse", "Lay past calls over the chart"};
    LabelField lblRehearsal{"lblRehearsal"};
    LabelField lblRehearsalWork{"lblRehearsalWork"};
    ActionField cmdRehearsalCancel{"cmdRehearsalCancel", "Cancel"};

private:
    static constexpr std::size_t weekMinutes = std::size_t{daysOfWeek} * TimeChart::minutesOfDay;
    static constexpr std::size_t cellCount = portCount * weekMinutes;
    static constexpr std::size_t mostNetworks = 16;
    static std::size_t minuteOfWeek(int day, int minute);
    static std::size_t cell(PortAddress port, int day, int minute);

    void gather();
    bool gatherSome(std::size_t most);
    void add(const Call& call);
    void judge();
    bool missed(const std::string& network, std::size_t at) const;

    TimeChart& chart_;
    Calls calls_;
    SlicedWork work_;
    std::size_t at_ = 0;
    // By network, or by none where only its own port can take a call; each by port, day and minute.
    std::map<std::string, std::vector<unsigned>> counts_;
    std::map<std::string, std::string> networks_;        // of the SIMs, by their digits
    std::vector<bool> active_;                           // some SIM of the port is, by port, day and minute
    std::map<std::string, std::vector<bool>> anywhere_;  // some SIM of the network is, by day and minute
};

}  // namespace trunvex
