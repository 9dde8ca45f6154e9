#include "monitor/sim_status.h"

#include <algorithm>
#include <utility>

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int totalCounterMs = 1000;

}  // namespace

frmSimStatus::frmSimStatus(Session& session)
    : Page(session, {"sim", "Monitor", "Status board of ports, SIMs and B-channels", Monitor, true}),
      platform_(session.platform), settings_(session.setting), state_(session.state), sender_(session.objSpool),
      refreshes_(session.refreshes) {
    InitFormData();
    takeRecords(session);
    session.events.identified.connect([this] { lblESN.setText(escaped(state_.gESN)); });
    session.reads.onComplete("R_MON", [this](const std::string&) { holdsData = true; });
    // The clock runs on there between two reports.
    session.panel.staStatusTime.changed().connect([this] { followClock(); });
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
        show(port);
    }
    tmrTotalCounter_ = platform_.makeTimer([this] { countTotal(); });
}

void frmSimStatus::takeRecords(Session& session) {
    auto& realTimeUpdate = session.realTimeUpdate;
    onReport<SystemReport>(realTimeUpdate, "SYS", [this](const auto& report) { UpdateSimStatus(report); });
    onReport<PortReport>(realTimeUpdate, "PRT", [this](const auto& report) { UpdateSimStatus(report); });
    onReport<ChannelReport>(realTimeUpdate, "BCH", [this](const auto& report) { UpdateSimStatus(report); });
    onReport<AlarmReport>(realTimeUpdate, "ALR", [this](const auto& report) { UpdateSimStatus(report); });
    onReport<ClockReport>(realTimeUpdate, "CLK", [this](const auto& report) { takeClock(report); });
    session.dispatcher.on("A_MON", [this](const Record& record) { takeFlags(record.body); });
}

// One digit a port, then one a B-channel; of a record that is cut short only what it tells. The ports' channels are not
// among them, so the headings lose theirs until the routing is read.
void frmSimStatus::takeFlags(std::string_view flags) {
    const auto told = std::min(flags.size(), static_cast<std::size_t>(portCount + channelCount));
    for (std::size_t at = 0; at < told; ++at) {
        const bool enabled = lowBit(flags.substr(at, 1));
        if (at < portCount)
            UpdateSimStatus(PortReport{everyPort[at], enabled, "", {}});
        else
            UpdateSimStatus(ChannelReport{static_cast<std::int64_t>(at) - portCount + 1, enabled, {}});
    }
}

BchRow& frmSimStatus::row(std::int64_t channel) {
    if (channel < 1 || channel > channelCount) throw std::out_of_range("no such B-channel");
    return rows_[static_cast<std::size_t>(channel - 1)];
}

void frmSimStatus::UpdateSimStatus(const AlarmReport& report) {
    quietly("reported", [&] { reported.emit(report); });
    if (!report.port) {
        quietly("UpdateSimStatus", [&] { systemAlarm(report); });
        return;
    }
    auto& port = cell(*report.port);
    quietly("UpdateSimStatus", [&] { portAlarm(port, report); });
    show(port);
}

void frmSimStatus::UpdateSimStatus(const SystemReport& report) {
    constexpr Lamp lamps[] = {Lamp::Red, Lamp::Yellow, Lamp::Green};
    for (std::size_t i = 0; i < report.lamps.size(); ++i)
        if (report.lamps[i]) gateway_.lamps[i] = lamps[*report.lamps[i]];
    showGateway();
}

void frmSimStatus::UpdateSimStatus(const PortReport& report) {
    auto& port = cell(report.port);
    auto& status = port.status;
    if (report.enabled) status.enabled = report.enabled;
    if (report.channel) {
        using enum PortStatus::Heading;
        status.bind(*report.channel);
        status.reserved = status.portBch >= PortStatus::firstReserved;
        status.heading = !status.enabled.value_or(true) ? Off : status.reserved ? Reserved : Plain;
    }
    show(port);
}

void frmSimStatus::UpdateSimStatus(const ChannelReport& report) {
    if (report.channel < 1 || report.channel > channelCount || !report.enabled) return;
    auto& line = row(report.channel);
    line.status.enabled = report.enabled;
    line.status.state = *line.status.enabled ? ChannelStatus::State::Idle : ChannelStatus::State::Disabled;
    line.show();
}

void frmSimStatus::showGateway() {
    for (std::size_t i = 0; i < gateway_.lamps.size(); ++i)
        imgSystemStatus[i].setPicture(lampPicture(gateway_.lamps[i]));
    lblSlaveVer.setText(gateway_.slaveVersion);
    lblLoading.setText(std::to_string(gateway_.portsInCall));
}

void frmSimStatus::resetPortCell(PortCell& port) {
    port.tmrAnimation->stop();
    port.status.clearCell();
}

// While a module registers, its network identity is a row of dots that grows and starts over.
void frmSimStatus::animate(PortCell& port) {
    constexpr std::size_t fullRow = 8;
    constexpr std::string_view dots = "...........";  // as far as a longer text than a full row gets
    auto& row = port.status.networkId;
    row = row.size() == fullRow ? std::string() : std::string(dots.substr(0, row.size() + 1));
    show(port);
}

void frmSimStatus::countTotal() {
    TalkTime total;
    for (const auto& port : cells_) {
        total.minutes += port.status.talked.minutes;
        total.seconds += port.status.talked.seconds;
    }
    total.minutes += total.seconds / 60;
    total.seconds %= 60;
    lblTotalCounter.setText(std::to_string(total.minutes) + " :" + (total.seconds < 10 ? "0" : "") +
                            std::to_string(total.seconds));
}

void frmSimStatus::refresh() {
    if (!sender_.isConnected()) {
        platform_.dialogs().info(notConnectedText);
        return;
    }
    std::vector<QueueItem> batch;
    for (const auto port : everyPort) {
        if (val(mid(state_.gActivePorts, port.slot() + 1, 1)) < 1) continue;
        batch.push_back(command("R_STS" + port.digits(), "Get data from port " + std::to_string(port.number())));
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
    for (auto& port : cells_) port.showState(colours_);
    coloursChanged.emit();
}

// The board shows the clock as it came: the seconds stay empty when the gateway does not tell them.
void frmSimStatus::takeClock(const ClockReport& report) {
    lblHoure.setText(escaped(report.hour));
    lblMinute.setText(escaped(report.minute));
    lblSecond.setText(escaped(report.second.value_or("")));
    lblDate.setText(
        escaped(std::string(report.day) + "/" + std::string(report.month) + "/" + std::string(report.year)));
}

// A report without seconds shows none, until the next one has passed.
void frmSimStatus::followClock() {
    const auto& [day, month, year, weekday, hour, minute, second] = state_.gClockField;
    if (!state_.gGotClock || (lblSecond.text().empty() && second == "00")) return;
    takeClock({day, month, year, weekday, hour, minute, second});
}

void frmSimStatus::stopTimers() {
    tmrTotalCounter_->stop();
    for (auto& port : cells_) port.tmrAnimation->stop();
}

// Nothing is known of the gateway any more.
void frmSimStatus::begun() {
    stopTimers();
    for (auto* label : {&lblHoure, &lblMinute, &lblSecond, &lblDate, &lblESN, &lblTotalCounter, &lblAsOf})
        label->setText("");
    for (auto& port : cells_) {
        port.status = {};
        show(port);
    }
    for (auto& line : rows_) {
        line.status = {};
        line.show();
    }
    gateway_ = {};
    showGateway();
    holdsData = false;
    live_ = true;
}

// The last picture stays, for it tells how things stood when the link was lost.
void frmSimStatus::tornDown() {
    stopTimers();
    holdsData = false;
    if (!std::exchange(live_, false)) return;
    const bool lost = !session_.notices.lblLink.text().empty();
    lblAsOf.setText(std::string(lost ? "The link is lost" : "The session is ended") + ". What is shown is as of " +
                    hourAndMinute(platform_.clock().localTime()) + ".");
}

}  // namespace trunvex
