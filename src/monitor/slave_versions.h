#pragma once

#include "model/shared_tables.h"
#include "monitor/board_operations.h"
#include "monitor/list_table.h"

namespace trunvex {

// The programs of the modules: one row a port that has told its version.
class SlaveVersions {
public:
    SlaveVersions(Session& session, SharedTables& tables, BoardOperations& operations);

    ListTable lstSID{{{"Port"}, {"Version"}}};
    ActionField cmdGeSID{"cmdGeSID", "Get Ports version"};

private:
    void updateAllSID(const Fields& fields);
    void read();

    Session& session_;
    SharedTables& tables_;
    BoardOperations& operations_;
};

}  // namespace trunvex
