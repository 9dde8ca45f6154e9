#include "simulator/command_table.h"

#include <array>

namespace simulator {

namespace {

struct CommandRow {
    std::string_view mnemonic;
    CommandHandler handler;
};

constexpr std::array rows{
    CommandRow{"C_CPW", logIn},
    CommandRow{"C_APW", setAdminPassword},
    CommandRow{"C_UPW", setUserPassword},
    CommandRow{"R_ESN", readEsn},
    CommandRow{"R_PPR", readActivePorts},
    CommandRow{"R_CLK", readClock},
    CommandRow{"C_CLK", writeClock},
    CommandRow{"R_SYS", readSystem},
    CommandRow{"C_COM", restart},
    CommandRow{"C_NET", restart},
    CommandRow{"C_MDM", switchToModem},
    CommandRow{"C_RSM", restart},
    CommandRow{"R_MOD", readPortSettings},
    CommandRow{"C_MOD", writePortSettings},
    CommandRow{"R_SIM", readSimSettings},
    CommandRow{"C_SIM", writeSimSettings},
    CommandRow{"R_CDR", readCallRecord},
    CommandRow{"C_CDR", dropCallRecord},
    CommandRow{"R_ISD", readIsdn},
    CommandRow{"C_ISD", writeIsdn},
    CommandRow{"R_ILS", readIsdnCounters},
    CommandRow{"C_ILS", resetIsdnCounters},
    CommandRow{"R_MON", readMonitor},
    CommandRow{"R_STS", readPortStatus},
    CommandRow{"R_SID", readSlaveVersion},
    CommandRow{"C_STP", enablePort},
    CommandRow{"C_STB", enableChannel},
};

}  // namespace

CommandHandler findCommand(std::string_view mnemonic) {
    for (const CommandRow& row : rows) {
        if (row.mnemonic == mnemonic) return row.handler;
    }
    return nullptr;
}

}  // namespace simulator
