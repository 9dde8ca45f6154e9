#pragma once

#include <sigc++/sigc++.h>

#include "link/session_state.h"

namespace trunvex {

// What happens to the session, for everyone who follows it. SessionBringUp and the records of the session raise these,
// nobody else does.
struct SessionEvents {
    sigc::signal<void()> phaseChanged;
    sigc::signal<void()> begun;       // a log-in begins: nothing is known of the gateway
    sigc::signal<void()> started;     // the session's clock may tick
    sigc::signal<void()> identified;  // gESN has come
    sigc::signal<void(LogInOutcome)> loggedIn;
    sigc::signal<void()> tornDown;  // blank what the session showed
};

}  // namespace trunvex
