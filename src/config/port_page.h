#pragma once

#include "config/node_page.h"
#include "config/page_table.h"
#include "model/settings_records.h"

namespace trunvex {

// The page of one port: how its module is dialled through and how it swaps SIMs. On a group's "GRP", "MDD" and "PRT" it
// writes the fields that are marked to every port of the group.
class PortPage final : public NodePage {
public:
    PortPage(const PageTools& tools, PortTree& tree, SettingsRecords& records, GroupWrite& groupWrite);

    // The line that writes the page to one port: "C_MOD" + MCU and module and the fifteen fields, an empty one where
    // the gateway is to keep its value. A group's key has no levels: it is built to check the page.
    BuiltLine WriteMod(std::string_view key, bool isCdma);
    void readMissing() override;

    LabelField lblPortCaption{"lblPortCaption"};
    LabelField lblModuleType{"lblModuleType"};  // names the scale of the levels
    LabelField lblModuleInfo{"lblModuleInfo"};
    LabelField lblPortHint{"lblPortHint"};
    LabelField lblPortRemark{"lblPortRemark"};
    TextField TxtMinDigits{"TxtMinDigits"};
    TextField TxtMaxDigits{"TxtMaxDigits"};
    TextField TxtIntDigPause{"TxtIntDigPause"};
    ChoiceField CmbSendComplete{"CmbSendComplete", {endsOfDialling.begin(), endsOfDialling.end()}};
    HistoryField cmbRelaxTime{"cmbRelaxTime"};
    TextField txtNoRegTimer{"txtNoRegTimer"};
    ChoiceField cmbSimSwitching{"cmbSimSwitching", {simSwitchings.begin(), simSwitchings.end()}};
    ChoiceField cmbCallReject{"cmbCallReject", {answersToCalls.begin(), answersToCalls.end()}};
    TextField txtSimSwap{"txtSimSwap"};
    LabelField framRX_TX{"framRX_TX", "Levels"};  // hidden where a module has none
    SliderField SldTXvol{"SldTXvol", highestLevel};
    SliderField SldRXvol{"SldRXvol", highestLevel};
    SliderField SldTX_SE{"SldTX_SE", highestSecondLevel};
    SliderField SldRX_SE{"SldRX_SE", highestSecondLevel};
    // In the order of IncludedPortField.
    std::deque<CheckField> chkIncGrpMod;
    ActionField cmdWritePort{"cmdWritePort", "Write"};
    ActionField cmdModRefresh{"cmdModRefresh", "Read"};
    ActionField cmdUndoPort{"cmdUndoPort", "Undo"};

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
    void bindLevels();
    void bindSwitching();
    BuiltLine firstFault();
    PortRec* portOf(std::string_view key) const;
    QueueItem readCommand() const;
    void showFacts(const PortRec* port);
    void showLevels(bool first, bool second);

    PageTable<PortRec> table_;
};

// The members of chkIncGrpMod.
enum IncludedPortField : std::size_t {
    IncMinDigits,
    IncMaxDigits,
    IncIntDigPause,
    IncSendComplete,
    IncRelaxTime,
    IncLevels,
    IncNoRegTimer,
    IncSimSwitching,
    includedPortFields
};

}  // namespace trunvex
