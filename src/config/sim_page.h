#pragma once

#include "config/node_page.h"
#include "config/time_table.h"
#include "model/settings_records.h"

namespace trunvex {

// The page of one SIM: its number and PIN, its call budget, the cell it locks to and its time table. On a group's "SMM"
// it writes the fields that are marked to that SIM of every port of the group.
class SimPage final : public NodePage {
public:
    SimPage(const PageTools& tools, PortTree& tree, SettingsRecords& records, GroupWrite& groupWrite);

    // The line that writes the page to one SIM. For a member of a group the time table is checked for its form only,
    // for a single SIM line by line.
    BuiltLine build(std::string_view key, bool lineByLine);
    void readMissing() override;
    // The time table of a SIM with what is edited of it, written or not.
    std::array<TimeRow, timeRowCount> rowsAsEdited(SimAddress sim) const;

    LabelField lblSimCaption{"lblSimCaption"};
    LabelField lblSimHint{"lblSimHint"};
    LabelField lblSimRemark{"lblSimRemark"};
    LabelField lblPredial{"lblPredial"};
    // The day that the gateway keeps in the five low bits of the bundle flags.
    LabelField TxtDayRestore{"TxtDayRestore"};
    TextField txtPhoneNum{"txtPhoneNum"};
    TextField txtPIN{"txtPIN"};
    ChoiceField CmbCallID{"CmbCallID", {callerIds.begin(), callerIds.end()}};
    TextField txtMonthlyContract{"txtMonthlyContract"};
    TextField txtCallMinutes{"txtCallMinutes"};
    CheckField optBcchLock{"optBcchLock", "Lock to one cell"};
    TextField txtCelLock{"txtCelLock"};
    ChoiceField cmbBcchRssi{"cmbBcchRssi"};
    TextField txtBcchTimer{"txtBcchTimer"};
    TextField txtBcchNetID{"txtBcchNetID"};
    // Mode and switch of the bundle.
    std::array<ChoiceField, 2> txtBundleLoading{
        ChoiceField("txtBundleLoading_0", {bundleModes.begin(), bundleModes.end()}),
        ChoiceField("txtBundleLoading_1", {bundleSwitches.begin(), bundleSwitches.end()})};
    // In the order of IncludedSimField.
    std::deque<CheckField> chkIncGrpSim;
    ActionField cmdWriteSIM{"cmdWriteSIM", "Write"};
    ActionField cmdSimRefresh{"cmdSimRefresh", "Read"};
    ActionField cmdUndoSim{"cmdUndoSim", "Undo"};

    TimeTable timeTable{form};

private:
    bool writable() const override;
    void fillRecord() override;
    bool silent(std::size_t box) const override;
    void fillGroup(const std::vector<std::string>& ports) override;
    void followRules() override;
    std::vector<QueueItem> readBatch() const override;
    BuiltLine buildShown() override;
    BuiltLine buildMember(const std::string& key) override;
    RecordForm::Values valuesAfter(std::string_view line) const override;

    void bindFields();
    void bindCellLock();
    void bindBundle();
    BuiltLine firstFault(bool lineByLine);
    SimRec* simOf(std::string_view key) const;
    std::string readKey() const;
    std::string bundleMode(const SimRec& sim) const;
    std::string bundleFlags(const SimRec& to) const;
    void showFacts(const SimRec* sim);

    PageTable<SimRec> table_;
};

// The members of chkIncGrpSim.
enum IncludedSimField : std::size_t {
    IncPhoneNumber,
    IncPin,
    IncCallerId,
    IncContract,
    IncCallMinutes,
    IncCellLock,
    IncRssi,
    IncBcchTimer,
    IncNetId,
    IncTimeTable,
    IncBundle,
    includedSimFields
};

}  // namespace trunvex
