#pragma once

#include <array>
#include <deque>
#include <string_view>
#include <vector>

#include "fields/cool_progress_bar.h"
#include "model/shared_tables.h"
#include "monitor/board_operations.h"
#include "monitor/list_table.h"
#include "monitor/port_menu.h"

namespace trunvex {

// The cells that a port hears: a panel over the board, with the serving cell and its neighbours below, from which the
// module can be locked to one; and the list of the serving cells of all ports.
class CellView {
public:
    static constexpr std::size_t rows = 9;
    static constexpr std::size_t columns = 6;
    static constexpr std::array<const char*, columns> headings{"MCC", "LAC", "CI", "BSIC", "BCCH", "RX"};

    CellView(Session& session, SharedTables& tables, BoardOperations& operations, PortMenu& menu, frmSimStatus& board);

    // A_CLM or A_CLN, `kind` being "CLM" or "CLN". What is not of the panel's port fills nothing.
    void showCells(std::string_view kind, const std::vector<std::string_view>& fields);

    LabelField picBStat{"picBStat"};  // the panel's caption; its tag is the port, visible while the panel is open
    LabelField lblCellState{"lblCellState"};
    std::array<std::deque<LabelField>, columns> cells;  // lblMCC_0 and so on, by column and row
    std::deque<ActionField> lblCellSelect;              // visible where the row has a BCCH
    ActionField cmdAutoCell{"cmdAutoCell", "Automatic"};
    ActionField cmdCloseCell{"cmdCloseCell", "Close"};
    CoolProgressBar bar;

    static constexpr std::array<std::size_t, 2> columnsNotTold{3, 4};  // of lsvBCCH, by what this gateway reports
    ListTable lsvBCCH{{{"Port"}, {"Chann", true}, {"RXLev", true}, {"chan / log"}, {"timADV"}, {"chMod"}}};
    ActionField cmdGetBcch{"cmdGetBcch", "Get BCCH report"};

private:
    void open(int index);
    void close();
    void ask(const char* command);
    void barRanOut();
    void lock(const std::string& channel);
    void report(const std::vector<std::string_view>& fields);
    void readAll();
    void blank();

    Session& session_;
    SharedTables& tables_;
    BoardOperations& operations_;
    frmSimStatus& board_;
    // By board index: the neighbours are to follow the serving cell; the panel was closed, and nothing follows.
    std::array<bool, portCount + 1> cellWanted_{};
    std::array<bool, portCount + 1> cellStop_{};
};

}  // namespace trunvex
