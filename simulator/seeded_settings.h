#pragma once

#include "simulator/gateway_state.h"
#include "simulator/random.h"

#include <span>

namespace simulator {

// Settings as an operator may have left them, for a port whose module and SIMs are known. A BCCH that the port
// is fixed to is the lock of its SIM in use.
void furnishSettings(Port& port, Random& random);

// What its SIMs have counted, to fit their talk.
void furnishStatistics(Port& port, Random& random);

// Makes so many ports CDMA ones, or all in service if they are fewer. It starts from the last, so that the
// first stays what it is as long as possible.
void fitCdmaModules(std::span<Port> ports, int count);

}  // namespace simulator
