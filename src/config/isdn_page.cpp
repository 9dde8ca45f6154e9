#include "config/isdn_page.h"

#include <array>

#include "model/isdn_codes.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t alertDigits = 3;
constexpr int imitation = 1;  // the way of taking calls that goes by the timer 'Alerting'

// A number as the tables spell it.
std::string code(std::string_view text) { return text.empty() ? std::string() : std::to_string(val(text)); }

std::string indexFrom(std::string_view number, int first) {
    return number.empty() ? std::string() : std::to_string(val(number) - first);
}

}  // namespace

IsdnPage::IsdnPage(const PageTools& tools, SettingsRecords& records) : tools_(tools) {
    CmbNetworkAccess.setItems(isdn_codes::texts(isdn_codes::networkAccess));
    CmbSynchronization.setItems(isdn_codes::texts(isdn_codes::synchronization));
    CmbIncomingCalls.setItems(isdn_codes::texts(isdn_codes::incomingCalls));
    CmbCountryCode.setItems(isdn_codes::texts(isdn_codes::countryCode));
    CmbISDNVersion.setEntries(
        {"AT&T4ES", "AT&T5ES", "EuroISDN", "1TR6", "QSIG", "NorTelDMS100", "National ISDN", "Hong Kong", "Korea"});
    cmbNumIdentif.setItems(isdn_codes::texts(isdn_codes::numberIdentification));
    for (InputField* field : std::initializer_list<InputField*>{
             &CmbNetworkAccess, &CmbSynchronization, &CmbIncomingCalls, &CmbCountryCode, &CmbISDNVersion,
             &TxtLocalNumber, &TxtLocalSubAddress, &cmbTypeOfNumber, &cmbNumIdentif, &cmbISD[0], &cmbISD[1],
             &CmbIncomingCallsMode, &txtInCallMode})
        form.add(*field);
    form.changed().connect([this] { followRules(); });
    records.isdnStored.connect([this] { show(); });
    for (const char* mnemonic : {"ISD", "SYS"})
        tools_.reads.onComplete(mnemonic, [this](const std::string&) {
            if (loaded()) show();
        });
    CmdWriteISDN_.pressed().connect([this] { CmdWriteISDN(); });
    cmdIsdnRefresh_.pressed().connect([this] { cmdIsdnRefresh(); });
    cmdUndoIsdn.pressed().connect([this] { form.undo(); });
    forget();
}

void IsdnPage::forget() {
    form.forgetAll();
    TxtISM_VER.setText("");
    followRules();
}

void IsdnPage::show() {
    TxtISM_VER.setText(escaped(trim(tools_.tables.isdn.IsmVersion)));
    form.take(heldValues(tools_.tables.isdn));
    followRules();
}

// In the order in which the form has its fields. A code that no table has leaves its list as it is.
std::vector<std::string> IsdnPage::heldValues(const IsdnRec& isdn) const {
    const auto choice = [](const ChoiceField& field, const isdn_codes::Table& table, std::string_view wire) {
        const auto text = isdn_codes::textOf(table, code(wire));
        for (std::size_t i = 0; i < field.items().size(); ++i)
            if (!text.empty() && field.items()[i] == text) return std::to_string(i);
        return field.value();
    };
    const auto version = isdn_codes::textOf(isdn_codes::isdnVersion, code(isdn.IsdnVersion));
    return {choice(CmbNetworkAccess, isdn_codes::networkAccess, isdn.NetworkAccess),
            choice(CmbSynchronization, isdn_codes::synchronization, isdn.Synchronization),
            choice(CmbIncomingCalls, isdn_codes::incomingCalls, isdn.IncomingCalls),
            choice(CmbCountryCode, isdn_codes::countryCode, isdn.CountryCode),
            version.empty() ? CmbISDNVersion.text() : version,
            escaped(isdn.LocalNumber),
            escaped(isdn.LocalSubAddress),
            code(isdn.TypeOfNumber),
            choice(cmbNumIdentif, isdn_codes::numberIdentification, isdn.NumberIdentification),
            indexFrom(isdn.CrcMode, 1),
            indexFrom(isdn.CableMode, 0),
            code(isdn.InCallMode),
            code(isdn.AlertTimer)};
}

// The timer counts for imitated processing only; greyed, it is what the gateway holds.
void IsdnPage::followRules() {
    const auto way = CmbIncomingCallsMode.index();
    const bool used = way == imitation || way == ChoiceField::none;
    if (!used && txtInCallMode.enabled() && !form.filling()) form.undo(txtInCallMode);
    txtInCallMode.setEnabled(used);
    cmdUndoIsdn.setEnabled(form.edited());
}

BuiltLine IsdnPage::firstFault() {
    const auto unset = [](const ChoiceField& field) { return field.index() == ChoiceField::none; };
    if (unset(CmbNetworkAccess)) {
        auto fault = BuiltLine::wrong("Error: Network Access", CmbNetworkAccess);
        fault.title = "Error";
        return fault;
    }
    if (unset(CmbSynchronization)) return BuiltLine::wrong("Error: Synchronization", CmbSynchronization);
    if (unset(CmbIncomingCalls)) return BuiltLine::wrong("Error: Type of incoming calls.", CmbIncomingCalls);
    if (unset(CmbCountryCode))
        return BuiltLine::wrong("There is not such country, Please pick up from list", CmbCountryCode);
    if (isdn_codes::codeOf(isdn_codes::isdnVersion, CmbISDNVersion.text()).empty())
        return BuiltLine::wrong("Please pick up ISDN version from list", CmbISDNVersion);
    const auto& number = TxtLocalNumber.text();
    if (number.size() > 9 || !(number.empty() || isWhole(number)))
        return BuiltLine::wrong("The local number have to be between 0 to 9 digits", TxtLocalNumber);
    if (TxtLocalSubAddress.text().size() >= 2)
        return BuiltLine::wrong("The local sub adderss have to be 1 digits", TxtLocalSubAddress);
    if (!fitsField(TxtLocalSubAddress.text())) return BuiltLine::wrong(doesNotFitField, TxtLocalSubAddress);
    const auto& timer = txtInCallMode.text();
    if (!timer.empty() && !wholeWithin(timer, 0, 250))
        return BuiltLine::wrong("The timer 'Alerting' have to be a number between 0 to 250", txtInCallMode);
    return {};
}

std::string IsdnPage::buildLine(bool store) {
    form.clearProblems();
    const auto fault = firstFault();
    if (!fault.word.empty()) return fault.orTell(tools_.dialogs);
    using namespace isdn_codes;
    const std::array<std::string, 15> values{
        codeOf(networkAccess, CmbNetworkAccess.text()),
        codeOf(synchronization, CmbSynchronization.text()),
        codeOf(incomingCalls, CmbIncomingCalls.text()),
        codeOf(countryCode, CmbCountryCode.text()),
        codeOf(isdnVersion, CmbISDNVersion.text()),
        "0",
        "0",
        TxtLocalNumber.text(),
        TxtLocalSubAddress.text(),
        cmbTypeOfNumber.value(),
        codeOf(numberIdentification, cmbNumIdentif.text()),
        cmbISD[0].index() == ChoiceField::none ? "" : std::to_string(cmbISD[0].index() + 1),
        cmbISD[1].value(),
        CmbIncomingCallsMode.value(),
        pad(txtInCallMode.text(), alertDigits, '0', PadSide::Left)};
    std::string body;
    for (const auto& value : values) body += (&value == &values.front() ? "" : ",") + value;
    if (store) {
        storeIsdn(tools_.tables.isdn, splitString(body, ','), true);
        show();
    }
    return "C_ISD" + body;
}

void IsdnPage::cmdIsdnRefresh() {
    if (!tools_.connected()) return;
    if (tools_.mayLose(form)) tools_.read({command("R_ISD", "ISDN")}, readBudgetMs);
}

void IsdnPage::CmdWriteISDN() {
    if (!tools_.connected()) return;
    const auto line = buildLine(false);
    if (line.empty()) return;
    auto sent = tools_.tables.isdn;
    storeIsdn(sent, fieldsOf(line), true);
    form.respell(heldValues(sent));  // "005" is told back as 5
    tools_.write(line, "ISDN", "send data : ");
}

}  // namespace trunvex
