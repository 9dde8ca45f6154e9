#pragma once

#include <array>

#include "config/main_page.h"
#include "monitor/sim_status.h"
#include "screens/kit/board_frame.h"
#include "screens/kit/page_frame.h"

class QFrame;
class QGroupBox;
class QLabel;

namespace trunvex {

class TreeView;

// The page "main": all ports and SIMs as a tree; of the selected one, what goes on there and its settings.
class PortTreeScreen : public PageFrame {
    Q_OBJECT

public:
    PortTreeScreen(MainPage& page, frmSimStatus& board, Platform& platform, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum Fact { Address, Module, Group, Event, Number, Sim, Network, Signal, Counter, factCount };

    QWidget* buildTree();
    QLayout* buildSelected();
    QFrame* buildFacts();
    void followCells();
    void showFacts();
    std::array<QString, factCount> factsOf(PortAddress port, const std::string& key) const;

    MainPage& page_;
    frmSimStatus& board_;
    BoardFrame frame_;
    int selectedPort_ = 0;         // board index, 0 for a node that belongs to no port
    QFrame* factsCard_ = nullptr;  // hidden for a node that is no port's
    std::array<QLabel*, factCount> facts_{};
};

// The page "groups": the same tree, to be grouped, saved and loaded.
class GroupsScreen : public PageFrame {
    Q_OBJECT

public:
    explicit GroupsScreen(PortTree& tree, QWidget* parent = nullptr);

private:
    QGroupBox* buildButtons();

    PortTree& tree_;
    TreeView* view_ = nullptr;
};

}  // namespace trunvex
