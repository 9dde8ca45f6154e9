#include "model/routing_records.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "model/columns.h"
#include "model/status_reports.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

bool isAcknowledged(const Record& record) { return record.mnemonic[0] == 'C'; }

// What a record tells of a value. Of the console's own lines an empty field leaves the value as it is.
void take(std::string& value, const Fields& fields, std::size_t at, bool acknowledged) {
    const auto field = sentField(fields, at);
    if (at + 1 < fields.size() && !(acknowledged && field.empty())) value = field;
}

// The same for a number, as the console compares it: "05" is 5.
void takeNumber(std::string& value, const Fields& fields, std::size_t at, bool acknowledged) {
    const auto field = sentField(fields, at);
    if (isWhole(field))
        value = std::to_string(val(field));
    else
        take(value, fields, at, acknowledged);
}

void takeFlag(std::string& value, const Fields& fields, std::size_t at, bool acknowledged) {
    const auto field = sentField(fields, at);
    if (at + 1 < fields.size() && !(acknowledged && field.empty())) value = lowBit(field) ? "1" : "0";
}

std::size_t numberOf(std::string_view field) {
    if (!isWhole(field)) throw std::invalid_argument("no number of a block");
    return static_cast<std::size_t>(val(field));
}

// The rows behind the number of a block.
std::vector<TextRow> rowsOf(const Fields& fields, std::size_t columns) {
    std::vector<TextRow> rows;
    for (std::size_t at = 1; at + 1 < fields.size(); ++at) {
        if ((at - 1) % columns == 0) rows.emplace_back();
        rows.back().emplace_back(fields.at(at));
    }
    return rows;
}

void takeBlock(BlockTable& table, const Record& record) {
    const auto fields = record.fields();
    const auto block = numberOf(fields.at(0));
    auto rows = block == 0 ? std::vector<TextRow>() : rowsOf(fields, table.shape().columns);
    if (isAcknowledged(record))
        table.overlay(block, rows);
    else
        table.tell(block, std::move(rows));
}

// How many entries the gateway says it has, and how many came.
std::optional<std::int64_t> entriesTold(const RoutingRecords::DirectLines& lines) {
    if (!isWhole(lines.limited) || !isWhole(lines.unlimited)) return {};
    return val(lines.limited) + val(lines.unlimited);
}
std::int64_t entriesHeld(const BlockTable& table) {
    return std::ranges::count_if(table.rows(), [](const TextRow& row) { return !row.front().empty(); });
}

constexpr std::size_t ofBlocks = RoutingRecords::rowsPerBlock;

}  // namespace

RoutingRecords::RoutingRecords(Session& session)
    : modifications(session.platform, {2, 1, mostModifications}),
      prefixes(session.platform, {4, ofBlocks, mostPrefixBlocks}), fromGsm{{},
                                                                           {},
                                                                           BlockTable(session.platform,
                                                                                      {2, ofBlocks, mostAccessBlocks})},
      fromIsdn{{}, {}, BlockTable(session.platform, {2, ofBlocks, mostAccessBlocks})},
      directLines{{}, {}, {}, BlockTable(session.platform, {3, 1, mostDirectLines, true})},
      realTimeUpdate_(session.realTimeUpdate) {
    session.events.begun.connect([this] { forget(); });
    session.events.tornDown.connect([this] { forget(); });
    auto& dispatcher = session.dispatcher;
    const auto both = [&dispatcher](const std::string& letters, const Dispatcher::Handler& handler) {
        dispatcher.on("A_" + letters, handler);
        dispatcher.on("C_" + letters, handler);
    };
    both("SEL", [this](const Record& record) { takeAllocation(record); });
    both("WTP", [this](const Record& record) {
        takeNumber(waitTenths_, record.fields(), 0, isAcknowledged(record));
        waitStored.emit();
    });
    both("PRT", [this](const Record& record) { takePort(record); });
    both("BCH", [this](const Record& record) { takeLine(record); });
    both("CCC", [this](const Record& record) { takeCauses(record); });
    both("EDN", [this](const Record& record) { takeModifications(record); });
    both("PRF", [this](const Record& record) { takePrefixes(record); });
    both("ICL", [this](const Record& record) { takeAccess(fromGsm, record); });
    both("IIL", [this](const Record& record) { takeAccess(fromIsdn, record); });
    addTables(session);
}

void RoutingRecords::addTables(Session& session) {
    auto& dispatcher = session.dispatcher;
    dispatcher.on("A_DST", [this](const Record& record) {
        const auto fields = record.fields();
        take(directLines.mode, fields, 0, false);
        take(directLines.limited, fields, 1, false);
        take(directLines.unlimited, fields, 2, false);
        if (const auto told = entriesTold(directLines); told && *told != entriesHeld(directLines.table))
            directLines.table.doubt();
        directLines.table.changed().emit();
    });
    dispatcher.on("A_DAC", [this](const Record& record) { takeBlock(directLines.table, record); });
    dispatcher.on("C_DAC", [this](const Record& record) {
        if (record.body.empty()) directLines.table.erase();
    });
    dispatcher.on("C_DLC", [this](const Record& record) { takeDirectLine(record, true); });
    dispatcher.on("C_DUC", [this](const Record& record) { takeDirectLine(record, false); });
}

void RoutingRecords::forget() {
    allocation_ = {};
    waitTenths_.clear();
    ports_ = {};
    lines_ = {};
    causes_ = {};
    modificationMode_.clear();
    for (auto* list : {&fromGsm, &fromIsdn}) {
        list->mode.clear();
        list->unlisted.clear();
        list->table.forget();
    }
    directLines.mode.clear();
    directLines.limited.clear();
    directLines.unlimited.clear();
    directLines.table.forget();
    modifications.forget();
    prefixes.forget();
}

void RoutingRecords::takeAllocation(const Record& record) {
    const auto fields = record.fields();
    const bool acknowledged = isAcknowledged(record);
    takeNumber(allocation_.mode, fields, 0, acknowledged);
    takeNumber(allocation_.prefixDigits, fields, 1, acknowledged);
    takeFlag(allocation_.mnp, fields, 2, acknowledged);
    allocationStored.emit();
    realTimeUpdate_("SEL", fields);
}

// A short record leaves alone what it does not tell.
void RoutingRecords::takePort(const Record& record) {
    const auto fields = record.fields();
    const auto address = PortAddress::parse(fields.at(0));
    const bool acknowledged = isAcknowledged(record);
    auto& port = ports_[address.slot()];
    takeFlag(port.enabled, fields, 1, acknowledged);
    takeNumber(port.channel, fields, 2, acknowledged);
    takeNumber(port.group, fields, 3, acknowledged);
    portStored.emit(address);
    realTimeUpdate_("PRT", fields);
}

void RoutingRecords::takeLine(const Record& record) {
    const auto fields = record.fields();
    const auto number = val(fields.at(0));
    if (number < 1 || number > lineCount) throw std::out_of_range("no such line");
    auto& line = lines_[static_cast<std::size_t>(number - 1)];
    takeFlag(line.enabled, fields, 1, isAcknowledged(record));
    take(line.number, fields, 2, isAcknowledged(record));
    lineStored.emit(static_cast<int>(number));
    realTimeUpdate_("BCH", fields);
}

// The list may begin with a separator, which the splitter leaves in the first field.
void RoutingRecords::takeCauses(const Record& record) {
    const auto fields = splitString(record.body.substr(record.body.starts_with(',') ? 1 : 0), ',');
    for (std::size_t i = 0; i < causeCount; ++i) takeNumber(causes_[i], fields, i, isAcknowledged(record));
    causesStored.emit();
}

void RoutingRecords::takeModifications(const Record& record) {
    const auto fields = record.fields();
    if (numberOf(fields.at(0)) == 0) {
        takeNumber(modificationMode_, fields, 1, isAcknowledged(record));
        modificationModeStored.emit();
    }
    takeBlock(modifications, record);
}

void RoutingRecords::takePrefixes(const Record& record) {
    if (isAcknowledged(record) && numberOf(record.fields().at(0)) == 0)
        prefixes.erase();
    else
        takeBlock(prefixes, record);
}

void RoutingRecords::takeAccess(AccessList& list, const Record& record) {
    const auto fields = record.fields();
    if (numberOf(fields.at(0)) == 0) {
        take(list.mode, fields, 1, isAcknowledged(record));
        takeFlag(list.unlisted, fields, 2, isAcknowledged(record));
        if (isAcknowledged(record)) list.table.changed().emit();
    }
    takeBlock(list.table, record);
}

// Without a body all of the kind are erased; else the entry's number, "1" and its cells, or "0" when it is no more.
void RoutingRecords::takeDirectLine(const Record& record, bool limited) {
    if (record.body.empty()) {
        eraseDirectLines(limited);
        return;
    }
    const auto fields = record.fields();
    const auto entry = numberOf(fields.at(0));
    if (entry == 0) throw std::out_of_range("no such entry");
    TextRow cells;
    if (fields.at(1) == "1")
        cells = {std::string(fields.at(2)), std::string(fields.at(3)), std::string(limited ? fields.at(4) : "")};
    directLines.table.putRow(entry - 1, std::move(cells));
}

void RoutingRecords::eraseDirectLines(bool limited) {
    const auto rows = directLines.table.rows();
    for (std::size_t row = 0; row < rows.size(); ++row)
        if (!rows[row][0].empty() && rows[row][2].empty() != limited) directLines.table.putRow(row, {});
}

}  // namespace trunvex
