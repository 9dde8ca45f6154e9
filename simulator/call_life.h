#pragma once

#include "simulator/scene.h"

#include <array>
#include <functional>

namespace simulator {

struct CallEnd;

// Calls between a port and a B-channel, both ways. Each ends, and frees its port and its channel.
class CallLife {
public:
    explicit CallLife(Scene& ofScene);

    // The calls are cut without a word, as by a gateway that starts anew.
    void cutAll();
    // The call of this port, if it has one, ends as by a port that starts anew.
    void cut(int slot);

private:
    struct Call {
        int sim = 0;
        int channel = 0;               // 0: no call
        bool incoming = false;         // from the mobile side
        bool isdnAnswersLast = false;  // a call dialled by code 9
        std::string number;
        std::chrono::sys_seconds originated;
        std::optional<std::chrono::sys_seconds> answered;
        Scene::Milliseconds counted{0};  // the talk up to this moment is in the SIM's counter
        int talked = 0;                  // seconds of this call that are in it
        // Tells a call of a port from the ones before, so that what was planned for those does nothing.
        unsigned serial = 0;
    };

    void tryCall();
    void setUp(int slot, int channel);
    void connecting(int slot);
    void connect(int slot);
    void tick(int slot);
    void record(int slot, const CallEnd& how);
    void end(int slot, const CallEnd& how);
    // Ends it without a report.
    void clear(int slot, const CallEnd& how);

    // Does it unless the call has ended by then.
    void later(int slot, Scene::Milliseconds delay, std::function<void(CallLife&, int)> step);
    void endLater(int slot, Scene::Milliseconds delay, const CallEnd& how);
    Call& call(int slot) { return calls[static_cast<std::size_t>(slot)]; }
    Bearer& bearer(int slot) { return scene.state.bearers[static_cast<std::size_t>(call(slot).channel - 1)]; }
    std::string counter(int slot);
    std::string someNumber();

    Scene& scene;
    std::array<Call, portCount> calls;
};

}  // namespace simulator
