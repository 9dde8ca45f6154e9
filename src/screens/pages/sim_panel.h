#pragma once

#include "screens/pages/node_panel.h"

namespace trunvex {

class SettingsForm;

// The settings of the SIM, or of one SIM of every port of the group, that is selected in the tree.
class SimPanel : public NodePanel {
    Q_OBJECT

public:
    explicit SimPanel(MainPage& main, QWidget* parent = nullptr);

private:
    SettingsForm* buildIdentity();
    SettingsForm* buildBudget();
    SettingsForm* buildCellLock();
};

}  // namespace trunvex
