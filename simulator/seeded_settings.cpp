#include "simulator/seeded_settings.h"

#include "simulator/fields.h"

#include <array>
#include <initializer_list>

namespace simulator {

namespace {

// The values stand as often as they are likely.
const char* any(Random& random, std::initializer_list<const char*> values) {
    return values.begin()[random.between(0, static_cast<std::int64_t>(values.size()) - 1)];
}

std::string anyNumber(Random& random, int least, int most, int width = 1) {
    return padded(static_cast<int>(random.between(least, most)), width);
}

struct TimeTable {
    const char* time1;
    const char* days1;
    const char* time2;
    const char* days2;
};

constexpr std::array timeTables{
    TimeTable{"00080020", "62", "00000000", "0"},     // Monday to Friday 08:00 to 20:00
    TimeTable{"00080020", "62", "00093013", "1"},     // and Saturday 09:00 to 13:30
    TimeTable{"00205923", "127", "00000008", "127"},  // nights
};

void furnishTimes(SimRecord& record, Random& random) {
    if (random.chance(0.6)) return;
    const TimeTable& table =
        timeTables[static_cast<std::size_t>(random.between(0, static_cast<std::int64_t>(timeTables.size()) - 1))];
    record.time1 = table.time1;
    record.days1 = table.days1;
    record.time2 = table.time2;
    record.days2 = table.days2;
}

void lockTo(SimRecord& record, int bcch, Random& random) {
    record.cellLock = padded(bcch, 5);
    record.bcchRssi = anyNumber(random, 5, 15);
    record.bcchTimer = any(random, {"60", "300", "3600"});
    record.bcchNetId = any(random, {"99901", "99902"});
}

// No country has the code 999.
void furnishSim(SimRecord& record, Random& random) {
    record.phoneNumber = "+999555" + anyNumber(random, 0, 99999, 5);
    if (random.chance(0.5)) record.pin = anyNumber(random, 0, 9999, 4);
    if (random.chance(0.2)) record.predial = any(random, {"0", "00", "*31#"});
    record.callerId = any(random, {"0", "0", "1", "2"});
    if (random.chance(0.35)) {
        record.monthlyContract = any(random, {"300", "600", "1200", "3000"});
        record.callMinutes = anyNumber(random, 0, number(record.monthlyContract, 0, 59999).value_or(0));
    }
    furnishTimes(record, random);
    if (random.chance(0.25)) record.bundleFlags = any(random, {"160", "192", "224"});
}

// A backup hands the information of a module back only when its kind is left open, as it is for the first
// scale; the others say nothing about themselves.
void fitModule(Port& port, ModuleKind kind) {
    port.kind = kind;
    PortRecord& record = port.settings;
    if (kind != ModuleKind::gsm) record.moduleInfo = record.moduleInfo2 = "";
    if (kind == ModuleKind::gsmSecondScale) record.txLevel = record.rxLevel = "2";
    if (kind == ModuleKind::cdma) record.txLevel = record.rxLevel = "";
}

void furnishModule(Port& port, Random& random) {
    PortRecord& record = port.settings;
    record.moduleInfo = "GSM 900/1800";
    record.moduleInfo2 = any(random, {"Q4.21", "Q4.21", "Q4.36"});
    record.noRegTimer = any(random, {"120", "120", "90", "0"});
    record.txLevel = any(random, {"0", "0", "2", "252"});
    record.rxLevel = any(random, {"51", "51", "67", "35"});
    record.minDigits = any(random, {"3", "3", "4", "7"});
    record.maxDigits = any(random, {"12", "16", "32"});
    record.intDigPause = any(random, {"60", "80", "100"});
    record.sendComplete = any(random, {"0", "1"});
    record.relaxTime = any(random, {"0", "50", "100"});
    record.switchFlags = any(random, {"0", "0", "32", "8", "96"});
    record.simSwap = any(random, {"30", "60", "120"});
    if (random.chance(0.15)) fitModule(port, ModuleKind::gsmSecondScale);
}

}  // namespace

void furnishSettings(Port& port, Random& random) {
    if (!port.fitted()) return;
    furnishModule(port, random);
    for (int sim = 1; sim <= simsPerPort; ++sim) {
        if (port.sim(sim).state == simAbsent) continue;
        SimRecord& record = port.sim(sim).settings;
        furnishSim(record, random);
        const bool inUse = sim == port.activeSim();
        if (inUse && port.fixedBcch) lockTo(record, port.bcch, random);
        if (!inUse && random.chance(0.1)) lockTo(record, static_cast<int>(random.between(1, 124)), random);
    }
}

void furnishStatistics(Port& port, Random& random) {
    for (Sim& sim : port.sims) {
        if (sim.state == simAbsent) continue;
        sim.successful = sim.talkedSeconds / static_cast<int>(random.between(60, 240));
        sim.dialled = sim.successful * 100 / static_cast<int>(random.between(40, 85));
        if (random.chance(0.5)) sim.balance = anyNumber(random, 0, 60) + "." + anyNumber(random, 0, 99, 2);
    }
}

// The identity of a CDMA module is built in. It takes the first place, under which the port's reports go.
void fitCdmaModules(std::span<Port> ports, int count) {
    for (auto port = ports.rbegin(); port != ports.rend() && count > 0; ++port) {
        if (!port->inService()) continue;
        fitModule(*port, ModuleKind::cdma);
        Sim builtIn = port->sims[0];
        builtIn.state = simReady;
        builtIn.settings = {};
        port->sims = {builtIn, {}, {}, {}};
        port->fixedBcch = false;
        --count;
    }
}

}  // namespace simulator
