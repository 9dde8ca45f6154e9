#include "pages/page.h"

namespace trunvex {

Page::Page(Session& session, Traits pageTraits) : traits(std::move(pageTraits)), session_(session) {
    auto& events = session.events;
    events.begun.connect([this] { begun(); });
    events.identified.connect([this] { identified(); });
    events.loggedIn.connect([this](LogInOutcome outcome) { loggedIn(outcome); });
    events.tornDown.connect([this] { tornDown(); });
    events.phaseChanged.connect([this] { turned(); });
}

void Page::setShown(bool shown) {
    if (shown_ == shown) return;
    shown_ = shown;
    turned();
}

}  // namespace trunvex
