#include "fields/sliced_work.h"

#include <utility>

#include "platform/quietly.h"

namespace trunvex {

namespace {

constexpr int atOnceMs = 1;

}  // namespace

SlicedWork::SlicedWork(Platform& platform, LabelField& progress, ActionField& cancel)
    : progress_(progress), cancel_(cancel), timer_(platform.makeTimer([this] { slice(); })) {
    cancel_.setEnabled(false);
    cancel_.pressed().connect([this] { this->cancel(); });
}

void SlicedWork::run(Task task) {
    while (running()) finish(End::Replaced);
    task_ = std::make_shared<Task>(std::move(task));
    slice();
}

void SlicedWork::end(End how) {
    if (!running()) return;
    finish(how);
    if (!running()) idle_.emit();
}

void SlicedWork::slice() {
    const auto task = task_;
    bool more = false;
    std::string reason;
    const bool good = quietly(
        task->routine, [&] { more = task->slice(); }, &reason);
    if (task_ != task) return;  // it has ended itself
    if (good && more) {
        progress_.setText(task->progress());
        cancel_.setEnabled(true);
        if (!timer_->isActive()) timer_->start(atOnceMs);
        return;
    }
    finish(good ? End::Done : End::Failed, reason);
    if (!running()) idle_.emit();
}

void SlicedWork::finish(End end, const std::string& reason) {
    const auto task = std::exchange(task_, nullptr);
    timer_->stop();
    progress_.setText("");
    cancel_.setEnabled(false);
    task->end(end, reason);
}

}  // namespace trunvex
