#include "simulator/master_pc.h"

#include <algorithm>
#include <utility>

namespace simulator {

MasterPc::MasterPc(Gateway& behind, MasterOptions masterOptions)
    : gateway(behind), options(std::move(masterOptions)), random(options.seed) {
    gateway.restLife();
    gateway.onOutput = [this](std::string_view bytes) {
        if (onOutput) onOutput(bytes);
    };
    gateway.onHangUp = [this] {
        linkDown();
        if (onHangUp) onHangUp();
    };
}

void MasterPc::linkUp() {
    linkDown();
    gateway.linkUp();
    gateway.restLife();
    session = options.sessionId.empty() ? std::to_string(random.between(1000, 9999)) : options.sessionId;
    state = State::asked;
    say("PSW");
}

void MasterPc::linkDown() {
    state = State::noConsole;
    nextPing.reset();
    cutter.clear();
    gateway.linkDown();
}

void MasterPc::receive(std::string_view bytes) {
    if (state != State::noConsole) cutter.push(bytes, [this](const std::string& line) { takeLine(line); });
}

void MasterPc::advanceTo(std::chrono::milliseconds now) {
    // Pings that fell due in between leave at their own time, before what comes later.
    while (nextPing && *nextPing <= now) {
        const auto moment = *nextPing;
        nextPing = moment + options.pingInterval;
        gateway.advanceTo(moment);
        if (nextPing)  // the console is still there
            ping();
    }
    gateway.advanceTo(now);
}

std::optional<std::chrono::milliseconds> MasterPc::nextDue() const {
    const auto due = gateway.nextDue();
    if (!nextPing) return due;
    return std::min(due.value_or(*nextPing), *nextPing);
}

void MasterPc::announce() { say("ID" + gateway.state().esn + "," + gateway.clockText()); }

void MasterPc::tellUpdate(const std::string& progress) { gateway.say("Master Updating" + progress); }

void MasterPc::ping() {
    ++pingsSent;
    say("PING");
}

void MasterPc::takeLine(const std::string& line) {
    const std::size_t colon = line.find(':', 3);
    if (line.starts_with("SRV") && colon != std::string::npos) {
        const std::string_view text = line;
        const std::string_view word = text.substr(colon + 1);
        // A console that leaves may not have learned the id yet.
        if (word == "CLOSE" || text.substr(3, colon - 3) == session)
            takeWord(word);
        else
            ++linesIgnored;
    } else if (state == State::accepted) {
        gateway.receiveLine(line);
    } else {
        // The console starts its log-in as soon as the link is up and starts again when it is accepted.
        ++linesIgnored;
    }
}

void MasterPc::takeWord(std::string_view word) {
    if (word.starts_with("PSW")) {
        judge(word.substr(3));
    } else if (word == "PONG") {
        ++pongsReceived;
    } else if (word == "CLOSE") {
        linkDown();
        if (onHangUp) onHangUp();
    } else {
        ++linesIgnored;
    }
}

// Password and unit, with a comma between; the unit has none.
void MasterPc::judge(std::string_view credentials) {
    const std::size_t comma = credentials.rfind(',');
    if (comma == std::string_view::npos) {
        ++linesIgnored;
        return;
    }
    const bool knowsPassword = options.password.empty() || credentials.substr(0, comma) == options.password;
    const bool knowsUnit = options.unit.empty() || credentials.substr(comma + 1) == options.unit;
    const bool good = !options.refuses && knowsPassword && knowsUnit;
    state = good ? State::accepted : State::refused;
    say(good ? "STAT1" : "STAT0");
    nextPing.reset();
    if (!good) return;
    gateway.wakeLife();
    if (options.pingInterval.count() > 0) nextPing = gateway.now() + options.pingInterval;
    if (options.announces) announce();
}

}  // namespace simulator
