#pragma once

#include <functional>
#include <string>

namespace trunvex {

// The icon in the desktop's notification area.
class Tray {
public:
    virtual ~Tray() = default;

    // False where the desktop has no such area: the window must then stay on the screen.
    virtual bool available() const = 0;
    // With `warns` the icon has a mark: who hides the window sees that something is wrong without asking for the tip.
    virtual void add(const std::string& tip, bool warns) = 0;
    virtual void remove() = 0;
    // Does nothing while the icon is not there.
    virtual void change(const std::string& tip, bool warns) = 0;

    // A message at the icon that goes by itself; nothing while the icon is not there.
    virtual void say(const std::string& text) = 0;

    std::function<void()> onRestore;  // the operator asked for the window
};

}  // namespace trunvex
