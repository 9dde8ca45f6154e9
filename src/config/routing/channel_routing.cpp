#include "config/routing/channel_routing.h"

#include <algorithm>

#include "config/grid_rows.h"
#include "config/page_table.h"
#include "config/routing/routing_texts.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t mostNumberDigits = 15;  // of an international number, E.164
constexpr std::size_t causeColumn = 1;

std::string causeFault(const std::string& text) {
    return wholeWithin(text, 0, 255) ? std::string() : "-Max number of cause is 255.";
}

std::string lineCaption(int line) {
    return line <= ChannelRouting::channels ? "B-CH " + std::to_string(line)
                                            : "Outgoing Num. " + std::to_string(line - ChannelRouting::channels);
}

}  // namespace

const std::array<const char*, RoutingRecords::causeCount> clearingReasons{
    "Disabled B-channel",
    "Disabled Port",
    "Reserved Port",
    "Port is not present",
    "No Free Ports",
    "Port is Temporarily Closed",
    "Port is in Download Mode",
    "Prefix Group is without Ports",
    "Prefix is not defined",
    "Gateway is in Testing Mode",
    "Gateway is in Setup Mode",
    "Incoming GSM call not allowed, or CLI not in list",
    "No free B-Channel",
    "Incoming ISDN call not allowed, or CLI not in list",
    "Ported Router Prefix",
    "Reserved",
};

ChannelRouting::ChannelRouting(const PageTools& tools, RoutingRecords& routing)
    : RoutingSide(tools, "Channels and causes", "cmdTslUndo_BCH", "cmdTSLWrite_BCH"),
      ucTslClearCause(
          "ucTslClearCause",
          {{"The calling B-ch not got the PORT", 0, "", false, {}, true}, {"Cause", 3, "0123456789", true, causeFault}},
          RoutingRecords::causeCount),
      routing_(routing) {
    ucTslClearCause.fixRows();
    for (int i = 0; i < channels; ++i) {
        chkTSLChannel.emplace_back(arrayName("chkTSLChannel", i), "B-ch #" + std::to_string(i + 1));
        txtTSLNumber.emplace_back(arrayName("txtTSLNumber", i));
    }
    for (int line = 1; line <= RoutingRecords::lineCount; ++line) {
        auto& form = lines_.emplace_back();
        if (line <= channels) form.add(chkTSLChannel[static_cast<std::size_t>(line - 1)]);
        form.add(numberField(line));
        records.add(form, lineCaption(line));
    }
    causes_.add(ucTslClearCause);
    records.add(causes_, "Call Clearing Causes");
    routing_.lineStored.connect([this](int number) { showLine(number); });
    routing_.causesStored.connect([this] { showCauses(); });
    chkTSLAllChannel.pressed().connect([this] {
        for (std::size_t i = 0; i < chkTSLChannel.size(); ++i)
            if (lines_[i].known()) chkTSLChannel[i].setChecked(chkTSLAllChannel.checked());
    });
}

TextField& ChannelRouting::numberField(int line) {
    const auto at = static_cast<std::size_t>(line - 1);
    return line <= channels ? txtTSLNumber[at] : txtBCHOutNum.at(at - channels);
}

void ChannelRouting::showLine(int number) {
    const auto& told = routing_.line(number);
    if (told.enabled.empty()) return;
    const auto at = static_cast<std::size_t>(number - 1);
    RecordForm::Values values{{&numberField(number), escaped(told.number)}};
    if (number <= channels) values[&chkTSLChannel[at]] = told.enabled;
    lines_[at].take(values);
}

void ChannelRouting::showCauses() {
    std::vector<TextRow> rows;
    for (std::size_t i = 0; i < clearingReasons.size(); ++i)
        rows.push_back({clearingReasons[i], escaped(routing_.causes()[i])});
    causes_.take({{&ucTslClearCause, GridField::valueOf(rows)}});
}

BuiltLine ChannelRouting::firstFault() {
    if (!records.edited()) return {{}, noChangeText, nullptr, "info"};
    for (int line = 1; line <= RoutingRecords::lineCount; ++line) {
        const auto& form = lines_[static_cast<std::size_t>(line - 1)];
        auto& field = numberField(line);
        if (form.edited() && !form.known()) return BuiltLine::wrong(form.key() + ": " + nothingReadText, field);
        if (form.edited(field) && field.text().empty())
            return BuiltLine::wrong(form.key() + ": an empty number leaves the old one in the gateway. Enter another.",
                                    field);
        if (!untouched(field) && !isDialled(field.text(), mostNumberDigits))
            return BuiltLine::wrong(form.key() + ": a number has at most 15 digits.", field);
    }
    if (const auto wrong = ucTslClearCause.firstProblem(); wrong && causes_.edited())
        return BuiltLine::wrong("Row " + std::to_string(wrong->row + 1) + ": " + ucTslClearCause.problemOf(*wrong),
                                ucTslClearCause);
    return {};
}

std::string ChannelRouting::number(int line) {
    const auto& field = numberField(line);
    return untouched(field) ? routing_.line(line).number : field.text();
}

// All that is known goes out, changed or not: behind the restart the gateway works by one picture.
RoutingBatch ChannelRouting::build() {
    if (auto fault = firstFault(); !fault.word.empty()) return RoutingBatch::wrong(std::move(fault));
    RoutingBatch batch;
    for (int line = 1; line <= RoutingRecords::lineCount; ++line) {
        const auto at = static_cast<std::size_t>(line - 1);
        if (!lines_[at].known()) continue;
        const auto enabled = line <= channels ? chkTSLChannel[at].value() : "1";
        batch.add("C_BCH" + twoDigits(line) + "," + enabled + "," + number(line), lineCaption(line));
    }
    if (causes_.known()) {
        std::string line = "C_CCC";
        for (std::size_t row = 0; row < ucTslClearCause.rowCount(); ++row)
            line += "," + (causes_.edited() ? ucTslClearCause.cell(row, causeColumn) : routing_.causes()[row]);
        batch.add(line, "Call Clearing Causes");
    }
    batch.items.push_back(restartRequest());
    batch.names.push_back(batch.items.back().Caption);
    return batch;
}

}  // namespace trunvex
