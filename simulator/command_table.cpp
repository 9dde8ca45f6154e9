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
    CommandRow{"R_CLM", readServingCell},
    CommandRow{"R_CLN", readNeighbourCells},
    CommandRow{"C_CLM", lockToCell},
    CommandRow{"R_STR", readStatistics},
    CommandRow{"C_STR", resetStatistics},
    CommandRow{"C_ABF", writeBalance},
    CommandRow{"R_ISD", readIsdn},
    CommandRow{"C_ISD", writeIsdn},
    CommandRow{"R_ILS", readIsdnCounters},
    CommandRow{"C_ILS", resetIsdnCounters},
    CommandRow{"R_SEL", readAllocation},
    CommandRow{"C_SEL", writeAllocation},
    CommandRow{"R_WTP", readWaitingTime},
    CommandRow{"C_WTP", writeWaitingTime},
    CommandRow{"R_PRT", readPortLine},
    CommandRow{"C_PRT", writePortLine},
    CommandRow{"R_BCH", readChannelLine},
    CommandRow{"C_BCH", writeChannelLine},
    CommandRow{"R_CCC", readCauses},
    CommandRow{"C_CCC", writeCauses},
    CommandRow{"R_EDN", readModifications},
    CommandRow{"C_EDN", writeModification},
    CommandRow{"R_PRF", readPrefixes},
    CommandRow{"C_PRF", writePrefixes},
    CommandRow{"R_ICL", readGsmAccess},
    CommandRow{"C_ICL", writeGsmAccess},
    CommandRow{"R_IIL", readIsdnAccess},
    CommandRow{"C_IIL", writeIsdnAccess},
    CommandRow{"R_DST", readDirectMode},
    CommandRow{"R_DAC", readDirectLines},
    CommandRow{"C_DAC", eraseDirectLines},
    CommandRow{"C_DLC", writeLimitedLine},
    CommandRow{"C_DUC", writeUnlimitedLine},
    CommandRow{"C_RBT", resetGateway},
    CommandRow{"R_MON", readMonitor},
    CommandRow{"R_STS", readPortStatus},
    CommandRow{"R_SID", readSlaveVersion},
    CommandRow{"C_STP", enablePort},
    CommandRow{"C_STB", enableChannel},
    CommandRow{"C_RST", resetPort},
};

}  // namespace

CommandHandler findCommand(std::string_view mnemonic) {
    for (const CommandRow& row : rows) {
        if (row.mnemonic == mnemonic) return row.handler;
    }
    return nullptr;
}

}  // namespace simulator
