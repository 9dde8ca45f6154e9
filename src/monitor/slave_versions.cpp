#include "monitor/slave_versions.h"

#include "text/text_rules.h"

namespace trunvex {

SlaveVersions::SlaveVersions(Session& session, SharedTables& tables, BoardOperations& operations)
    : session_(session), tables_(tables), operations_(operations) {
    session.dispatcher.on("A_SID", [this](const Record& record) { updateAllSID(record.fields()); });
    session.events.begun.connect([this] { lstSID.clear(); });
    cmdGeSID.pressed().connect([this] { read(); });
}

void SlaveVersions::updateAllSID(const Fields& fields) {
    const auto port = PortAddress::parse(fields.at(0));
    const auto number = std::to_string(port.number());
    if (fields.at(1) == endMark) return;
    lstSID.put({number, {"Port " + number, escaped(fields.at(1))}, {static_cast<double>(port.number()), 0}});
}

void SlaveVersions::read() {
    if (!operations_.mayAsk()) return;
    std::vector<QueueItem> batch;
    for (const auto port : everyPort)
        if (tables_.port(port).Kind != "ERR")
            batch.push_back(command("R_SID" + port.digits(), "version of port " + std::to_string(port.number())));
    session_.refreshes.start(std::move(batch));
}

}  // namespace trunvex
