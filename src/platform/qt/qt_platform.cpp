#include "platform/qt/qt_platform.h"

#include <QSerialPortInfo>

#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_serial_pipe.h"
#include "platform/qt/qt_tcp_listener.h"
#include "platform/qt/qt_timer.h"
#include "platform/qt/qt_tray.h"
#include "platform/sqlite/sqlite_engine.h"

namespace trunvex {

namespace {

std::unique_ptr<BytePipe> pipeTo(const TcpTarget& target) { return std::make_unique<QtTcpClient>(target); }
std::unique_ptr<BytePipe> pipeTo(const ListenTarget& target) { return std::make_unique<QtTcpListener>(target); }
std::unique_ptr<BytePipe> pipeTo(const SerialTarget& target) { return std::make_unique<QtSerialPipe>(target); }

}  // namespace

QtPlatform::QtPlatform()
    : clock_(std::make_unique<QtClock>()), dialogs_(std::make_unique<QtDialogs>()), tray_(std::make_unique<QtTray>()),
      databases_(std::make_unique<SqliteEngine>()) {}

QtPlatform::~QtPlatform() = default;

std::unique_ptr<Timer> QtPlatform::makeTimer(std::function<void()> onTick) {
    return std::make_unique<QtTimer>(std::move(onTick));
}

Clock& QtPlatform::clock() { return *clock_; }

std::unique_ptr<BytePipe> QtPlatform::makePipe(const PipeTarget& target) {
    return std::visit([](const auto& chosen) { return pipeTo(chosen); }, target);
}

std::vector<SerialDevice> QtPlatform::serialDevices() {
    std::vector<SerialDevice> devices;
    for (const auto& info : QSerialPortInfo::availablePorts())
        devices.push_back({info.systemLocation().toStdString(), info.description().toStdString()});
    return devices;
}

Dialogs& QtPlatform::dialogs() { return *dialogs_; }
Tray& QtPlatform::tray() { return *tray_; }

// Made when it is first asked for: it asks by this platform's dialogs, which may be another one's.
Printer& QtPlatform::printer() {
    if (!printer_) printer_ = std::make_unique<QtPrinter>(dialogs());
    return *printer_;
}

DatabaseEngine& QtPlatform::databases() { return *databases_; }

}  // namespace trunvex
