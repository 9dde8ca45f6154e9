#pragma once

#include <QWidget>

namespace trunvex {

class Console;
class SettingsForm;

// The settings of the SIM, or of one SIM of every port of the group, that is selected in the tree.
class SimPanel : public QWidget {
    Q_OBJECT

public:
    explicit SimPanel(Console& console, QWidget* parent = nullptr);

private:
    SettingsForm* buildIdentity();
    SettingsForm* buildBudget();
    SettingsForm* buildCellLock();

    Console& console_;
};

}  // namespace trunvex
