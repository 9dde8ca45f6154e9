#pragma once

#include <memory>
#include <optional>

#include "monitor/event_store.h"
#include "monitor/list_table.h"
#include "monitor/sim_status.h"

namespace trunvex {

// The list of events: what the reports, the link, the writes and the call files have brought, what of it stands now,
// and what the operator has made of it. What is shown follows a moment later, however many reports come.
class BoardEvents {
public:
    static constexpr int showDelayMs = 500;

    BoardEvents(Session& session, frmSimStatus& board);
    ~BoardEvents();

    void raise(BoardEvent::Kind kind, const std::string& what, bool stands, int port = 0, int sim = 0);
    void clear(BoardEvent::Kind kind, int port = 0);

    // Tells anew how long it is that what stands now stands.
    void refresh();
    // By a shown row of one of the two tables.
    void acknowledge(const std::vector<std::string>& keys);
    void setAside(const std::vector<std::string>& keys);

    // The list is asked for: from a lamp, or where the number of faults is shown.
    sigc::signal<void()> asked;
    // Something new stands, in words. At most once a minute, however much comes.
    sigc::signal<void(const std::string&)> alerted;

    ListTable lsvStanding;
    ListTable lsvEvents;
    LabelField lblFaults{"lblFaults"};  // "2 SIM faults"; empty when nothing stands
    ChoiceField cmbEventKind{"cmbEventKind"};
    ChoiceField cmbEventPort{"cmbEventPort"};
    TextField txtEventSearch{"txtEventSearch"};
    ChoiceField cmbAside{"cmbAside", {"15 minutes", "1 hour", "8 hours"}};
    CheckField chkEventSound{"chkEventSound", "Sound"};
    CheckField chkEventTray{"chkEventTray", "Message at the tray icon"};
    ActionField cmdExportEvents{"cmdExportEvents", "Export to file"};

private:
    void takeAlarm(const AlarmReport& report);
    void takeSystemAlarm(const AlarmReport& report);
    void takePortAlarm(const AlarmReport& report);
    void takeLamp(std::size_t lamp, Lamp light);
    void followSession();
    void beginList();
    void openStore();
    void changed();
    void show();
    void wait();
    void alert();
    void keep(EventList& list);
    void exportCsv();
    bool wanted(const BoardEvent& event) const;
    ListTable::Row rowOf(const BoardEvent& event, std::int64_t lasted) const;
    ListTable::Row standingRow(const BoardEvent& event) const;
    std::chrono::local_seconds now() const { return session_.platform.clock().localTime(); }

    Session& session_;
    EventList list_;
    EventList before_;  // of the gateway whose file is open, while a new session has not told whose it is
    EventStore store_;
    bool identified_ = false;
    bool live_ = false;  // a session has begun and not ended
    bool shown_ = true;  // but for what the delay ends with
    bool keepFails_ = false;
    std::vector<int> news_;  // that was not alerted yet
    std::chrono::milliseconds alertedAt_{-1'000'000};
    std::unique_ptr<Timer> delay_;
};

}  // namespace trunvex
