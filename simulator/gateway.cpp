#include "simulator/gateway.h"

#include "simulator/command_table.h"
#include "simulator/seeded_settings.h"

#include <algorithm>
#include <utility>

namespace simulator {

namespace {

constexpr std::size_t mnemonicLength = 5;

// A word between the console and a master PC, such as the good-bye that a console says whoever is there. A
// gateway takes no notice.
bool isForMaster(const std::string& line) { return line.starts_with("SRV") && line.find(':') != std::string::npos; }

}  // namespace

Gateway::Gateway(GatewayOptions options)
    : activeFaults(std::move(options.faults)), random(options.seed), faultDice(~options.seed),
      keptState(random, options.start), outbox(activeFaults.wire, options.seed + 1),
      life(keptState, options.life, options.seed + 2, [this](std::string line) { say(std::move(line)); }) {
    keptState.accounts.adminPassword = std::move(options.adminPassword);
    if (!options.esn.empty()) keptState.esn = std::move(options.esn);
    fitCdmaModules(keptState.ports, options.cdmaPorts);
    recordEarlierCalls(options.callRecords, options.seed);
    wakeLife();
}

// With dice of their own, so that their number changes nothing else.
void Gateway::recordEarlierCalls(int count, std::uint64_t seed) {
    Random dice(seed + 1);
    std::vector<int> slots;
    for (int slot = 0; slot < portCount; ++slot)
        if (keptState.ports[static_cast<std::size_t>(slot)].module == '1') slots.push_back(slot);
    const auto start = keptState.clock.moment(currentTime);
    for (int call = 0; call < count && !slots.empty(); ++call) {
        const auto slot = slots[static_cast<std::size_t>(dice.between(0, static_cast<std::int64_t>(slots.size()) - 1))];
        const auto ago = std::chrono::seconds(30) * (count - call);
        keptState.callRecords.add(PortAddress::ofSlot(slot), someCallRecord(dice, start - ago));
    }
}

void Gateway::linkUp() {
    linkDown();
    linked = true;
    keptState.strangerOnLine = false;
    wakeLife();
}

void Gateway::wakeLife() {
    if (linked && !restarting) life.wake(currentTime);
}

void Gateway::linkDown() {
    linked = false;
    restarting = false;
    cutter.clear();
    outbox.clear();
    tries.clear();
    lastReplyDue = currentTime;
    life.rest(currentTime);
}

void Gateway::receive(std::string_view bytes) {
    if (!linked) return;
    cutter.push(bytes, [this](const std::string& line) { receiveLine(line); });
}

void Gateway::advanceTo(std::chrono::milliseconds now) {
    // Each moment of its life in turn, so that large steps of time and small ones come to the same.
    for (auto due = life.nextDue(); due && *due <= now; due = life.nextDue()) {
        currentTime = std::max(currentTime, *due);
        sendDue();  // which may end the link
        life.advanceTo(currentTime);
    }
    currentTime = std::max(currentTime, now);
    sendDue();
}

void Gateway::sendDue() {
    outbox.advanceTo(
        currentTime,
        [this](std::string_view bytes) {
            if (onOutput) onOutput(bytes);
        },
        [this] {
            linkDown();
            if (onHangUp) onHangUp();
        });
}

std::optional<std::chrono::milliseconds> Gateway::nextDue() const {
    const auto sending = outbox.nextDue();
    const auto living = life.nextDue();
    if (!sending || !living) return sending ? sending : living;
    return std::min(*sending, *living);
}

void Gateway::receiveLine(const std::string& line) {
    received.push_back(line);
    if (!linked || restarting || isForMaster(line)) return;
    const ReplyFaults& how = activeFaults.of(std::string_view(line).substr(0, mnemonicLength));
    if (hears(line, how)) carryOut(line, how);
}

void Gateway::say(std::string line) {
    if (linked && !restarting) outbox.put(currentTime, std::move(line));
}

bool Gateway::hears(const std::string& line, const ReplyFaults& how) {
    if (how.silent) return false;
    if (how.answersOnTry <= 1) return true;
    if (++tries[line] < how.answersOnTry) return false;
    tries.erase(line);
    return true;
}

void Gateway::carryOut(const std::string& line, const ReplyFaults& how) {
    const std::string_view text = line;
    const std::string_view mnemonic = text.substr(0, mnemonicLength);
    Request request(text.substr(mnemonic.size()), keptState, currentTime);
    const CommandHandler handler = findCommand(mnemonic);
    if (how.refuse == Refusal::alarm)
        request.refused();
    else if (keptState.strangerOnLine && mnemonic.starts_with("C_") && mnemonic != "C_CPW")
        request.refused();
    else if (how.refuse == Refusal::error || !handler)
        request.malformed();
    else
        handler(request);

    if (request.restarts) {
        restarting = true;
        life.rest(currentTime);
        life.cutCalls();
        outbox.hangUpAt(currentTime + restartDelay);
        return;
    }
    // The gateway works on one command after the other, so no reply overtakes the one before.
    const std::chrono::milliseconds latency(faultDice.between(how.latencyMin.count(), how.latencyMax.count()));
    lastReplyDue = std::max(lastReplyDue, currentTime + latency);
    for (std::string& answer : request.replies) reply(std::move(answer), lastReplyDue, how);
    if (request.portToReset) life.resetPort(request.portToReset->slot(), currentTime);
}

void Gateway::reply(std::string line, std::chrono::milliseconds due, const ReplyFaults& how) {
    if (faultDice.chance(how.lost)) return;
    if (faultDice.chance(how.late)) due += how.lateBy;
    if (faultDice.chance(how.doubled)) outbox.put(due, line);
    outbox.put(due, std::move(line));
}

}  // namespace simulator
