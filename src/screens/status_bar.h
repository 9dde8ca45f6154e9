#pragma once

#include <QStatusBar>

class QHBoxLayout;

namespace trunvex {

class Console;

// The line at the foot of the main window: state of the session, what it is doing and how far, which gateway,
// its clock.
class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    StatusBar(Console& console, QWidget* parent);

private:
    void addState(QHBoxLayout* line);
    void addStep(QHBoxLayout* line);
    void addGateway(QHBoxLayout* line);

    Console& console_;
};

}  // namespace trunvex
