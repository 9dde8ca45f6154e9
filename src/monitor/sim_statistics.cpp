#include "monitor/sim_statistics.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "monitor/port_caption.h"
#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* resetQuestion = "Are you sure you want to reset the sim statistics ?";
constexpr const char* resetTitle = "Reset sim";
constexpr const char* lineBreak = "\r\n";

std::string simText(SimAddress sim) { return sim.port().digits() + "," + std::to_string(sim.sim()) + ","; }

// A decimal number.
bool isBalance(std::string_view text) {
    if (!text.empty() && text.front() == '-') text.remove_prefix(1);
    const auto point = text.find('.');
    const bool fraction = point == std::string_view::npos || isWhole(text.substr(point + 1));
    return fraction && isWhole(text.substr(0, point));
}

}  // namespace

SimStatistics::SimStatistics(Session& session, SharedTables& tables, BoardOperations& operations, PortMenu& menu)
    : lstASR({{"#", true},
              {"Port"},
              {"Sim", true},
              {"Talk time", true},
              {"Dialed", true},
              {"Success", true},
              {"ASR", true},
              {"ACD", true},
              {"SIM ID"},
              {"IMSI"},
              {"balance", true},
              {"update"},
              {"Last reads"},
              {"Remark"}}),
      session_(session), tables_(tables), operations_(operations), history_(session.platform.databases()) {
    framMSG.setVisible(false);
    session.dispatcher.on("A_STR", [this](const Record& record) { take(record.fields()); });
    session.dispatcher.on("C_STR", [this](const Record& record) { cleared(record.fields()); });
    session.reads.ended().connect([this](ReadQueue::Ending ending) { batchEnded(ending); });
    session.writes.settled().connect(
        [this](const QueueItem& item, WriteQueue::Outcome outcome) { balanceSettled(item, outcome); });
    session.events.begun.connect([this] { begun(); });
    session.events.identified.connect([this] { openHistory(); });
    for (int sim = 1; sim <= simsPerModule; ++sim) {
        const auto at = static_cast<std::size_t>(sim - 1);
        const auto address = [&menu, sim] { return SimAddress(PortAddress::ofNumber(menu.port()), sim); };
        menu.mnuReadSim[at].pressed().connect([this, address] { readSim(address()); });
        menu.mnuResetSim[at].pressed().connect([this, address] { resetSim(address()); });
    }
    cmdMSG_BOX.pressed().connect([this] { closePanel(); });
    cmdGetAllSTR.pressed().connect([this] { readAll(false); });
    cmdResetAllASR.pressed().connect([this] { resetAll(); });
    cmdExportCsv.pressed().connect([this] { exportCsv(); });
    cmdUpdateBalance.pressed().connect([this] { writeBalance(); });
    txtASRSearch.valueChanged().connect([this] { lstASR.setFilter(txtASRSearch.text()); });
    lstASR.replaced().connect([this] { showSums(); });
    lstASR.spliced().connect([this](Table::Splice) { showSums(); });
    choose({});
    showSums();
}

void SimStatistics::take(const Fields& fields) {
    const auto figures = SimFigures::of(fields);
    if (!figures) return;
    if (asked_ == figures->sim) updateSTR(*figures);
    // One that comes late or twice takes the place of its row; a single read adds none.
    if (reading_ || figures_.contains(figures->sim.digits())) updateAllSTR(*figures);
    if (reading_) read_.push_back(*figures);
}

void SimStatistics::updateSTR(const SimFigures& figures) {
    const std::pair<const char*, std::string> lines[] = {{"Minutes of the conversation : ", escaped(figures.talked)},
                                                         {"Number dialed calls : ", std::to_string(figures.dialled)},
                                                         {"Number success calls : ", std::to_string(figures.succeeded)},
                                                         {"ASR : ", figures.asr() + " %"},
                                                         {"ACD : ", figures.acd()},
                                                         {"SIM ID : ", escaped(figures.simId)},
                                                         {"IMSI : ", escaped(figures.imsi)},
                                                         {"Balance : ", escaped(figures.balance)}};
    std::string text;
    for (const auto& [caption, value] : lines) text += caption + value + lineBreak;
    framMSG.setText("Statistics for sim : " + std::to_string(figures.sim.sim()) +
                    " ,Port : " + std::to_string(figures.sim.port().number()));
    lblMSG_BOX.setText(text);
    framMSG.setVisible(true);
}

void SimStatistics::updateAllSTR(const SimFigures& figures) {
    figures_.insert_or_assign(figures.sim.digits(), figures);
    showRow(figures);
}

// The word and the line of a row follow when its read has come to its end.
void SimStatistics::showRow(const SimFigures& figures) {
    const auto key = figures.sim.digits();
    const auto& rows = lstASR.all();
    const auto old = std::ranges::find(rows, key, &ListTable::Row::key);
    const auto number = old - rows.begin() + 1;
    std::string trend;
    for (const auto& reading : history_.of(figures))
        trend += (trend.empty() ? "" : " ") + std::to_string(std::llround(reading.asr));
    const auto word = history_.wordOn(figures);
    const auto as = [](auto value) { return static_cast<double>(value); };
    lstASR.put({key,
                {std::to_string(number), portCaption(tables_, figures.sim.port()), std::to_string(figures.sim.sim()),
                 escaped(figures.talked), std::to_string(figures.dialled), std::to_string(figures.succeeded),
                 figures.asr() + " %", figures.acd(), escaped(figures.simId), escaped(figures.imsi),
                 escaped(figures.balance), "", trend, word},
                {as(number), as(figures.sim.port().number()), as(figures.sim.sim()), as(figures.talkSeconds()),
                 as(figures.dialled), as(figures.succeeded), figures.asrPercent(), as(figures.acdSeconds()), 0, 0,
                 as(val(figures.balance)), 0, history_.of(figures).empty() ? 0 : history_.of(figures).back().asr, 0}});
}

void SimStatistics::cleared(const Fields& fields) {
    const auto number = val(fields.at(1));
    if (number < 1 || number > simsPerModule) return;
    const auto sim = figures_.find(SimAddress(PortAddress::parse(fields.at(0)), static_cast<int>(number)).digits());
    if (sim != figures_.end()) updateAllSTR(sim->second.cleared());
}

void SimStatistics::readSim(SimAddress sim) {
    if (!operations_.mayAsk()) return;
    closePanel();
    asked_ = sim;
    operations_.send("R_STR" + simText(sim));
}

void SimStatistics::closePanel() {
    asked_.reset();
    framMSG.setVisible(false);
}

std::vector<SimAddress> SimStatistics::everySim() const {
    std::vector<SimAddress> sims;
    for (const auto port : everyPort)
        for (int sim = 1; sim <= simsPerModule; ++sim)
            if (tables_.gPorts[port.slot()].Kind != "ERR") sims.emplace_back(port, sim);
    return sims;
}

void SimStatistics::readAll(bool thenReset) {
    if (!operations_.mayAsk()) return;
    session_.reads.whenFree("statistics", [this, thenReset] {
        if (!operations_.mayAsk()) return;
        std::vector<QueueItem> batch;
        for (const auto sim : everySim())
            batch.push_back(command("R_STR" + simText(sim),
                                    portCaption(tables_, sim.port()) + " SIM " + std::to_string(sim.sim())));
        figures_.clear();
        lstASR.clear();
        choose({});
        read_.clear();
        reading_ = session_.reads.start(std::move(batch));
        resetsBehind_ = reading_ && thenReset;
    });
}

void SimStatistics::batchEnded(ReadQueue::Ending ending) {
    if (!std::exchange(reading_, false)) return;
    std::string why;
    if (!quietly(
            "SimHistory", [this] { history_.add(read_, session_.platform.clock().localTime()); }, &why))
        session_.tell("The figures of this read can't be kept: " + why);
    for (const auto& figures : read_) showRow(figures);
    read_.clear();
    if (!std::exchange(resetsBehind_, false)) return;
    if (ending == ReadQueue::Ending::Complete)
        writeResets(everySim());
    else
        session_.tell("Not all SIMs were read, so none was reset.");
}

void SimStatistics::resetSim(SimAddress sim) {
    if (operations_.mayChange() && session_.platform.dialogs().agreed(
                                       Button::Yes, {resetQuestion, resetTitle, ButtonSet::YesNo, BoxIcon::Question, 2},
                                       forSession(session_.state)))
        writeResets({sim});
}

void SimStatistics::resetAll() {
    if (!operations_.mayChange()) return;
    auto& dialogs = session_.platform.dialogs();
    const auto ticket = forSession(session_.state);
    if (!dialogs.agreed(Button::Yes, {resetQuestion, resetTitle, ButtonSet::YesNo, BoxIcon::Question, 2}, ticket))
        return;
    const auto first = dialogs.ask({"Read the statistics of all SIMs first, so that their figures are kept?",
                                    resetTitle, ButtonSet::YesNo, BoxIcon::Question, 1},
                                   ticket);
    if (!first) return;
    if (*first == Button::Yes)
        readAll(true);
    else
        writeResets(everySim());
}

void SimStatistics::writeResets(const std::vector<SimAddress>& sims) {
    if (!operations_.mayChange()) return;
    WriteBatch batch;
    for (const auto sim : sims)
        batch.items.push_back(command("C_STR" + simText(sim), portCaption(tables_, sim.port())));
    session_.writes.start(std::move(batch));
}

void SimStatistics::choose(std::optional<std::size_t> row) {
    chosen_ = row && *row < lstASR.rowCount() ? std::optional(figures(*row).sim) : std::nullopt;
    lblBalanceOf.setText(chosen_ ? "Balance of " + portCaption(tables_, chosen_->port()) + ", SIM " +
                                       std::to_string(chosen_->sim())
                                 : "Balance");
    txtBalance.setText(chosen_ ? figures(*row).balance : "");
    txtBalance.setProblem({});
    txtBalance.setEnabled(chosen_.has_value());
    cmdUpdateBalance.setEnabled(chosen_.has_value());
}

void SimStatistics::writeBalance() {
    if (!chosen_) return;
    const auto balance = std::string(trim(txtBalance.text()));
    if (!isBalance(balance)) {
        txtBalance.setProblem("A balance is a number.");
        return;
    }
    txtBalance.setProblem({});
    if (!operations_.mayChange()) return;
    WriteBatch batch;
    batch.items.push_back(
        command("C_ABF" + simText(*chosen_) + balance + ",", "balance of " + portCaption(tables_, chosen_->port())));
    batch.items.back().Tag = chosen_->digits();
    batch.items.back().terms.fedBack = false;
    session_.writes.start(std::move(batch));
}

void SimStatistics::balanceSettled(const QueueItem& item, WriteQueue::Outcome outcome) {
    if (item.Key.rfind("C_ABF", 0) != 0 || outcome != WriteQueue::Outcome::Accepted) return;
    const auto fields = splitString(mid(item.Key, 6), ',');
    const auto sim = figures_.find(std::string(fields.at(0)) + std::string(fields.at(1)));
    if (sim == figures_.end()) return;
    sim->second.balance = fields.at(2);
    showRow(sim->second);
}

void SimStatistics::showSums() {
    std::int64_t talk = 0;
    std::int64_t dialled = 0;
    std::int64_t succeeded = 0;
    for (std::size_t row = 0; row < lstASR.rowCount(); ++row) {
        talk += figures(row).talkSeconds();
        dialled += figures(row).dialled;
        succeeded += figures(row).succeeded;
    }
    if (lstASR.rowCount() == 0) {
        lblASRSums.setText("");
        return;
    }
    SimFigures sums{.sim = {{1, 1}, 1}, .talked = minutesAndSeconds(talk), .dialled = dialled, .succeeded = succeeded};
    const auto count = lstASR.rowCount();
    lblASRSums.setText(std::to_string(count) + (count == 1 ? " SIM" : " SIMs") + " · talk time " + sums.talked + " · " +
                       std::to_string(dialled) + " dialed · " + std::to_string(succeeded) + " success · ASR " +
                       sums.asr() + " % · ACD " + minutesAndSeconds(sums.acdSeconds()));
}

// Nothing is known of the gateway any more.
void SimStatistics::begun() {
    closePanel();
    figures_.clear();
    lstASR.clear();
    choose({});
}

void SimStatistics::openHistory() {
    const auto name = fileNamePart(session_.state.gESN);
    std::string why;
    if (!quietly(
            "SimHistory",
            [&] {
                history_.open(name.empty() ? std::string()
                                           : session_.state.applicationFolder + "/data/STA" + name + ".mdb");
            },
            &why))
        session_.tell("The figures of earlier reads can't be read: " + why);
}

}  // namespace trunvex
