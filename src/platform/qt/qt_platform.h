#pragma once

#include "platform/platform.h"

class QWidget;

namespace trunvex {

// The platform of the real program, on Qt's event loop. Make it after the QApplication.
class QtPlatform : public Platform {
public:
    QtPlatform();
    ~QtPlatform() override;

    std::unique_ptr<Timer> makeTimer(std::function<void()> onTick) override;
    Clock& clock() override;
    std::unique_ptr<BytePipe> makePipe(const PipeTarget& target) override;
    std::vector<SerialDevice> serialDevices() override;
    Dialogs& dialogs() override;
    Printer& printer() override;
    Tray& tray() override;
    DatabaseEngine& databases() override;

private:
    std::unique_ptr<Clock> clock_;
    std::unique_ptr<Dialogs> dialogs_;
    std::unique_ptr<Printer> printer_;
    std::unique_ptr<Tray> tray_;
    std::unique_ptr<DatabaseEngine> databases_;
};

}  // namespace trunvex
