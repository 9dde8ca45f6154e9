#pragma once

#include <array>
#include <map>
#include <optional>

#include "model/shared_tables.h"
#include "monitor/board_operations.h"
#include "monitor/list_table.h"
#include "monitor/port_menu.h"
#include "monitor/sim_history.h"

namespace trunvex {

// What the gateway counts of its SIMs: of one SIM in a panel over the board, of all in a grid, which the board and the
// page Statistics show.
class SimStatistics {
public:
    enum Column { Number, Port, Sim, Talk, Dialled, Success, Asr, Acd, SimId, Imsi, Balance, Update, Trend, Word };
    static constexpr std::size_t exportedColumns = Trend;  // the first twelve
    static constexpr const char* balanceHint = "You can Click 'Update' button to change the balance";

    SimStatistics(Session& session, SharedTables& tables, BoardOperations& operations, PortMenu& menu);

    // The figures behind a shown row.
    const SimFigures& figures(std::size_t row) const { return figures_.at(lstASR.row(row).key); }
    const std::deque<SimHistory::Reading>& readings(std::size_t row) const { return history_.of(figures(row)); }
    // The row whose balance is to be written; none when the grid has no such row.
    void choose(std::optional<std::size_t> row);
    // The calls of a row's SIM are wanted.
    void askForCalls(std::size_t row) { callsAsked.emit(figures(row)); }
    sigc::signal<void(const SimFigures&)> callsAsked;

    ListTable lstASR;
    TextField txtASRSearch{"txtASRSearch"};
    LabelField lblASRSums{"lblASRSums"};
    LabelField lblBalanceOf{"lblBalanceOf"};
    TextField txtBalance{"txtBalance"};
    ActionField cmdUpdateBalance{"cmdUpdateBalance", "Update"};
    ActionField cmdGetAllSTR{"cmdGetAllSTR", "Get Data"};
    ActionField cmdResetAllASR{"cmdResetAllASR", "Reset ports statistics"};
    ActionField cmdExportCsv{"cmdExportCsv", "Export to file"};

    LabelField framMSG{"framMSG"};  // the panel's caption; visible while the panel is open
    LabelField lblMSG_BOX{"lblMSG_BOX"};
    ActionField cmdMSG_BOX{"cmdMSG_BOX", "Close"};

private:
    void take(const Fields& fields);
    void updateSTR(const SimFigures& figures);
    void updateAllSTR(const SimFigures& figures);
    void cleared(const Fields& fields);
    void readSim(SimAddress sim);
    void resetSim(SimAddress sim);
    void readAll(bool thenReset);
    void batchEnded(ReadQueue::Ending ending);
    void resetAll();
    void writeResets(const std::vector<SimAddress>& sims);
    std::vector<SimAddress> everySim() const;
    void writeBalance();
    void balanceSettled(const QueueItem& item, WriteQueue::Outcome outcome);
    void exportCsv();
    std::string joined() const;
    void showRow(const SimFigures& figures);
    void showSums();
    void closePanel();
    void begun();
    void openHistory();

    Session& session_;
    SharedTables& tables_;
    BoardOperations& operations_;
    SimHistory history_;
    std::map<std::string, SimFigures> figures_;  // by the digits of the SIM
    std::optional<SimAddress> asked_;            // by the menu, until its panel is closed
    std::optional<SimAddress> chosen_;
    bool reading_ = false;          // a read of all SIMs runs
    bool resetsBehind_ = false;     // and they are to be reset behind it
    std::vector<SimFigures> read_;  // by it
};

}  // namespace trunvex
