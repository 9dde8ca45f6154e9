#include "model/port_detection.h"

#include "text/text_rules.h"

namespace trunvex {

PortDetection::PortDetection(Session& session, SharedTables& tables) {
    session.dispatcher.on("A_PPR", [this, &session, &tables](const Record& record) {
        auto& state = session.state;
        state.gGotActivePorts = true;
        state.gActivePorts = trim(record.body);
        for (int position = 1; position <= portCount; ++position) {
            const auto [mcu, module] = portAtPosition(position);
            const bool active = mid(state.gActivePorts, static_cast<std::size_t>(position), 1) == "1";
            tables.port(mcu, module).Kind = active ? "GSM" : "ERR";
        }
        portsDetected.emit();
        session.writes.answered("PPR");
    });
}

}  // namespace trunvex
