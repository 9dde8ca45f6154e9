#pragma once

#include "config/page_table.h"
#include "config/record_page.h"
#include "model/settings_records.h"

namespace trunvex {

// The page "isdn": how the E1 line is framed, which side it plays, which ISDN variant it speaks, how incoming calls are
// taken, and the system number.
class IsdnPage final : public RecordPage {
public:
    IsdnPage(Session& session, const PageTools& tools, SettingsRecords& records);
    std::vector<QueueItem> missing() override;

    // The line that writes the page; with `store` the record takes the values at once. Empty after a message.
    std::string buildLine(bool store);
    bool loaded() const { return tools_.tables.isdn.loaded(); }
    void forget();

    TextField TxtISM_VER{"TxtISM_VER"};
    ChoiceField CmbIncomingCallsMode{"CmbIncomingCallsMode", {inCallModes.begin(), inCallModes.end()}};
    TextField txtInCallMode{"txtInCallMode_0"};  // the timer 'Alerting', 0.1 s
    std::array<ChoiceField, 2> cmbISD{ChoiceField("cmbISD_0", {crcModes.begin(), crcModes.end()}),
                                      ChoiceField("cmbISD_1", {cableModes.begin(), cableModes.end()})};
    ChoiceField CmbNetworkAccess{"CmbNetworkAccess"};
    ChoiceField CmbSynchronization{"CmbSynchronization"};
    ChoiceField CmbIncomingCalls{"CmbIncomingCalls"};
    ChoiceField CmbCountryCode{"CmbCountryCode"};
    // Its list and the gateway's words differ in two spellings; any text can stand here, and the line takes only the
    // gateway's.
    HistoryField CmbISDNVersion{"CmbISDNVersion"};
    TextField TxtLocalNumber{"TxtLocalNumber"};
    TextField TxtLocalSubAddress{"TxtLocalSubAddress"};
    ChoiceField cmbTypeOfNumber{"cmbTypeOfNumber", {typesOfNumber.begin(), typesOfNumber.end()}};
    ChoiceField cmbNumIdentif{"cmbNumIdentif"};
    ActionField CmdWriteISDN_{"CmdWriteISDN", "Write"};
    ActionField cmdIsdnRefresh_{"cmdIsdnRefresh", "Read"};
    ActionField cmdUndoIsdn{"cmdUndoIsdn", "Undo"};

    RecordForm form;

private:
    void show();
    void followRules();
    void bindLine();
    void bindCalls();
    BuiltLine firstFault();
    void writing(const std::string& line) override;

    PageTable<IsdnRec> table_;
};

}  // namespace trunvex
