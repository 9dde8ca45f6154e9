#pragma once

#include <deque>
#include <set>
#include <string>

#include "link/session.h"
#include "monitor/sim_status.h"

namespace trunvex {

// What the operator does to ports and channels from the board, straight on the line, without a queue. Each begins with
// a look at the link; one that changes something also needs the rights for it, and a line on which no write waits for
// its word: the gateway answers with a plain OK, which would count for that write.
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
    // Sends a question as it is.
    void send(const std::string& line) { session_.objSpool.SendCommand(line); }
    // Sends a change. That it is refused, or not answered in time, is told by `what` it was to do: "reset of port 5".
    void change(const std::string& line, const std::string& what);

    static constexpr int answerMs = 3000;
    // What went wrong: "Refused: reset of port 5", "Not answered: ...".
    sigc::signal<void(const std::string& words)> failed;

private:
    void ask(const char* command, int index);
    bool mayOperate() const;
    void takeWord(std::string_view address, bool ok);
    void timeIsUp();
    void fail(const char* how, const std::string& what);

    struct Asked {
        std::string line;
        std::string what;
    };

    Session& session_;
    frmSimStatus& board_;
    std::deque<Asked> asked_;  // and not answered yet, in the order in which they went out
    std::unique_ptr<Timer> patience_;
};

}  // namespace trunvex
