#pragma once

#include "simulator/request.h"

#include <string_view>

namespace simulator {

using CommandHandler = void (*)(Request&);

// The handler of a mnemonic, the first five characters of a line; null when the gateway does not know it.
CommandHandler findCommand(std::string_view mnemonic);

// Session and identity.
void logIn(Request&);
void setAdminPassword(Request&);
void setUserPassword(Request&);
void readEsn(Request&);
void readActivePorts(Request&);
// Clock and system.
void readClock(Request&);
void writeClock(Request&);
void readSystem(Request&);
void restart(Request&);
void switchToModem(Request&);
// Settings of ports and SIMs.
void readPortSettings(Request&);
void writePortSettings(Request&);
void readSimSettings(Request&);
void writeSimSettings(Request&);
// Call records.
void readCallRecord(Request&);
void dropCallRecord(Request&);
// Cells, and statistics of SIMs.
void readServingCell(Request&);
void readNeighbourCells(Request&);
void lockToCell(Request&);
void readStatistics(Request&);
void resetStatistics(Request&);
void writeBalance(Request&);
// E1 line.
void readIsdn(Request&);
void writeIsdn(Request&);
void readIsdnCounters(Request&);
void resetIsdnCounters(Request&);
// Routing: allocation, ports, lines, causes, and the tables.
void readAllocation(Request&);
void writeAllocation(Request&);
void readWaitingTime(Request&);
void writeWaitingTime(Request&);
void readPortLine(Request&);
void writePortLine(Request&);
void readChannelLine(Request&);
void writeChannelLine(Request&);
void readCauses(Request&);
void writeCauses(Request&);
void resetGateway(Request&);
void readModifications(Request&);
void writeModification(Request&);
void readPrefixes(Request&);
void writePrefixes(Request&);
void readGsmAccess(Request&);
void writeGsmAccess(Request&);
void readIsdnAccess(Request&);
void writeIsdnAccess(Request&);
void readDirectMode(Request&);
void readDirectLines(Request&);
void eraseDirectLines(Request&);
void writeLimitedLine(Request&);
void writeUnlimitedLine(Request&);
// Ports and B-channels.
void readMonitor(Request&);
void readPortStatus(Request&);
void enablePort(Request&);
void resetPort(Request&);
void enableChannel(Request&);
void readSlaveVersion(Request&);

}  // namespace simulator
