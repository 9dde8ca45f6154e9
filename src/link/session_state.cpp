#include "link/session_state.h"

#include <tuple>

#include "text/text_rules.h"

namespace trunvex {

LogInOutcome outcomeOf(const SessionState& session) {
    const bool rights = !session.gAccessRights.empty();
    const int answers = int(rights) + int(session.gGotESN) + int(session.gGotClock) + int(session.gGotActivePorts);
    constexpr int questions = 4;
    if (answers == 0) return LogInOutcome::Mute;
    if (rights && val(session.gAccessRights) == 0) return LogInOutcome::WithoutRights;
    return answers < questions ? LogInOutcome::Incomplete : LogInOutcome::WithRights;
}

Ticket forSession(const SessionState& session) {
    return Ticket::of([&session] { return std::tuple(session.number, session.sessionFlag, session.gESN); });
}

Ticket untilNextConnection(const SessionState& session) {
    return Ticket::of([&session] { return session.number; });
}

void takeESN(SessionState& session, std::string_view esn) {
    constexpr std::size_t longestName = 64;
    forgetESN(session);
    session.gESN = esn;
    const auto name = fileNamePart(esn.substr(0, longestName));
    if (name.empty()) return;  // the database of no name is the template
    session.gCDRFile = session.applicationFolder + "/data/CDR" + name + ".mdb";
    session.gGroupsFile = session.applicationFolder + "/data/groups" + name + ".dat";
}

void forgetESN(SessionState& session) {
    session.gESN.clear();
    session.gCDRFile = session.applicationFolder + "/CDR_NO_ESN.mdb";
    session.gGroupsFile = session.applicationFolder + "/data/groups.grp";
}

void takeClock(SessionState& session, const Fields& fields) {
    constexpr std::size_t seconds = 6;
    fields.at(seconds);  // half a clock is no clock
    for (std::size_t i = 0; i < seconds; ++i) session.gClockField[i] = fields.at(i);
    const auto last = fields.size() > seconds ? fields.at(seconds) : endMark;
    session.gClockField[seconds] = last == endMark ? std::string_view("00") : last;
}

}  // namespace trunvex
