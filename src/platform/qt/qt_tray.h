#pragma once

#include <QMenu>
#include <QSystemTrayIcon>
#include <memory>

#include "platform/tray.h"

namespace trunvex {

class QtTray : public Tray {
public:
    bool available() const override;
    void add(const std::string& tip, bool warns) override;
    void remove() override;
    void change(const std::string& tip, bool warns) override;
    void say(const std::string& text) override;

private:
    std::unique_ptr<QMenu> menu_;
    std::unique_ptr<QSystemTrayIcon> icon_;
};

}  // namespace trunvex
