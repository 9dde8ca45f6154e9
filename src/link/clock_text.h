#pragma once

#include <chrono>
#include <string>

#include "link/session_state.h"

namespace trunvex {

// "yy-mm-dd hh:mm:ss" of the gateway's clock, or the time alone while no date is known ("00-00-00"). Pads the fields
// it shows to two digits in place.
std::string clockText(SessionState& session);

// Lets the gateway's clock run on by one second between two of its reports, date and weekday with it. Fields that are
// no numbers, and a date that there is not, stay as they are.
void advanceClock(SessionState& session);

}  // namespace trunvex
