#include "config/routing/access_routing.h"

#include "config/routing/block_lines.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t numberColumn = 0;
constexpr std::size_t mostNumber = 14;
constexpr const char* gsmName = "Incoming GSM Call(CLIP)";
constexpr const char* isdnName = "Incoming ISDN Call(CLIP)";

std::string numberFault(const std::string& text) {
    if (text.empty()) return "A row needs a number.";
    return text.size() > mostNumber ? "- Max length of number is 14 digit ." : std::string();
}

std::string flagFault(const std::string& text) {
    return text == "0" || text == "1" ? std::string()
                                      : "- Value of 'Access to E1' must to be 0 or 1 (disable /enable) .";
}

}  // namespace

AccessRouting::AccessRouting(const PageTools& tools, RoutingRecords& routing)
    : RoutingSide(tools, "Access list", "cmdTslUndoAccess", "cmdTslWriteAccE1"),
      ucTslAccessE1("ucTslAccessE1",
                    {{gsmName, mostNumber, "0123456789*#+", false, numberFault},
                     {"Enable/Disable (1/0)", 1, "", true, flagFault}},
                    RoutingRecords::mostAccessBlocks * RoutingRecords::rowsPerBlock),
      csv(tools, ucTslAccessE1, {"cmdTslAccImport", "cmdTslAccExport", "access.csv", numberColumn},
          [this](const std::string& word) { tell(word); }),
      routing_(routing), gsmBack_(tools, routing.fromGsm.table, tableRead("R_ICL", "Access to E1"),
                                  [this](const std::string& word) { tell(records.word() + ". " + word); }),
      isdnBack_(tools, routing.fromIsdn.table, tableRead("R_IIL", "Access to GSM"),
                [this](const std::string& word) { tell(records.word() + ". " + word); }) {
    for (InputField* field : std::initializer_list<InputField*>{&cmbAccessMode, &chkNumList, &ucTslAccessE1})
        access_.add(*field);
    records.add(access_, gsmName);
    cmbTslAccessE1.setIndex(0);
    cmbTslAccessE1.valueChanged().connect([this] { turn(); });
    for (auto* told : {&routing_.fromGsm, &routing_.fromIsdn})
        told->table.changed().connect([this, told] { take(*told); });
    ucTslAccessE1.valueChanged().connect([this] {
        const auto empty = ucTslAccessE1.rowCount() - filledRows(ucTslAccessE1).size();
        lblAccessEmpty.setText(empty == 0 ? "" : "Empty rows are not written: " + std::to_string(empty));
    });
    cmdTslWriteAccGSM.pressed().connect([this] { send(); });
    followButtons();
}

void AccessRouting::turn() {
    if (cmbTslAccessE1.index() == ChoiceField::none) return;
    records.setWord({});
    access_.turnTo(showsGsm() ? gsmName : isdnName);
    ucTslAccessE1.setHeading(numberColumn, access_.key());
    followButtons();
    show(list());
}

// Of the list that is not shown, edits that were written meanwhile are none any more.
void AccessRouting::take(const RoutingRecords::AccessList& told) {
    if (&told == &list()) {
        show(told);
        return;
    }
    const auto rows = told.table.whole() ? heldRows(told.table) : std::string();
    access_.settleDraft(showsGsm() ? isdnName : gsmName, [&](const InputField& field, const std::string& value) {
        return told.table.whole() && value == (&field == &cmbAccessMode ? told.mode
                                               : &field == &chkNumList  ? told.unlisted
                                                                        : rows);
    });
}

void AccessRouting::show(const RoutingRecords::AccessList& told) {
    if (!told.table.whole() || told.mode.empty() || told.unlisted.empty()) {
        records.changed().emit();
        return;
    }
    access_.take({{&cmbAccessMode, told.mode}, {&chkNumList, told.unlisted}, {&ucTslAccessE1, heldRows(told.table)}});
}

void AccessRouting::holdWrites(bool held) {
    writesHeld_ = held;
    followButtons();
}

void AccessRouting::followButtons() {
    cmdTslWriteAccGSM.setVisible(showsGsm());
    write.setVisible(!showsGsm());
    cmdTslWriteAccGSM.setEnabled(showsGsm() && !writesHeld_);
    write.setEnabled(!showsGsm() && !writesHeld_);
}

void AccessRouting::park() {
    records.park(tools_.session.gESN);
    show(list());
}

RoutingBatch AccessRouting::build() {
    if (!access_.edited() && list().table.whole()) return RoutingBatch::wrong({{}, noChangeText, nullptr, "info"});
    if (list().mode.empty() || list().unlisted.empty())
        return RoutingBatch::wrong(BuiltLine::wrong(nothingReadText, ucTslAccessE1));
    if (auto fault = gridFault(ucTslAccessE1, list().table); !fault.word.empty())
        return RoutingBatch::wrong(std::move(fault));
    const auto rows = rowsToWrite(ucTslAccessE1, {});
    access_.respell({{&cmbAccessMode, cmbAccessMode.value()},
                     {&chkNumList, chkNumList.value()},
                     {&ucTslAccessE1, GridField::valueOf(rows)}});
    RoutingBatch batch;
    const auto header = "000," + cmbAccessMode.value() + "," + chkNumList.value();
    if (showsGsm())
        batch.add("C_ICL" + header, "Access to E1 Options");
    else
        batch.add("C_IIL" + header, "Access to GSM Mode/Unlisted");
    addBlocks(
        batch,
        showsGsm() ? BlockLines{"C_ICL", 3, "Access to E1 block: "} : BlockLines{"C_IIL", 3, "Access to GSM block: "},
        rows);
    batch.whole = [&back = showsGsm() ? gsmBack_ : isdnBack_, rows] { back.begin(rows); };
    return batch;
}

}  // namespace trunvex
