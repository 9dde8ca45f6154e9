#pragma once

#include <memory>
#include <string>

#include "fields/fields.h"
#include "monitor/board_colours.h"
#include "monitor/port_status.h"
#include "platform/timer.h"

namespace trunvex {

// The cell of one radio module on the status board. Its fields carry the board index in their names
// ("lblMsg_7") and follow from `status`; the screen paints all of them as one widget, portCell_7.
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
                             static_cast<Field*>(&lblNetwork),    static_cast<Field*>(&cmdResetLimit),
                             static_cast<Field*>(&cmdResetSlave)})
            visit(*field);
    }

    // Lets the fields follow what has changed in the status.
    void show(const BoardColours& colours);
    // The colour, and what it stands for: several states may have been given the same one.
    void showState(const BoardColours& colours);

    const int index;
    PortStatus status;

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
    PictureField imgAntenna;   // signal: "imgAnt_0" (none) to "imgAnt_4" (full), "imgREG2"
    PictureField imgSMS;       // "" or "imgSMSPic"
    LabelField lblSimClick;
    LabelField lblSimLed;
    LabelField lblNetworkLed;
    LabelField lblNetwork;
    ActionField cmdResetLimit;  // opens the port menu
    ActionField cmdResetSlave;
    std::unique_ptr<Timer> tmrAnimation;

private:
    void showHeading();
    void showEvent();
    void showSim();
    void showNetwork();
    void showBcch();
    void showSignal();
    // All that tells of a SIM of ours.
    void setSimVisible(bool visible);
    // Notes that a value of the status is shown; true when it was not.
    template <auto member>
    bool taken();

    PortStatus shown_;
    bool fresh_ = true;  // nothing is shown yet
};

// One B-channel of the board, 1 to 30; painted as bchRow_n.
struct BchRow {
    explicit BchRow(int channel);

    // Lets the fields follow the status.
    void show();

    const int channel;
    ChannelStatus status;
    LabelField lblSTBBch;    // the channel number; its colour is the row's state colour
    LabelField lblSTBCause;  // last cause
    CheckField chkSTBEnable;
};

// The picture of a lamp.
const char* lampPicture(Lamp lamp);

// Of a cell of which nothing was told, and the word for it.
inline constexpr Colour cellNotTold = 14737632;
inline constexpr const char* notReadText = "Not read yet";

// Row colours.
inline constexpr Colour bchNotTold = 14737632;
inline constexpr Colour bchIdle = 13434823;
inline constexpr Colour bchDisabled = 13022150;
inline constexpr Colour bchInCall = 16760748;

}  // namespace trunvex
