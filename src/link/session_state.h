#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/ticket.h"
#include "text/split.h"

namespace trunvex {

// Where the session stands, for the eye.
enum class SessionPhase { Idle, Dialog, Connecting, Listening, LogIn, Connected };

// How a log-in came to its end. The session stands in each case: a gateway that does not tell its time can still be
// worked with.
enum class LogInOutcome {
    WithRights,
    WithoutRights,  // the gateway did not accept the password
    Incomplete,     // it was broken off, or some question of it was passed over
    Mute,           // none of its questions was answered
};

// What the console knows of the session with the one gateway it is connected to.
struct SessionState {
    std::string gConnType;  // "COM", "NET" or "MDM"
    std::string gESN;
    std::string gAccessRights;  // field 0 of A_CPW as received
    std::string gActivePorts;   // 32 digits, one a port
    std::string gMasterSessionId;
    std::string gVersion;
    // Day, month, two-digit year, weekday, hour, minute, second.
    std::array<std::string, 7> gClockField;
    bool gGotESN = false;
    bool gGotClock = false;
    bool gGotActivePorts = false;
    bool gStatusSeen = false;

    bool gFileMode = false;
    bool gFileError = false;
    bool gFileEnd = false;
    std::string gAtcDigits;

    SessionPhase phase = SessionPhase::Idle;
    unsigned number = 0;  // counts the connections that were asked for

    // What the main window keeps of the connection dialog.
    bool sessionFlag = false;    // from the moment a connection is asked for until it is torn down
    bool firstDataFlag = false;  // the first record of the session has come
    bool server = false;         // this console listens and the gateway connects to it
    bool login = false;          // a master PC stands between console and gateway
    std::string unitID;
    std::string password;
    std::string gModemPhone;
    std::string optionalModemText;
    bool workOnlyWithMonitor = false;

    // Files of the gateway at hand; they change with gESN. `applicationFolder` ends without a separator.
    std::string applicationFolder;
    std::string gCDRFile;
    std::string gGroupsFile;
};

// How the log-in stands by the answers that have come so far; a late one still counts.
LogInOutcome outcomeOf(const SessionState& session);

// What an answer of the operator's is for when it is for this session: it goes stale when the session ends, when
// another begins, and when another gateway has taken the place of the one at the line's end.
Ticket forSession(const SessionState& session);
// The same, good until another connection is asked for: what to do about one that failed.
Ticket untilNextConnection(const SessionState& session);

// Takes the gateway's identity and chooses its files. Only a name that is safe in a file name reaches a path.
void takeESN(SessionState& session, std::string_view esn);

// Back to the files of a gateway that has not told its name.
void forgetESN(SessionState& session);

// Takes a clock record: day, month, two-digit year, weekday, hour, minute and perhaps seconds, which count from 00 when
// the gateway does not tell them. Throws std::out_of_range for a record that is too short.
void takeClock(SessionState& session, const Fields& fields);

}  // namespace trunvex
