#pragma once

#include "screens/pages/node_panel.h"

namespace trunvex {

class SettingsForm;

// The settings of the port, or of all ports of the group, that is selected in the tree.
class PortPanel : public NodePanel {
    Q_OBJECT

public:
    explicit PortPanel(MainPage& main, QWidget* parent = nullptr);

private:
    SettingsForm* buildDialling();
    SettingsForm* buildSwitching();
    SettingsForm* buildLevels();
};

}  // namespace trunvex
