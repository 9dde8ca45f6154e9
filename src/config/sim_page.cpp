#include "config/sim_page.h"

#include <algorithm>

#include "model/node_key.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int byRefill = 2;
constexpr const char* noLimit = "59999";

std::vector<std::string> signalLevels() {
    std::vector<std::string> levels;
    for (int level = 0; level <= highestSignalLevel; ++level) levels.push_back(signalLevelWords(level));
    return levels;
}

// Empty, or digits with a plus in front of an international number.
bool isPhoneNumber(std::string_view text) {
    constexpr std::size_t mostDigits = 20;
    const auto digits = text.substr(text.substr(0, 1) == "+" ? 1 : 0);
    return text.empty() || (!digits.empty() && digits.size() <= mostDigits &&
                            digits.find_first_not_of("0123456789") == std::string_view::npos);
}

}  // namespace

SimPage::SimPage(const PageTools& tools, PortTree& tree, SettingsRecords& records, GroupWrite& groupWrite)
    : NodePage(tools, tree, groupWrite,
               {lblSimCaption, lblSimHint, lblSimRemark, chkIncGrpSim, cmdUndoSim, cmdSimRefresh, cmdWriteSIM}) {
    cmbBcchRssi.setItems(signalLevels());
    bindFields();
    bindCellLock();
    bindBundle();
    table_.add(timeTable.row(IncTimeTable, "Time table"));
    table_.addFieldsTo(form);
    table_.addBoxesTo(chkIncGrpSim, "chkIncGrpSim");
    timeTable.followTurns();
    records.simStored.connect([this](SimAddress sim) {
        if (node_key::simOf(key_) == sim) refresh();
    });
    tools_.reads.onComplete("SIM", [this](const std::string& command) {
        if (showsGroup() && command == "R_" + readKey()) refresh();
    });
    begin(table_.boxedFields());
}

std::array<TimeRow, timeRowCount> SimPage::rowsAsEdited(SimAddress sim) const {
    const auto& held = tools_.tables.sim(sim);
    const auto edits = form.editsOf(node_key::sim(sim));
    if (edits.empty()) return held.rows;
    auto values = table_.held(held);
    for (const auto& [field, value] : edits) values[field] = value;
    return timeTable.rowsOf(values);
}

void SimPage::bindFields() {
    table_.add({IncPhoneNumber,
                "Phone number",
                {{txtPhoneNum, told(&SimRec::PhoneNumber)}},
                {{sim_at::PhoneNumber, contentOrHeld(txtPhoneNum, &SimRec::PhoneNumber)}}});
    table_.add({IncPin, "PIN", {{txtPIN, told(&SimRec::Pin)}}, {{sim_at::Pin, contentOrHeld(txtPIN, &SimRec::Pin)}}});
    table_.add({IncCallerId,
                "Caller ID",
                {{CmbCallID, &SimRec::CallerId}},
                {{sim_at::CallerId, contentOrHeld(CmbCallID, &SimRec::CallerId)}}});
    table_.add({IncContract,
                "Monthly budget",
                {{txtMonthlyContract, told(&SimRec::MonthlyContract)}},
                {{sim_at::MonthlyContract, [this](const SimRec& to) {
                      return txtMonthlyContract.text().empty()
                                 ? noLimit
                                 : contentOrHeld(txtMonthlyContract, &SimRec::MonthlyContract)(to);
                  }}}});
    table_.add({IncCallMinutes,
                "Call minutes",
                {{txtCallMinutes, told(&SimRec::CallMinutes)}},
                {{sim_at::CallMinutes, contentOrHeld(txtCallMinutes, &SimRec::CallMinutes)}}});
}

void SimPage::bindCellLock() {
    const auto locked = [](const SimRec& sim) { return val(sim.CellLock) != 0 ? "1" : "0"; };
    const auto cell = [](const SimRec& sim) {
        return isWhole(sim.CellLock) ? std::to_string(val(sim.CellLock)) : escaped(sim.CellLock);
    };
    const auto lock = [this](const SimRec& to) {
        if (!optBcchLock.checked()) return std::string("0");
        return isWhole(txtCelLock.text()) ? txtCelLock.text() : contentOrHeld(txtCelLock, &SimRec::CellLock)(to);
    };
    table_.add({IncCellLock, "Cell lock", {{optBcchLock, locked}, {txtCelLock, cell}}, {{sim_at::CellLock, lock}}});
    table_.add({IncRssi,
                "Least signal",
                {{cmbBcchRssi, &SimRec::BcchRssi}},
                {{sim_at::BcchRssi, contentOrHeld(cmbBcchRssi, &SimRec::BcchRssi)}}});
    table_.add({IncBcchTimer,
                "BCCH timer",
                {{txtBcchTimer, told(&SimRec::BcchTimer)}},
                {{sim_at::BcchTimer, contentOrHeld(txtBcchTimer, &SimRec::BcchTimer)}}});
    table_.add({IncNetId,
                "Operator ID",
                {{txtBcchNetID, told(&SimRec::BcchNetId)}},
                {{sim_at::BcchNetId, contentOrHeld(txtBcchNetID, &SimRec::BcchNetId)}}});
}

void SimPage::bindBundle() {
    auto& [mode, enabled] = txtBundleLoading;
    table_.add({IncBundle,
                "Bundle",
                {{mode, [this](const SimRec& sim) { return bundleMode(sim); }},
                 {enabled, [](const SimRec& sim) { return (val(sim.BundleFlags) & bundleOnBit) != 0 ? "0" : "1"; }}},
                {{sim_at::BundleFlags, [this](const SimRec& to) { return bundleFlags(to); }}}});
}

SimRec* SimPage::simOf(std::string_view key) const {
    const auto sim = node_key::simOf(key);
    return sim ? &tools_.tables.sim(*sim) : nullptr;
}

// Where the values come from. A group's are read at the address that its number spells, with 1 for 0; where there is
// no such address, from its first port.
std::string SimPage::readKey() const {
    if (!showsGroup()) return key_;
    auto key = "SIM" + std::string(mid(key_, 4));
    std::replace(key.begin(), key.end(), '0', '1');
    if (node_key::isSim(key)) return key;
    const auto ports = tree_.workingPorts(key_);
    return ports.empty() ? std::string() : "SIM" + std::string(right(ports.front(), 2)) + std::string(right(key_, 1));
}

bool SimPage::writable() const { return node_key::isSim(key_) && tree_.moduleType(key_) == "GSM"; }

bool SimPage::silent(std::size_t box) const {
    const auto* sim = simOf(key_);
    return table_.silent(box, sim ? *sim : SimRec{});
}

void SimPage::fillRecord() {
    timeTable.setForGroup(false);
    const auto address = node_key::simOf(key_);
    const auto port = address ? tree_.captionOf(node_key::port("MOD", address->port())) : std::string();
    lblSimCaption.setText(!address     ? ""
                          : writable() ? port + ", SIM " + std::to_string(address->sim()) + " Setting"
                                       : port + ": Port not found");
    const auto* sim = writable() && simOf(key_)->loaded() ? simOf(key_) : nullptr;
    showFacts(sim);
    if (sim) form.take(table_.held(*sim));
}

void SimPage::fillGroup(const std::vector<std::string>&) {
    timeTable.setForGroup(true);
    showFacts(nullptr);
    const auto source = readKey();
    const auto* sim = simOf(source);
    const bool read = sim && sim->loaded();
    if (read) lblSimHint.setText("The values were read from " + tree_.captionOf(source) + ".");
    if (!form.edited()) form.propose(read ? table_.held(*sim) : RecordForm::Values());
}

void SimPage::showFacts(const SimRec* sim) {
    lblPredial.setText(sim ? escaped(sim->Predial) : "");
    const auto day = sim ? val(sim->BundleFlags) & bundleDayBits : 0;
    TxtDayRestore.setText(!sim ? "" : day == 0 ? "none" : std::to_string(day));
}

// What belongs to the cell lock can be set while the lock is on; greyed, it is what the gateway holds.
void SimPage::followRules() {
    const bool locked = optBcchLock.checked();
    for (InputField* field :
         std::initializer_list<InputField*>{&txtCelLock, &cmbBcchRssi, &txtBcchTimer, &txtBcchNetID}) {
        if (!locked && field->enabled()) form.undo(*field);
        field->setEnabled(locked);
    }
    timeTable.followSwitches();
}

// A group's values are only proposed, so they are read each time; no look at a node costs an edit, or asks about one.
void SimPage::readMissing() {
    if (form.known() || form.edited()) return;
    if (!showsGroup())
        read({command("R_" + key_, nodeText())}, readBudgetMs);
    else if (auto batch = readBatch(); !batch.empty())
        read(std::move(batch), refreshBudgetMs);
}

std::vector<QueueItem> SimPage::readBatch() const {
    const auto source = readKey();
    if (source.empty()) return {};
    return {command("R_" + source, "Load Values")};
}

BuiltLine SimPage::firstFault(bool lineByLine) {
    if (included(IncTimeTable))
        if (auto fault = timeTable.firstFault(lineByLine); !fault.word.empty()) return fault;
    if (checked(IncCellLock, txtCelLock) && !wholeWithin(txtCelLock.text(), 0, 1024))
        return BuiltLine::wrong("ERROR: BCCH Lock must be in the ranges: 0-1024", txtCelLock);
    if (checked(IncBcchTimer, txtBcchTimer) && !wholeWithin(txtBcchTimer.text(), 30, 65535))
        return BuiltLine::wrong("ERROR: BCCH Timer must to be in the ranges: 30-65535 .", txtBcchTimer);
    const auto& network = txtBcchNetID.text();
    if (checked(IncNetId, txtBcchNetID) && !network.empty() && !wholeWithin(network, 0, 999999))
        return BuiltLine::wrong("ERROR: BCCH Operator ID must to be in the ranges: 0-999999 .", txtBcchNetID);
    if (checked(IncPhoneNumber, txtPhoneNum) && !isPhoneNumber(txtPhoneNum.text()))
        return BuiltLine::wrong("ERROR: Phone number have to be up to 20 digits, with or without '+' in front",
                                txtPhoneNum);
    const auto& pin = txtPIN.text();
    if (checked(IncPin, txtPIN) && !pin.empty() && !(isWhole(pin) && pin.size() <= 8))
        return BuiltLine::wrong("ERROR: PIN have to be 1 to 8 digits", txtPIN);
    const auto& contract = txtMonthlyContract.text();
    if (checked(IncContract, txtMonthlyContract) && !contract.empty() && !wholeWithin(contract, 0, val(noLimit)))
        return BuiltLine::wrong("ERROR: Monthly budget have to be in the ranges: 0-59999 minutes", txtMonthlyContract);
    const auto& minutes = txtCallMinutes.text();
    if (checked(IncCallMinutes, txtCallMinutes) && !minutes.empty() && !wholeWithin(minutes, 0, 59999))
        return BuiltLine::wrong("ERROR: Call minutes have to be in the ranges: 0-59999", txtCallMinutes);
    return {};
}

// Two modes look the same: the operator's choice of the second stays.
std::string SimPage::bundleMode(const SimRec& sim) const {
    const auto code = static_cast<int>(val(sim.BundleFlags)) & bundleModeBits;
    const auto found = std::find(bundleModeCodes.begin(), bundleModeCodes.end(), code);
    if (found == bundleModeCodes.end()) return {};
    const bool refills = code == bundleModeCodes[byRefill] && txtBundleLoading[0].index() == byRefill;
    return std::to_string(refills ? byRefill : found - bundleModeCodes.begin());
}

std::string SimPage::bundleFlags(const SimRec& to) const {
    const auto held = static_cast<int>(val(to.BundleFlags));
    const auto mode = txtBundleLoading[0].index();
    const auto enabled = txtBundleLoading[1].index() == 0 ? bundleOnBit : 0;
    if (mode == ChoiceField::none && !to.loaded()) return {};
    const auto modeCode =
        mode == ChoiceField::none ? held & bundleModeBits : bundleModeCodes.at(static_cast<std::size_t>(mode));
    return std::to_string((held & bundleDayBits) + modeCode + enabled);
}

BuiltLine SimPage::build(std::string_view key, bool lineByLine) {
    if (auto fault = firstFault(lineByLine); !fault.word.empty()) return fault;
    const auto* sim = simOf(key);
    return BuiltLine::change(std::string(key), table_.line(sim ? *sim : SimRec{}, sim_at::BundleFlags,
                                                           [this](std::size_t box) { return included(box); }));
}

BuiltLine SimPage::buildShown() { return build(key_, !showsGroup()); }

// The items of a port that has turned CDMA are in the list still, and no SIM is behind them.
BuiltLine SimPage::buildMember(const std::string& key) {
    return tree_.moduleType(key) == "GSM" ? build(key, false) : BuiltLine{};
}

// An empty budget is told back as 59999, a table without a row in use as no limits.
RecordForm::Values SimPage::valuesAfter(std::string_view line) const {
    auto sim = *simOf(key_);
    storeSim(sim, fieldsOf(line), true);
    return table_.held(sim);
}

}  // namespace trunvex
