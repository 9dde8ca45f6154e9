#include "config/port_page.h"

#include <algorithm>
#include <array>

#include "model/node_key.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int switchingBits = 56;
constexpr int rejectBit = 64;
constexpr std::array switchingCodes{0, 32, 8, 40, 24, 56};  // by index of cmbSimSwitching
constexpr int swapping = 1;                                 // the choice that goes by txtSimSwap
constexpr std::size_t lastField = 16;

std::string switchingIndex(std::string_view flags) {
    if (flags.empty()) return {};
    const auto code = static_cast<int>(val(flags)) & switchingBits;
    const auto found = std::find(switchingCodes.begin(), switchingCodes.end(), code);
    return found == switchingCodes.end() ? std::string() : std::to_string(found - switchingCodes.begin());
}

std::string rejectIndex(std::string_view flags) {
    return flags.empty() ? std::string() : (val(flags) & rejectBit) != 0 ? "1" : "0";
}

// The wire's number of the second scale and the lever's position: each is four minus the other.
std::string secondLevel(std::string_view text) {
    return isWhole(text) ? std::to_string(highestSecondLevel - val(text)) : std::string();
}

}  // namespace

PortPage::PortPage(const PageTools& tools, PortTree& tree, SettingsRecords& records, GroupWrite& groupWrite)
    : NodePage(tools, tree, groupWrite,
               {lblPortCaption, lblPortHint, chkIncGrpMod, cmdUndoPort, cmdModRefresh, cmdWritePort}) {
    addIncludeBoxes("chkIncGrpMod", {"Minimum digits", "Maximum digits", "Pause between digits", "End of dialling",
                                     "Relax time", "Levels", "No registration timer", "SIM switching"});
    cmbRelaxTime.setEntries({"0", "0.5", "1", "1.5", "2", "3", "4", "5"});
    for (InputField* field : std::initializer_list<InputField*>{
             &TxtMinDigits, &TxtMaxDigits, &TxtIntDigPause, &CmbSendComplete, &cmbRelaxTime, &txtNoRegTimer,
             &cmbSimSwitching, &cmbCallReject, &txtSimSwap, &SldTXvol, &SldRXvol, &SldTX_SE, &SldRX_SE})
        form.add(*field);
    records.portStored.connect([this](int mcu, int module) {
        if (portOf(key_) == &tools_.tables.port(mcu, module)) refresh();
    });
    tools_.reads.onComplete("MOD", [this](const std::string&) {
        if (showsGroup()) refresh();
    });
    begin();
}

PortRec* PortPage::portOf(std::string_view key) const {
    return node_key::isPort(key) ? &tools_.tables.port(node_key::mcu(key), node_key::module(key)) : nullptr;
}

std::string PortPage::nodeText() const {
    const auto* node = tree_.tvGroups[0].find(key_);
    return node ? node->text : key_;
}

bool PortPage::writable() const { return node_key::isPort(key_) && !contains(key_, "ERR"); }

void PortPage::fillRecord() {
    const auto* port = portOf(key_);
    showFacts(port);
    if (contains(key_, "ERR")) {
        lblPortCaption.setText(nodeText() + ": Port not found");
        lblPortHint.setText("The gateway found no module here.");
        showLevels(false, false);
        return;
    }
    lblPortCaption.setText(key_.empty() ? "" : nodeText() + " Setting");
    if (port && port->loaded()) form.take(heldValues(*port));
    const bool levels = port && port->Kind != "CDM";
    showLevels(levels && !port->secondScale(), levels && port->secondScale());
}

void PortPage::showFacts(const PortRec* port) {
    lblModuleInfo.setText(port ? std::string(trim(escaped(port->ModuleInfo) + " " + escaped(port->ModuleInfo2))) : "");
    lblModuleType.setText(port && port->loaded() ? port->secondScale() ? "Siemens" : "WaveCom" : "");
}

void PortPage::fillGroup(const std::vector<std::string>& ports) {
    std::vector<std::string> unread;
    const PortRec* first = nullptr;
    const PortRec* second = nullptr;
    for (const auto& key : ports) {
        const auto* port = portOf(key);
        auto& ofScale = port->secondScale() ? second : first;
        if (!port->loaded())
            unread.push_back(key);
        else if (!ofScale)
            ofScale = port;
    }
    showFacts(nullptr);
    if (!unread.empty())
        lblPortHint.setText("Not read yet: port " + PortTree::listed(unread) +
                            ". Their levels are written on the first scale.");
    showLevels(true, second != nullptr);
    if (form.edited()) return;
    const auto* model = first ? first : second;
    auto values = model ? heldValues(*model) : std::vector<std::string>(portFormFields);
    if (second) {
        const auto levels = heldValues(*second);
        std::copy(levels.end() - 2, levels.end(), values.end() - 2);
    }
    form.propose(values);
}

// In the order in which the form has its fields.
std::vector<std::string> PortPage::heldValues(const PortRec& port) const {
    const bool second = port.secondScale();
    return {port.MinDigits,
            port.MaxDigits,
            port.IntDigPause,
            port.SendComplete,
            port.RelaxTime,
            port.NoRegTimer,
            switchingIndex(port.SwitchFlags),
            rejectIndex(port.SwitchFlags),
            port.SimSwap,
            second ? "" : port.TxLevel,
            second ? "" : port.RxLevel,
            second ? secondLevel(port.TxLevel) : "",
            second ? secondLevel(port.RxLevel) : ""};
}

void PortPage::showLevels(bool first, bool second) {
    framRX_TX.setVisible(first || second);
    for (auto* lever : {&SldTXvol, &SldRXvol}) lever->setVisible(first);
    for (auto* lever : {&SldTX_SE, &SldRX_SE}) lever->setVisible(second);
}

// The swapping time counts for one way of switching only; greyed, it is what the gateway holds.
void PortPage::followRules() {
    const bool used = cmbSimSwitching.index() == swapping || cmbSimSwitching.index() == ChoiceField::none;
    if (!used && txtSimSwap.enabled()) form.undo(txtSimSwap);
    txtSimSwap.setEnabled(used);
}

QueueItem PortPage::readCommand() const { return command("R_" + node_key::stored(key_), nodeText()); }

void PortPage::readMissing() {
    if (contains(key_, "MOD") && !form.known()) tools_.read({readCommand()}, readBudgetMs);
}

std::vector<QueueItem> PortPage::readBatch() const {
    if (!showsGroup()) return {readCommand()};
    std::vector<QueueItem> batch;
    for (const auto& port : tree_.ports(key_)) batch.push_back(command("R_" + port, tree_.captionOf(port)));
    return batch;
}

BuiltLine PortPage::firstFault() {
    const auto noReg = trim(txtNoRegTimer.text());
    if (included(IncNoRegTimer) && !noReg.empty() && !wholeWithin(noReg, 60, 255) && !wholeWithin(noReg, 0, 0))
        return BuiltLine::wrong("ERROR: 'No REG Timer' have to be number between (60-255) or 0 for disable",
                                txtNoRegTimer);
    if (included(IncMaxDigits) && included(IncMinDigits) && val(TxtMaxDigits.text()) < val(TxtMinDigits.text()))
        return BuiltLine::wrong("ERROR: Max Digit have to be bigger then Min Digit", TxtMaxDigits);
    if (included(IncMinDigits) && !wholeWithin(TxtMinDigits.text(), 2, 7))
        return BuiltLine::wrong("ERROR: Min Digit", TxtMinDigits);
    if (included(IncMaxDigits) && !wholeWithin(TxtMaxDigits.text(), 5, 32))
        return BuiltLine::wrong("ERROR: Max Digit", TxtMaxDigits);
    if (included(IncIntDigPause) && !wholeWithin(TxtIntDigPause.text(), 1, 200))
        return BuiltLine::wrong("ERROR: Int Dig Pause", TxtIntDigPause);
    if (included(IncRelaxTime) && !cmbRelaxTime.text().empty() && relaxUnits(trim(cmbRelaxTime.text())) < 0)
        return BuiltLine::wrong("ERROR: Relax Time have to be less than 5 seconds", cmbRelaxTime);
    const auto swap = trim(txtSimSwap.text());
    if (included(IncSimSwitching) && !swap.empty() && !wholeWithin(swap, 1, 255))
        return BuiltLine::wrong("ERROR: 'SIM Swapping' have to be number between (1-255)", txtSimSwap);
    return {};
}

std::string PortPage::level(const PortRec* port, const SliderField& first, const SliderField& second,
                            int (*code)(int)) const {
    if (!port || !port->secondScale()) return std::to_string(code(first.position()));
    return second.position() == SliderField::none ? "" : std::to_string(highestSecondLevel - second.position());
}

BuiltLine PortPage::WriteMod(std::string_view key, bool isCdma) {
    if (auto fault = firstFault(); !fault.word.empty()) return fault;
    const auto* port = portOf(key);
    std::array<std::string, lastField + 1> fields;
    if (isCdma) fields[1] = "1";
    if (included(IncNoRegTimer)) fields[4] = trim(txtNoRegTimer.text());
    if (included(IncLevels) && contains(key, "MOD") && !isCdma) {
        fields[5] = level(port, SldTXvol, SldTX_SE, txCode);
        fields[6] = level(port, SldRXvol, SldRX_SE, rxCode);
    }
    if (included(IncMinDigits)) fields[7] = TxtMinDigits.text();
    if (included(IncMaxDigits)) fields[8] = TxtMaxDigits.text();
    if (included(IncIntDigPause)) fields[9] = TxtIntDigPause.text();
    if (included(IncSendComplete)) fields[10] = CmbSendComplete.value();
    if (included(IncRelaxTime) && !cmbRelaxTime.text().empty())
        fields[11] = std::to_string(relaxUnits(trim(cmbRelaxTime.text())));
    if (included(IncSimSwitching)) {
        if (cmbSimSwitching.index() != ChoiceField::none)
            fields[12] = std::to_string(switchingCodes.at(static_cast<std::size_t>(cmbSimSwitching.index())) +
                                        (cmbCallReject.index() == 1 ? rejectBit : 0));
        fields[14] = trim(txtSimSwap.text());
    }
    fields[13] = "0";
    return BuiltLine::change(node_key::stored(key), fields);
}

BuiltLine PortPage::buildShown() { return WriteMod(key_, contains(key_, "CDM")); }

BuiltLine PortPage::buildMember(const std::string& key) { return WriteMod(key, portOf(key)->Kind == "CDM"); }

std::vector<std::string> PortPage::valuesAfter(std::string_view line) const {
    auto port = *portOf(key_);
    storePort(port, fieldsOf(line), true);
    return heldValues(port);
}

}  // namespace trunvex
