#include "model/port_record.h"

#include <algorithm>

namespace trunvex {

namespace {

constexpr int unitMs = 20;
constexpr int longestRelaxMs = 5000;
constexpr int unknownTx = 3;
constexpr int middleRx = 51;
constexpr int rxBand = 16;
constexpr int rxBands = 7;

void takeKind(PortRec& port, std::string_view field) {
    port.SeMode = field == "2" ? "1" : "0";
    port.Kind = field == "1" ? "CDM" : "GSM";
}

std::string spellKind(const PortRec& port) { return port.Kind == "CDM" ? "1" : port.secondScale() ? "2" : ""; }

// A code that is on no scale leaves the position as it was.
template <auto level, auto code, int (*position)(int)>
void takeLevel(PortRec& port, std::string_view field) {
    port.*code = field;
    if (port.secondScale()) {
        port.*level = field.empty() ? std::string() : std::to_string(val(field));
        return;
    }
    const int at = isWhole(field) ? position(static_cast<int>(val(field))) : noLevel;
    if (at != noLevel) port.*level = std::to_string(at);
}

template <auto level, int (*code)(int)>
std::string spellLevel(const PortRec& port) {
    if (port.secondScale() || !isWhole(port.*level)) return port.*level;
    return std::to_string(code(static_cast<int>(val(port.*level))));
}

// As the lever is labelled; levels of the second scale are positions from its other end.
template <auto level, int step>
std::string levelWords(const PortRec& port) {
    const auto& text = port.*level;
    if (!isWhole(text)) return escaped(text);
    if (port.secondScale()) return std::to_string(highestSecondLevel - val(text));
    const auto label = (val(text) - highestLevel / 2) * step;
    return (label > 0 ? "+" : "") + std::to_string(label);
}

std::string switchWords(const PortRec& port) {
    const auto index = simSwitchingIndex(port);
    if (index.empty()) return escaped(port.SwitchFlags);
    const bool rejects = (val(port.SwitchFlags) & rejectBit) != 0;
    return simSwitchings[static_cast<std::size_t>(val(index))] + std::string(", ") + answersToCalls[rejects ? 1 : 0];
}

void takeRelaxTime(PortRec& port, std::string_view field) { port.RelaxTime = relaxSeconds(field); }

std::string spellRelaxTime(const PortRec& port) {
    return port.RelaxTime.empty() ? std::string() : std::to_string(relaxUnits(port.RelaxTime));
}

void takeReservedText(PortRec& port, std::string_view field) {
    port.Reserved17 = field.substr(0, 4);
    port.Reserved18 = right(field, 4);
}

std::string spellReservedText(const PortRec& port) { return port.Reserved17 + port.Reserved18; }

using codec::number;
using codec::shown;
using codec::text;
using enum Writer;

constexpr Codec<PortRec> kind{nullptr, spellKind, shown<&PortRec::Kind>};
constexpr Codec<PortRec> txLevel{takeLevel<&PortRec::TxLevel, &PortRec::TxCode, txPosition>,
                                 spellLevel<&PortRec::TxLevel, txCode>, levelWords<&PortRec::TxLevel, 1>};
constexpr Codec<PortRec> rxLevel{takeLevel<&PortRec::RxLevel, &PortRec::RxCode, rxPosition>,
                                 spellLevel<&PortRec::RxLevel, rxCode>, levelWords<&PortRec::RxLevel, 2>};
constexpr Codec<PortRec> relaxTime{takeRelaxTime, spellRelaxTime, shown<&PortRec::RelaxTime>};
constexpr Codec<PortRec> sendComplete{codec::takeText<&PortRec::SendComplete>, codec::held<&PortRec::SendComplete>,
                                      codec::listed<&PortRec::SendComplete, endsOfDialling>};
constexpr Codec<PortRec> switchFlags{codec::takeText<&PortRec::SwitchFlags>, codec::held<&PortRec::SwitchFlags>,
                                     switchWords};
constexpr Codec<PortRec> reservedText{takeReservedText, spellReservedText,
                                      [](const PortRec& port) { return escaped(spellReservedText(port)); }};

constexpr std::array<Column<PortRec>, 15> columns{{
    {port_at::Kind, "Kind", kind, Gateway},
    {port_at::ModuleInfo, "Module Info", text<&PortRec::ModuleInfo>, Gateway},
    {port_at::ModuleInfo2, "Module Info 2", text<&PortRec::ModuleInfo2>, Gateway},
    {port_at::NoRegTimer, "No REG Timer", text<&PortRec::NoRegTimer>},
    {port_at::TxLevel, "TX Level", txLevel},
    {port_at::RxLevel, "RX Level", rxLevel},
    {port_at::MinDigits, "Min Digits", text<&PortRec::MinDigits>},
    {port_at::MaxDigits, "Max Digits", number<&PortRec::MaxDigits>},
    {port_at::IntDigPause, "Int Dig Pause", number<&PortRec::IntDigPause>},
    {port_at::SendComplete, "Send Complete", sendComplete},
    {port_at::RelaxTime, "Relax Time", relaxTime},
    {port_at::SwitchFlags, "SIM Switching", switchFlags},
    {port_at::Reserved20, "Reserved 20", text<&PortRec::Reserved20>},
    {port_at::SimSwap, "SIM Swapping", text<&PortRec::SimSwap>},
    {port_at::ReservedText, "Reserved 17 And 18", reservedText},
}};
static_assert(isGapless(columns) && columns.front().at == port_at::Kind);

}  // namespace

int txCode(int position) {
    if (position < 0 || position > highestLevel) return unknownTx;
    return (2 * position - highestLevel) & 0xFF;
}

int txPosition(int code) {
    for (int position = 0; position <= highestLevel; ++position)
        if (txCode(position) == code) return position;
    return noLevel;
}

int rxCode(int position) {
    if (position < 0 || position > highestLevel) return middleRx;
    return position == highestLevel ? 9 : middleRx + rxBand * (3 - position);
}

int rxPosition(int code) { return code < 0 || code >= rxBand * rxBands ? noLevel : highestLevel - code / rxBand; }

std::string simSwitchingIndex(const PortRec& port) {
    if (port.SwitchFlags.empty()) return {};
    const auto code = static_cast<int>(val(port.SwitchFlags)) & simSwitchingBits;
    const auto found = std::find(simSwitchingCodes.begin(), simSwitchingCodes.end(), code);
    return found == simSwitchingCodes.end() ? std::string() : std::to_string(found - simSwitchingCodes.begin());
}

std::string relaxSeconds(std::string_view units) {
    const auto hundredths = val(units) * (unitMs / 10);
    auto text = std::to_string(hundredths / 100);
    const auto rest = hundredths % 100;
    if (rest == 0) return text;
    text += '.' + pad(std::to_string(rest), 2, '0', PadSide::Left);
    if (text.back() == '0') text.pop_back();
    return text;
}

int relaxUnits(std::string_view seconds) {
    const auto point = seconds.find('.');
    const auto whole = seconds.substr(0, point);
    const auto decimals = point == std::string_view::npos ? std::string_view("0") : seconds.substr(point + 1);
    if (!isWhole(whole) || !isWhole(decimals) || whole.size() > 3) return -1;
    const auto ms = val(whole) * 1000 + val(pad(decimals, 3, '0', PadSide::Right).substr(0, 3));
    const bool beyond = ms == longestRelaxMs && decimals.find_first_not_of('0') != std::string_view::npos;
    return ms > longestRelaxMs || beyond ? -1 : static_cast<int>(ms / unitMs);
}

constinit const Columns<PortRec> portColumns = columns;

void storePort(PortRec& port, const Fields& fields, bool acknowledged) {
    // A slot without a module answers with a record of empty fields, which tells nothing of a kind. The levels are on
    // the scale of the kind.
    const bool told = !sentField(fields, port_at::NoRegTimer).empty();
    if (!acknowledged && (told || port.Kind.empty())) takeKind(port, sentField(fields, port_at::Kind));
    takeFields(port, portColumns, fields, acknowledged);
    // What the console has written into a record that was never read makes it no read one.
    const bool timerTold = fields.size() > port_at::NoRegTimer + 1;
    if (acknowledged ? port.loaded() : timerTold) port.Present = port.NoRegTimer;
}

}  // namespace trunvex
