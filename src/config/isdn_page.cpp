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

auto number(std::string IsdnRec::*member) {
    return [member](const IsdnRec& isdn) { return code(isdn.*member); };
}

std::string crcIndex(const IsdnRec& isdn) {
    return isdn.CrcMode.empty() ? std::string() : std::to_string(val(isdn.CrcMode) - 1);
}

// A list of words that stand for codes. A code that the table does not have leaves the list as it is.
PageTable<IsdnRec>::Row choice(std::size_t at, ChoiceField& field, std::string IsdnRec::*member,
                               const isdn_codes::Table& table) {
    const auto held = [&field, &table, member](const IsdnRec& isdn) {
        const auto text = isdn_codes::textOf(table, code(isdn.*member));
        for (std::size_t i = 0; i < field.items().size(); ++i)
            if (!text.empty() && field.items()[i] == text) return std::to_string(i);
        return field.value();
    };
    const auto wire = [&field, &table, member](const IsdnRec& to) {
        return untouched(field) ? to.*member : isdn_codes::codeOf(table, field.text());
    };
    field.setItems(isdn_codes::texts(table));
    return {PageTable<IsdnRec>::noBox, "", {{field, held}}, {{at, wire}}};
}

}  // namespace

IsdnPage::IsdnPage(Session& session, const PageTools& tools, SettingsRecords& records)
    : RecordPage(session, {"isdn", "ISDN", "ISDN settings", Isdn}, tools) {
    bindLine();
    bindCalls();
    table_.addFieldsTo(form);
    form.changed().connect([this] { followRules(); });
    records.isdnStored.connect([this] { show(); });
    for (const char* mnemonic : {"ISD", "SYS"})
        tools_.reads.onComplete(mnemonic, [this](const std::string&) {
            if (loaded()) show();
        });
    addForm(form, "ISDN", {cmdUndoIsdn, cmdIsdnRefresh_, CmdWriteISDN_}, {command("R_ISD", "ISDN")},
            [this] { return buildLine(false); });
    forget();
}

std::vector<QueueItem> IsdnPage::missing() {
    if (loaded()) return {};
    return {command("R_ISD", "ISDN")};
}

void IsdnPage::bindLine() {
    using namespace isdn_codes;
    table_.add(choice(isdn_at::NetworkAccess, CmbNetworkAccess, &IsdnRec::NetworkAccess, networkAccess));
    table_.add(choice(isdn_at::Synchronization, CmbSynchronization, &IsdnRec::Synchronization, synchronization));
    table_.add(choice(isdn_at::CountryCode, CmbCountryCode, &IsdnRec::CountryCode, countryCode));
    CmbISDNVersion.setEntries(
        {"AT&T4ES", "AT&T5ES", "EuroISDN", "1TR6", "QSIG", "NorTelDMS100", "National ISDN", "Hong Kong", "Korea"});
    const auto version = [this](const IsdnRec& isdn) {
        const auto text = textOf(isdnVersion, code(isdn.IsdnVersion));
        return text.empty() ? CmbISDNVersion.text() : text;
    };
    const auto versionCode = [this](const IsdnRec& to) {
        return untouched(CmbISDNVersion) ? to.IsdnVersion : codeOf(isdnVersion, CmbISDNVersion.text());
    };
    const auto crc = [this](const IsdnRec& to) {
        if (untouched(cmbISD[0])) return to.CrcMode;
        return cmbISD[0].index() == ChoiceField::none ? std::string() : std::to_string(cmbISD[0].index() + 1);
    };
    const auto zero = [](const IsdnRec&) { return "0"; };
    table_.add({table_.noBox,
                "",
                {{CmbISDNVersion, version}, {cmbISD[0], crcIndex}, {cmbISD[1], number(&IsdnRec::CableMode)}},
                {{isdn_at::IsdnVersion, versionCode},
                 {isdn_at::CrcMode, crc},
                 {isdn_at::CableMode, contentOrHeld(cmbISD[1], &IsdnRec::CableMode)},
                 {isdn_at::Reserved13, zero},
                 {isdn_at::Reserved14, zero}}});
}

void IsdnPage::bindCalls() {
    table_.add(choice(isdn_at::IncomingCalls, CmbIncomingCalls, &IsdnRec::IncomingCalls, isdn_codes::incomingCalls));
    table_.add(choice(isdn_at::NumberIdentification, cmbNumIdentif, &IsdnRec::NumberIdentification,
                      isdn_codes::numberIdentification));
    const auto timer = [this](const IsdnRec& to) {
        if (untouched(txtInCallMode)) return to.AlertTimer;
        return pad(txtInCallMode.text(), alertDigits, '0', PadSide::Left);
    };
    table_.add({table_.noBox,
                "",
                {{TxtLocalNumber, told(&IsdnRec::LocalNumber)},
                 {TxtLocalSubAddress, told(&IsdnRec::LocalSubAddress)},
                 {cmbTypeOfNumber, number(&IsdnRec::TypeOfNumber)},
                 {CmbIncomingCallsMode, number(&IsdnRec::InCallMode)},
                 {txtInCallMode, number(&IsdnRec::AlertTimer)}},
                {{isdn_at::LocalNumber, contentOrHeld(TxtLocalNumber, &IsdnRec::LocalNumber)},
                 {isdn_at::LocalSubAddress, contentOrHeld(TxtLocalSubAddress, &IsdnRec::LocalSubAddress)},
                 {isdn_at::TypeOfNumber, contentOrHeld(cmbTypeOfNumber, &IsdnRec::TypeOfNumber)},
                 {isdn_at::InCallMode, contentOrHeld(CmbIncomingCallsMode, &IsdnRec::InCallMode)},
                 {isdn_at::AlertTimer, timer}}});
}

void IsdnPage::forget() {
    form.park(tools_.session.gESN);
    TxtISM_VER.setText("");
    followRules();
}

void IsdnPage::show() {
    TxtISM_VER.setText(escaped(trim(tools_.tables.isdn.IsmVersion)));
    form.take(table_.held(tools_.tables.isdn));
    followRules();
}

// The timer counts for imitated processing only; greyed, it is what the gateway holds.
void IsdnPage::followRules() {
    const auto way = CmbIncomingCallsMode.index();
    const bool used = way == imitation || way == ChoiceField::none;
    if (!used && txtInCallMode.enabled() && !form.filling()) form.undo(txtInCallMode);
    txtInCallMode.setEnabled(used);
}

BuiltLine IsdnPage::firstFault() {
    // What the gateway holds is no fault of the operator's, and stops no write.
    const auto unset = [](const ChoiceField& field) { return field.index() == ChoiceField::none && !untouched(field); };
    if (unset(CmbNetworkAccess)) {
        auto fault = BuiltLine::wrong("Error: Network Access", CmbNetworkAccess);
        fault.title = "Error";
        return fault;
    }
    if (unset(CmbSynchronization)) return BuiltLine::wrong("Error: Synchronization", CmbSynchronization);
    if (unset(CmbIncomingCalls)) return BuiltLine::wrong("Error: Type of incoming calls.", CmbIncomingCalls);
    if (unset(CmbCountryCode))
        return BuiltLine::wrong("There is not such country, Please pick up from list", CmbCountryCode);
    if (!untouched(CmbISDNVersion) && isdn_codes::codeOf(isdn_codes::isdnVersion, CmbISDNVersion.text()).empty())
        return BuiltLine::wrong("Please pick up ISDN version from list", CmbISDNVersion);
    const auto& number = TxtLocalNumber.text();
    if (!untouched(TxtLocalNumber) && (number.size() > 9 || !(number.empty() || isWhole(number))))
        return BuiltLine::wrong("The local number have to be between 0 to 9 digits", TxtLocalNumber);
    const bool newAddress = !untouched(TxtLocalSubAddress);
    if (newAddress && TxtLocalSubAddress.text().size() >= 2)
        return BuiltLine::wrong("The local sub adderss have to be 1 digits", TxtLocalSubAddress);
    if (newAddress && !fitsField(TxtLocalSubAddress.text()))
        return BuiltLine::wrong(doesNotFitField, TxtLocalSubAddress);
    const auto& timer = txtInCallMode.text();
    const bool newTimer = txtInCallMode.enabled() && !untouched(txtInCallMode);
    if (newTimer && !timer.empty() && !wholeWithin(timer, 0, 250))
        return BuiltLine::wrong("The timer 'Alerting' have to be a number between 0 to 250", txtInCallMode);
    return {};
}

std::string IsdnPage::buildLine(bool store) {
    form.clearProblems();
    const auto fault = firstFault();
    if (!fault.word.empty()) return fault.orTell(tools_.dialogs);
    const auto fields = table_.line(tools_.tables.isdn, isdn_at::AlertTimer, [](std::size_t) { return true; });
    std::string body = fields[isdn_at::NetworkAccess];
    for (std::size_t at = isdn_at::NetworkAccess + 1; at < fields.size(); ++at) body += "," + fields[at];
    if (store) {
        storeIsdn(tools_.tables.isdn, isdnFields(body), true);
        show();
    }
    return "C_ISD" + body;
}

void IsdnPage::writing(const std::string& line) {
    auto sent = tools_.tables.isdn;
    storeIsdn(sent, isdnFields(mid(line, 6)), true);
    form.respell(table_.held(sent));  // "005" is told back as 5
}

}  // namespace trunvex
