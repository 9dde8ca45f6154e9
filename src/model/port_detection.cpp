#include "model/port_detection.h"

#include "text/text_rules.h"

namespace trunvex {

PortDetection::PortDetection(Session& session, SharedTables& tables) {
    session.dispatcher.on("A_PPR", [this, &session, &tables](const Record& record) {
        auto& state = session.state;
        state.gGotActivePorts = true;
        state.gActivePorts = trim(record.body);
        for (const auto port : everyPort) {
            const bool active = mid(state.gActivePorts, port.slot() + 1, 1) == "1";
            tables.port(port).Kind = active ? "GSM" : "ERR";
        }
        portsDetected.emit();
        session.writes.answered("PPR");
    });
}

}  // namespace trunvex
