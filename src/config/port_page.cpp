#include "config/port_page.h"

#include <algorithm>
#include <array>

#include "config/node_key.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int refreshBudgetMs = 1000;
constexpr int switchingBits = 56;
constexpr int rejectBit = 64;
constexpr std::array switchingCodes{0, 32, 8, 40, 24, 56};  // by index of cmbSimSwitching
constexpr int swapping = 1;                                 // the choice that goes by txtSimSwap
constexpr std::size_t lastField = 15;

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

std::string listed(const std::vector<std::string>& parts) {
    std::string text;
    for (const auto& part : parts) text += (text.empty() ? "" : ", ") + part;
    return text;
}

}  // namespace

PortPage::PortPage(const PageTools& tools, PortTree& tree, SettingsRecords& records, GroupWrite& groupWrite)
    : tools_(tools), tree_(tree), groupWrite_(groupWrite) {
    const std::array<const char*, includedPortFields> captions{
        "Minimum digits", "Maximum digits", "Pause between digits", "End of dialling", "Relax time", "Levels",
        "No registration timer", "SIM switching"};
    for (std::size_t i = 0; i < includedPortFields; ++i)
        chkIncGrpMod.emplace_back(arrayName("chkIncGrpMod", static_cast<int>(i)), captions[i]);
    cmbRelaxTime.setEntries({"0", "0.5", "1", "1.5", "2", "3", "4", "5"});
    for (InputField* field :
         std::initializer_list<InputField*>{&TxtMinDigits, &TxtMaxDigits, &TxtIntDigPause, &CmbSendComplete,
                                            &cmbRelaxTime, &txtNoRegTimer, &cmbSimSwitching, &cmbCallReject,
                                            &txtSimSwap, &SldTXvol, &SldRXvol, &SldTX_SE, &SldRX_SE})
        form.add(*field);
    form.changed().connect([this] {
        followSwitching();
        followButtons();
    });
    records.portStored.connect([this](int mcu, int module) {
        const auto* port = shownPort();
        if (port && port == &tools_.tables.port(mcu, module)) fill();
    });
    tools_.reads.onComplete("MOD", [this](const std::string&) {
        if (showsGroup()) fill();
    });
    groupWrite_.complete().connect([this](const std::string& group) {
        if (group == key_) form.settle();
    });
    cmdWritePort.pressed().connect([this] { write(); });
    cmdModRefresh_.pressed().connect([this] { cmdModRefresh(); });
    cmdUndoPort.pressed().connect([this] { form.undo(); });
    forget();
}

bool PortPage::showsGroup() const {
    return contains(key_, "MDD") || contains(key_, "GRP") || contains(key_, "PRT");
}

PortRec* PortPage::portOf(std::string_view key) const {
    const auto stored = node_key::stored(key);
    if (!node_key::isPort(stored)) return nullptr;
    return &tools_.tables.port(node_key::mcu(stored), node_key::module(stored));
}

const PortRec* PortPage::shownPort() const { return node_key::isPort(key_) ? portOf(key_) : nullptr; }

void PortPage::forget() {
    key_.clear();
    form.forgetAll();
    form.turnTo({});
    fill();
}

void PortPage::show(const std::string& key) {
    key_ = key;
    form.turnTo(key);
    const bool single = !showsGroup();
    for (auto& box : chkIncGrpMod) {
        box.setVisible(!single);
        box.setChecked(single);  // a group write sends what its operator has marked, and nothing before that
    }
    fill();
}

// Also after a report of the port shown: what the operator has changed stays.
void PortPage::fill() {
    const auto* port = shownPort();
    const auto* node = tree_.tvGroups[0].find(key_);
    const auto name = node ? node->text : key_;
    lblPortHint.setText("");
    lblModuleInfo.setText(port ? std::string(trim(escaped(port->ModuleInfo) + " " + escaped(port->ModuleInfo2))) : "");
    lblModuleType.setText(port && port->loaded() ? port->secondScale() ? "Siemens" : "WaveCom" : "");
    if (showsGroup()) {
        showGroup();
    } else if (contains(key_, "ERR")) {
        lblPortCaption.setText(name + ": Port not found");
        lblPortHint.setText("The gateway found no module here.");
        showLevels(false, false);
    } else {
        lblPortCaption.setText(key_.empty() ? "" : name + " Setting");
        if (port && port->loaded()) form.take(heldValues(*port));
        const bool levels = port && port->Kind != "CDM";
        showLevels(levels && !port->secondScale(), levels && port->secondScale());
    }
    followButtons();
}

void PortPage::showGroup() {
    const auto members = tree_.children(node_key::ofGroup("PRT", key_));
    std::vector<std::string> numbers;
    std::vector<std::string> unread;
    const PortRec* first = nullptr;
    const PortRec* second = nullptr;
    for (const auto& member : members) {
        const auto* port = portOf(member);
        if (!port) continue;
        numbers.push_back(std::to_string(portNumber(node_key::mcu(member), node_key::module(member))));
        if (!port->loaded()) unread.push_back(numbers.back());
        auto& ofScale = port->secondScale() ? second : first;
        if (!ofScale && port->loaded()) ofScale = port;
    }
    lblPortCaption.setText("Groups " + std::to_string(val(mid(key_, 4, 2))) + " Ports: " + listed(numbers));
    if (members.empty())
        lblPortHint.setText("This group has no ports.");
    else if (!unread.empty())
        lblPortHint.setText("Not read yet: port " + listed(unread) + ". Their levels are written on the first scale.");
    showLevels(true, second != nullptr);
    if (form.edited()) return;
    std::vector<std::string> values(portFormFields);
    if (const auto* model = first ? first : second) values = heldValues(*model);
    if (first && second) {
        values[portFormFields - 2] = heldValues(*second)[portFormFields - 2];
        values[portFormFields - 1] = heldValues(*second)[portFormFields - 1];
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
void PortPage::followSwitching() {
    const bool used = cmbSimSwitching.index() == swapping || cmbSimSwitching.index() == ChoiceField::none;
    if (!used && txtSimSwap.enabled()) form.undo(txtSimSwap);
    txtSimSwap.setEnabled(used);
}

void PortPage::followButtons() {
    const bool addressed = showsGroup() || (shownPort() && !contains(key_, "ERR"));
    cmdWritePort.setEnabled(addressed && !writesHeld_);
    cmdUndoPort.setEnabled(form.edited());
}

void PortPage::holdWrites(bool held) {
    writesHeld_ = held;
    followButtons();
}

void PortPage::readSelected() {
    const auto* node = tree_.tvGroups[0].find(key_);
    tools_.read({command("R_" + key_, node ? node->text : key_)}, readBudgetMs);
}

void PortPage::cmdModRefresh() {
    if (!tools_.mayRefresh(key_, form)) return;
    const auto* node = tree_.tvGroups[0].find(key_);
    std::vector<QueueItem> batch;
    if (!showsGroup()) batch.push_back(command("R_" + node_key::stored(key_), node ? node->text : key_));
    for (const auto& member : tree_.children(node_key::ofGroup("PRT", key_)))
        if (showsGroup() && node_key::isPort(member))
            batch.push_back(command("R_" + node_key::stored(member), tree_.captionOf(member)));
    tools_.read(std::move(batch), refreshBudgetMs);
}

BuiltLine PortPage::firstFault() {
    const auto included = [this](IncludedPortField field) { return chkIncGrpMod[field].checked(); };
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

BuiltLine PortPage::build(std::string_view key, bool isCdma) {
    if (auto fault = firstFault(); !fault.word.empty()) return fault;
    const auto included = [this](IncludedPortField field) { return chkIncGrpMod[field].checked(); };
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
    BuiltLine built;
    built.line = "C_" + node_key::stored(key);
    for (std::size_t i = 1; i <= lastField; ++i) built.line += "," + fields[i];
    built.line += ",,";
    return built;
}

std::string PortPage::WriteMod(std::string_view key, bool isCdma) {
    form.clearProblems();
    return build(key, isCdma).orTell(tools_.dialogs);
}

void PortPage::write() {
    if (!tools_.mayWrite(key_)) return;
    if (showsGroup()) {
        writeGroup();
        return;
    }
    if (!tools_.isRead(form)) return;
    const auto line = WriteMod(key_, contains(key_, "CDM"));
    if (line.empty()) return;
    respell(line);
    if (tools_.write(line, tree_.captionOf(key_))) writeStarted_.emit();
}

// "016" is told back as 16, and what was left empty as it was: neither is an edit any more once it is written.
void PortPage::respell(std::string_view line) {
    auto sent = *shownPort();
    storePort(sent, fieldsOf(line), true);
    form.respell(heldValues(sent));
}

void PortPage::writeGroup() {
    if (!tools_.anyMarked(chkIncGrpMod) || WriteMod(key_, false).empty()) return;
    auto items = tree_.groupWritePorts(key_, [this](const std::string& member) {
        const auto* port = portOf(member);
        return build(member, port && port->Kind == "CDM").line;
    });
    if (groupWrite_.start(key_, std::move(items))) writeStarted_.emit();
}

}  // namespace trunvex
