// A whole console takes whatever bytes a peer may send, cut anywhere, while its log-in, a read batch and the operator's
// answers go on. Each input byte 0x01 to 0x08 between lines is a move of the other side or of the time.
#include <cstdint>

#include "fakes/console_bench.h"

using trunvex::Button;

namespace {

// The dialog, which reads the settings files, is shown once; later connections go the way of a retry.
void connect(trunvex::fakes::ConsoleBench& bench) {
    if (bench.console.session.state.gConnType.empty()) {
        bench.connect();
        return;
    }
    bench.console.session.bringUp.ConnectChange("connect", false);
    bench.platform.peer.accepts();
}

void move(trunvex::fakes::ConsoleBench& bench, std::uint8_t what) {
    auto& console = bench.console;
    switch (what) {
        case 1:
            bench.advance(1);
            break;
        case 2:
            bench.advance(600);
            break;
        case 3:
            bench.advance(20000);
            break;
        case 4:
            console.mainWindow.openPage("system");
            break;
        case 5:
            console.mainWindow.openPage("sim");
            break;
        case 6:
            bench.platform.peer.closes();
            break;
        case 7:
            bench.platform.peer.fails("reset");
            break;
        default:
            bench.platform.boxes.answers = {Button::Retry, Button::Ignore, Button::Yes};
            break;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // One console for the whole run: a session must leave nothing behind that harms the next.
    static trunvex::fakes::ConsoleBench bench;
    bench.platform.boxes.shown.clear();
    bench.platform.boxes.answers.clear();
    bench.platform.peer.sent.clear();
    connect(bench);
    std::string piece;
    for (std::size_t i = 0; i < size; ++i) {
        auto& peer = bench.platform.peer;
        const bool isMove = data[i] >= 1 && data[i] <= 8;
        if (!isMove) piece += static_cast<char>(data[i]);
        if ((isMove || i + 1 == size) && peer.reached()) {
            peer.deliver(std::exchange(piece, {}));
            if (isMove) move(bench, data[i]);
        } else if (isMove && peer.state == trunvex::BytePipe::State::Closed) {
            connect(bench);
        } else if (isMove && peer.state == trunvex::BytePipe::State::Opening) {
            peer.accepts();
        }
    }
    if (bench.console.session.state.sessionFlag) bench.console.session.bringUp.ConnectChange("disconnect", true);
    if (bench.platform.loop.runningTimers() != 0) __builtin_trap();
    return 0;
}
