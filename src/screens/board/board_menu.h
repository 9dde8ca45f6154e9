#pragma once

class QMenu;
class QWidget;

namespace trunvex {

struct MonitorTools;

// The menu "PORT" as it stands now, for the port it was opened for. It deletes itself when it is closed.
QMenu* makePortMenu(MonitorTools& monitor, QWidget* parent);

}  // namespace trunvex
