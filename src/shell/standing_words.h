#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "link/session_state.h"

namespace trunvex {

// How the session stands, for the sign of the status bar and for its word. Only a complete log-in is "connected".
struct StandingWord {
    const char* tag;  // "idle", "connecting", "listening", "login", "connected", "limited"
    const char* word;
};
StandingWord standingWord(const SessionState& session);

// Empty for a gateway that is not silent.
std::string silenceText(std::optional<std::chrono::seconds> silence);

}  // namespace trunvex
