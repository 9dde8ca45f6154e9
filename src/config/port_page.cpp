#include "config/port_page.h"

#include "model/node_key.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

using NodeKind = node_key::Kind;
using node_key::kindOf;

constexpr int swapping = 1;  // the choice that goes by txtSimSwap

std::string rejectIndex(const PortRec& port) {
    return port.SwitchFlags.empty() ? std::string() : (val(port.SwitchFlags) & rejectBit) != 0 ? "1" : "0";
}

// The wire's number of the second scale and the lever's position: each is four minus the other.
std::string turned(std::string_view text) {
    return isWhole(text) ? std::to_string(highestSecondLevel - val(text)) : std::string();
}

// A lever of either scale shows the levels of its own.
auto firstLevel(std::string PortRec::*level) {
    return [level](const PortRec& port) { return port.secondScale() ? std::string() : port.*level; };
}
auto secondLevel(std::string PortRec::*level) {
    return [level](const PortRec& port) { return port.secondScale() ? turned(port.*level) : std::string(); };
}

// How a level stands on its scales.
struct Level {
    const SliderField& first;
    const SliderField& second;
    std::string PortRec::*held;  // the code
    int (*code)(int);
    int (*position)(int);

    // The code of the lever that the port goes by; a CDMA port and one that is not known has no levels. A code of no
    // scale that nobody touched goes back as it is, and where nobody chose a position none goes out.
    std::string operator()(const PortRec& to) const {
        if (to.Kind != "GSM") return {};
        const auto& lever = to.secondScale() ? second : first;
        const auto& heldCode = to.*held;
        const bool onScale = to.secondScale()
                                 ? wholeWithin(heldCode, 0, highestSecondLevel)
                                 : isWhole(heldCode) && position(static_cast<int>(val(heldCode))) != noLevel;
        if (untouched(lever) && !onScale) return heldCode;
        const bool chosen = lever.standing() == InputField::Standing::Edited;
        if (lever.position() == SliderField::none && !chosen) return {};
        return to.secondScale() ? turned(lever.value()) : std::to_string(code(lever.position()));
    }
};

auto trimmed(const TextField& field, std::string PortRec::*member) {
    return [wire = contentOrHeld(field, member)](const PortRec& to) { return std::string(trim(wire(to))); };
}

}  // namespace

PortPage::PortPage(const PageTools& tools, PortTree& tree, SettingsRecords& records, GroupWrite& groupWrite)
    : NodePage(tools, tree, groupWrite,
               {lblPortCaption, lblPortHint, lblPortRemark, chkIncGrpMod, cmdUndoPort, cmdModRefresh, cmdWritePort}) {
    cmbRelaxTime.setEntries({"0", "0.5", "1", "1.5", "2", "3", "4", "5"});
    bindFields();
    bindLevels();
    bindSwitching();
    table_.addFieldsTo(form);
    table_.addBoxesTo(chkIncGrpMod, "chkIncGrpMod");
    records.portStored.connect([this](PortAddress port) {
        if (portOf(key_) == &tools_.tables.port(port)) refresh();
    });
    tools_.reads.onComplete("MOD", [this](const std::string&) {
        if (showsGroup()) refresh();
    });
    begin(table_.boxedFields());
}

void PortPage::bindFields() {
    const auto bind = [this](std::size_t box, const char* caption, std::size_t at, InputField& field,
                             std::string PortRec::*member, auto wire) {
        table_.add({box, caption, {{field, told(member)}}, {{at, wire}}});
    };
    const auto plain = [&bind](std::size_t box, const char* caption, std::size_t at, InputField& field,
                               std::string PortRec::*member) {
        bind(box, caption, at, field, member, contentOrHeld(field, member));
    };
    using namespace port_at;
    plain(IncMinDigits, "Minimum digits", MinDigits, TxtMinDigits, &PortRec::MinDigits);
    plain(IncMaxDigits, "Maximum digits", MaxDigits, TxtMaxDigits, &PortRec::MaxDigits);
    plain(IncIntDigPause, "Pause between digits", IntDigPause, TxtIntDigPause, &PortRec::IntDigPause);
    plain(IncSendComplete, "End of dialling", SendComplete, CmbSendComplete, &PortRec::SendComplete);
    bind(IncRelaxTime, "Relax time", RelaxTime, cmbRelaxTime, &PortRec::RelaxTime, [this](const PortRec&) {
        const auto units = relaxUnits(trim(cmbRelaxTime.text()));
        return units < 0 ? std::string() : std::to_string(units);
    });
    bind(IncNoRegTimer, "No registration timer", NoRegTimer, txtNoRegTimer, &PortRec::NoRegTimer,
         trimmed(txtNoRegTimer, &PortRec::NoRegTimer));
    const auto kind = [](const PortRec& to) { return to.Kind == "CDM" ? "1" : ""; };
    table_.add({table_.noBox, "", {}, {{Kind, kind}, {Reserved20, [](const PortRec&) { return "0"; }}}});
}

void PortPage::bindLevels() {
    table_.add({IncLevels,
                "Levels",
                {{SldTXvol, firstLevel(&PortRec::TxLevel)},
                 {SldRXvol, firstLevel(&PortRec::RxLevel)},
                 {SldTX_SE, secondLevel(&PortRec::TxLevel)},
                 {SldRX_SE, secondLevel(&PortRec::RxLevel)}},
                {{port_at::TxLevel, Level{SldTXvol, SldTX_SE, &PortRec::TxCode, txCode, txPosition}},
                 {port_at::RxLevel, Level{SldRXvol, SldRX_SE, &PortRec::RxCode, rxCode, rxPosition}}}});
}

void PortPage::bindSwitching() {
    // A code of switching that no choice has stays beside a new answer to calls.
    const auto flags = [this](const PortRec& to) {
        const auto choice = cmbSimSwitching.index();
        if (choice == ChoiceField::none && to.SwitchFlags.empty()) return std::string();
        const auto code = choice == ChoiceField::none ? static_cast<int>(val(to.SwitchFlags)) & simSwitchingBits
                                                      : simSwitchingCodes.at(static_cast<std::size_t>(choice));
        return std::to_string(code + (cmbCallReject.index() == 1 ? rejectBit : 0));
    };
    table_.add(
        {IncSimSwitching,
         "SIM switching",
         {{cmbSimSwitching, simSwitchingIndex}, {cmbCallReject, rejectIndex}, {txtSimSwap, told(&PortRec::SimSwap)}},
         {{port_at::SwitchFlags, flags}, {port_at::SimSwap, trimmed(txtSimSwap, &PortRec::SimSwap)}}});
}

PortRec* PortPage::portOf(std::string_view key) const {
    return node_key::isPort(key) ? &tools_.tables.port(*node_key::portOf(key)) : nullptr;
}

bool PortPage::writable() const { return node_key::isPort(key_) && kindOf(key_) != NodeKind::Missing; }

// Of a group, as the gateway's answers to one GSM port would have it.
bool PortPage::silent(std::size_t box) const {
    PortRec any;
    any.Kind = "GSM";
    const auto* port = portOf(key_);
    return table_.silent(box, port ? *port : any);
}

void PortPage::fillRecord() {
    const auto* port = portOf(key_);
    showFacts(port);
    if (kindOf(key_) == NodeKind::Missing) {
        lblPortCaption.setText(nodeText() + ": Port not found");
        lblPortHint.setText("The gateway found no module here.");
        showLevels(false, false);
        return;
    }
    lblPortCaption.setText(key_.empty() ? "" : nodeText() + " Setting");
    if (port && port->loaded()) form.take(table_.held(*port));
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
    auto values = model ? table_.held(*model) : RecordForm::Values();
    if (second) {
        auto levels = table_.held(*second);
        for (const InputField* lever : {&SldTX_SE, &SldRX_SE}) values[lever] = levels[lever];
    }
    form.propose(values);
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
    if (kindOf(key_) == NodeKind::Gsm && !form.known()) read({readCommand()}, readBudgetMs);
}

std::vector<QueueItem> PortPage::readBatch() const {
    if (!showsGroup()) return {readCommand()};
    std::vector<QueueItem> batch;
    for (const auto& port : tree_.workingPorts(key_)) batch.push_back(command("R_" + port, tree_.captionOf(port)));
    return batch;
}

BuiltLine PortPage::firstFault() {
    const auto noReg = trim(txtNoRegTimer.text());
    if (checked(IncNoRegTimer, txtNoRegTimer) && !noReg.empty() && !wholeWithin(noReg, 60, 255) &&
        !wholeWithin(noReg, 0, 0))
        return BuiltLine::wrong("ERROR: 'No REG Timer' have to be number between (60-255) or 0 for disable",
                                txtNoRegTimer);
    const bool minChecked = checked(IncMinDigits, TxtMinDigits);
    const bool maxChecked = checked(IncMaxDigits, TxtMaxDigits);
    if (included(IncMaxDigits) && included(IncMinDigits) && (minChecked || maxChecked) &&
        val(TxtMaxDigits.text()) < val(TxtMinDigits.text()))
        return BuiltLine::wrong("ERROR: Max Digit have to be bigger then Min Digit", TxtMaxDigits);
    if (minChecked && !wholeWithin(TxtMinDigits.text(), 2, 7))
        return BuiltLine::wrong("ERROR: Min Digit", TxtMinDigits);
    if (maxChecked && !wholeWithin(TxtMaxDigits.text(), 5, 32))
        return BuiltLine::wrong("ERROR: Max Digit", TxtMaxDigits);
    if (checked(IncIntDigPause, TxtIntDigPause) && !wholeWithin(TxtIntDigPause.text(), 1, 200))
        return BuiltLine::wrong("ERROR: Int Dig Pause", TxtIntDigPause);
    if (checked(IncRelaxTime, cmbRelaxTime) && !cmbRelaxTime.text().empty() &&
        relaxUnits(trim(cmbRelaxTime.text())) < 0)
        return BuiltLine::wrong("ERROR: Relax Time have to be less than 5 seconds", cmbRelaxTime);
    const auto swap = trim(txtSimSwap.text());
    if (checked(IncSimSwitching, txtSimSwap) && !swap.empty() && !wholeWithin(swap, 1, 255))
        return BuiltLine::wrong("ERROR: 'SIM Swapping' have to be number between (1-255)", txtSimSwap);
    return {};
}

BuiltLine PortPage::WriteMod(std::string_view key, bool isCdma) {
    if (auto fault = firstFault(); !fault.word.empty()) return fault;
    const auto* port = portOf(key);
    auto to = port ? *port : PortRec{};
    to.Kind = isCdma ? "CDM" : kindOf(key) == NodeKind::Gsm ? "GSM" : "";
    return BuiltLine::change(node_key::stored(key),
                             table_.line(to, port_at::LineEnd, [this](std::size_t box) { return included(box); }));
}

BuiltLine PortPage::buildShown() { return WriteMod(key_, kindOf(key_) == NodeKind::Cdma); }

BuiltLine PortPage::buildMember(const std::string& key) { return WriteMod(key, portOf(key)->Kind == "CDM"); }

RecordForm::Values PortPage::valuesAfter(std::string_view line) const {
    auto port = *portOf(key_);
    storePort(port, fieldsOf(line), true);
    return table_.held(port);
}

}  // namespace trunvex
