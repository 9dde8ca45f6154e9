#pragma once

#include <array>
#include <chrono>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace trunvex {

// What has happened at the gateway, one row for each trouble however often it came: with a count, when it came first
// and last, and how long it lasted.
struct BoardEvent {
    enum class Kind { Sim, Module, Network, Lamp, Channel, Link, Rollover, Write };
    static constexpr std::array<const char*, 8> kindNames{"SIM",     "Module", "Network",  "Lamp",
                                                          "Channel", "Link",   "Rollover", "Write"};

    int id = 0;
    Kind kind = Kind::Link;
    int port = 0;  // board index; 0 for none, -1 to -3 for the three system lamps
    int sim = 0;
    std::string what;
    std::chrono::local_seconds first{};
    std::chrono::local_seconds last{};
    std::int64_t lastedSeconds = 0;  // each time it stood and went, together; without the time it stands now
    int count = 0;
    bool standing = false;
    bool acknowledged = false;
    std::chrono::local_seconds asideUntil{};  // not counted until then

    bool isAside(std::chrono::local_seconds now) const { return now < asideUntil; }
};

// The last events, at most so many; the oldest that does not stand goes first.
class EventList {
public:
    static constexpr std::size_t mostKept = 10000;
    // What comes back so soon is no news: a trouble that comes and goes must not call the operator each time.
    static constexpr std::chrono::minutes flapping{10};

    // A trouble begins to stand, or is told again while it stands; or, with `stands` false, something has happened once
    // more. Its id when it is news, which what is set aside is not; otherwise 0.
    int raise(const BoardEvent& event, std::chrono::local_seconds now, bool stands = true);
    // Troubles of this kind at this place are over, but for the one of this text. False when none stood.
    bool clear(BoardEvent::Kind kind, int port, std::chrono::local_seconds now, std::string_view but = {});
    // How the gateway stands is not known any more; a lost link stays.
    void clearGateway(std::chrono::local_seconds now);
    void acknowledge(int id);
    void setAside(int id, std::chrono::local_seconds until);
    // As it was kept; a row that stood has ended when the console did.
    void restore(BoardEvent event);
    void forget();

    const std::map<int, BoardEvent>& all() const { return events_; }
    const BoardEvent* find(int id) const;
    // What stands, by id, and since when.
    const std::map<int, std::chrono::local_seconds>& standing() const { return since_; }
    // How long it has stood by now, each time together.
    std::int64_t lastedSeconds(const BoardEvent& event, std::chrono::local_seconds now) const;
    // Ids that have changed or are gone since these were last forgotten.
    const std::set<int>& changed() const { return changed_; }
    const std::set<int>& gone() const { return gone_; }
    void forgetChanges();

private:
    // A snapshot of a port names no SIM where a report does, so the SIM tells no troubles apart.
    using Key = std::tuple<BoardEvent::Kind, int, std::string>;
    static Key keyOf(const BoardEvent& event) { return {event.kind, event.port, event.what}; }
    void end(BoardEvent& event, std::chrono::local_seconds now);
    void makeRoom();

    std::map<int, BoardEvent> events_;
    std::map<Key, int> ids_;
    std::map<int, std::chrono::local_seconds> since_;  // of what stands
    std::set<int> changed_;
    std::set<int> gone_;
    int nextId_ = 1;
};

// "2 SIM faults, link lost"; empty when nothing stands. What is set aside does not count.
std::string standingWords(const EventList& list, std::chrono::local_seconds now);

}  // namespace trunvex
