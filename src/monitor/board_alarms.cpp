// What the reports of the gateway do to the board: the "ALR" events of frmSimStatus::UpdateSimStatus.
#include "model/port_address.h"
#include "monitor/sim_status.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* redLamp = "imgLedRed";
constexpr const char* yellowLamp = "imgLedYellow";
constexpr const char* greenLamp = "imgLedGreen";
constexpr Colour headingRed = 255;
constexpr int animationMs = 200;

struct LampCode {
    std::string_view code;
    int lamp;
    const char* picture;
};

// Codes of the system's lamps, compared as text.
constexpr LampCode lampCodes[] = {
    {"010", 2, greenLamp}, {"011", 2, redLamp},    {"020", 0, yellowLamp}, {"021", 0, greenLamp},
    {"022", 0, redLamp},   {"023", 0, yellowLamp}, {"024", 0, redLamp},    {"030", 1, yellowLamp},
    {"031", 1, greenLamp}, {"032", 1, redLamp},    {"033", 1, yellowLamp}, {"034", 1, redLamp},
};

bool clearsChannel(std::string_view code) {
    return code == "101" || code == "102" || (code.size() == 3 && code >= "110" && code <= "115");
}

bool isFault(std::int64_t code) { return code == 13 || (code >= 29 && code <= 39); }

// The codes that show a SIM at work.
bool showsSim(std::int64_t code) { return (code >= 1 && code <= 9) || code == 12 || code == 23 || code == 40; }

std::string count(std::string_view counter) { return "Count:" + escaped(counter); }

}  // namespace

void frmSimStatus::systemAlarm(const Fields& fields) {
    const auto code = fields.at(3);
    if (!code.empty() && code.front() == '0')
        for (const auto& lamp : lampCodes)
            if (lamp.code == code) imgSystemStatus[static_cast<std::size_t>(lamp.lamp)].setPicture(lamp.picture);
    const auto first = fields.at(4);
    const auto second = fields.at(5);
    if (code == "100") {
        bindChannel(second, first);
    } else if (code == "120") {
        bindChannel(first, second);
    } else if (clearsChannel(code)) {
        auto& line = row(static_cast<int>(val(first)));
        line.lblSTBCause.setText(escaped(second));
        line.lblSTBBch.setColour(bchIdle);
    } else if (code == "140") {
        auto& line = row(static_cast<int>(val(first)));
        line.lblSTBCause.setText("");
        line.lblSTBBch.setColour(bchInCall);
    } else if (code == "116" && fields.at(6) == "OK") {
        row(static_cast<int>(val(first))).lblSTBBch.setColour(val(second) == 1 ? bchIdle : bchDisabled);
    } else if (code == "136" && fields.at(6) == "OK") {
        cell(PortAddress::parse(first).number()).lblBCH.setColour(val(second) == 1 ? colourBlack : headingRed);
    }
}

void frmSimStatus::bindChannel(std::string_view port, std::string_view channel) {
    const auto index = static_cast<int>(val(port));
    auto& bound = cell(index);
    bound.lblBCH.setText("Port #" + std::to_string(index) + ",  B-Ch #" + escaped(channel));
    bound.portBch = static_cast<int>(val(channel));
}

void frmSimStatus::portAlarm(const Fields& fields) {
    const PortAddress address(static_cast<int>(val(fields.at(0))), static_cast<int>(val(fields.at(1))));
    auto& port = cell(address.number());
    const auto sim = fields.at(2);
    const auto code = fields.at(3);
    constexpr int messageReport = 19;  // of the messages, and no state of a cell
    const auto number = val(code);
    if (number == messageReport || simAbsence(port, sim, code)) return;
    if (!lamps(port, code, number)) return;
    if (showsSim(number)) {
        port.setState(BoardColours::PORT_ACTIVE, colours_);
        port.LblSIM_num.setText("SIM #" + std::string(sim));
    }
    effect(port, fields, number);
    countCall(port);
}

// A missing SIM is reported again every few seconds; only the first report wipes the cell. True when that was all.
bool frmSimStatus::simAbsence(PortCell& port, std::string_view sim, std::string_view code) {
    if (code != "26") {
        port.simAbsent = false;
        if (sim == "0" && code != "25") resetPortCell(port.index);
        return false;
    }
    const auto& text = statusItems_.at("26");
    if (!port.simAbsent) {
        resetPortCell(port.index);
        port.lblMsg.setText(text);
        port.simAbsent = true;
    }
    port.imgStatusSim.setPicture(redLamp);
    port.imgStatusSim.setTip("sim status:" + text);
    return true;
}

// False when the event ends at its lamp: code 20 has no text for the tip, and never had.
bool frmSimStatus::lamps(PortCell& port, std::string_view code, std::int64_t number) {
    if (number >= 26 && number <= 40) {
        port.imgStatusSim.setPicture(number == 40 ? greenLamp : redLamp);
        port.imgStatusSim.setTip("sim status:" + statusItems_.at(code));
    } else if (number == 20 || number == 24) {
        port.imgStatusNet.setPicture(redLamp);
        if (number == 20) return false;
        port.imgStatusNet.setTip("Network status:" + statusItems_.at(code));
    } else if (number == 22) {
        port.imgStatusNet.setPicture(yellowLamp);
        port.lblMsg.setText("REGISTRATION");
        port.imgStatusNet.setTip("Network status:" + statusItems_.at(code));
    } else if (number == 21 || number == 23 || number == 50) {
        port.imgStatusNet.setPicture(greenLamp);
        port.imgStatusNet.setTip("Network status: REGISTERED");
    }
    return true;
}

void frmSimStatus::effect(PortCell& port, const Fields& fields, std::int64_t number) {
    const auto code = fields.at(3);
    const auto first = fields.at(4);
    switch (number) {
        case 1:
        case 2:
        case 9:
            port.lblMsg.setText(statusItems_.at(code));
            port.lblMsgNumber.setText(escaped(first));
            if (number == 2) dialled_.emit(port.index, escaped(first));
            break;
        case 3:
            port.lblMsg.setText(statusItems_.at(code));
            port.imgStatus.setPicture("");
            port.setState(BoardColours::PORT_CALL, colours_);
            break;
        case 4:
            port.lblLimit.setText(count(first));
            port.lblMsg.setText(statusItems_.at(code));
            port.imgStatus.setPicture(statusItems_.at("IMG4"));
            port.setState(BoardColours::PORT_CONNECTED, colours_);
            break;
        case 12:
            port.lblMsg.setText(statusItems_.at(code));
            port.imgStatus.setPicture(statusItems_.at("IMG12"));
            port.setState(BoardColours::PORT_CONNECTED, colours_);
            break;
        case 5:
        case 7:
        case 8:
        case 10:
        case 27:
        case 28:
        case 40:
            port.lblMsg.setText(statusItems_.at(code));
            port.imgStatus.setPicture("");
            break;
        case 6:
            port.lblMsg.setText(statusItems_.at(code) + " (" + escaped(first) + ")");
            port.imgStatus.setPicture("");
            port.setState(BoardColours::PORT_ACTIVE, colours_);
            break;
        case 16:
            port.lblMsg.setText(statusItems_.at(code));
            port.setState(BoardColours::PORT_ALARTING, colours_);
            break;
        case 18:
        case 104:
            port.lblLimit.setText(count(first));
            break;
        case 15:
            if (port.lblNetBCCH.text() != "CDMA")
                port.lblNetBCCH.setText(trim(fields.at(5)) == "0" ? "BCCH: " + escaped(first) : "BCCH: AUTO");
            break;
        case 21:
            port.lblNetworkID.setText(escaped(first));
            break;
        case 22:
            port.lblNetworkID.setBold(true);
            port.tmrAnimation->start(animationMs);
            break;
        case 23:
            registered(port, "Hm");
            break;
        case 50:
            registered(port, "Rm");
            break;
        case 24:
            port.tmrAnimation->stop();
            port.lblNetworkID.setBold(false);
            port.imgAntenna.setPicture(statusItems_.at("IMG24"));
            port.lblStrengthDB.setText("");
            port.lblMsg.setText(statusItems_.at(code));
            break;
        case 25:
            signalLevel(port, val(first));
            break;
        case 100:
            lblSlaveVer.setText(escaped(first));
            break;
        default:
            if (!isFault(number)) break;
            port.setState(BoardColours::PORT_PROBLEM, colours_);
            if (!statusItems_.isEmptyItem(code)) port.lblMsg.setText(statusItems_.at(code));
            break;
    }
}

void frmSimStatus::registered(PortCell& port, const char* where) {
    port.tmrAnimation->stop();
    port.lblNetworkID.setBold(false);
    port.lblMsg.setText(statusItems_.at("23"));
    port.lblRM_HM.setText(where);
}

// 0 to 70 above -111 dB; 0 and 99 are no signal. What is in no range keeps the bars as they were.
void frmSimStatus::signalLevel(PortCell& port, std::int64_t level) {
    if (level == 0 || level == 99) {
        port.lblStrengthDB.setText("");
        port.imgAntenna.setPicture(statusItems_.at("IMG250"));
        return;
    }
    constexpr std::int64_t absurd = 9999;
    if (level < -absurd || level > absurd) return;
    port.lblStrengthDB.setText(std::to_string(level - 111) + "db");
    const char* bars = level < 1     ? nullptr
                       : level <= 16 ? "IMG251"
                       : level <= 33 ? "IMG252"
                       : level <= 49 ? "IMG253"
                       : level <= 70 ? "IMG254"
                                     : nullptr;
    if (bars) port.imgAntenna.setPicture(statusItems_.at(bars));
}

// The text of the last event decides whether the port is in a call.
void frmSimStatus::countCall(PortCell& port) {
    const auto& text = port.lblMsg.text();
    const bool inCall = text == statusItems_.at("3") || text == statusItems_.at("4");
    const bool counted = port.lblMsg.tag() == "CON";
    if (inCall == counted) return;
    port.lblMsg.setTag(inCall ? "CON" : "DES");
    lblLoading.setText(std::to_string(val(lblLoading.text()) + (inCall ? 1 : -1)));
}

}  // namespace trunvex
