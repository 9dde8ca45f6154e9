#include "config/routing/routing_page.h"

#include <algorithm>

#include "config/grid_rows.h"
#include "config/routing/routing_trial.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int budgetMs = 1000;

QueueItem channelRead(int line) {
    auto item = command("R_BCH" + twoDigits(line), "BCCH " + std::to_string(line));
    item.terms.contains = "OK";
    return item;
}

std::vector<QueueItem> allReads() {
    std::vector<QueueItem> batch{tableRead("R_EDN", "Number Modification"), command("R_SEL", "Allocation Mode"),
                                 command("R_WTP", "Waiting time of free port")};
    for (const auto port : everyPort)
        batch.push_back(command("R_PRT" + port.digits(), "Port " + std::to_string(port.number())));
    batch.push_back(command("R_CCC", "Call clearing causes"));
    for (int line = 1; line <= RoutingRecords::lineCount; ++line) batch.push_back(channelRead(line));
    batch.push_back(tableRead("R_PRF", "Prefix"));
    batch.push_back(tableRead("R_ICL", "Access to E1"));
    batch.push_back(tableRead("R_IIL", "Access to GSM"));
    batch.push_back(tableRead("R_DAC", "DELA"));
    batch.push_back(command("R_DST", "DELA Mode"));
    return batch;
}

}  // namespace

RoutingPage::RoutingPage(Session& session, const PageTools& tools, RoutingRecords& routing)
    : Page(session, {"tsl", "Routing", "B-channel and port routing", Prefixes}), portSide(tools, routing),
      channelSide(tools, routing), prefixes(tools, routing), access(tools, routing), directLines(tools, routing),
      tools_(tools), routing_(routing), sides_{&portSide, &channelSide, &prefixes, &access, &directLines} {
    std::vector<std::string> channels{"any"};
    for (int channel = 1; channel <= ChannelRouting::channels; ++channel) channels.push_back(std::to_string(channel));
    cmbTryChannel.setItems(std::move(channels));
    cmbTryChannel.setIndex(0);
    cmdTslGetData.pressed().connect([this] { readAll(); });
    for (auto* side : sides_) {
        side->writeStarted.connect([this] { writeStarted.emit(); });
        side->records.changed().connect([this] { tryIt(); });
    }
    for (InputField* field : std::initializer_list<InputField*>{&txtTryNumber, &txtTryCaller, &cmbTryChannel})
        field->valueChanged().connect([this] { tryIt(); });
    tryIt();
}

void RoutingPage::readAll() {
    if (!tools_.connected()) return;
    const bool edited = std::ranges::any_of(sides_, [](const RoutingSide* side) { return side->records.edited(); });
    if (edited &&
        !tools_.dialogs.agreed(Button::Yes,
                               {"What was changed here is not written to the gateway yet.\r\nRead again and lose the "
                                "changes?",
                                "Refresh", ButtonSet::YesNo, BoxIcon::Question, 2},
                               forSession(tools_.session)))
        return;
    for (auto* side : sides_) side->records.undo();
    tools_.read(traits.key, allReads(), budgetMs);
}

std::vector<QueueItem> RoutingPage::missing() {
    return portSide.lblAllocation.text().empty() ? allReads() : std::vector<QueueItem>();
}

void RoutingPage::holdWrites(bool held) {
    for (auto* side : sides_) side->write.setEnabled(!held);
    access.holdWrites(held);
    directLines.holdWrites(held);
    prefixes.cmdTslPrfEraseAll.setEnabled(!held);
}

std::vector<std::string> RoutingPage::unwritten(Edits which) const {
    std::vector<std::string> names;
    for (const auto* side : sides_)
        for (auto& name : side->records.unwritten(which == Edits::All)) names.push_back("Routing: " + name);
    return names;
}

void RoutingPage::discard() {
    for (auto* side : sides_) side->records.forgetAll();
}

void RoutingPage::identified() {
    for (auto* side : sides_) side->records.resume(session_.state.gESN);
}

void RoutingPage::park() {
    portSide.park();
    channelSide.park();
    prefixes.park();
    access.park();
    directLines.park();
}

void RoutingPage::addLists(RoutingPicture& picture) const {
    if (routing_.prefixes.whole()) picture.prefixes = rowsOf(prefixes.ucTslPrefixes);
    if (routing_.modifications.whole()) picture.modifications = rowsOf(portSide.ucTslNumModif);
    picture.modifies = val(portSide.txtEDNMode.text()) != 0;
    const auto& told = routing_.fromIsdn;
    if (!told.table.whole() || told.mode.empty()) return;
    const bool isShown = access.cmbTslAccessE1.index() == 1;
    picture.fromIsdn = {(isShown ? access.cmbAccessMode.value() : told.mode) != "0",
                        isShown ? access.chkNumList.checked() : told.unlisted == "1",
                        isShown ? rowsOf(access.ucTslAccessE1) : told.table.rows()};
}

void RoutingPage::tryIt() {
    lblTry.setText(txtTryNumber.text().empty() ? "Enter the number that is dialled." : triedNow());
}

std::string RoutingPage::triedNow() const {
    RoutingPicture picture;
    if (!routing_.allocation().mode.empty() && portSide.optTSLMode.index() != ChoiceField::none)
        picture.mode = portSide.optTSLMode.index();
    picture.byPrefix = portSide.chkTSLByPrefix.checked();
    if (const auto& digits = portSide.txtPRFDigits.text(); isWhole(digits))
        picture.prefixDigits = static_cast<std::size_t>(val(digits));
    picture.mnp = portSide.chkTSLMNP.checked();
    for (const auto at : everyPort) {
        auto& port = picture.ports[at.slot()];
        port.present = val(mid(session_.state.gActivePorts, at.slot() + 1, 1)) > 0;
        if (portSide.pairs.told(at.number())) port.enabled = portSide.chkTSLPort[at.slot()].checked();
        port.line = portSide.pairs.lineOf(at.number());
        port.group = portSide.txtTSLPRF[at.slot()].text();
    }
    for (std::size_t i = 0; i < picture.channels.size(); ++i)
        if (!routing_.line(static_cast<int>(i) + 1).enabled.empty())
            picture.channels[i] = channelSide.chkTSLChannel[i].checked();
    for (std::size_t row = 0; row < channelSide.ucTslClearCause.rowCount(); ++row)
        picture.causes.push_back(channelSide.ucTslClearCause.cell(row, 1));
    addLists(picture);
    std::string text;
    for (const auto& step : tryNumber(picture, txtTryNumber.text(), txtTryCaller.text(), cmbTryChannel.index()))
        text += (text.empty() ? "" : "\n") + step;
    return text;
}

}  // namespace trunvex
