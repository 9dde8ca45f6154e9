#pragma once

#include <set>
#include <string>

#include "link/session.h"
#include "monitor/sim_status.h"

namespace trunvex {

// What the operator does to ports and channels from the board. Each begins with a look at the link; one that changes
// something also needs the rights for it, and a line on which no write waits for its word: the gateway answers with a
// plain OK, which would count for that write.
class BoardOperations {
public:
    BoardOperations(Session& session, frmSimStatus& board);

    // True when the gateway may be asked now; otherwise the operator is told why not.
    bool mayAsk();
    bool mayChange();

    // The cell's flag takes the value at once and keeps it until the gateway tells its flags again.
    void enablePort(int index, bool enabled);
    void enableChannel(int channel, bool enabled);
    void refreshPort(int index) { ask("R_STS", index); }
    void resetPorts(const std::set<int>& indexes);
    // Sends a line as it is, without a queue.
    void send(const std::string& line) { session_.objSpool.SendCommand(line); }

private:
    void ask(const char* command, int index);
    bool mayOperate() const;

    Session& session_;
    frmSimStatus& board_;
};

}  // namespace trunvex
