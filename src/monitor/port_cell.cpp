#include "monitor/port_cell.h"

#include "monitor/alarm_table.h"

namespace trunvex {

namespace {

constexpr Colour headingBlue = 16711680;
constexpr Colour headingRed = 255;

std::string indexed(const char* control, int index) { return arrayName(control, index); }

std::string eventText(const PortStatus& status) {
    const char* text = alarmRow(status.event).text;
    if (!text) return {};
    return status.event == AlarmCode::DisconnectedMs ? std::string(text) + " (" + status.reason + ")" : text;
}

const char* antennaPicture(Antenna antenna) {
    if (antenna == Antenna::NotTold) return "";
    if (antenna == Antenna::Unregistered) return IMG24;
    return IMG25[static_cast<std::size_t>(antenna) - static_cast<std::size_t>(Antenna::NoSignal)];
}

std::string lampTip(const char* of, AlarmCode report) {
    const char* text = alarmRow(report).text;
    return text ? of + std::string(text) : std::string();
}

}  // namespace

PortCell::PortCell(int boardIndex)
    : index(boardIndex), lblBCH(indexed("lblBCH", boardIndex)), chkSTPEnable(indexed("chkSTPEnable", boardIndex)),
      shpSim(indexed("shpSim", boardIndex)), LblSIM_num(indexed("LblSIM_num", boardIndex)),
      lblMsg(indexed("lblMsg", boardIndex)), lblMsgNumber(indexed("lblMsgNumber", boardIndex)),
      lblLimit(indexed("lblLimit", boardIndex)), imgStatus(indexed("imgStatus", boardIndex)),
      imgStatusSim(indexed("imgStatusSim", boardIndex)), imgStatusNet(indexed("imgStatusNet", boardIndex)),
      imgStatusLock(indexed("imgStatusLock", boardIndex)), lblNetworkID(indexed("lblNetworkID", boardIndex)),
      lblNetBCCH(indexed("lblNetBCCH", boardIndex)), lblRM_HM(indexed("lblRM_HM", boardIndex)),
      lblStrengthDB(indexed("lblStrengthDB", boardIndex)), imgAntenna(indexed("imgAntenna", boardIndex)),
      imgSMS(indexed("imgSMS", boardIndex)), lblSimClick(indexed("lblSimClick", boardIndex)),
      lblSimLed(indexed("lblSimLed", boardIndex), "Sim :"),
      lblNetworkLed(indexed("lblNetworkLed", boardIndex), "Net :"),
      lblNetwork(indexed("lblNetwork", boardIndex), "Net ID:"),
      cmdResetLimit(indexed("cmdResetLimit", boardIndex), "Port Menu"),
      cmdResetSlave(indexed("cmdResetSlave", boardIndex), "RESET") {
    imgStatusLock.setTip("Net Lock status: no info");
}

template <auto member>
bool PortCell::taken() {
    if (!fresh_ && shown_.*member == status.*member) return false;
    shown_.*member = status.*member;
    return true;
}

void PortCell::show(const BoardColours& colours) {
    showHeading();
    if (taken<&PortStatus::state>()) showState(colours);
    showEvent();
    showSim();
    showNetwork();
    showBcch();
    showSignal();
    if (taken<&PortStatus::message>()) {
        imgSMS.setPicture(status.message ? IMGSMS : "");
        imgSMS.setTip(status.message ? "You have new SMS message" : "");
    }
    fresh_ = false;
}

void PortCell::showState(const BoardColours& colours) {
    shpSim.setTip(status.state ? BoardColours::entries[*status.state].meaning : notReadText);
    shpSim.setColour(status.state ? colours[*status.state] : cellNotTold);
}

void PortCell::showHeading() {
    if (taken<&PortStatus::enabled>()) chkSTPEnable.setChecked(status.enabled.value_or(false));
    const bool channelIsNew = taken<&PortStatus::channel>();
    if (taken<&PortStatus::reserved>() || channelIsNew) {
        const auto line = std::to_string(status.boundChannel());
        lblBCH.setText("Port #" + std::to_string(index) +
                       (status.reserved ? " (RESERVED" + line + ")" : ",  B-Ch #" + status.channel));
    }
    if (taken<&PortStatus::heading>())
        lblBCH.setColour(status.heading == PortStatus::Heading::Off        ? headingRed
                         : status.heading == PortStatus::Heading::Reserved ? headingBlue
                                                                           : colourBlack);
}

void PortCell::showEvent() {
    const bool reasonIsNew = taken<&PortStatus::reason>();
    if (taken<&PortStatus::event>() || reasonIsNew) lblMsg.setText(eventText(status));
    if (taken<&PortStatus::inCall>()) lblMsg.setTag(!status.inCall ? "" : *status.inCall ? "CON" : "DES");
    if (taken<&PortStatus::callNumber>()) lblMsgNumber.setText(status.callNumber);
    if (taken<&PortStatus::connected>()) imgStatus.setPicture(status.connected ? IMG4 : "");
}

void PortCell::showSim() {
    if (taken<&PortStatus::sim>()) LblSIM_num.setText(status.sim ? "SIM #" + std::to_string(*status.sim) : "");
    if (taken<&PortStatus::counter>()) lblLimit.setText("Count:" + status.counter);
    if (taken<&PortStatus::simLamp>()) imgStatusSim.setPicture(lampPicture(status.simLamp));
    if (taken<&PortStatus::simReport>())
        imgStatusSim.setTip(status.simReport == AlarmCode::None ? "Sim status: no info"
                                                                : lampTip("sim status:", status.simReport));
}

void PortCell::showNetwork() {
    if (taken<&PortStatus::netLamp>()) imgStatusNet.setPicture(lampPicture(status.netLamp));
    if (taken<&PortStatus::netReport>())
        imgStatusNet.setTip(status.netReport == AlarmCode::None         ? "Network status: no info"
                            : status.netReport == AlarmCode::Registered ? lampTip("Network status: ", status.netReport)
                                                                        : lampTip("Network status:", status.netReport));
    if (taken<&PortStatus::networkId>()) lblNetworkID.setText(status.networkId);
    if (taken<&PortStatus::registering>()) lblNetworkID.setBold(status.registering);
    if (taken<&PortStatus::network>())
        lblRM_HM.setText(status.network == PortStatus::Network::Home      ? "Hm"
                         : status.network == PortStatus::Network::Roaming ? "Rm"
                                                                          : "");
}

void PortCell::showBcch() {
    const bool channelIsNew = taken<&PortStatus::bcch>();
    const bool modeIsNew = taken<&PortStatus::bcchMode>();
    if (taken<&PortStatus::cdma>()) {
        lblNetBCCH.setBold(status.cdma);
        setSimVisible(!status.cdma);
    } else if (!channelIsNew && !modeIsNew) {
        return;
    }
    lblNetBCCH.setText(status.cdma                                      ? "CDMA"
                       : status.bcchMode == PortStatus::Bcch::Fixed     ? "BCCH: " + status.bcch
                       : status.bcchMode == PortStatus::Bcch::Automatic ? "BCCH: AUTO"
                                                                        : "");
}

void PortCell::showSignal() {
    if (taken<&PortStatus::level>())
        lblStrengthDB.setText(status.level ? std::to_string(*status.level - 111) + "db" : "");
    if (taken<&PortStatus::antenna>()) imgAntenna.setPicture(antennaPicture(status.antenna));
}

void PortCell::setSimVisible(bool visible) {
    LblSIM_num.setVisible(visible);
    lblSimLed.setVisible(visible);
    imgStatusSim.setVisible(visible);
    lblLimit.setVisible(visible);
    lblSimClick.setVisible(visible);
}

BchRow::BchRow(int channelNumber)
    : channel(channelNumber), lblSTBBch(indexed("lblSTBBch", channelNumber - 1), std::to_string(channelNumber)),
      lblSTBCause(indexed("lblSTBCause", channelNumber - 1)), chkSTBEnable(indexed("chkSTBEnable", channelNumber - 1)) {
    show();
}

void BchRow::show() {
    constexpr Colour rowColours[] = {bchNotTold, bchDisabled, bchIdle, bchInCall};
    lblSTBBch.setColour(rowColours[static_cast<std::size_t>(status.state)]);
    lblSTBCause.setText(status.cause);
    chkSTBEnable.setChecked(status.enabled.value_or(false));
}

const char* lampPicture(Lamp lamp) {
    constexpr const char* pictures[] = {"", "imgLedRed", "imgLedYellow", "imgLedGreen"};
    return pictures[static_cast<std::size_t>(lamp)];
}

}  // namespace trunvex
