#pragma once

#include <memory>
#include <string>

#include "fields/fields.h"
#include "monitor/board_colours.h"
#include "platform/timer.h"

namespace trunvex {

// The cell of one radio module on the status board. Its fields carry the board index in their names
// ("lblMsg_7"); the screen paints all of them as one widget, portCell_7.
struct PortCell {
    // Board index 1 to 32.
    explicit PortCell(int boardIndex);

    // Every field of the cell, for a listener of the whole.
    template <class Visit>
    void forEachField(Visit&& visit) {
        for (Field* field : {static_cast<Field*>(&lblBCH),        static_cast<Field*>(&chkSTPEnable),
                             static_cast<Field*>(&shpSim),        static_cast<Field*>(&LblSIM_num),
                             static_cast<Field*>(&lblMsg),        static_cast<Field*>(&lblMsgNumber),
                             static_cast<Field*>(&lblLimit),      static_cast<Field*>(&imgStatus),
                             static_cast<Field*>(&imgStatusSim),  static_cast<Field*>(&imgStatusNet),
                             static_cast<Field*>(&imgStatusLock), static_cast<Field*>(&lblNetworkID),
                             static_cast<Field*>(&lblNetBCCH),    static_cast<Field*>(&lblRM_HM),
                             static_cast<Field*>(&lblStrengthDB), static_cast<Field*>(&imgAntenna),
                             static_cast<Field*>(&imgSMS),        static_cast<Field*>(&lblSimClick),
                             static_cast<Field*>(&lblSimLed),     static_cast<Field*>(&lblNetworkLed),
                             static_cast<Field*>(&lblNetwork),    static_cast<Field*>(&cmdResetLimit)})
            visit(*field);
    }

    // The colour, and what it stands for: several states may have been given the same one.
    void setState(BoardColours::Which which, const BoardColours& colours);
    // All that tells of a SIM of ours. A CDMA module has none.
    void showSim(bool visible);

    const int index;

    LabelField lblBCH;        // heading: port and its B-channel
    CheckField chkSTPEnable;  // the port's enable flag
    LabelField shpSim;        // its colour is the cell's state colour, its tip the meaning; its text is empty
    LabelField LblSIM_num;
    LabelField lblMsg;          // last event; the tag is "CON" while the port counts as in a call, "DES" after
    LabelField lblMsgNumber;    // number of the current call
    LabelField lblLimit;        // "Count:" and the SIM's talk counter, MMMMM:SS
    PictureField imgStatus;     // call picture: "" or "imgConnected"
    PictureField imgStatusSim;  // lamps: "", "imgLedRed", "imgLedYellow", "imgLedGreen"; the tip tells the state
    PictureField imgStatusNet;
    PictureField imgStatusLock;
    LabelField lblNetworkID;  // or a growing row of dots while registering, then bold
    LabelField lblNetBCCH;
    LabelField lblRM_HM;       // "Hm" at home, "Rm" roaming
    LabelField lblStrengthDB;  // "-71db"
    PictureField imgAntenna;   // signal: "imgAnt_0" (none) to "imgAnt_4" (full), "imgREG1", "imgREG2"
    PictureField imgSMS;       // "" or "imgSMSPic"
    LabelField lblSimClick;
    LabelField lblSimLed;
    LabelField lblNetworkLed;
    LabelField lblNetwork;
    ActionField cmdResetLimit;  // opens the port menu
    std::unique_ptr<Timer> tmrAnimation;

    std::string kind;  // of its module: "GSM", "CDM" or "ERR"; empty until the gateway has told
    BoardColours::Which state = BoardColours::PORT_NOT_ACTIVE;
    int portBch = 0;         // the B-channel bound to the port; 31 and 32 are the reserved lines
    bool simAbsent = false;  // a report of absence has been taken and nothing else since
};

// One B-channel of the board, 1 to 30; painted as bchRow_n.
struct BchRow {
    explicit BchRow(int channel);

    const int channel;
    LabelField lblSTBBch;    // the channel number; its colour is the row's state colour
    LabelField lblSTBCause;  // last cause
    CheckField chkSTBEnable;
};

// Row colours.
inline constexpr Colour bchIdle = 13434823;
inline constexpr Colour bchDisabled = 13022150;
inline constexpr Colour bchInCall = 16760748;

}  // namespace trunvex
