#include "screens/kit/board_frame.h"

#include <utility>

#include "screens/kit/field_binding.h"

namespace trunvex {

BoardFrame::BoardFrame(Platform& platform) : timer_(platform.makeTimer([this] { tick(); })) {}

int BoardFrame::add(std::function<void()> refresh) {
    parts_.push_back({std::move(refresh)});
    return static_cast<int>(parts_.size()) - 1;
}

void BoardFrame::mark(int part) {
    const auto at = static_cast<std::size_t>(part);
    if (std::exchange(parts_[at].marked, true)) return;
    marked_.push_back(at);
    if (awake_ && !timer_->isActive()) timer_->start(intervalMs);
}

void BoardFrame::follow(QObject* owner, std::initializer_list<Field*> fields, std::function<void()> refresh) {
    refresh();
    const int part = add(std::move(refresh));
    for (auto* field : fields) listen(owner, field->changed(), [this, part] { mark(part); });
}

void BoardFrame::setAwake(bool awake) {
    awake_ = awake;
    timer_->stop();
    if (awake_) refreshMarked();
}

void BoardFrame::tick() {
    if (marked_.empty())
        timer_->stop();
    else
        refreshMarked();
}

void BoardFrame::refreshMarked() {
    for (const auto at : std::exchange(marked_, {})) {
        parts_[at].marked = false;
        parts_[at].refresh();
    }
}

}  // namespace trunvex
