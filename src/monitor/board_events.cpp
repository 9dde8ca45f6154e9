#include "monitor/board_events.h"

#include <algorithm>

#include "platform/durable_file.h"
#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* section = "Events";
constexpr std::chrono::milliseconds quiet{60'000};  // between two alerts
constexpr int asideMinutes[] = {15, 60, 480};

struct LampReport {
    std::string_view code;
    std::size_t lamp;
    Lamp light;
};

constexpr LampReport lampReports[] = {{"010", 2, Lamp::Green}, {"011", 2, Lamp::Red},    {"020", 0, Lamp::Yellow},
                                      {"021", 0, Lamp::Green}, {"022", 0, Lamp::Red},    {"023", 0, Lamp::Yellow},
                                      {"024", 0, Lamp::Red},   {"030", 1, Lamp::Yellow}, {"031", 1, Lamp::Green},
                                      {"032", 1, Lamp::Red},   {"033", 1, Lamp::Yellow}, {"034", 1, Lamp::Red}};
constexpr const char* lampNames[] = {"Com port", "Network", "ISDN line"};
constexpr std::string_view causes[] = {"101", "102", "110", "111", "112", "113", "114", "115"};

std::string stamp(std::chrono::local_seconds when) {
    const std::chrono::year_month_day date{std::chrono::floor<std::chrono::days>(when)};
    return twoDigits(unsigned(date.day())) + "/" + twoDigits(unsigned(date.month())) + " " + timeOfDay(when);
}

std::string lasting(std::int64_t seconds) {
    if (seconds <= 0) return {};
    const auto hours = seconds / 3600;
    return (hours > 0 ? std::to_string(hours) + ":" : "") + twoDigits(seconds / 60 % 60) + ":" +
           twoDigits(seconds % 60);
}

const std::vector<ListTable::Column> columns{{"Time"}, {"Port"},        {"SIM", true},    {"Kind"},
                                             {"What"}, {"Count", true}, {"Lasted", true}, {"State"}};

}  // namespace

BoardEvents::BoardEvents(Session& session, frmSimStatus& board)
    : lsvStanding(columns), lsvEvents(columns), session_(session), store_(session.platform.databases()),
      delay_(session.platform.makeTimer([this] { show(); })) {
    std::vector<std::string> kinds{"All kinds"};
    kinds.insert(kinds.end(), BoardEvent::kindNames.begin(), BoardEvent::kindNames.end());
    cmbEventKind.setItems(std::move(kinds));
    std::vector<std::string> ports{"All ports"};
    for (int port = 1; port <= portCount; ++port) ports.push_back("Port " + std::to_string(port));
    cmbEventPort.setItems(std::move(ports));
    for (auto* choice : {&cmbEventKind, &cmbEventPort, &cmbAside}) choice->setIndex(0);
    for (auto* choice : {&cmbEventKind, &cmbEventPort}) choice->valueChanged().connect([this] { show(); });
    txtEventSearch.valueChanged().connect([this] { lsvEvents.setFilter(txtEventSearch.text()); });
    for (auto* box : {&chkEventSound, &chkEventTray}) {
        box->setChecked(session.setting.Read(section, box->name()) == "1");
        box->valueChanged().connect([this, box] { session_.setting.Write(section, box->name(), box->value()); });
    }
    cmdExportEvents.pressed().connect([this] { exportCsv(); });
    board.reported.connect([this](const AlarmReport& report) { takeAlarm(report); });
    onReport<SystemReport>(session.realTimeUpdate, "SYS", [this](const auto& report) {
        constexpr Lamp lights[] = {Lamp::Red, Lamp::Yellow, Lamp::Green};
        for (std::size_t lamp = 0; lamp < report.lamps.size(); ++lamp)
            if (report.lamps[lamp]) takeLamp(lamp, lights[*report.lamps[lamp]]);
    });
    followSession();
}

BoardEvents::~BoardEvents() { keep(); }

void BoardEvents::followSession() {
    using enum BoardEvent::Kind;
    session_.events.identified.connect([this] { openStore(); });
    session_.events.loggedIn.connect([this](LogInOutcome) {
        clear(Link);
        raise(Link, "Connected", false);
    });
    session_.notices.lblLink.changed().connect([this] {
        if (session_.notices.lblLink.text().empty()) return;
        raise(Link, "Link lost", true);
        show();
    });
    session_.events.tornDown.connect([this] {
        list_.clearGateway(now());
        show();
    });
    session_.writes.settled().connect([this](const QueueItem& item, WriteQueue::Outcome outcome) {
        if (outcome == WriteQueue::Outcome::Refused) raise(Write, "Refused: " + item.Caption, false);
        if (outcome == WriteQueue::Outcome::NoAnswer) raise(Write, "Not answered: " + item.Caption, false);
    });
}

void BoardEvents::openStore() {
    const auto name = fileNamePart(session_.state.gESN);
    clear(BoardEvent::Kind::Link);
    keep();
    std::string why;
    if (!quietly(
            "EventStore",
            [&] {
                store_.open(
                    name.empty() ? std::string() : session_.state.applicationFolder + "/data/EVT" + name + ".mdb",
                    list_);
            },
            &why))
        session_.tell("The events of earlier sessions can't be read: " + why);
    show();
}

void BoardEvents::raise(BoardEvent::Kind kind, const std::string& what, bool stands, int port, int sim) {
    BoardEvent event;
    event.kind = kind;
    event.what = what;
    event.port = port;
    event.sim = sim;
    if (list_.raise(event, now(), stands)) news_ = (port > 0 ? "Port " + std::to_string(port) + ": " : "") + what;
    changed();
}

void BoardEvents::clear(BoardEvent::Kind kind, int port) {
    if (list_.clear(kind, port, now())) changed();
}

void BoardEvents::takeAlarm(const AlarmReport& report) {
    if (report.port)
        takePortAlarm(report);
    else
        takeSystemAlarm(report);
}

void BoardEvents::takeSystemAlarm(const AlarmReport& report) {
    if (std::ranges::find(causes, report.code) != std::end(causes)) {
        raise(BoardEvent::Kind::Channel, "Cleared with cause " + escaped(report.second), false);
        return;
    }
    const auto* told = std::ranges::find(lampReports, report.code, &LampReport::code);
    if (told != std::end(lampReports)) takeLamp(told->lamp, told->light);
}

void BoardEvents::takeLamp(std::size_t lamp, trunvex::Lamp light) {
    const int place = -1 - static_cast<int>(lamp);
    const auto what =
        light == Lamp::Green ? "" : lampNames[lamp] + std::string(light == Lamp::Red ? ": fault" : ": not ready");
    if (list_.clear(BoardEvent::Kind::Lamp, place, now(), what)) changed();
    if (!what.empty()) raise(BoardEvent::Kind::Lamp, what, true, place);
}

void BoardEvents::takePortAlarm(const AlarmReport& report) {
    using enum BoardEvent::Kind;
    const auto& row = alarmRow(report.alarm);
    const int port = report.port->number();
    const bool red = row.light == trunvex::Lamp::Red;
    const bool faulty = report.is(AlarmCode::SimAbsent) || row.effect == AlarmEffect::Fault;
    if (faulty) {
        const auto kind = report.alarm == AlarmCode::ErrorGsm ? Module : Sim;
        // As on the board, the last one is how the port stands.
        if (list_.clear(kind, port, now(), row.text)) changed();
        raise(kind, row.text, true, port, report.sim);
    } else if (row.lamp == AlarmLamp::Net && red)
        raise(Network, row.text ? row.text : "No network", true, port, report.sim);
    if (row.simAtWork)
        for (const auto kind : {Sim, Module}) clear(kind, port);
    if (row.lamp == AlarmLamp::Net && row.light == trunvex::Lamp::Green) clear(Network, port);
}

void BoardEvents::acknowledge(const std::vector<std::string>& keys) {
    for (const auto& key : keys) list_.acknowledge(static_cast<int>(val(key)));
    show();
}

void BoardEvents::setAside(const std::vector<std::string>& keys) {
    const auto minutes = asideMinutes[std::clamp(cmbAside.index(), 0, 2)];
    for (const auto& key : keys) list_.setAside(static_cast<int>(val(key)), now() + std::chrono::minutes(minutes));
    show();
}

void BoardEvents::changed() {
    if (list_.hasChanged() && !delay_->isActive()) delay_->start(showDelayMs);
}

bool BoardEvents::wanted(const BoardEvent& event) const {
    const bool kind = cmbEventKind.index() <= 0 || cmbEventKind.index() - 1 == static_cast<int>(event.kind);
    return kind && (cmbEventPort.index() <= 0 || cmbEventPort.index() == event.port);
}

ListTable::Row BoardEvents::rowOf(const BoardEvent& event) const {
    const char* state = event.isAside(now()) ? "Set aside"
                        : event.standing     ? event.acknowledged ? "Stands, acknowledged" : "Stands"
                        : event.acknowledged ? "Acknowledged"
                                             : "";
    const auto seconds = static_cast<double>(event.last.time_since_epoch().count());
    const int port = std::max(event.port, 0);
    const int sim = event.port > 0 ? event.sim : 0;
    return {std::to_string(event.id),
            {stamp(event.last), port ? "Port " + std::to_string(port) : "", sim ? std::to_string(sim) : "",
             BoardEvent::kindNames[static_cast<std::size_t>(event.kind)], event.what, std::to_string(event.count),
             lasting(event.lastedSeconds), state},
            {seconds, static_cast<double>(port), static_cast<double>(sim), 0, 0, static_cast<double>(event.count),
             static_cast<double>(event.lastedSeconds), 0}};
}

// The newest first.
void BoardEvents::show() {
    delay_->stop();
    std::vector<const BoardEvent*> events;
    for (const auto& [id, event] : list_.all()) events.push_back(&event);
    std::ranges::stable_sort(events, [](const auto* one, const auto* other) {
        return std::pair(one->last, one->id) > std::pair(other->last, other->id);
    });
    std::vector<ListTable::Row> rows;
    std::vector<ListTable::Row> standing;
    for (const auto* event : events) {
        if (wanted(*event)) rows.push_back(rowOf(*event));
        if (event->standing && !event->isAside(now())) standing.push_back(rowOf(*event));
    }
    lsvEvents.setRows(std::move(rows));
    lsvStanding.setRows(std::move(standing));
    lblFaults.setText(standingWords(list_, now()));
    keep();
    const auto uptime = session_.platform.clock().uptime();
    if (news_.empty() || uptime - alertedAt_ < quiet) return;
    alertedAt_ = uptime;
    alerted.emit(std::exchange(news_, {}));
}

void BoardEvents::keep() {
    std::string why;
    if (!quietly(
            "EventStore", [this] { store_.keep(list_); }, &why))
        session_.tell("The events can't be kept: " + why);
}

void BoardEvents::exportCsv() {
    auto& dialogs = session_.platform.dialogs();
    const std::filesystem::path path =
        dialogs.saveFile("Export events", "Comma Separated Values file (*.csv)|*.csv", "", Dialogs::AskReplace::Dialog,
                         Ticket::lasting());  // what is written is what is shown then
    if (path.empty()) return;
    std::vector<TextRow> rows{{}};
    for (std::size_t column = 0; column < lsvEvents.columnCount(); ++column)
        rows.front().push_back(lsvEvents.heading(column));
    for (std::size_t row = 0; row < lsvEvents.rowCount(); ++row) rows.push_back(lsvEvents.row(row).cells);
    std::string why;
    if (quietly(
            "export", [&] { replaceFile(path, writeTextTable(rows, ',')); }, &why))
        session_.tell(std::to_string(lsvEvents.rowCount()) + " events were written to " + path.string() + ".");
    else
        session_.tell(path.string() + " was not written: " + why);
}

}  // namespace trunvex
