#include "simulator/call_life.h"

#include "simulator/fields.h"

#include <span>
#include <utility>

namespace simulator {

using namespace std::chrono_literals;

// What the port and the row of the B-channel report when a call ends. The cause is the number that the ISDN
// gives it.
struct CallEnd {
    int code;
    const char* rowCode;
    int cause;
};

namespace {

enum PortCode : int {
    ringing = 1,
    dialling = 2,
    connectingCode = 3,
    mobileConnected = 4,
    diallingAgain = 9,
    isdnConnected = 12,
    alerting = 16,
    counterAfterCall = 18,
    runningCounter = 104,
};

constexpr int lampGreen = 2;
constexpr int isdnLamp = 2;
constexpr int counterWrap = 100'000 * 60;  // the counter has five digits of minutes

// Most calls end because someone hangs up.
constexpr std::array goodEnds{CallEnd{5, "101", 16}, CallEnd{5, "101", 16}, CallEnd{5, "101", 31},
                              CallEnd{6, "102", 16}, CallEnd{6, "102", 16}, CallEnd{6, "102", 31},
                              CallEnd{6, "102", 16}, CallEnd{6, "114", 41}};
// Without an answer: of a call to the mobile side and of one to the ISDN.
constexpr std::array mobileRefuses{CallEnd{7, "111", 17}, CallEnd{10, "113", 27}, CallEnd{5, "110", 19},
                                   CallEnd{6, "115", 20}};
constexpr std::array isdnRefuses{CallEnd{8, "112", 17}, CallEnd{6, "102", 19}, CallEnd{5, "101", 1}};

constexpr CallEnd cutOff{6, "102", 41};

const CallEnd& anyOf(std::span<const CallEnd> ends, Random& random) {
    return ends[static_cast<std::size_t>(random.between(0, static_cast<std::int64_t>(ends.size()) - 1))];
}

}  // namespace

CallLife::CallLife(Scene& ofScene) : scene(ofScene) {
    scene.repeat(scene.rates.callEvery, [this] { tryCall(); });
}

void CallLife::cutAll() {
    for (int slot = 0; slot < portCount; ++slot)
        if (call(slot).channel != 0) clear(slot, cutOff);
    for (Port& port : scene.state.ports) port.dialling = port.connected = false;
}

void CallLife::cut(int slot) {
    if (call(slot).channel != 0) end(slot, cutOff);
    scene.port(slot).dialling = scene.port(slot).connected = false;
}

void CallLife::tryCall() {
    if (scene.state.lamps[isdnLamp] != lampGreen) return;
    const auto slot =
        scene.anyPort([](const Port& port) { return port.enabled && port.inService() && !port.inCall(); });
    if (!slot) return;
    const auto channel = scene.anyFreeChannel();
    if (channel) setUp(*slot, *channel);
}

void CallLife::setUp(int slot, int channel) {
    Call& now = call(slot);
    now.sim = scene.port(slot).activeSim();
    now.channel = channel;
    now.incoming = scene.random.chance(0.4);
    now.isdnAnswersLast = !now.incoming && scene.random.chance(0.25);
    now.number = someNumber();
    now.originated = scene.state.clock.moment(scene.agenda.now());
    now.answered.reset();
    now.talked = 0;
    ++now.serial;
    scene.port(slot).dialling = true;
    bearer(slot).slot = slot;
    bearer(slot).cause = 0;

    const std::string row = std::to_string(channel);
    const std::string port = std::to_string(slot + 1);
    if (now.incoming)
        scene.reportSystem("120", {port, row, {}});
    else
        scene.reportSystem("100", {row, port, {}});
    scene.reportSystem("140", {row, {}, {}});
    const int first = now.incoming ? ringing : now.isdnAnswersLast ? diallingAgain : dialling;
    scene.report(slot, first, {now.number, {}, {}});
    later(slot, scene.pause(300, 1'500), &CallLife::connecting);
}

void CallLife::connecting(int slot) {
    scene.report(slot, connectingCode);
    if (scene.random.chance(0.2)) {
        const auto& refusals = call(slot).incoming ? std::span<const CallEnd>(isdnRefuses) : mobileRefuses;
        return endLater(slot, scene.pause(1'000, 8'000), anyOf(refusals, scene.random));
    }
    later(slot, scene.pause(1'000, 4'000), [](CallLife& life, int port) {
        life.scene.report(port, alerting);
        life.later(port, life.scene.pause(1'500, 12'000), &CallLife::connect);
    });
}

// Both sides in one moment: the talk counter runs from the first to answer.
void CallLife::connect(int slot) {
    Port& port = scene.port(slot);
    port.dialling = false;
    port.connected = true;
    call(slot).counted = scene.agenda.now();
    call(slot).answered = scene.state.clock.moment(scene.agenda.now());
    if (!call(slot).isdnAnswersLast) scene.report(slot, isdnConnected);
    scene.report(slot, mobileConnected, {counter(slot), {}, {}});
    if (call(slot).isdnAnswersLast) scene.report(slot, isdnConnected);

    later(slot, scene.rates.counterEvery, &CallLife::tick);
    const auto talk = scene.random.between(scene.rates.talkMin.count(), scene.rates.talkMax.count());
    endLater(slot, Scene::Milliseconds(talk), anyOf(goodEnds, scene.random));
}

void CallLife::tick(int slot) {
    scene.report(slot, runningCounter, {counter(slot), {}, {}});
    later(slot, scene.rates.counterEvery, &CallLife::tick);
}

void CallLife::end(int slot, const CallEnd& how) {
    const std::string cause = std::to_string(how.cause);
    const bool talked = scene.port(slot).connected;
    scene.report(slot, how.code, {cause, {}, {}});
    if (talked)
        scene.report(slot, scene.random.chance(0.5) ? counterAfterCall : runningCounter, {counter(slot), {}, {}});
    scene.reportSystem(how.rowCode, {std::to_string(call(slot).channel), cause, {}});
    clear(slot, how);
}

void CallLife::clear(int slot, const CallEnd& how) {
    record(slot, how);
    scene.port(slot).dialling = scene.port(slot).connected = false;
    bearer(slot).slot.reset();
    bearer(slot).cause = how.cause;
    call(slot).channel = 0;
    ++call(slot).serial;
}

// Every call is billed by what is kept of it here, also one that nobody answered. The bill, the counters of the SIM
// and what the board was told of the talk come to the same, whatever the clock was set to meanwhile.
void CallLife::record(int slot, const CallEnd& how) {
    const Call& now = call(slot);
    Port& port = scene.port(slot);
    ++port.sim(now.sim).dialled;
    if (now.answered) ++port.sim(now.sim).successful;
    CallRecord record;
    record.sim = now.sim;
    record.incoming = now.incoming;
    record.simIdentity = simIdentity({PortAddress::ofSlot(slot), now.sim});
    record.dialled = now.number;
    record.originated = now.originated;
    record.answered = now.answered;
    record.disconnected =
        now.answered ? *now.answered + std::chrono::seconds(now.talked) : scene.state.clock.moment(scene.agenda.now());
    record.clearCause = record.releaseCause = how.cause;
    record.level = port.signal;
    record.bcch = port.bcch;
    record.network = port.network;
    scene.state.callRecords.add(PortAddress::ofSlot(slot), std::move(record));
}

void CallLife::later(int slot, Scene::Milliseconds delay, std::function<void(CallLife&, int)> step) {
    scene.agenda.in(delay, [this, slot, serial = call(slot).serial, step = std::move(step)] {
        if (call(slot).serial == serial) step(*this, slot);
    });
}

void CallLife::endLater(int slot, Scene::Milliseconds delay, const CallEnd& how) {
    later(slot, delay, [&how](CallLife& life, int port) { life.end(port, how); });
}

// The SIM's counter with the talk up to now, in whole seconds.
std::string CallLife::counter(int slot) {
    Call& now = call(slot);
    const auto talked = std::chrono::floor<std::chrono::seconds>(scene.agenda.now() - now.counted);
    now.counted += talked;
    now.talked += static_cast<int>(talked.count());
    int& seconds = scene.port(slot).sim(now.sim).talkedSeconds;
    seconds = static_cast<int>((seconds + talked.count()) % counterWrap);
    return talkCounter(seconds);
}

std::string CallLife::someNumber() { return "05" + padded(static_cast<int>(scene.random.between(0, 99'999'999)), 8); }

}  // namespace simulator
