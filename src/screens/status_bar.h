#pragma once

#include <QStatusBar>

class QHBoxLayout;

namespace trunvex {

class FrmPRIGroups;

// The line at the foot of the main window: state of the session, what it is doing and how far, which gateway,
// its clock.
class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    StatusBar(FrmPRIGroups& model, QWidget* parent);

private:
    void addState(QHBoxLayout* line);
    void addStep(QHBoxLayout* line);
    void addGateway(QHBoxLayout* line);

    FrmPRIGroups& model_;
};

}  // namespace trunvex
