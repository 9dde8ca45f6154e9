#include "simulator/command_table.h"
#include "simulator/fields.h"

namespace simulator {

// R_CLK: A_CLK<day>,<month>,<year>,<weekday>,<hour>,<minute>
void readClock(Request& request) {
    if (!request.body.empty()) return request.malformed();
    request.answer("A_CLK" + request.state.clock.read(request.now).text());
}

// C_CLK with the six fields of A_CLK; the new reading is the acknowledgement.
void writeClock(Request& request) {
    if (splitFields(request.body).size() != 6) return request.malformed();
    if (!request.state.clock.set(request.body, request.now)) return request.refused();
    request.answer("A_CLK" + request.state.clock.read(request.now).text());
}

// R_SYS: A_SYS<version>,<com port>,<network>,<ISDN line>, the lamps 0 red, 1 yellow, 2 green
void readSystem(Request& request) {
    if (!request.body.empty()) return request.malformed();
    std::string line = "A_SYS" + request.state.version;
    for (const int lamp : request.state.lamps) line += "," + std::to_string(lamp);
    request.answer(line);
}

// C_COM and C_NET let the gateway take its serial or its TCP connection, C_RSM just resets it. It says
// nothing; the console learns of it when the link falls.
void restart(Request& request) {
    if (!request.body.empty()) return request.malformed();
    request.restart();
}

// C_MDM1: the same for the modem
void switchToModem(Request& request) {
    if (request.body != "1") return request.malformed();
    request.restart();
}

}  // namespace simulator
