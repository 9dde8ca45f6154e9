#pragma once

#include <array>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "fields/sliced_work.h"
#include "model/settings_records.h"
#include "monitor/board_operations.h"

namespace trunvex {

// Which SIM of which port is active at what time of a day of the week, by the time tables of the SIMs.
class TimeChart {
public:
    static constexpr int minutesOfDay = 24 * 60;
    struct Span {
        PortAddress port;
        int sim;
        int from;  // minutes since midnight
        int to;    // behind the last one
        bool operator==(const Span&) const = default;
    };

    TimeChart(Session& session, SharedTables& tables, SettingsRecords& records, BoardOperations& operations);

    // What is drawn for the chosen day; a window that goes over midnight is two.
    std::vector<Span> DrawChart() const { return DrawChart(day_); }
    std::vector<Span> DrawChart(int day) const;
    int day() const { return day_; }
    // The tables of a SIM as the operator has edited them; set by who knows. Drawn in place of the gateway's on demand.
    using Rows = std::array<TimeRow, timeRowCount>;
    std::function<Rows(SimAddress)> rowsAsEdited;
    void showEdited(bool edited);
    // By the gateway's clock, on its day of the week; none while it is not known or another day is shown.
    std::optional<int> now() const;
    Colour colour(int sim) const { return colours_[static_cast<std::size_t>(sim - 1)]; }
    // Keeps it too.
    void setColour(int sim, Colour colour);

    // The chart is to be drawn anew.
    sigc::signal<void()> changed;

    std::deque<ActionField> cmdDay;  // the chosen one is marked
    std::deque<ActionField> cmdLegend;
    ActionField cmdGetASRSimData{"cmdGetASRSimData", "Get Data"};
    ActionField cmdASRefresh{"cmdASRefresh", "Refresh"};

private:
    Rows rowsOf(SimAddress sim) const;
    void choose(int day);
    void read();
    void followClock();
    std::optional<int> gatewayDay() const;

    Session& session_;
    SharedTables& tables_;
    BoardOperations& operations_;
    std::array<Colour, simsPerModule> colours_{};
    int day_ = 0;
    std::optional<int> lineAt_;  // where the line of now was when the chart was last drawn for it
    bool chosen_ = false;        // by the operator; until then it is the gateway's day
    bool reading_ = false;
    bool edited_ = false;
};

}  // namespace trunvex
