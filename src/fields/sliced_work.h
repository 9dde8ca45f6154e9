#pragma once

#include <sigc++/sigc++.h>

#include <functional>
#include <memory>
#include <string>

#include "fields/fields.h"
#include "platform/platform.h"

namespace trunvex {

// Long work of a page, one at a time, in slices of some milliseconds: keys are answered between two of them. How far it
// is stands in a label, and a button ends it; both are at rest while nothing goes on.
class SlicedWork {
public:
    // Replaced: something else took its place, which the operator did not ask to be told.
    enum class End { Done, Failed, Cancelled, Replaced };
    struct Task {
        const char* routine;          // its name in the count of trapped errors
        std::function<bool()> slice;  // false when it was the last one; what it throws ends the task as failed
        std::function<std::string()> progress;  // "Loading: 4000 calls"
        // May begin the next task. The reason is empty unless it failed.
        std::function<void(End, const std::string& reason)> end;
    };

    SlicedWork(Platform& platform, LabelField& progress, ActionField& cancel);

    // Takes the place of what goes on, and of what the end of that began. The first slice is done at once, so that what
    // is short needs no loop.
    void run(Task task);
    bool running() const { return task_ != nullptr; }
    void cancel() { end(End::Cancelled); }
    // Ends what goes on because it has lost its sense.
    void drop() { end(End::Replaced); }
    // A task has ended and no other was begun.
    sigc::signal<void()>& idle() { return idle_; }

private:
    void end(End how);
    void slice();
    void finish(End end, const std::string& reason = {});

    LabelField& progress_;
    ActionField& cancel_;
    std::unique_ptr<Timer> timer_;
    std::shared_ptr<Task> task_;
    sigc::signal<void()> idle_;
};

}  // namespace trunvex
