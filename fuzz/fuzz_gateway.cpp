// The simulated gateway takes whatever a console may send.
#include <cstdint>
#include <string_view>

#include "simulator/master_pc.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulator::Gateway gateway{{}};
    simulator::MasterPc master(gateway);
    std::size_t sent = 0;
    gateway.onOutput = [&](std::string_view bytes) { sent += bytes.size(); };
    master.onOutput = gateway.onOutput;
    gateway.onHangUp = master.onHangUp = [] {};
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    gateway.receive(bytes);
    gateway.advanceTo(std::chrono::milliseconds(1000));
    master.linkUp();
    master.receive(bytes);
    master.advanceTo(std::chrono::milliseconds(2000));
    return 0;
}
