#pragma once

#include <array>
#include <deque>
#include <memory>
#include <string_view>

#include "fields/fields.h"
#include "model/status_reports.h"
#include "monitor/alarm_table.h"
#include "monitor/board_colours.h"
#include "monitor/port_cell.h"
#include "pages/page.h"
#include "platform/settings.h"

namespace trunvex {

// The status board: a cell for each of the 32 modules, a row for each of the 30 B-channels, three system lamps, the
// calls in progress and the talk time. Nothing is polled; every change comes as a status event.
class frmSimStatus final : public Page {
public:
    static constexpr int channelCount = 30;

    explicit frmSimStatus(Session& session);
    std::vector<QueueItem> missing() override;
    void opened() override { asked_.emit(); }

    // A status event. A fault in it ends it where it stands; what was written stays.
    void UpdateSimStatus(const SystemReport& report);
    void UpdateSimStatus(const PortReport& report);
    void UpdateSimStatus(const ChannelReport& report);
    void UpdateSimStatus(const AlarmReport& report);

    // The cell of a board index, 1 to 32; throws std::out_of_range beyond.
    PortCell& cell(int index) { return cell(PortAddress::ofNumber(index)); }
    PortCell& cell(PortAddress port) { return cells_[port.slot()]; }
    BchRow& row(std::int64_t channel);
    const GatewayStatus& gateway() const { return gateway_; }
    // Lets the fields of a port follow what became of its status.
    void show(PortCell& port) { port.show(colours_); }

    const BoardColours& colours() const { return colours_; }
    // Keeps and uses these from now on, also for the cells that stand.
    void takeColours(const BoardColours& colours);
    sigc::signal<void()> coloursChanged;

    // The board holds what a first read has brought, and opening it asks the gateway no more. The end of a session and
    // a switch of a port or a channel put an end to that.
    bool holdsData = false;
    // The board's window is asked for.
    sigc::signal<void()>& asked() { return asked_; }
    // A report was taken, told by itself or as a part of a snapshot.
    sigc::signal<void(const AlarmReport&)> reported;
    // The modules are others, or none is known any more.
    sigc::signal<void()> hardwareChanged;
    ReadQueue& refreshes() { return refreshes_; }
    ReadQueue& reads() { return session_.reads; }
    // What a double dial is remembered by: board index and text.
    sigc::signal<void(int index, const std::string& text)>& dialled() { return dialled_; }

    LabelField lblESN{"lblESN"};
    // "The link is lost. What is shown is as of 14:02.", or that the session is ended. Empty while the board is live.
    LabelField lblAsOf{"lblAsOf"};
    LabelField lblHoure{"lblHoure"};
    LabelField lblMinute{"lblMinute"};
    LabelField lblSecond{"lblSecond"};
    LabelField lblDate{"lblDate"};
    std::deque<PictureField> imgSystemStatus;       // 0 "Com Port :", 1 "Network  :", 2 "ISDN Line :"
    LabelField lblLoading{"lblLoading", "0"};       // ports in a call
    LabelField lblTotalCounter{"lblTotalCounter"};  // "minutes :seconds" of all talk counters
    LabelField lblSlaveVer{"lblSlaveVer"};
    ActionField cmdSTSRefresh{"cmdSTSRefresh", "Refresh"};
    ActionField cmdShowBcch{"cmdShowBcch", "Ports information"};
    ActionField cmdColors{"cmdColors", "Colours..."};

private:
    void InitFormData();
    void takeRecords(Session& session);
    void takeClock(const ClockReport& report);
    void followClock();
    void takeFlags(std::string_view flags);
    void resetPortCell(PortCell& cell);
    void systemAlarm(const AlarmReport& report);
    void bindChannel(std::string_view port, std::string_view channel);
    void portAlarm(PortCell& cell, const AlarmReport& report);
    bool simAbsence(PortCell& cell, const AlarmReport& report);
    bool lamps(PortStatus& port, const AlarmReport& report, const AlarmRow& row);
    bool effect(PortCell& cell, const AlarmReport& report, AlarmEffect effect);
    bool event(PortStatus& port, const AlarmReport& report, AlarmEffect effect);
    void networkEvent(PortCell& cell, const AlarmReport& report, AlarmEffect effect);
    void registered(PortCell& cell, PortStatus::Network network);
    void signalLevel(PortStatus& port, std::int64_t level);
    void showGateway();
    void animate(PortCell& cell);
    void countTotal();
    void refresh();
    void tellProgress();
    void begun() override;
    void tornDown() override;
    void stopTimers();

    Platform& platform_;
    Settings& settings_;
    SessionState& state_;
    CommandSender& sender_;
    ReadQueue& refreshes_;
    BoardColours colours_;
    GatewayStatus gateway_;
    std::deque<PortCell> cells_;
    std::deque<BchRow> rows_;
    std::unique_ptr<Timer> tmrTotalCounter_;
    bool live_ = false;  // a session has begun and not ended
    sigc::signal<void()> asked_;
    sigc::signal<void(int, const std::string&)> dialled_;
};

}  // namespace trunvex
