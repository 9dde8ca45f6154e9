#pragma once

#include <string>
#include <vector>

#include "queues/write_queue.h"

namespace trunvex {

// Has all targets of a firmware update started, one after the other: each is a command of its own, and the next goes
// out when the gateway has told that the one before was completed.
class FirmwarePump {
public:
    FirmwarePump(Platform& platform, CommandSender& sender, ucProgress& panel, WriteQueue& writes);

    // Starts with the last of the list. False when the write queue refuses.
    bool updateAll(std::vector<std::string> commands);
    // An update was completed. The count is lowered here once more after the start has lowered it, so the target next
    // to the last is left out, as it always was.
    void NextCoommand();
    bool running() const { return gBootRunning_; }

private:
    WriteBatch batchOf(const std::string& command);
    void lastFailed(Button answer);
    void end();

    Platform& platform_;
    CommandSender& sender_;
    ucProgress& panel_;
    WriteQueue& writes_;
    std::vector<std::string> gBootList_;
    int gBootCount_ = 0;  // commands left
    bool gBootRunning_ = false;
};

}  // namespace trunvex
