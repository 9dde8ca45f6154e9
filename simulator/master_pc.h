#pragma once

#include "simulator/gateway.h"

#include <string>

namespace simulator {

struct MasterOptions {
    // Empty: a number of the seed. The console takes what follows the first "D" behind it as the identity,
    // and finds the verb by looking for PSW, STAT, PING and ID in this order: an id of other letters than
    // digits may mislead it.
    std::string sessionId;
    std::string password;  // empty: any password will do
    std::string unit;      // empty: any unit will do
    bool refuses = false;
    std::chrono::milliseconds pingInterval{30000};  // 0: no pings
    bool announces = false;                         // says whom it stands for right after it has accepted
    std::uint64_t seed = 1;
};

// A master PC between the console and the gateway. It asks the console for a password first and hands on
// nothing before it has accepted it; then everything goes through but the words between the two. The master's
// words go out by the gateway's side of the link, so they fall under the same wire faults.
class MasterPc : public Station {
public:
    // Without a console until linkUp(). The gateway must outlive this one and is driven through it alone.
    MasterPc(Gateway& behind, MasterOptions masterOptions = {});
    MasterPc(const MasterPc&) = delete;
    MasterPc& operator=(const MasterPc&) = delete;

    void linkUp() override;
    void linkDown() override;
    void receive(std::string_view bytes) override;
    void advanceTo(std::chrono::milliseconds now) override;
    std::optional<std::chrono::milliseconds> nextDue() const override;

    // SRV<id>:ID<esn>,<six clock fields>: the gateway's identity and time. The "D" of the verb is the one
    // that the console looks for.
    void announce();
    // Tells of an update of the master that goes on: "Master Updating" and this text.
    void tellUpdate(const std::string& progress);
    void ping();

    bool accepted() const { return state == State::accepted; }
    const std::string& sessionId() const { return session; }
    int pings() const { return pingsSent; }
    int pongs() const { return pongsReceived; }   // the answers to ping() and announce()
    int ignored() const { return linesIgnored; }  // lines that were kept from the gateway, and wrong words

private:
    enum class State { noConsole, asked, accepted, refused };

    void takeLine(const std::string& line);
    void takeWord(std::string_view word);
    void judge(std::string_view credentials);
    void say(const std::string& word) { gateway.say("SRV" + session + ":" + word); }

    Gateway& gateway;
    const MasterOptions options;
    Random random;
    LineCutter cutter;
    State state = State::noConsole;
    std::string session;
    std::optional<std::chrono::milliseconds> nextPing;
    int pingsSent = 0;
    int pongsReceived = 0;
    int linesIgnored = 0;
};

}  // namespace simulator
