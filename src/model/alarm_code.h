#pragma once

namespace trunvex {

// What a port reports of itself or of a SIM, by the number that travels. Any other number means nothing.
enum class AlarmCode {
    None = 0,
    RingMs = 1,
    DialIsdn = 2,
    Connecting = 3,
    MsConnected = 4,
    ClearIsdn = 5,
    DisconnectedMs = 6,
    BusyMs = 7,
    BusyIsdn = 8,
    DialIsdnAgain = 9,
    Rejected = 10,
    EmergencyOnly = 11,
    IsdnConnected = 12,
    ErrorGsm = 13,
    Bcch = 15,
    Alerting = 16,
    TalkCounter = 18,
    Message = 19,
    NetworkGone = 20,
    NetworkId = 21,
    Registering = 22,
    Registered = 23,
    Unregistered = 24,
    Signal = 25,
    SimAbsent = 26,
    PinRight = 27,
    Pin2Right = 28,
    PinRequired = 29,
    Pin2Required = 30,
    PukRequired = 31,
    Puk2Required = 32,
    PinAbsent = 33,
    Pin2Absent = 34,
    PinWrong = 35,
    Pin2Wrong = 36,
    SimLock = 37,
    NetworkLock = 38,
    SimFailure = 39,
    SimReady = 40,
    Roaming = 50,
    SlaveVersion = 100,
    SnapshotCounter = 104,
};
inline constexpr int highestAlarmCode = static_cast<int>(AlarmCode::SnapshotCounter);

}  // namespace trunvex
