#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

#include "fields/fields.h"
#include "platform/platform.h"

class QObject;

namespace trunvex {

// Keeps the board's repaints down to one a frame, however often its fields change: what shows a field is told at the
// next frame, once. The timer only runs while something changes, and nothing is told while the window is hidden.
class BoardFrame {
public:
    static constexpr int intervalMs = 20;

    explicit BoardFrame(Platform& platform);

    // One who is to be told; the result is what mark() takes.
    int add(std::function<void()> refresh);
    void mark(int part);
    // Shows fields: calls `refresh` now and in every frame after a change, for as long as `owner` lives. The owner may
    // not outlive the frame but by its own destruction.
    void follow(QObject* owner, std::initializer_list<Field*> fields, std::function<void()> refresh);
    // Asleep it only notes who was marked; they are told at once when it wakes.
    void setAwake(bool awake);

private:
    struct Part {
        std::function<void()> refresh;
        bool marked = false;
    };
    void tick();
    void refreshMarked();

    std::vector<Part> parts_;
    std::vector<std::size_t> marked_;
    std::unique_ptr<Timer> timer_;
    bool awake_ = false;
};

}  // namespace trunvex
