#include "config/routing/port_routing.h"

#include <algorithm>

#include "config/grid_rows.h"
#include "config/page_table.h"
#include "config/routing/routing_texts.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

struct Mode {
    int code;
    bool byPrefix;
    int option;
    const char* text;
};

constexpr Mode modes[] = {
    {0, false, 0, "Static allocation of B-channels and Ports"},
    {1, false, 1, "Cyclic allocation of B-channels and Ports"},
    {2, false, 2, "Random allocation of B-channels and Ports"},
    {5, true, 1, "By Prefixes Cyclic allocation of B-channels and Ports"},
    {6, true, 2, "By Prefixes Random allocation of B-channels and Ports"},
};

constexpr int mostPrefixDigits = 16;
constexpr std::size_t mostModifiedDigits = 16;

const Mode* modeOf(const std::string& code) {
    if (!isWhole(code)) return nullptr;
    const auto* found = std::ranges::find(modes, val(code), &Mode::code);
    return found == std::end(modes) ? nullptr : found;
}

GridField::Column digits(const char* heading) { return {heading, mostModifiedDigits, "0123456789*#+", false, {}}; }

}  // namespace

PortRouting::PortRouting(const PageTools& tools, RoutingRecords& routing)
    : RoutingSide(tools, "Ports and modes", "cmdTslUndo_PRT", "cmdTSLWrite_PRT"),
      ucTslNumModif("ucTslNumModif", {digits("Ignored Digits"), digits("Added Digits")},
                    RoutingRecords::mostModifications),
      routing_(routing), readBack_(tools, routing.modifications, tableRead("R_EDN", "Number Modification"),
                                   [this](const std::string& word) { tell(records.word() + ". " + word); }) {
    bindAllocation();
    bindPorts();
    bindModifications();
    records.changed().connect([this] {
        lblTslPortRestart.setText(restarts() ? "This write has more than " + std::to_string(mostWithoutRestart) +
                                                   " commands: the gateway restarts behind it, and calls end."
                                             : "");
    });
}

void PortRouting::bindAllocation() {
    for (InputField* field :
         std::initializer_list<InputField*>{&optTSLMode, &chkTSLByPrefix, &txtPRFDigits, &chkTSLMNP})
        allocation_.add(*field);
    records.add(allocation_, "Allocation mode");
    wait_.add(txtTSLWait);
    records.add(wait_, "Waiting time");
    optTSLMode.valueChanged().connect([this] { followMode(); });
    routing_.allocationStored.connect([this] { showAllocation(); });
    routing_.waitStored.connect([this] { wait_.take({{&txtTSLWait, waitingSeconds(routing_.waitTenths())}}); });
    followMode();
}

// Prefixes lead a call to a group, and pairs to one port: both at once can't be.
void PortRouting::followMode() {
    const bool isStatic = optTSLMode.index() == 0;
    chkTSLByPrefix.setEnabled(!isStatic);
    if (isStatic != pairs.isStatic()) pairs.setStatic(isStatic);
}

void PortRouting::showAllocation() {
    const auto& told = routing_.allocation();
    const auto* mode = modeOf(told.mode);
    if (!mode) return;
    lblAllocation.setText(mode->text);
    if (told.prefixDigits.empty() || told.mnp.empty()) return;  // as with a port
    allocation_.take({{&optTSLMode, std::to_string(mode->option)},
                      {&chkTSLByPrefix, mode->byPrefix ? "1" : "0"},
                      {&txtPRFDigits, escaped(told.prefixDigits)},
                      {&chkTSLMNP, told.mnp}});
}

void PortRouting::bindPorts() {
    for (const auto at : everyPort) {
        const auto slot = at.slot();
        auto& form = ports_.emplace_back();
        form.add(chkTSLPort.emplace_back(arrayName("chkTSLPort", static_cast<int>(slot)),
                                         "Port #" + std::to_string(at.number())));
        form.add(pairs.bound[slot]);
        form.add(txtTSLPRF.emplace_back(arrayName("txtTSLPRF", static_cast<int>(slot))));
        records.add(form, "Port " + std::to_string(at.number()));
    }
    routing_.portStored.connect([this](PortAddress at) { showPort(at); });
    chkTSLAllPort.pressed().connect([this] {
        for (std::size_t slot = 0; slot < ports_.size(); ++slot)
            if (ports_[slot].known()) chkTSLPort[slot].setChecked(chkTSLAllPort.checked());
    });
    std::vector<std::string> groups;
    for (int group = 0; group <= mostGroup; ++group) groups.push_back(std::to_string(group));
    cmbTSLGRP.setItems(std::move(groups));
    cmbTSLGRP.setIndex(0);
    txtTSLGRPSet.pressed().connect([this] { setGroups(); });
}

// Of a record that was cut short the rest stays unread.
void PortRouting::showPort(PortAddress at) {
    const auto& told = routing_.port(at);
    if (told.enabled.empty() || told.channel.empty()) return;
    ports_[at.slot()].take({{&chkTSLPort[at.slot()], told.enabled},
                            {&pairs.bound[at.slot()], told.channel},
                            {&txtTSLPRF[at.slot()], escaped(told.group)}});
}

void PortRouting::setGroups() {
    const auto ports = portsOf(txtTSLGRPCol.text());
    if (!ports) {
        txtTSLGRPCol.setProblem("Ports are numbers of 1 to 32, as in 1,3-5.");
        return;
    }
    txtTSLGRPCol.setProblem({});
    for (const int port : *ports) txtTSLPRF[static_cast<std::size_t>(port - 1)].setText(cmbTSLGRP.text());
}

void PortRouting::bindModifications() {
    modificationMode_.add(txtEDNMode);
    records.add(modificationMode_, "Number modification mode");
    modifications_.add(ucTslNumModif);
    records.add(modifications_, "Number modification lines");
    routing_.modificationModeStored.connect([this] {
        modificationMode_.take({{&txtEDNMode, escaped(routing_.modificationMode())}});
    });
    routing_.modifications.changed().connect([this] {
        if (routing_.modifications.whole()) modifications_.take({{&ucTslNumModif, heldRows(routing_.modifications)}});
    });
}

void PortRouting::park() {
    lblAllocation.setText("");
    records.park(tools_.session.gESN);
}

std::vector<int> PortRouting::changedPorts() const {
    std::vector<int> changed;
    for (std::size_t slot = 0; slot < ports_.size(); ++slot)
        if (ports_[slot].edited()) changed.push_back(static_cast<int>(slot) + 1);
    return changed;
}

bool PortRouting::changed() const {
    return allocation_.edited() || wait_.edited() || modificationMode_.edited() || modifications_.edited() ||
           !changedPorts().empty();
}

// As many commands as a write would have, before the restart.
std::size_t PortRouting::entries() const {
    return (allocation_.known() ? 1 : 0) + (wait_.known() ? 1 : 0) + changedPorts().size() +
           (modificationMode_.known() ? 1 : 0) + (modifications_.known() ? filledRows(ucTslNumModif).size() : 0);
}

bool PortRouting::restarts() const { return changed() && entries() > mostWithoutRestart; }

BuiltLine PortRouting::portFault(int port) {
    const auto slot = static_cast<std::size_t>(port - 1);
    if (!ports_[slot].known())
        return BuiltLine::wrong("Port " + std::to_string(port) + ": " + nothingReadText, txtTSLPRF[slot]);
    if (untouched(txtTSLPRF[slot])) return {};
    if (txtTSLPRF[slot].text().size() > 3)
        return BuiltLine::wrong("- Max number of Prefix group is 3 digit .", txtTSLPRF[slot]);
    if (!wholeWithin(txtTSLPRF[slot].text(), 0, mostGroup))
        return BuiltLine::wrong("- The Prefix group number must be between 0 and 255 .", txtTSLPRF[slot]);
    return {};
}

BuiltLine PortRouting::firstFault() {
    const auto info = [](const char* word, InputField* field) { return BuiltLine{{}, word, field, "info"}; };
    if (wait_.edited() && !waitingTenths(txtTSLWait.text()))
        return info("'Waiting time for free port' value mast be between 0 and 25 .", &txtTSLWait);
    if (allocation_.edited() && !untouched(txtPRFDigits) && !wholeWithin(txtPRFDigits.text(), 1, mostPrefixDigits))
        return info("'Maximum prefix length' value mast be between 1 and 16 .", &txtPRFDigits);
    if (!changed()) return info(noChangeText, nullptr);
    const auto unread = [](const RecordForm& form, InputField& field) {
        return form.edited() && !form.known() ? BuiltLine::wrong(form.key() + ": " + nothingReadText, field)
                                              : BuiltLine();
    };
    for (auto fault : {unread(allocation_, optTSLMode), unread(wait_, txtTSLWait),
                       unread(modificationMode_, txtEDNMode), unread(modifications_, ucTslNumModif)})
        if (!fault.word.empty()) return fault;
    for (const int port : changedPorts())
        if (auto fault = portFault(port); !fault.word.empty()) return fault;
    if (modificationMode_.edited() && !wholeWithin(txtEDNMode.text(), 0, 9))
        return BuiltLine::wrong("The number modification mode is a number between 0 and 9.", txtEDNMode);
    return modifications_.edited() ? gridFault(ucTslNumModif, routing_.modifications) : BuiltLine();
}

std::string PortRouting::wireMode() const {
    const auto* mode = std::ranges::find_if(modes, [this](const Mode& one) {
        return one.option == optTSLMode.index() && one.byPrefix == (chkTSLByPrefix.checked() && one.option != 0);
    });
    return mode == std::end(modes) ? std::string() : std::to_string(mode->code);
}

void PortRouting::addPorts(RoutingBatch& batch) const {
    for (const int port : changedPorts()) {
        const auto at = PortAddress::ofNumber(port);
        const auto& line = pairs.bound[at.slot()];
        const auto group = untouched(txtTSLPRF[at.slot()]) ? routing_.port(at).group : txtTSLPRF[at.slot()].text();
        batch.add("C_PRT" + at.digits() + "," + chkTSLPort[at.slot()].value() + "," +
                      pad(line.text(), 2, '0', PadSide::Left) + "," + group,
                  "Port " + std::to_string(port));
    }
}

void PortRouting::addModifications(RoutingBatch& batch) const {
    if (modificationMode_.known()) batch.add("C_EDN00," + txtEDNMode.text(), "Number Modification Mode");
    if (!modifications_.known()) return;
    for (const auto row : filledRows(ucTslNumModif))
        batch.add("C_EDN" + twoDigits(static_cast<std::int64_t>(row) + 1) + "," + ucTslNumModif.cell(row, 0) + "," +
                      ucTslNumModif.cell(row, 1),
                  "Number Modification Line: " + std::to_string(row + 1));
}

// What was edited, spelled as the gateway tells it: "2,5" is 2.5, and "007" is 7.
void PortRouting::respell() {
    if (wait_.edited())
        wait_.respell({{&txtTSLWait, waitingSeconds(std::to_string(*waitingTenths(txtTSLWait.text())))}});
    for (const int port : changedPorts()) {
        auto& group = txtTSLPRF[static_cast<std::size_t>(port - 1)];
        if (isWhole(group.text())) group.setText(std::to_string(val(group.text())));
    }
}

RoutingBatch PortRouting::build() {
    if (auto fault = firstFault(); !fault.word.empty()) return RoutingBatch::wrong(std::move(fault));
    respell();
    RoutingBatch batch;
    const auto& told = routing_.allocation();
    if (allocation_.known())
        batch.add("C_SEL" + wireMode() + "," + (untouched(txtPRFDigits) ? told.prefixDigits : txtPRFDigits.text()) +
                      "," + chkTSLMNP.value(),
                  "Allocation Mode & PRF digits");
    if (wait_.known()) {
        const auto tenths = untouched(txtTSLWait) ? std::optional<int>() : waitingTenths(txtTSLWait.text());
        batch.add("C_WTP" + (tenths ? std::to_string(*tenths) : routing_.waitTenths()), "Waiting time of free port");
    }
    addPorts(batch);
    addModifications(batch);
    if (modifications_.known()) batch.whole = [this, rows = rowsOf(ucTslNumModif)] { readBack_.begin(rows); };
    if (batch.items.size() > mostWithoutRestart) {
        batch.items.push_back(restartRequest());
        batch.names.push_back(batch.items.back().Caption);
    }
    return batch;
}

}  // namespace trunvex
