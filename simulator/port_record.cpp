#include "simulator/port_record.h"

#include "simulator/field_checks.h"

#include <array>

namespace simulator {

namespace {

using Check = bool (*)(const std::string&);

// Gain in decibels, two's complement in a byte, in steps of two. 3 is what a console writes for a position that
// its scale does not have.
constexpr Check firstScaleTx = oneOf<250, 252, 254, 0, 2, 3, 4, 6>;
constexpr Check firstScaleRx = within<0, 111>;
constexpr Check secondScale = within<0, 4>;

// When to change the SIM, in the bits 8, 16 and 32, without and with 64, which rejects calls. Not every
// combination of the bits is a choice.
constexpr Check switching = oneOf<0, 32, 8, 40, 24, 56, 64, 96, 72, 104, 88, 120>;

template <Check tx, Check rx>
constexpr std::array columnsWithLevels{
    Column<PortRecord>{&PortRecord::noRegTimer, offOrWithin<60, 255>, 1},
    Column<PortRecord>{&PortRecord::txLevel, tx, 1},
    Column<PortRecord>{&PortRecord::rxLevel, rx, 1},
    Column<PortRecord>{&PortRecord::minDigits, within<2, 7>, 1},
    Column<PortRecord>{&PortRecord::maxDigits, within<5, 32>, 1},
    Column<PortRecord>{&PortRecord::intDigPause, within<1, 200>, 1},
    Column<PortRecord>{&PortRecord::sendComplete, within<0, 1>, 1},
    Column<PortRecord>{&PortRecord::relaxTime, within<0, 250>, 1},
    Column<PortRecord>{&PortRecord::switchFlags, switching, 1},
    Column<PortRecord>{&PortRecord::reserved, within<0, 255>, 1},
    Column<PortRecord>{&PortRecord::simSwap, within<1, 255>, 1},
    Column<PortRecord>{&PortRecord::reservedTail, printable<8>},
};

constexpr std::array readOnly{
    Column<PortRecord>{&PortRecord::moduleInfo, nothing},
    Column<PortRecord>{&PortRecord::moduleInfo2, nothing},
};

}  // namespace

bool PortRecord::digitsFit() const {
    return number(minDigits, 2, 7).value_or(0) <= number(maxDigits, 5, 32).value_or(0);
}

Columns<PortRecord> moduleColumns() { return readOnly; }

Columns<PortRecord> portColumns(ModuleKind kind) {
    switch (kind) {
        case ModuleKind::gsmSecondScale:
            return columnsWithLevels<secondScale, secondScale>;
        case ModuleKind::cdma:
            return columnsWithLevels<nothing, nothing>;
        case ModuleKind::gsm:
            break;
    }
    return columnsWithLevels<firstScaleTx, firstScaleRx>;
}

}  // namespace simulator
