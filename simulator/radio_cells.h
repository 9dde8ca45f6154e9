#pragma once

#include "simulator/gateway_state.h"

#include <string>
#include <vector>

namespace simulator {

class Random;

constexpr int mostNeighbours = 8;
constexpr int levelNotKnown = 99;

// The cells that the module of this port can hear: first the one it is on, then up to eight others.
void furnishCells(Port& port, Random& random);

// The cell that the port is on, network, LAC, CI, BSIC, BCCH and level; empty when its module hears none.
std::vector<std::string> servingCell(const Port& port);
// Those that it hears beside that one, at most eight, in one row of such six fields after the other.
std::vector<std::string> neighbourCells(const Port& port);

// The port moves to the cell on this channel, and hears it as well as it did before; or not at all.
void moveToCell(Port& port, int bcch);

}  // namespace simulator
