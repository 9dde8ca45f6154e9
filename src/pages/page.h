#pragma once

#include <string>
#include <vector>

#include "link/session.h"

namespace trunvex {

// A page of the tool bar, whatever shows it: what the shell has to know of it, and what it is told. A page of a
// subsystem derives from it; the tool bar, the shortcuts, the reads and the turning of pages follow from the row that
// the page has in the console's list.
class Page {
public:
    // The bits of gAccessRights, one of which a page needs; None is open to every session.
    enum Right { None = 0, SimPort = 4, Isdn = 8, Cdr = 16, Handset = 32, Prefixes = 64, Debug = 128, Monitor = 256 };
    struct Traits {
        std::string key;  // lower case; the button is "tool_" + key
        std::string caption;
        std::string tip;
        Right right = None;
        bool ownWindow = false;  // stands beside whatever page is open
    };

    Page(Session& session, Traits traits);
    virtual ~Page() = default;
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    const Traits traits;

    // What must be read before the page shows what it is for; nothing when it is there already.
    virtual std::vector<QueueItem> missing() { return {}; }
    // The operator has pressed its button.
    virtual void opened() {}
    // It is the page of the moment, or is no more.
    void setShown(bool shown);
    bool shown() const { return shown_; }

    // What the operator has made here and not written or saved, by names for people; what waits for a gateway that is
    // away counts for All only. discard() drops what is OfThisSession.
    enum class Edits { OfThisSession, All };
    virtual std::vector<std::string> unwritten(Edits) const { return {}; }
    virtual void discard() {}

    // A second press of a write button is most often the same one: for a moment after one there is no other.
    virtual void holdWrites(bool) {}
    sigc::signal<void()> writeStarted;

protected:
    virtual void turned() {}                // shown() or the session's phase has changed
    virtual void begun() {}                 // a log-in begins: nothing is known of the gateway
    virtual void identified() {}            // its serial number is
    virtual void loggedIn(LogInOutcome) {}  // what it holds may be asked for
    virtual void tornDown() {}              // what is shown is no longer so

    Session& session_;

private:
    bool shown_ = false;
};

}  // namespace trunvex
