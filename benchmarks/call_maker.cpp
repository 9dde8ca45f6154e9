#include "call_maker.h"

#include <QtGlobal>
#include <string>
#include <vector>

#include "cdr/call_record.h"
#include "fakes/console_bench.h"
#include "platform/sqlite/sqlite_engine.h"
#include "simulator/call_records.h"

namespace bench {

namespace {

// Some months of a busy gateway, in the order in which they were fetched.
void fill(trunvex::Database& database, std::size_t rows) {
    std::string statement = "INSERT INTO CDR VALUES (?";
    for (std::size_t column = 1; column < trunvex::callColumnCount; ++column) statement += ",?";
    statement += ")";
    simulator::Random dice(11);
    std::chrono::sys_seconds ended = std::chrono::sys_days(std::chrono::January / 1 / 2026);
    trunvex::CDRSlot slot;
    database.execute("BEGIN");
    for (std::size_t row = 0; row < rows; ++row) {
        ended += std::chrono::seconds(dice.between(0, 20));
        auto call = simulator::someCallRecord(dice, ended);
        call.number = static_cast<int>(row % 65535) + 1;
        call.secondPort = dice.chance(0.5);
        const auto address = trunvex::getMCU_XY(static_cast<int>(dice.between(1, trunvex::cdrChannelCount)));
        const auto line = address + ",1," + call.text();
        trunvex::parseCallRecord(trunvex::splitString(line, ','), slot);
        const auto texts = trunvex::textsOf(slot);
        database.execute(statement, {texts.begin(), texts.end()});
    }
    database.execute("COMMIT");
    database.makeDurable();
}

}  // namespace

std::size_t callRows() {
    constexpr int standard = 1000000;
    const int wanted = qEnvironmentVariableIntValue("CALL_ROWS");
    return static_cast<std::size_t>(wanted > 0 ? wanted : standard);
}

const std::filesystem::path& bigCallDatabase() {
    static const trunvex::fakes::TemporaryFolder folder(CALL_TEMPLATE);
    static const auto file = [] {
        auto made = folder.path() / "data" / "CDRbig.mdb";
        std::filesystem::copy_file(folder.path() / "data" / "CDR.mdb", made);
        trunvex::SqliteEngine engine;
        fill(*engine.open(made), callRows());
        return made;
    }();
    return file;
}

void linkBigCallDatabase(const std::filesystem::path& applicationFolder, const char* esn) {
    std::filesystem::copy_file(bigCallDatabase(), applicationFolder / "data" / ("CDR" + std::string(esn) + ".mdb"));
}

}  // namespace bench
