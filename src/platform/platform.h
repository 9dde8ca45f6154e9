#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/byte_pipe.h"
#include "platform/clock.h"
#include "platform/database.h"
#include "platform/dialogs.h"
#include "platform/printer.h"
#include "platform/timer.h"
#include "platform/tray.h"

namespace trunvex {

// Everything the console needs from the machine it runs on. Tests hand in one with a clock turned by hand.
class Platform {
public:
    virtual ~Platform() = default;

    virtual std::unique_ptr<Timer> makeTimer(std::function<void()> onTick) = 0;
    virtual Clock& clock() = 0;
    // Closed as yet.
    virtual std::unique_ptr<BytePipe> makePipe(const PipeTarget& target) = 0;
    virtual std::vector<SerialDevice> serialDevices() = 0;
    virtual Dialogs& dialogs() = 0;
    virtual Printer& printer() = 0;
    virtual Tray& tray() = 0;
    virtual DatabaseEngine& databases() = 0;
};

}  // namespace trunvex
