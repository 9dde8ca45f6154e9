#pragma once

#include "simulator/faults.h"
#include "simulator/gateway_state.h"
#include "simulator/life.h"
#include "simulator/line_cutter.h"
#include "simulator/outbox.h"
#include "simulator/random.h"
#include "simulator/station.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace simulator {

struct GatewayOptions {
    std::uint64_t seed = 1;
    std::string adminPassword = "kestr";
    std::string esn;                                // empty: one of the seed
    std::optional<std::chrono::sys_seconds> start;  // the gateway's date and time at 0 ms; none: one of the seed
    int cdmaPorts = 0;                              // of the ports in service; the others are GSM
    int callRecords = 0;                            // calls that nobody has fetched yet, of the hours before the start
    Faults faults;
    LifeRates life;  // nothing happens by itself
};

// The simulated gateway. It starts with a link up, as a serial line has it. What it keeps outlives its links;
// with the same seed, the same lines at the same times and the same faults it sends the same bytes.
class Gateway : public Station {
public:
    // From the command that makes it restart until the link falls.
    static constexpr std::chrono::milliseconds restartDelay{300};

    explicit Gateway(GatewayOptions options = {});
    Gateway(const Gateway&) = delete;  // the outbox looks at the faults of this one
    Gateway& operator=(const Gateway&) = delete;

    void linkUp() override;
    void linkDown() override;
    void receive(std::string_view bytes) override;
    void advanceTo(std::chrono::milliseconds now) override;
    std::optional<std::chrono::milliseconds> nextDue() const override;

    // What a complete line does, the terminator removed.
    void receiveLine(const std::string& line);
    // Puts a line that nobody asked for on the wire. Only the wire's faults touch it.
    void say(std::string line);

    // What happens by itself stands still until wakeLife() or the next link: for one who is on the line before
    // the console may hear the gateway.
    void restLife() { life.rest(currentTime); }
    void wakeLife();

    Faults& faults() { return activeFaults; }
    GatewayState& state() { return keptState; }
    std::string clockText() const { return keptState.clock.read(currentTime).text(); }
    std::chrono::milliseconds now() const { return currentTime; }

    // Every line that arrived, heard or not, passwords included, until it is forgotten.
    const std::vector<std::string>& linesReceived() const { return received; }
    void forgetLinesReceived() { received.clear(); }

private:
    void recordEarlierCalls(int count, std::uint64_t seed);
    bool hears(const std::string& line, const ReplyFaults& how);
    void sendDue();
    void carryOut(const std::string& line, const ReplyFaults& how);
    void reply(std::string line, std::chrono::milliseconds due, const ReplyFaults& how);

    Faults activeFaults;
    Random random;     // what the state is made of
    Random faultDice;  // apart from it, so that a fault does not make another gateway
    GatewayState keptState;
    LineCutter cutter;
    Outbox outbox;
    Life life;
    std::chrono::milliseconds currentTime{0};
    std::chrono::milliseconds lastReplyDue{0};
    std::map<std::string, int> tries;
    std::vector<std::string> received;
    bool linked = true;
    bool restarting = false;
};

}  // namespace simulator
