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

std::string stamp(std::chrono::local_seconds when) {
    const std::chrono::year_month_day date{std::chrono::floor<std::chrono::days>(when)};
    return twoDigits(unsigned(date.day())) + "/" + twoDigits(unsigned(date.month())) + "/" +
           twoDigits(int(date.year()) % 100) + " " + timeOfDay(when);
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
        for (std::size_t lamp = 0; live_ && lamp < report.lamps.size(); ++lamp)
            if (report.lamps[lamp]) takeLamp(lamp, lights[*report.lamps[lamp]]);
    });
    followSession();
}

BoardEvents::~BoardEvents() { keep(identified_ ? list_ : before_); }

void BoardEvents::followSession() {
    using enum BoardEvent::Kind;
    session_.events.begun.connect([this] { beginList(); });
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
        live_ = false;
        list_.clearGateway(now());
        show();
    });
    session_.writes.settled().connect([this](const QueueItem& item, WriteQueue::Outcome outcome) {
        if (outcome == WriteQueue::Outcome::Refused) raise(Write, "Refused: " + item.Caption, false);
        if (outcome == WriteQueue::Outcome::NoAnswer) raise(Write, "Not answered: " + item.Caption, false);
    });
}

// Whose gateway it is, it tells a moment later; what it reports until then is its own.
void BoardEvents::beginList() {
    live_ = true;
    if (std::exchange(identified_, false)) {
        clear(BoardEvent::Kind::Link);
        keep(list_);
        before_ = std::move(list_);
    }
    list_ = {};
    show();
}

void BoardEvents::openStore() {
    const auto name = fileNamePart(session_.state.gESN);
    const auto path = name.empty() ? std::string() : session_.state.applicationFolder + "/data/EVT" + name + ".mdb";
    auto early = identified_ ? EventList() : std::exchange(list_, {});
    if (identified_)
        clear(BoardEvent::Kind::Link);
    else
        list_ = std::exchange(before_, {});
    if (path != store_.path() || path.empty()) {
        keep(list_);
        std::string why;
        if (!quietly(
                "EventStore", [&] { store_.open(path, list_); }, &why))
            session_.tell("The events of earlier sessions can't be read, and none are kept: " + why);
    }
    identified_ = true;
    news_.clear();
    for (const auto& [id, event] : early.all())
        if (const int news = list_.raise(event, event.last, event.standing)) news_.push_back(news);
    show();
}

void BoardEvents::raise(BoardEvent::Kind kind, const std::string& what, bool stands, int port, int sim) {
    BoardEvent event;
    event.kind = kind;
    event.what = what;
    event.port = port;
    event.sim = sim;
    if (const int news = list_.raise(event, now(), stands)) news_.push_back(news);
    changed();
}

void BoardEvents::clear(BoardEvent::Kind kind, int port) {
    if (list_.clear(kind, port, now())) changed();
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
    const bool something = !list_.changed().empty() || !list_.gone().empty();
    if (something && std::exchange(shown_, false)) delay_->start(showDelayMs);
}

bool BoardEvents::wanted(const BoardEvent& event) const {
    const bool kind = cmbEventKind.index() <= 0 || cmbEventKind.index() - 1 == static_cast<int>(event.kind);
    return kind && (cmbEventPort.index() <= 0 || cmbEventPort.index() == event.port);
}

ListTable::Row BoardEvents::standingRow(const BoardEvent& event) const {
    return rowOf(event, list_.lastedSeconds(event, now()));
}

ListTable::Row BoardEvents::rowOf(const BoardEvent& event, std::int64_t lasted) const {
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
             lasting(lasted), state},
            {seconds, static_cast<double>(port), static_cast<double>(sim), 0, 0, static_cast<double>(event.count),
             static_cast<double>(lasted), 0}};
}

// The newest first.
void BoardEvents::show() {
    shown_ = true;
    std::vector<const BoardEvent*> events;
    for (const auto& [id, event] : list_.all()) events.push_back(&event);
    std::ranges::stable_sort(events, [](const auto* one, const auto* other) {
        return std::pair(one->last, one->id) > std::pair(other->last, other->id);
    });
    std::vector<ListTable::Row> rows;
    std::vector<ListTable::Row> standing;
    for (const auto* event : events) {
        if (wanted(*event)) rows.push_back(rowOf(*event, event->lastedSeconds));
        if (event->standing && !event->isAside(now())) standing.push_back(standingRow(*event));
    }
    lsvEvents.setRows(std::move(rows));
    lsvStanding.setRows(std::move(standing));
    lblFaults.setText(standingWords(list_, now()));
    if (identified_) keep(list_);
    alert();
    wait();
}

// What stands and is not set aside, as long as it still does when its turn comes.
void BoardEvents::alert() {
    const auto uptime = session_.platform.clock().uptime();
    std::erase_if(news_, [this](int id) { return !list_.standing().contains(id) || list_.find(id)->isAside(now()); });
    if (news_.empty() || uptime - alertedAt_ < quiet) return;
    alertedAt_ = uptime;
    const auto& event = *list_.find(news_.back());
    news_.clear();
    alerted.emit((event.port > 0 ? "Port " + std::to_string(event.port) + ": " : "") + event.what);
}

// For the next alert, or for the end of a time for which something that stands was set aside.
void BoardEvents::wait() {
    delay_->stop();
    if (!live_) return;
    std::optional<std::chrono::milliseconds> next;
    if (!news_.empty()) next = quiet - (session_.platform.clock().uptime() - alertedAt_);
    for (const auto& [id, since] : list_.standing())
        if (const auto until = list_.find(id)->asideUntil; now() < until)
            next = std::min(next.value_or(until - now()), std::chrono::milliseconds(until - now()));
    if (next) delay_->start(static_cast<int>(std::max<std::int64_t>(next->count(), 1)));
}

void BoardEvents::refresh() {
    if (!shown_) return;
    for (const auto& [id, since] : list_.standing())
        if (const auto& event = *list_.find(id); !event.isAside(now())) lsvStanding.put(standingRow(event));
}

// Told once, not at every event.
void BoardEvents::keep(EventList& list) {
    std::string why;
    const bool failed = !quietly(
        "EventStore", [&] { store_.keep(list); }, &why);
    if (failed && !keepFails_) session_.tell("The events can't be kept: " + why);
    keepFails_ = failed;
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
