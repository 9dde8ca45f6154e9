#include "config/routing/prefix_routing.h"

#include <map>

#include "config/routing/block_lines.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t prefixColumn = 0;
constexpr std::size_t mostNumber = 14;
constexpr std::size_t mostGroup = 3;
constexpr const char* figures = "0123456789";
constexpr const char* eraseCommand = "C_PRF00";
constexpr const char* eraseCaption = "Prefixes";

std::string prefixFault(const std::string& text) {
    if (text.empty()) return "A row needs a prefix.";
    return text.size() > mostNumber ? "- Max length of number is 14 digit ." : std::string();
}

// An empty cell is 0, which is no group and no code.
bool fitsOctet(const std::string& text) { return text.empty() || wholeWithin(text, 0, 255); }

std::string groupFault(const std::string& text) {
    if (text.size() > mostGroup) return "- Max number of Prefix group is 3 digit .";
    return fitsOctet(text) ? std::string() : "- The Prefix group number must be between 0 and 255 .";
}

std::string codeFault(const std::string& text) {
    return fitsOctet(text) ? std::string() : "- The 'MNP routing code' is a number between 0-255 .";
}

}  // namespace

PrefixRouting::PrefixRouting(const PageTools& tools, RoutingRecords& routing)
    : RoutingSide(tools, "Prefixes", "cmdTslUndoPrefixes", "cmdTslWritePrefixes"),
      ucTslPrefixes("ucTslPrefixes",
                    {{"Prefix", mostNumber, figures, false, prefixFault},
                     {"High Priority", mostGroup, figures, true, groupFault},
                     {"Low Priority", mostGroup, figures, true, groupFault},
                     {"MNP routing code", mostGroup, figures, true, codeFault}},
                    RoutingRecords::mostPrefixBlocks * RoutingRecords::rowsPerBlock),
      csv(tools, ucTslPrefixes, {"cmdTslImport", "cmdTslExport", "prefixes.csv", prefixColumn},
          [this](const std::string& word) { tell(word); }),
      routing_(routing), readBack_(tools, routing.prefixes, tableRead("R_PRF", "Prefix"),
                                   [this](const std::string& word) { tell(records.word() + ". " + word); }) {
    prefixes_.add(ucTslPrefixes);
    records.add(prefixes_, "Prefixes");
    routing_.prefixes.changed().connect([this] {
        if (routing_.prefixes.whole()) prefixes_.take({{&ucTslPrefixes, heldRows(routing_.prefixes)}});
        records.changed().emit();
    });
    ucTslPrefixes.valueChanged().connect([this] { followRows(); });
    chkPrfEraseFirst.valueChanged().connect([this] { followRows(); });
    cmdTslPrfEraseAll.pressed().connect([this] { eraseAll(); });
    followRows();
}

void PrefixRouting::followRows() {
    lblPrfEraseFirst.setText(chkPrfEraseFirst.checked()
                                 ? "From the erasing until the last block is in, calls find no prefix and are cleared."
                                 : "Rows of the gateway behind the last one that is written stay there.");
    std::map<std::string, std::size_t> first;
    std::string doubled;
    std::size_t count = 0;
    for (const auto row : filledRows(ucTslPrefixes)) {
        const auto& prefix = ucTslPrefixes.cell(row, prefixColumn);
        const auto [seen, isNew] = first.try_emplace(prefix, row);
        if (isNew || prefix.empty() || ++count > 3) continue;
        doubled += (doubled.empty() ? "" : ", ") + prefix + " (rows " + std::to_string(seen->second + 1) + " and " +
                   std::to_string(row + 1) + ")";
    }
    std::string text = doubled.empty() ? "" : "These prefixes stand twice: " + doubled;
    if (count > 3) text += " and " + std::to_string(count - 3) + " more";
    const auto empty = ucTslPrefixes.rowCount() - filledRows(ucTslPrefixes).size();
    if (empty > 0)
        text += (text.empty() ? "" : ". ") + std::string("Empty rows are not written: ") + std::to_string(empty);
    lblPrfDoubled.setText(text);
}

RoutingBatch PrefixRouting::build() {
    if (!prefixes_.edited() && routing_.prefixes.whole())
        return RoutingBatch::wrong({{}, noChangeText, nullptr, "info"});
    if (auto fault = gridFault(ucTslPrefixes, routing_.prefixes); !fault.word.empty())
        return RoutingBatch::wrong(std::move(fault));
    const auto rows = rowsToWrite(ucTslPrefixes, {1, 2, 3});
    prefixes_.respell({{&ucTslPrefixes, GridField::valueOf(rows)}});
    RoutingBatch batch;
    if (chkPrfEraseFirst.checked()) {
        batch.add(eraseCommand, eraseCaption);
        batch.names.back() = "the erasing";
    }
    addBlocks(batch, {"C_PRF", 2, "Prefixes block: "}, rows);
    if (batch.items.empty())
        return RoutingBatch::wrong(
            {{}, "The table is empty. Press Erase all to empty the gateway's.", nullptr, "info"});
    batch.whole = [this, rows] { readBack_.begin(rows); };
    return batch;
}

void PrefixRouting::eraseAll() {
    if (!tools_.connected()) return;
    if (!tools_.dialogs.agreed(Button::Yes,
                               {"All prefixes of the gateway are erased, and those on this page.\r\n"
                                "Calls by prefix are cleared until new ones are written. Erase?",
                                "warning", ButtonSet::YesNo, BoxIcon::Warning, 2},
                               forSession(tools_.session)))
        return;
    RoutingBatch batch;
    batch.add(eraseCommand, eraseCaption);
    batch.names.back() = "all";
    batch.whole = [this] {
        const auto word = records.word();
        ucTslPrefixes.replaceAll({});
        tell(word);
    };
    start(std::move(batch), "Erasing of the prefixes");
}

}  // namespace trunvex
