#pragma once

#include <string>

#include "fields/fields.h"
#include "fields/history_list.h"
#include "link/serial_port_map.h"
#include "platform/dialogs.h"
#include "platform/settings.h"

namespace trunvex {

// The connection dialog: which way to the gateway, with which password. Filled from the settings when it is made.
class frmConnectionSelect {
public:
    frmConnectionSelect(Dialogs& dialogs, Settings& settings, Settings& history, SerialPortMap& ports);

    // OK: true when the entries hold, and the dialog may close. What is wrong is told in a box and marked at the field.
    bool accept();
    // Cancel, and closing the window: the kind becomes "ERR".
    void cancel();

    std::string kind() const { return kind_; }  // "COM", "NET", "MDM" or "ERR"
    bool isModem() const { return kind_ == "MDM"; }
    // The number of "COM n", and the rate, of the serial or the modem line.
    int portNumber() const;
    std::string rate() const;

    // Saves what a link of this kind keeps for the next start, each file in one write. The password is never saved.
    void save();

    ChoiceField cmbConSelect{"cmbConSelect", {"COM", "NET", "MDM"}};
    ChoiceField cmbComNum{"cmbComNum"};
    ChoiceField cmbRate{"cmbRate"};
    ChoiceField cmbMComNum{"cmbMComNum"};
    ChoiceField cmbMRate{"cmbMRate"};
    LabelField lblPhone{"lblPhone", "Phone number"};
    TextField txtPhone{"txtPhone"};
    LabelField lblOptionslMdm{"lblOptionslMdm", "Optional commands"};
    HistoryField txtOptionalMdn{"txtOptionalMdn"};
    HistoryField txtIP{"txtIP"};
    TextField txtPort{"txtPort", "4001"};
    TextField txtPass{"txtPass", "kestr"};
    CheckField chkReceivingMode{"chkReceivingMode", "Work only with monitor"};
    CheckField chkSERVER{"chkSERVER", "Work as SERVER "};
    CheckField chkMasterLog{"chkMasterLog", "Login to Master PC"};
    TextField txtUnitID{"txtUnitID"};
    // The frames: COM and MDM share one.
    LabelField framCOM{"framCOM", "Serial line"};
    LabelField framNET{"framNET", "TCP"};
    // What is wrong with an entry, under its field; empty when it is right.
    LabelField lblHostError{"lblHostError"};
    LabelField lblPortError{"lblPortError"};

private:
    void listPorts();
    void load();
    void showKind();
    void followServer();
    void followMaster();
    bool addressHolds();

    Dialogs& dialogs_;
    Settings& settings_;
    SerialPortMap& ports_;
    bool portsListed_ = false;
    HistoryList optionalHistory_;
    HistoryList hostHistory_;
    std::string kind_;
};

}  // namespace trunvex
