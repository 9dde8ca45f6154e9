#include "config/sim_page.h"

#include <algorithm>

#include "config/node_key.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int refreshBudgetMs = 1000;
constexpr std::size_t lastField = 19;
constexpr int restoreBits = 31;
constexpr int modeBits = 96;
constexpr int switchBit = 128;
constexpr std::array modeCodes{0, 32, 0, 64};  // by index of the mode; "Disabled" and "By Refill" look the same
constexpr int byRefill = 2;
constexpr const char* noLimit = "59999";

// Received signal levels 0 to 63 as 3GPP TS 45.008 numbers them, 1 dB each from -110 dBm.
std::vector<std::string> signalLevels() {
    constexpr int highest = 63;
    std::vector<std::string> levels{"below -110 dBm"};
    for (int level = 1; level < highest; ++level) levels.push_back(std::to_string(level - 111) + " dBm");
    levels.push_back("-48 dBm and above");
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
    : tools_(tools), tree_(tree), groupWrite_(groupWrite) {
    const std::array<const char*, includedSimFields> names{
        "Phone number", "PIN", "Caller ID", "Monthly budget", "Call minutes", "Cell lock",
        "Least signal", "BCCH timer", "Operator ID", "Time table", "Bundle"};
    for (std::size_t i = 0; i < includedSimFields; ++i) {
        auto& box = chkIncGrpSim.emplace_back(arrayName("chkIncGrpSim", static_cast<int>(i)), names[i]);
        box.setTip("Include to write group");
    }
    cmbBcchRssi.setItems(signalLevels());
    for (InputField* field : std::initializer_list<InputField*>{
             &txtPhoneNum, &txtPIN, &CmbCallID, &txtMonthlyContract, &txtCallMinutes, &optBcchLock, &txtCelLock,
             &cmbBcchRssi, &txtBcchTimer, &txtBcchNetID, &txtBundleLoading[0], &txtBundleLoading[1]})
        form.add(*field);
    timeTable.addFields();
    form.changed().connect([this] { followRules(); });
    records.simStored.connect([this](int mcu, int module, int sim) {
        if (key_ == node_key::sim(mcu, module, sim)) fill();
    });
    tools_.reads.onComplete("SIM", [this](const std::string& command) {
        if (showsGroup() && command == "R_" + readKey()) fill();
    });
    groupWrite_.complete().connect([this](const std::string& group) {
        if (group == key_) form.settle();
    });
    cmdWriteSIM.pressed().connect([this] { write(); });
    cmdSimRefresh_.pressed().connect([this] { cmdSimRefresh(); });
    cmdUndoSim.pressed().connect([this] { form.undo(); });
    forget();
}

bool SimPage::showsGroup() const { return contains(key_, "SMM"); }

bool SimPage::included(std::size_t field) const { return chkIncGrpSim[field].checked(); }

SimRec* SimPage::simOf(std::string_view key) const {
    if (!node_key::isSim(key)) return nullptr;
    return &tools_.tables.sim(node_key::mcu(key), node_key::module(key), static_cast<int>(val(mid(key, 6, 1))));
}

// Where the values come from. A group's are read at the address that its number spells, with 1 for 0; where there is
// no such address, from its first port.
std::string SimPage::readKey() const {
    if (!showsGroup()) return key_;
    auto key = "SIM" + std::string(mid(key_, 4));
    std::replace(key.begin(), key.end(), '0', '1');
    if (node_key::isSim(key)) return key;
    for (const auto& port : tree_.children(node_key::ofGroup("PRT", key_)))
        if (node_key::isPort(port)) return "SIM" + std::string(right(port, 2)) + std::string(right(key_, 1));
    return {};
}

void SimPage::forget() {
    key_.clear();
    form.forgetAll();
    form.turnTo({});
    fill();
}

void SimPage::show(const std::string& key) {
    key_ = key;
    timeTable.setForGroup(showsGroup());
    form.turnTo(key);
    for (auto& box : chkIncGrpSim) {
        box.setVisible(showsGroup());
        box.setChecked(!showsGroup());  // a group write sends what its operator has marked, and nothing before that
    }
    fill();
}

void SimPage::fill() {
    lblSimHint.setText("");
    lblPredial.setText("");
    TxtDayRestore.setText("");
    if (showsGroup()) {
        showGroup();
    } else if (const auto* sim = simOf(key_)) {
        const auto port = node_key::port("MOD", node_key::mcu(key_), node_key::module(key_));
        const auto name = tree_.captionOf(port);
        if (tree_.moduleType(key_) != "GSM") {
            lblSimCaption.setText(name + ": Port not found");
        } else {
            lblSimCaption.setText(name + ", SIM " + std::string(right(key_, 1)) + " Setting");
            if (sim->loaded()) {
                form.take(heldValues(*sim));
                lblPredial.setText(escaped(sim->Predial));
                const auto day = val(sim->BundleFlags) & restoreBits;
                TxtDayRestore.setText(day == 0 ? "none" : std::to_string(day));
            }
        }
    } else {
        lblSimCaption.setText("");
    }
    followRules();
}

void SimPage::showGroup() {
    const auto members = tree_.children(node_key::ofGroup("PRT", key_));
    std::string ports;
    for (const auto& member : members)
        if (node_key::isPort(member))
            ports += (ports.empty() ? "" : ", ") +
                     std::to_string(portNumber(node_key::mcu(member), node_key::module(member)));
    lblSimCaption.setText("Groups " + std::to_string(val(mid(key_, 4, 2))) + ", SIM " +
                          std::string(right(key_, 1)) + " Ports: " + ports);
    const auto source = readKey();
    const auto* sim = simOf(source);
    if (members.empty())
        lblSimHint.setText("This group has no ports.");
    else if (sim && sim->loaded())
        lblSimHint.setText("The values were read from " + tree_.captionOf(source) + ".");
    if (sim && sim->loaded() && !form.edited()) form.propose(heldValues(*sim));
}

// In the order in which the form has its fields.
std::vector<std::string> SimPage::heldValues(const SimRec& sim) const {
    const auto flags = static_cast<int>(val(sim.BundleFlags));
    const auto mode = flags & modeBits;
    std::string modeIndex = mode == 0 ? "0" : mode == 32 ? "1" : mode == 64 ? "3" : "";
    if (mode == 0 && txtBundleLoading[0].index() == byRefill) modeIndex = std::to_string(byRefill);
    const bool locked = val(sim.CellLock) != 0;
    std::vector<std::string> values{escaped(sim.PhoneNumber),
                                    escaped(sim.Pin),
                                    sim.CallerId,
                                    escaped(sim.MonthlyContract),
                                    escaped(sim.CallMinutes),
                                    locked ? "1" : "0",
                                    isWhole(sim.CellLock) ? std::to_string(val(sim.CellLock)) : escaped(sim.CellLock),
                                    sim.BcchRssi,
                                    escaped(sim.BcchTimer),
                                    escaped(sim.BcchNetId),
                                    modeIndex,
                                    (flags & switchBit) != 0 ? "0" : "1"};
    const auto table = TimeTable::heldValues(sim);
    values.insert(values.end(), table.begin(), table.end());
    return values;
}

// What belongs to the cell lock can be set while the lock is on; greyed, it is what the gateway holds.
void SimPage::followRules() {
    const bool locked = optBcchLock.checked();
    if (!form.filling()) {
        for (TextField* field : {&txtCelLock, &txtBcchTimer, &txtBcchNetID})
            if (!locked && field->enabled()) form.undo(*field);
        if (!locked && cmbBcchRssi.enabled()) form.undo(cmbBcchRssi);
    }
    for (TextField* field : {&txtCelLock, &txtBcchTimer, &txtBcchNetID}) field->setEnabled(locked);
    cmbBcchRssi.setEnabled(locked);
    timeTable.followSwitches();
    const bool addressed = showsGroup() || (node_key::isSim(key_) && tree_.moduleType(key_) == "GSM");
    cmdWriteSIM.setEnabled(addressed && !writesHeld_);
    cmdUndoSim.setEnabled(form.edited());
}

void SimPage::holdWrites(bool held) {
    writesHeld_ = held;
    followRules();
}

void SimPage::cmdSimRefresh() {
    const auto source = readKey();
    if (!tools_.mayRefresh(key_, form) || source.empty()) return;
    tools_.read({command("R_" + source, "Load Values")}, refreshBudgetMs);
}

BuiltLine SimPage::firstFault(bool lineByLine) {
    if (included(IncTimeTable))
        if (auto fault = timeTable.firstFault(lineByLine); !fault.word.empty()) return fault;
    const bool locked = optBcchLock.checked();
    if (included(IncCellLock) && locked && !wholeWithin(txtCelLock.text(), 0, 1024))
        return BuiltLine::wrong("ERROR: BCCH Lock must be in the ranges: 0-1024", txtCelLock);
    // Without a lock the timer has no use, and a fresh SIM has none.
    const auto& timer = txtBcchTimer.text();
    const bool noTimer = !locked && (timer.empty() || wholeWithin(timer, 0, 0));
    if (included(IncBcchTimer) && !noTimer && !wholeWithin(timer, 30, 65535))
        return BuiltLine::wrong("ERROR: BCCH Timer must to be in the ranges: 30-65535 .", txtBcchTimer);
    const auto& network = txtBcchNetID.text();
    if (included(IncNetId) && !network.empty() && !wholeWithin(network, 0, 999999))
        return BuiltLine::wrong("ERROR: BCCH Operator ID must to be in the ranges: 0-999999 .", txtBcchNetID);
    if (included(IncPhoneNumber) && !isPhoneNumber(txtPhoneNum.text()))
        return BuiltLine::wrong("ERROR: Phone number have to be up to 20 digits, with or without '+' in front",
                                txtPhoneNum);
    const auto& pin = txtPIN.text();
    if (included(IncPin) && !pin.empty() && !(isWhole(pin) && pin.size() <= 8))
        return BuiltLine::wrong("ERROR: PIN have to be 1 to 8 digits", txtPIN);
    const auto& contract = txtMonthlyContract.text();
    if (included(IncContract) && !contract.empty() && !wholeWithin(contract, 0, val(noLimit)))
        return BuiltLine::wrong("ERROR: Monthly budget have to be in the ranges: 0-59999 minutes", txtMonthlyContract);
    const auto& minutes = txtCallMinutes.text();
    if (included(IncCallMinutes) && !minutes.empty() && !wholeWithin(minutes, 0, 59999))
        return BuiltLine::wrong("ERROR: Call minutes have to be in the ranges: 0-59999", txtCallMinutes);
    return {};
}

std::string SimPage::bundleFlags(const SimRec* sim) const {
    const auto held = sim ? static_cast<int>(val(sim->BundleFlags)) : 0;
    const auto mode = txtBundleLoading[0].index();
    const auto enabled = txtBundleLoading[1].index() == 0 ? switchBit : 0;
    if (mode == ChoiceField::none && !(sim && sim->loaded())) return {};
    const auto modeCode = mode == ChoiceField::none ? held & modeBits : modeCodes.at(static_cast<std::size_t>(mode));
    return std::to_string((held & restoreBits) + modeCode + enabled);
}

BuiltLine SimPage::build(std::string_view key, bool lineByLine) {
    if (auto fault = firstFault(lineByLine); !fault.word.empty()) return fault;
    std::array<std::string, lastField + 1> fields;
    if (included(IncPhoneNumber)) fields[1] = txtPhoneNum.text();
    if (included(IncPin)) fields[2] = txtPIN.text();
    if (included(IncCallerId)) fields[4] = CmbCallID.value();
    if (included(IncContract)) fields[5] = txtMonthlyContract.text().empty() ? noLimit : txtMonthlyContract.text();
    if (included(IncCallMinutes)) fields[6] = txtCallMinutes.text();
    if (included(IncCellLock)) fields[7] = optBcchLock.checked() ? txtCelLock.text() : "0";
    if (included(IncRssi)) fields[8] = cmbBcchRssi.value();
    if (included(IncBcchTimer)) fields[9] = txtBcchTimer.text();
    if (included(IncNetId)) fields[10] = txtBcchNetID.text();
    if (included(IncTimeTable)) {
        const auto rows = timeTable.rows();
        for (std::size_t row = 0; row < timeRowCount; ++row) {
            fields[11 + 2 * row] = rows[row].time;
            fields[12 + 2 * row] = rows[row].days;
        }
    }
    if (included(IncBundle)) fields[lastField] = bundleFlags(simOf(key));
    BuiltLine built;
    built.line = "C_" + std::string(key);
    for (std::size_t i = 1; i <= lastField; ++i) built.line += "," + fields[i];
    built.line += ",";
    return built;
}

std::string SimPage::buildOrTell(std::string_view key, bool lineByLine) {
    form.clearProblems();
    return build(key, lineByLine).orTell(tools_.dialogs);
}

std::string SimPage::buildForGroup(std::string_view key) { return buildOrTell(key, false); }
std::string SimPage::buildForOne(std::string_view key) { return buildOrTell(key, true); }

// As the gateway will tell it: an empty budget is 59999, a table without a row in use has no limits.
void SimPage::respell(std::string_view line) {
    auto sent = *simOf(key_);
    storeSim(sent, fieldsOf(line), true);
    form.respell(heldValues(sent));
}

void SimPage::write() {
    if (!tools_.mayWrite(key_)) return;
    if (!showsGroup()) {
        if (!tools_.isRead(form)) return;
        const auto line = buildForOne(key_);
        if (line.empty()) return;
        respell(line);
        if (tools_.write(line, tree_.captionOf(key_))) writeStarted_.emit();
        return;
    }
    if (!tools_.anyMarked(chkIncGrpSim) || buildForGroup(key_).empty()) return;
    // The items of a port that has turned CDMA are in the list still, and no SIM is behind them.
    auto items = tree_.groupWriteSims(key_, [this](const std::string& member) {
        return tree_.moduleType(member) == "GSM" ? build(member, false).line : std::string();
    });
    if (groupWrite_.start(key_, std::move(items))) writeStarted_.emit();
}

}  // namespace trunvex
