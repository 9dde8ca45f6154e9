#pragma once

#include <deque>

#include "config/group_write.h"
#include "config/page_tools.h"
#include "config/port_tree.h"
#include "config/settings_records.h"

namespace trunvex {

// The panel of one port: how its module is dialled through and how it swaps SIMs. On a group's node it writes the
// fields that are marked to every port of the group.
class PortPage {
public:
    PortPage(const PageTools& tools, PortTree& tree, SettingsRecords& records, GroupWrite& groupWrite);

    // Fills the panel for a node of the tree: a port, or "GRP", "MDD", "PRT" of a group.
    void show(const std::string& key);
    // Shows again what the tables and the tree have; what the operator has changed stays.
    void refresh() { fill(); }
    // Nothing is known any more.
    void forget();
    const std::string& shownKey() const { return key_; }
    bool showsGroup() const;

    // The line that writes the panel to one port: "C_MOD" + MCU and module and the fifteen fields, an empty one where
    // the gateway is to keep its value. A group's key has no levels: it is built to check the panel. Empty after a
    // message.
    std::string WriteMod(std::string_view key, bool isCdma);
    // The read button was pressed, or the node was selected and never read.
    void cmdModRefresh();
    void readSelected();

    LabelField lblPortCaption{"lblPortCaption"};
    LabelField lblModuleType{"lblModuleType"};  // names the scale of the levels
    LabelField lblModuleInfo{"lblModuleInfo"};
    LabelField lblPortHint{"lblPortHint"};  // a word on what is shown, or on why nothing is
    TextField TxtMinDigits{"TxtMinDigits"};
    TextField TxtMaxDigits{"TxtMaxDigits"};
    TextField TxtIntDigPause{"TxtIntDigPause"};
    ChoiceField CmbSendComplete{"CmbSendComplete", {"OMIT", "HASH"}};
    HistoryField cmbRelaxTime{"cmbRelaxTime"};
    TextField txtNoRegTimer{"txtNoRegTimer"};
    ChoiceField cmbSimSwitching{"cmbSimSwitching",
                                {"Time Table", "SIM Swapping", "Purse with option 1", "Purse with option 2",
                                 "Purse with option 3", "Purse with option 4"}};
    ChoiceField cmbCallReject{"cmbCallReject", {"Accept", "Reject"}};
    TextField txtSimSwap{"txtSimSwap"};
    LabelField framRX_TX{"framRX_TX", "Levels"};  // hidden where a module has none
    SliderField SldTXvol{"SldTXvol", highestLevel};
    SliderField SldRXvol{"SldRXvol", highestLevel};
    SliderField SldTX_SE{"SldTX_SE", highestSecondLevel};
    SliderField SldRX_SE{"SldRX_SE", highestSecondLevel};
    // Which fields a group write sends, in the order of IncludedPortField.
    std::deque<CheckField> chkIncGrpMod;
    ActionField cmdWritePort{"cmdWritePort", "Write"};
    ActionField cmdModRefresh_{"cmdModRefresh", "Read"};
    ActionField cmdUndoPort{"cmdUndoPort", "Undo"};
    sigc::signal<void()>& writeStarted() { return writeStarted_; }

    // No write is begun for a moment after one: a second press is most often the same one.
    void holdWrites(bool held);

    RecordForm form;

private:
    static constexpr std::size_t portFormFields = 13;

    BuiltLine build(std::string_view key, bool isCdma);
    BuiltLine firstFault();
    std::string level(const PortRec* port, const SliderField& first, const SliderField& second,
                      int (*code)(int)) const;
    const PortRec* shownPort() const;
    PortRec* portOf(std::string_view key) const;
    void fill();
    void showGroup();
    std::vector<std::string> heldValues(const PortRec& port) const;
    void showLevels(bool first, bool second);
    void followSwitching();
    void followButtons();
    void write();
    void respell(std::string_view line);
    void writeGroup();

    const PageTools& tools_;
    PortTree& tree_;
    GroupWrite& groupWrite_;
    std::string key_;
    bool writesHeld_ = false;
    sigc::signal<void()> writeStarted_;
};

// The members of chkIncGrpMod.
enum IncludedPortField : std::size_t {
    IncMinDigits, IncMaxDigits, IncIntDigPause, IncSendComplete, IncRelaxTime, IncLevels, IncNoRegTimer,
    IncSimSwitching,
    includedPortFields
};

}  // namespace trunvex
