#pragma once

#include <chrono>
#include <string>

#include "link/session_state.h"

namespace trunvex {

// "yy-mm-dd hh:mm:ss" of the gateway's clock, or the time alone while no date is known ("00-00-00"). Pads the fields
// it shows to two digits in place.
std::string clockText(SessionState& session);

// "hh:mm" of this machine's clock.
std::string timeOfDay(std::chrono::local_seconds time);

// Lets the gateway's clock run on by one second between two of its reports: seconds, minutes, hours; the date waits
// for the next report. Fields that are no numbers stay as they are.
void advanceClock(SessionState& session);

}  // namespace trunvex
