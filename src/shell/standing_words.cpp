#include "shell/standing_words.h"

namespace trunvex {

namespace {

StandingWord connectedWord(LogInOutcome outcome) {
    switch (outcome) {
        case LogInOutcome::WithoutRights:
            return {"limited", "Connected, no rights"};
        case LogInOutcome::Incomplete:
            return {"limited", "Connected, log-in not complete"};
        case LogInOutcome::Mute:
            return {"limited", "Connected, no answer"};
        case LogInOutcome::WithRights:
            break;
    }
    return {"connected", "Connected"};
}

}  // namespace

StandingWord standingWord(const SessionState& session) {
    switch (session.phase) {
        case SessionPhase::Connecting:
            return {"connecting", "Connecting"};
        case SessionPhase::Listening:
            return {"listening", "Listening"};
        case SessionPhase::LogIn:
            return {"login", "Logging in"};
        case SessionPhase::Connected:
            return connectedWord(outcomeOf(session));
        case SessionPhase::Dialog:
        case SessionPhase::Idle:
            break;
    }
    return {"idle", "Not connected"};
}

std::string silenceText(std::optional<std::chrono::seconds> silence) {
    constexpr std::chrono::minutes toldInSeconds{2};
    if (!silence) return {};
    const auto minutes = std::chrono::floor<std::chrono::minutes>(*silence).count();
    return "Last heard " +
           (*silence < toldInSeconds ? std::to_string(silence->count()) + " s" : std::to_string(minutes) + " min") +
           " ago";
}

}  // namespace trunvex
