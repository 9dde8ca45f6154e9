#pragma once

#include <QWidget>

namespace trunvex {

class Console;
class SettingsForm;

// The settings of the port, or of all ports of the group, that is selected in the tree.
class PortPanel : public QWidget {
    Q_OBJECT

public:
    explicit PortPanel(Console& console, QWidget* parent = nullptr);

private:
    SettingsForm* buildDialling();
    SettingsForm* buildSwitching();
    SettingsForm* buildLevels();

    Console& console_;
};

}  // namespace trunvex
