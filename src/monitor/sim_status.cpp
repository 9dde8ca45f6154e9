#include "monitor/sim_status.h"

#include "model/shared_tables.h"
#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr Colour headingBlue = 16711680;
constexpr Colour headingRed = 255;
constexpr int totalCounterMs = 1000;
constexpr const char* lampPictures[] = {"imgLedRed", "imgLedYellow", "imgLedGreen"};

bool lowBit(std::string_view flag) { return (val(flag) & 1) != 0; }

int boardIndex(std::string_view address) { return PortAddress::parse(address).number(); }

std::string portHeading(int index, std::string_view channel) {
    return "Port #" + std::to_string(index) + ",  B-Ch #" + escaped(channel);
}

}  // namespace

frmSimStatus::frmSimStatus(Session& session)
    : Page(session, {"sim", "Monitor", "Status board of ports, SIMs and B-channels", Monitor, true}),
      platform_(session.platform), settings_(session.setting), state_(session.state), sender_(session.objSpool),
      refreshes_(session.refreshes) {
    InitFormData();
    takeRecords(session);
    session.events.identified.connect([this] { lblESN.setText(escaped(state_.gESN)); });
    session.reads.onComplete("R_MON", [this](const std::string&) { holdsData = true; });
    session.events.started.connect([this] { tmrTotalCounter_->start(totalCounterMs); });
    cmdSTSRefresh.pressed().connect([this] { refresh(); });
    refreshes_.bar.stepped().connect([this](int, int) { tellProgress(); });
}

std::vector<QueueItem> frmSimStatus::missing() {
    if (holdsData) return {};
    return {command("R_SYS", "System status"), command("R_ILS", "ISDN Statistic"), command("R_MON", "Gateway status")};
}

void frmSimStatus::InitFormData() {
    colours_.load(settings_);
    for (int i = 0; i < 3; ++i) imgSystemStatus.emplace_back(arrayName("imgSystemStatus", i));
    for (int channel = 1; channel <= channelCount; ++channel) rows_.emplace_back(channel);
    for (int index = 1; index <= portCount; ++index) {
        auto& port = cells_.emplace_back(index);
        port.tmrAnimation = platform_.makeTimer([this, &port] { animate(port); });
        port.lblBCH.setText(portHeading(index, {}));
        resetPortCell(index);
    }
    tmrTotalCounter_ = platform_.makeTimer([this] { countTotal(); });
}

void frmSimStatus::takeRecords(Session& session) {
    auto& realTimeUpdate = session.realTimeUpdate;
    for (const char* kind : {"SYS", "PRT", "BCH", "ALR"})
        realTimeUpdate.on(kind, [this, kind](const Fields& fields) { UpdateSimStatus(kind, fields); });
    realTimeUpdate.on("CLK", [this](const Fields& fields) { takeClock(fields); });
    // One digit a port, then one a B-channel. The ports' channels are not among them, so the headings lose theirs
    // until the routing is read.
    session.dispatcher.on("A_MON", [this](const Record& record) {
        for (int position = 1; position <= portCount + channelCount; ++position) {
            const auto flag = mid(record.body, static_cast<std::size_t>(position), 1);
            const bool isPort = position <= portCount;
            const auto address =
                isPort ? PortAddress::ofNumber(position).digits() : std::to_string(position - portCount);
            Fields event;
            event.add(address);
            event.add(flag);
            event.add({});
            UpdateSimStatus(isPort ? "PRT" : "BCH", event);
        }
    });
}

void frmSimStatus::UpdateSimStatus(std::string_view kind, const Fields& fields) {
    quietly("UpdateSimStatus", [&] {
        if (kind == "SYS") systemLamps(fields);
        if (kind == "PRT") portEnabled(fields);
        if (kind == "BCH") channelEnabled(fields);
        if (kind != "ALR") return;
        const bool aboutSystem = fields.at(0) == "0" && fields.at(1) == "0" && fields.at(2) == "0";
        if (aboutSystem)
            systemAlarm(fields);
        else
            portAlarm(fields);
    });
}

void frmSimStatus::systemLamps(const Fields& fields) {
    for (std::size_t i = 1; i <= 3; ++i) {
        const auto state = fields.at(i);
        if (state == "0" || state == "1" || state == "2") imgSystemStatus[i - 1].setPicture(lampPictures[val(state)]);
    }
}

// Address XY, enable flag, bound B-channel.
void frmSimStatus::portEnabled(const Fields& fields) {
    const int index = boardIndex(fields.at(0));
    auto& port = cell(index);
    port.chkSTPEnable.setChecked(lowBit(fields.at(1)));
    const auto channel = fields.at(2);
    if (channel == endMark) return;  // not sent, so nothing is known of it
    port.portBch = static_cast<int>(val(channel));
    port.lblBCH.setBold(false);
    const bool reserved = port.portBch == 31 || port.portBch == 32;
    if (reserved) {
        port.lblBCH.setText("Port #" + std::to_string(index) + (port.portBch == 31 ? " (RESERVED1)" : " (RESERVED2)"));
    } else {
        port.lblBCH.setText(portHeading(index, channel));
    }
    port.lblBCH.setColour(!port.chkSTPEnable.checked() ? headingRed : reserved ? headingBlue : colourBlack);
}

// Channel, enable flag.
void frmSimStatus::channelEnabled(const Fields& fields) {
    const auto channel = val(fields.at(0));
    if (channel < 1 || channel > channelCount) return;
    auto& line = row(static_cast<int>(channel));
    line.chkSTBEnable.setChecked(lowBit(fields.at(1)));
    line.lblSTBBch.setColour(line.chkSTBEnable.checked() ? bchIdle : bchDisabled);
}

void frmSimStatus::resetPortCell(int index) {
    auto& port = cell(index);
    port.imgStatusSim.setPicture("");
    port.imgStatusSim.setTip("Sim status: no info");
    port.imgStatusNet.setPicture("");
    port.imgStatusNet.setTip("Network status: no info");
    port.tmrAnimation->stop();
    port.setState(BoardColours::PORT_NOT_ACTIVE, colours_);
    port.imgStatus.setPicture("");
    port.lblNetworkID.setBold(false);
    port.lblNetworkID.setText("");
    port.lblMsg.setText("");
    port.lblMsgNumber.setText("");
    port.lblLimit.setText("Count:");
    port.LblSIM_num.setText("");
}

// While a module registers, its network identity is a row of dots that grows and starts over.
void frmSimStatus::animate(PortCell& port) {
    constexpr std::size_t fullRow = 8;
    constexpr std::string_view dots = "...........";  // as far as a longer text than a full row gets
    const auto length = port.lblNetworkID.text().size();
    port.lblNetworkID.setText(length == fullRow ? std::string() : std::string(dots.substr(0, length + 1)));
}

void frmSimStatus::countTotal() {
    std::int64_t minutes = 0;
    std::int64_t seconds = 0;
    for (const auto& port : cells_) {
        const std::string_view text = port.lblLimit.text();
        const auto colon = text.rfind(':');
        seconds += val(right(text, 2));
        if (colon != std::string_view::npos && colon >= 5) minutes += val(text.substr(colon - 5, 5));
    }
    minutes += seconds / 60;
    seconds %= 60;
    lblTotalCounter.setText(std::to_string(minutes) + " :" + (seconds < 10 ? "0" : "") + std::to_string(seconds));
}

void frmSimStatus::refresh() {
    if (!sender_.isConnected()) {
        platform_.dialogs().info(notConnectedText);
        return;
    }
    std::vector<QueueItem> batch;
    for (int index = 1; index <= portCount; ++index) {
        if (val(mid(state_.gActivePorts, static_cast<std::size_t>(index), 1)) < 1) continue;
        batch.push_back(
            command("R_STS" + PortAddress::ofNumber(index).digits(), "Get data from port " + std::to_string(index)));
    }
    refreshes_.start(std::move(batch));
}

// Behind the queue's own step, which has put the caption of what is read now there.
void frmSimStatus::tellProgress() {
    if (!refreshes_.running()) return;
    const auto& walk = refreshes_.walk();
    const int percent = roundedDivision(100 * static_cast<int>(walk.index()), static_cast<int>(walk.count()));
    refreshes_.bar.setText("Loading " + walk.item().Caption + "   " + std::to_string(percent) + "%");
}

void frmSimStatus::takeColours(const BoardColours& colours) {
    colours_ = colours;
    colours_.save(settings_);
    for (auto& port : cells_) port.setState(port.state, colours_);
}

// The board shows the clock as it came: the seconds stay empty when the gateway does not tell them.
void frmSimStatus::takeClock(const Fields& fields) {
    lblHoure.setText(escaped(fields.at(4)));
    lblMinute.setText(escaped(fields.at(5)));
    const auto second = fields.at(6);
    lblSecond.setText(second == endMark ? std::string() : escaped(second));
    lblDate.setText(
        escaped(std::string(fields.at(0)) + "/" + std::string(fields.at(1)) + "/" + std::string(fields.at(2))));
}

// The session is over: what is shown is no longer the state of anything.
void frmSimStatus::tornDown() {
    for (auto* label : {&lblHoure, &lblMinute, &lblSecond, &lblDate, &lblESN, &lblTotalCounter, &lblSlaveVer})
        label->setText("");
    tmrTotalCounter_->stop();
    for (auto& lamp : imgSystemStatus) lamp.setPicture("");
    for (int index = 1; index <= portCount; ++index) {
        auto& port = cell(index);
        resetPortCell(index);
        port.simAbsent = false;
        port.portBch = 0;
        port.lblMsg.setTag("");
        port.lblBCH.setText(portHeading(index, {}));
        port.lblBCH.setColour(colourBlack);
        port.chkSTPEnable.setChecked(false);
        port.lblNetBCCH.setText("");
        port.lblNetBCCH.setBold(false);
        port.lblRM_HM.setText("");
        port.lblStrengthDB.setText("");
        port.imgAntenna.setPicture("");
        port.imgSMS.setPicture("");
        port.imgSMS.setTip("");
        port.showSim(true);
    }
    for (auto& line : rows_) {
        line.lblSTBCause.setText("");
        line.chkSTBEnable.setChecked(false);
        line.lblSTBBch.setColour(bchDisabled);
    }
    lblLoading.setText("0");
    holdsData = false;
}

}  // namespace trunvex
