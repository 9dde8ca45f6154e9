#include "model/port_detection.h"

#include "text/text_rules.h"

namespace trunvex {

PortDetection::PortDetection(Dispatcher& dispatcher, SessionState& session, SharedTables& tables, WriteQueue& writes) {
    dispatcher.on("A_PPR", [this, &session, &tables, &writes](const Record& record) {
        session.gGotActivePorts = true;
        session.gActivePorts = trim(record.body);
        for (int position = 1; position <= portCount; ++position) {
            const auto [mcu, module] = portAtPosition(position);
            const bool active = mid(session.gActivePorts, static_cast<std::size_t>(position), 1) == "1";
            tables.port(mcu, module).Kind = active ? "GSM" : "ERR";
        }
        portsDetected.emit();
        writes.answered("PPR");
    });
}

}  // namespace trunvex
