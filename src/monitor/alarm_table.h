#pragma once

#include <optional>

#include "model/alarm_code.h"
#include "monitor/port_status.h"

namespace trunvex {

// What a port's report does to its cell. The text, the call's sign and the state stand beside it in the table.
enum class AlarmEffect {
    Nothing,
    Event,         // the text becomes the last event
    Number,        // and the first argument is the number of the call
    Dialled,       // and that number was dialled here
    Reason,        // and the first argument is why
    CounterEvent,  // and the first argument is the talk counter
    Counter,       // the talk counter, and no event
    Bcch,
    NetworkId,
    Registering,
    Home,
    Roaming,
    Unregistered,
    Signal,
    Fault,  // as Event, but without a text the last event stays
    SlaveVersion,
};

enum class AlarmLamp { None, Sim, Net };
enum class CallSign { Leaves, Clears, Shows };

// The row of a code in the collection `statusItems`, and what the code does.
struct AlarmRow {
    AlarmCode code = AlarmCode::None;
    const char* text = nullptr;  // null: the code has none
    AlarmEffect effect = AlarmEffect::Nothing;
    bool simAtWork = false;  // the SIM it names is in service, and the cell active
    CallSign call = CallSign::Leaves;
    std::optional<BoardColours::Which> state{};
    AlarmLamp lamp = AlarmLamp::None;
    Lamp light = Lamp::Off;
};

// An empty row for a code that means nothing.
const AlarmRow& alarmRow(AlarmCode code);

// The pictures of the collection.
inline constexpr const char* IMGSMS = "imgSMSPic";
inline constexpr const char* IMG4 = "imgConnected";
inline constexpr const char* IMG24 = "imgREG2";
inline constexpr std::array<const char*, 5> IMG25{"imgAnt_0", "imgAnt_1", "imgAnt_2", "imgAnt_3", "imgAnt_4"};

}  // namespace trunvex
