#pragma once

#include "simulator/call_records.h"
#include "simulator/gateway_clock.h"
#include "simulator/port_address.h"
#include "simulator/port_record.h"
#include "simulator/random.h"
#include "simulator/routing_settings.h"
#include "simulator/sim_record.h"

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace simulator {

// State codes that ports and SIMs report; the numbers are those of the wire.
enum StateCode : int {
    starting = 0,
    emergencyOnly = 11,
    moduleFault = 13,
    registering = 22,
    registeredHome = 23,
    unregistered = 24,
    simAbsent = 26,
    simReady = 40,
    registeredRoaming = 50,
};

struct Sim {
    int state = simAbsent;
    int talkedSeconds = 0;
    SimRecord settings{};
    // Of both directions, counted together with the call's record. They are reset together with the talk.
    int dialled = 0;
    int successful = 0;
    std::string balance{};  // as an operator wrote it; empty: never
};

// A cell that a module can hear, on this channel and as strong as that.
struct HeardCell {
    int bcch = 0;
    int level = 0;
};

struct Port {
    char module = '0';  // '1' is a module in service, '0' an empty slot
    ModuleKind kind = ModuleKind::gsm;
    PortRecord settings;
    bool enabled = true;
    int state = simAbsent;
    std::array<Sim, simsPerPort> sims;
    bool fixedBcch = false;
    int bcch = 0;
    int signal = 0;  // 0 to 70, decibels above -111; 99: not known
    std::vector<HeardCell> heardCells;
    std::string network;
    bool dialling = false;
    bool connected = false;
    std::string slaveVersion;
    bool inMaintenance = false;  // disabled by the gateway itself, which will enable it again

    bool fitted() const { return module != '0'; }
    bool takesSims() const { return fitted() && kind != ModuleKind::cdma; }
    Sim& sim(int place) { return sims[static_cast<std::size_t>(place - 1)]; }
    const Sim& sim(int place) const { return sims[static_cast<std::size_t>(place - 1)]; }
    // The SIM in use, 1 to 4: the first that is ready. 0 without one.
    int activeSim() const;
    bool inCall() const { return dialling || connected; }
    // Registered with a SIM. It may be disabled or in a call.
    bool inService() const;
    // Stays on the cell that the SIM in use is locked to, or lets it go; without such a SIM nothing changes.
    void obeyCellLock();
};

std::string someNetwork(Random& random);
// Country and network code; the home network's for a name that no network has.
std::string networkCode(const std::string& network);

// What the card in this place calls itself, and by what its network knows it.
std::string simIdentity(const SimAddress& at);
std::string imsi(const SimAddress& at);

// What a B-channel does, apart from whether it is enabled.
struct Bearer {
    std::optional<int> slot;  // the port whose call it carries
    int cause = 0;            // why the last call ended, 0 before the first
    bool inMaintenance = false;
};

// The E1 side, every value as it travels.
struct IsdnRecord {
    std::string ismVersion = "ISM 3.11";
    std::string networkAccess = "8";
    std::string synchronization = "4";
    std::string incomingCalls = "2";
    std::string countryCode = "1000";
    std::string isdnVersion = "11";
    std::string reserved1 = "0";
    std::string reserved2 = "0";
    std::string localNumber = "5550100";
    std::string localSubAddress;
    std::string typeOfNumber = "0";
    std::string numberIdentification = "1";
    std::string crcMode = "1";
    std::string cableMode = "0";
    std::string inCallMode = "0";
    std::string alertTimer = "050";
    std::string tail = "0";
};

// Counted since the last reset: signal lost, remote alarm, alarm indication, CRC errors, deactivations.
using IsdnCounters = std::array<int, 5>;

struct Accounts {
    std::string adminPassword = "kestr";
    std::string userPassword;  // empty: no user may log in
    int userRights = 0;
};

struct GatewayState {
    GatewayState(Random& random, std::optional<std::chrono::sys_seconds> start);

    Port& port(const PortAddress& at) { return ports[static_cast<std::size_t>(at.slot())]; }
    // The port at a two-digit address; null when the address is wrong or the slot empty.
    Port* fittedPort(std::string_view digits);

    std::string esn;
    std::string version = "4.37";
    std::array<int, 3> lamps{2, 2, 2};  // com port, network, ISDN line: 0 red, 1 yellow, 2 green
    Accounts accounts;
    bool strangerOnLine = false;  // the last password on this link was nobody's
    GatewayClock clock;
    std::array<Port, portCount> ports;
    std::array<bool, channelCount> channels;  // enabled
    std::array<Bearer, channelCount> bearers;
    IsdnRecord isdn;
    IsdnCounters isdnCounters{};
    CallRecords callRecords;
    RoutingSettings routing;
};

}  // namespace simulator
