#include "monitor/port_cell.h"

namespace trunvex {

namespace {

std::string indexed(const char* control, int index) { return arrayName(control, index); }

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
      cmdResetLimit(indexed("cmdResetLimit", boardIndex), "Port Menu") {
    imgStatusSim.setTip("Sim status: no info");
    imgStatusNet.setTip("Network status: no info");
    imgStatusLock.setTip("Net Lock status: no info");
}

void PortCell::setState(BoardColours::Which which, const BoardColours& colours) {
    state = which;
    shpSim.setTip(BoardColours::entries[which].meaning);
    shpSim.setColour(colours[which]);
}

void PortCell::showSim(bool visible) {
    LblSIM_num.setVisible(visible);
    lblSimLed.setVisible(visible);
    imgStatusSim.setVisible(visible);
    lblLimit.setVisible(visible);
    lblSimClick.setVisible(visible);
}

BchRow::BchRow(int channelNumber)
    : channel(channelNumber), lblSTBBch(indexed("lblSTBBch", channelNumber - 1), std::to_string(channelNumber)),
      lblSTBCause(indexed("lblSTBCause", channelNumber - 1)), chkSTBEnable(indexed("chkSTBEnable", channelNumber - 1)) {
    lblSTBBch.setColour(bchDisabled);
}

}  // namespace trunvex
