#include "cdr/call_files.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/durable_file.h"

namespace trunvex {

namespace {

constexpr mode_t ownersOnly = 0600;  // as the journal: numbers of callers

struct MessageTable {
    const char* name;
    const char* columns;
    std::size_t count;
};

constexpr std::array<MessageTable, 2> messageTables{
    {{"SMS", "port, sim, recvTime, resvNum, MSG", 5}, {"LOG", "port, sim, Log, time", 4}}};

std::filesystem::path keptFor(std::filesystem::path database) { return database.replace_extension(".kept"); }

bool hasRows(Database& from) {
    for (const auto& table : messageTables)
        if (from.query(std::string("SELECT 1 FROM ") + table.name + " LIMIT 1")->next()) return true;
    return false;
}

void copyRows(Database& from, Database& into, const MessageTable& table) {
    const std::string columns = table.columns;
    const auto rows = from.query("SELECT " + columns + " FROM " + table.name);
    std::string marks = "?";
    for (std::size_t column = 1; column < table.count; ++column) marks += ", ?";
    const auto insert = std::string("INSERT INTO ") + table.name + " (" + columns + ") VALUES (" + marks + ")";
    std::vector<std::string_view> values(table.count);
    while (rows->next()) {
        for (std::size_t column = 0; column < table.count; ++column)
            values[column] = rows->text(static_cast<int>(column));
        into.execute(insert, values);
    }
}

}  // namespace

CallFiles::CallFiles(DatabaseEngine& engine, const std::filesystem::path& folder)
    : engine_(engine), template_(folder / "CDR.mdb") {}

void CallFiles::make(const std::filesystem::path& database) {
    engine_.removeBeside(database);
    if (std::filesystem::exists(keptFor(database))) {
        std::filesystem::rename(keptFor(database), database);
        syncFolderOf(database);
        return;
    }
    FreshFile fresh(database);  // a copy that a crash has cut short must never be taken for a database
    fresh.create(ownersOnly);
    fresh.write(wholeContent(template_));
    fresh.putInPlace();
}

void CallFiles::keepMessages(Database& from, const std::filesystem::path& database) {
    dropKept(database);
    if (!hasRows(from)) return;
    FreshFile fresh(keptFor(database));
    engine_.remove(fresh.path());
    fresh.create(ownersOnly);
    fresh.write(wholeContent(template_));
    {
        const auto into = engine_.open(fresh.path());
        into->execute("BEGIN IMMEDIATE");
        for (const auto& table : messageTables) copyRows(from, *into, table);
        into->execute("COMMIT");
        into->makeDurable();
    }
    fresh.putInPlace();
}

void CallFiles::dropKept(const std::filesystem::path& database) { std::filesystem::remove(keptFor(database)); }

}  // namespace trunvex
