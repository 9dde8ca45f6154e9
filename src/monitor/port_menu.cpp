#include "monitor/port_menu.h"

namespace trunvex {

PortMenu::PortMenu(BoardOperations& operations, frmSimStatus& board) : operations_(operations), board_(board) {
    for (int sim = 1; sim <= simsPerModule; ++sim) {
        const auto caption = "SIM " + std::to_string(sim);
        mnuReadSim.emplace_back(arrayName("mnuReadSim", sim - 1), caption);
        mnuResetSim.emplace_back(arrayName("mnuResetSim", sim - 1), caption);
    }
    mnuPortEnable.pressed().connect([this] { enable(); });
    mnuRefreshPort.pressed().connect([this] { operations_.refreshPort(port_); });
    mnuResetPort.pressed().connect([this] { operations_.resetPorts(std::set(resets_)); });
    for (int index = 1; index <= portCount; ++index)
        board.cell(index).cmdResetLimit.pressed().connect([this, index] { open(index); });
    open(port_);
}

void PortMenu::open(int index) {
    const auto& status = board_.cell(index).status;
    port_ = index;
    resets_ = marked.contains(index) ? marked : std::set{index};
    // A CDMA module has no SIM of ours.
    for (auto* item : {&mnuGetCell, &mnuReadSt, &mnuRestSt}) item->setVisible(!status.cdma);
    mnuPortEnable.setCaption(status.enabled.value_or(false) ? "Disable Port" : "Enable Port");
    mnuResetPort.setCaption(resets_.size() > 1 ? "Reset Ports " + std::to_string(resets_.size()) : "Reset Port");
}

void PortMenu::enable() { operations_.enablePort(port_, !board_.cell(port_).status.enabled.value_or(false)); }

}  // namespace trunvex
