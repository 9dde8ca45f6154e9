#pragma once

#include "simulator/record_columns.h"

#include <string>

namespace simulator {

// The GSM modules of the second scale count their levels otherwise; a CDMA module has none to set, and no SIM
// that could be changed.
enum class ModuleKind { gsm, gsmSecondScale, cdma };

// How calls are dialled through a module and when it changes its SIM, each value as it travels. What stands
// here is a module of the first scale as delivered.
struct PortRecord {
    std::string moduleInfo;
    std::string moduleInfo2;
    std::string noRegTimer = "120";
    std::string txLevel = "0";
    std::string rxLevel = "51";
    std::string minDigits = "3";
    std::string maxDigits = "16";
    std::string intDigPause = "60";  // units of 50 ms
    std::string sendComplete = "0";
    std::string relaxTime = "50";  // units of 20 ms
    std::string switchFlags = "0";
    std::string reserved = "0";
    std::string simSwap = "30";  // minutes
    std::string reservedTail = "00000000";

    // A number can have as many digits as it needs without having too many.
    bool digitsFit() const;
};

// The columns that no console writes, then those that it does.
Columns<PortRecord> moduleColumns();
Columns<PortRecord> portColumns(ModuleKind kind);

}  // namespace simulator
