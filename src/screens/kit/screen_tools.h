#pragma once

#include "platform/platform.h"
#include "platform/settings.h"

namespace trunvex {

// What a screen needs of the machine: timers, and the file that keeps where things stand.
struct ScreenTools {
    Platform& platform;
    Settings& setting;
};

}  // namespace trunvex
