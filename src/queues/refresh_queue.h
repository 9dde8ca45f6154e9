#pragma once

#include <vector>

#include "fields/cool_progress_bar.h"
#include "queues/command_sender.h"
#include "queues/queue_item.h"

namespace trunvex {

// The status board's reads. The same walk as the settings pages' but silent: an item that is not answered in its time
// is passed over, and no question is asked. Its bar is the board's.
class RefreshQueue {
public:
    RefreshQueue(Platform& platform, CommandSender& sender);

    // Begins a batch; `budgetMs` per item. Nothing happens with the link down or an empty batch (false).
    bool start(std::vector<QueueItem> batch, int budgetMs = 300);
    void abandon();

    // One step, at the bar's step event.
    void step();
    bool takeAnswer(std::string_view line);
    // The item in flight is settled without an answer of its own; its ticks run out at once.
    void advance();

    CoolProgressBar ucCoolProgressBar;

    std::vector<QueueItem> gRefreshQueue;
    std::int16_t gRefreshCount = 0;
    std::int16_t gRefreshIndex = 0;
    bool gRefreshReplied = false;
    std::string expectedPattern;

private:
    void sendNext();
    void finish(const char* lastText);

    CommandSender& sender_;
};

}  // namespace trunvex
