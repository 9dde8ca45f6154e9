// The state of a cell in words: for the tip and for a screen reader.
#include "model/port_address.h"
#include "screens/board/board_cell.h"
#include "screens/kit/field_binding.h"

namespace trunvex {

namespace {

QString kindWord(ModuleKind kind) {
    switch (kind) {
        case ModuleKind::Gsm:
            return "GSM";
        case ModuleKind::Cdma:
            return "CDM";
        case ModuleKind::Missing:
            return BoardCell::tr("no module");
        default:
            return BoardCell::tr("not reported yet");
    }
}

// -1 where no signal is told.
int barsOf(Antenna antenna) {
    if (antenna == Antenna::NotTold || antenna == Antenna::Unregistered) return -1;
    return static_cast<int>(antenna) - static_cast<int>(Antenna::NoSignal);
}

}  // namespace

QStringList BoardCell::stateLines() const {
    const auto& status = cell_.status;
    const auto port = PortAddress::ofNumber(cell_.index);
    QStringList lines;
    const auto add = [&lines](const QString& line) {
        if (!line.simplified().isEmpty()) lines << line.simplified();
    };
    const auto addLamp = [&add](const PictureField& lamp) {
        if (!lamp.visible()) return;
        add(shown(lamp.tip()) + (lamp.picture().empty() ? QString() : " (" + lampOf(lamp.picture()).word + ")"));
    };
    add(lblBCH());
    add(tr("MCU %1, module %2: %3").arg(port.mcu()).arg(port.module()).arg(kindWord(status.kind)));
    add(chkSTPEnable() ? tr("Enabled") : status.enabled ? tr("Disabled") : tr("Enable flag not read yet"));
    if (marked_) add(tr("Marked"));
    add(tr("State: %1").arg(meaning()));
    if (!lblMsg().isEmpty()) add(tr("Last event: %1").arg(lblMsg()));
    if (!lblMsgNumber().isEmpty()) add(tr("Number: %1").arg(lblMsgNumber()));
    if (!imgStatus().isEmpty()) add(tr("Call connected"));
    add(seen(cell_.LblSIM_num));
    addLamp(cell_.imgStatusSim);
    addLamp(cell_.imgStatusNet);
    addLamp(cell_.imgStatusLock);
    if (!lblNetworkID().isEmpty()) add(lblNetwork() + " " + lblNetworkID());
    if (status.network == PortStatus::Network::Home) add(tr("Home network"));
    if (status.network == PortStatus::Network::Roaming) add(tr("Roaming"));
    add(lblNetBCCH());
    if (const int bars = barsOf(status.antenna); bars >= 0) add(tr("Signal: %1 of 4 bars").arg(bars));
    add(lblStrengthDB());
    add(seen(cell_.lblLimit));
    if (!imgSMS().isEmpty()) add(cell_.imgSMS.tip().empty() ? tr("New SMS message") : shown(cell_.imgSMS.tip()));
    return lines;
}

}  // namespace trunvex
