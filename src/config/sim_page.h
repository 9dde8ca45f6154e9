#pragma once

#include <deque>

#include "config/group_write.h"
#include "config/page_tools.h"
#include "config/port_tree.h"
#include "config/settings_records.h"
#include "config/time_table.h"

namespace trunvex {

// The panel of one SIM: its number and PIN, its call budget, the cell it locks to and its time table. On a group's
// "SMM" node it writes the fields that are marked to that SIM of every port of the group.
class SimPage {
public:
    SimPage(const PageTools& tools, PortTree& tree, SettingsRecords& records, GroupWrite& groupWrite);

    // Fills the panel for "SIM" + address or "SMM" + group + SIM.
    void show(const std::string& key);
    // Shows again what the tables and the tree have; what the operator has changed stays.
    void refresh() { fill(); }
    // Nothing is known any more.
    void forget();
    const std::string& shownKey() const { return key_; }
    bool showsGroup() const;

    // The two builders of the line that writes the panel: for a member of a group, with the time table checked for its
    // form only, and for a single SIM. Empty after a message.
    std::string buildForGroup(std::string_view key);
    std::string buildForOne(std::string_view key);
    void cmdSimRefresh();
    void holdWrites(bool held);

    LabelField lblSimCaption{"lblSimCaption"};
    LabelField lblSimHint{"lblSimHint"};
    LabelField lblPredial{"lblPredial"};
    // The day that the gateway keeps in the five low bits of the bundle flags.
    LabelField TxtDayRestore{"TxtDayRestore"};
    TextField txtPhoneNum{"txtPhoneNum"};
    TextField txtPIN{"txtPIN"};
    ChoiceField CmbCallID{"CmbCallID", {"By network", "CLIR Hide", "CLIR Show"}};
    TextField txtMonthlyContract{"txtMonthlyContract"};
    TextField txtCallMinutes{"txtCallMinutes"};
    CheckField optBcchLock{"optBcchLock", "Lock to one cell"};
    TextField txtCelLock{"txtCelLock"};
    ChoiceField cmbBcchRssi{"cmbBcchRssi"};
    TextField txtBcchTimer{"txtBcchTimer"};
    TextField txtBcchNetID{"txtBcchNetID"};
    // Mode and switch of the bundle.
    std::array<ChoiceField, 2> txtBundleLoading{
        ChoiceField("txtBundleLoading_0", {"Disabled", "Every Day", "By Refill", "By Addition"}),
        ChoiceField("txtBundleLoading_1", {"Enabled", "Disabled"})};
    // Which fields a group write sends, in the order of IncludedSimField.
    std::deque<CheckField> chkIncGrpSim;
    ActionField cmdWriteSIM{"cmdWriteSIM", "Write"};
    ActionField cmdSimRefresh_{"cmdSimRefresh", "Read"};
    ActionField cmdUndoSim{"cmdUndoSim", "Undo"};
    sigc::signal<void()>& writeStarted() { return writeStarted_; }

    RecordForm form;
    TimeTable timeTable{form};

private:
    BuiltLine build(std::string_view key, bool lineByLine);
    std::string buildOrTell(std::string_view key, bool lineByLine);
    BuiltLine firstFault(bool lineByLine);
    std::vector<std::string> heldValues(const SimRec& sim) const;
    SimRec* simOf(std::string_view key) const;
    std::string readKey() const;
    bool included(std::size_t field) const;
    std::string bundleFlags(const SimRec* sim) const;
    void fill();
    void showGroup();
    void followRules();
    void write();
    void respell(std::string_view line);

    const PageTools& tools_;
    PortTree& tree_;
    GroupWrite& groupWrite_;
    std::string key_;
    bool writesHeld_ = false;
    sigc::signal<void()> writeStarted_;
};

// The members of chkIncGrpSim.
enum IncludedSimField : std::size_t {
    IncPhoneNumber, IncPin, IncCallerId, IncContract, IncCallMinutes, IncCellLock, IncRssi, IncBcchTimer, IncNetId,
    IncTimeTable, IncBundle, includedSimFields
};

}  // namespace trunvex
