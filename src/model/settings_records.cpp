#include "model/settings_records.h"

namespace trunvex {

namespace {

constexpr char acknowledgement = 'C';  // a line of the console's own, in place of the gateway's 'A'

bool isAcknowledged(const Record& record) { return record.mnemonic[0] == acknowledgement; }

}  // namespace

SettingsRecords::SettingsRecords(Session& session, SharedTables& tables) {
    session.events.begun.connect([&tables] { tables.reset(); });
    session.events.tornDown.connect([&tables] { tables.forgetRecords(); });
    auto& dispatcher = session.dispatcher;
    const auto takePort = [this, &tables](const Record& record) {
        const auto fields = record.fields();
        const auto address = PortAddress::parse(fields.at(0));
        auto& port = tables.port(address);
        const auto kindBefore = port.Kind;
        storePort(port, fields, isAcknowledged(record));
        if (port.Kind != kindBefore) kindsChanged.emit();
        portStored.emit(address);
    };
    const auto takeSim = [this, &tables](const Record& record) {
        const auto fields = record.fields();
        const auto address = SimAddress::parse(fields.at(0));
        storeSim(tables.sim(address), fields, isAcknowledged(record));
        simStored.emit(address);
    };
    const auto takeIsdn = [this, &tables](const Record& record) {
        storeIsdn(tables.isdn, isdnFields(record.body), isAcknowledged(record));
        isdnStored.emit();
    };
    for (const char* mnemonic : {"A_MOD", "C_MOD"}) dispatcher.on(mnemonic, takePort);
    for (const char* mnemonic : {"A_SIM", "C_SIM"}) dispatcher.on(mnemonic, takeSim);
    for (const char* mnemonic : {"A_ISD", "C_ISD"}) dispatcher.on(mnemonic, takeIsdn);
}

}  // namespace trunvex
