#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/alarm_code.h"
#include "monitor/board_colours.h"

// What the gateway has told of its ports, its B-channels and itself. The board's fields are derived from these, and
// nothing is read back out of a field. Texts are fit for the eye.
namespace trunvex {

enum class ModuleKind { NotTold, Gsm, Cdma, Missing };
enum class Lamp { Off, Red, Yellow, Green };
enum class Antenna { NotTold, NoSignal, OneBar, TwoBars, ThreeBars, FourBars, Unregistered };

// A SIM's talk counter. What is no counter counts as none.
struct TalkTime {
    // MMMMM:SS, minutes of 1 to 5 digits.
    static TalkTime parse(std::string_view counter);

    std::int64_t minutes = 0;
    std::int64_t seconds = 0;
};

struct PortStatus {
    enum class Heading { Plain, Reserved, Off };
    enum class Bcch { NotTold, Fixed, Automatic };
    enum class Network { NotTold, Home, Roaming };
    static constexpr int firstReserved = 31;  // B-channels 31 and 32 are the reserved lines

    ModuleKind kind = ModuleKind::NotTold;
    bool cdma = false;  // has no SIM of ours

    std::optional<bool> enabled;
    Heading heading = Heading::Plain;
    std::string channel;    // the B-channel bound to the port, as it was told
    int portBch = 0;        // its number
    bool reserved = false;  // the port was reported as one of the reserved lines

    std::optional<BoardColours::Which> state;  // none until something was told of it
    AlarmCode event = AlarmCode::None;         // the last one
    std::string reason;                        // of a disconnection
    std::string callNumber;
    bool connected = false;
    std::optional<bool> inCall;  // counted as in a call; none before the first

    std::optional<int> sim;
    Lamp simLamp = Lamp::Off;
    AlarmCode simReport = AlarmCode::None;  // the one behind the lamp
    bool simAbsent = false;                 // a report of absence has been taken and nothing else since
    std::string counter;                    // of the SIM, as it was told
    TalkTime talked;

    Lamp netLamp = Lamp::Off;
    AlarmCode netReport = AlarmCode::None;
    std::string networkId;  // while the module registers a row of dots
    bool registering = false;
    Network network = Network::NotTold;
    Bcch bcchMode = Bcch::NotTold;
    std::string bcch;
    std::optional<int> level;  // of the signal, 0 to 70 above -111 dB
    Antenna antenna = Antenna::NotTold;

    bool message = false;  // a new one has come

    // Takes the B-channel as it was told; what is none has the number 0.
    void bind(std::string_view told);
    // The B-channel bound to the port now; a reserved line counts from 1.
    int boundChannel() const { return reserved ? portBch + 1 - firstReserved : portBch; }
    // Forgets the SIM, the call and the registration; what else is known of the port stays.
    void clearCell();
    // Decides by the last event whether the port is in a call; true when that is new.
    bool countCall();
};

struct ChannelStatus {
    enum class State { NotTold, Disabled, Idle, InCall };

    std::optional<bool> enabled;
    State state = State::NotTold;
    std::string cause;  // of the last clearing
};

struct GatewayStatus {
    std::array<Lamp, 3> lamps{};  // communication port, network, ISDN line
    std::string slaveVersion;
    int portsInCall = 0;
};

}  // namespace trunvex
