#include "model/port_record.h"

#include <array>

#include "model/record_fields.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int unitMs = 20;
constexpr int longestRelaxMs = 5000;
constexpr int unknownTx = 3;
constexpr int middleRx = 51;
constexpr int rxBand = 16;
constexpr int rxBands = 7;

std::string asNumber(std::string_view text) { return std::to_string(val(text)); }

// A code that is on no scale leaves the position as it was.
void storeLevel(std::string& level, const PortRec& port, std::string_view code, int (*position)(int)) {
    if (port.secondScale()) {
        level = code.empty() ? std::string() : asNumber(code);
        return;
    }
    const int at = isWhole(code) ? position(static_cast<int>(val(code))) : noLevel;
    if (at != noLevel) level = std::to_string(at);
}

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

void storePort(PortRec& port, const Fields& fields, bool acknowledged) {
    const RecordFields sent(fields, acknowledged);
    if (!acknowledged) {
        // A slot without a module answers with a record of empty fields, which tells nothing of a kind.
        if (const auto kind = sent.at(1); !sent.at(4).empty() || port.Kind.empty()) {
            port.SeMode = kind == "2" ? "1" : "0";
            port.Kind = kind == "1" ? "CDM" : "GSM";
        }
        sent.store(2, port.ModuleInfo);
        sent.store(3, port.ModuleInfo2);
    }
    sent.store(4, port.NoRegTimer);
    sent.store(4, port.Present);
    if (sent.has(5)) storeLevel(port.TxLevel, port, sent.at(5), txPosition);
    if (sent.has(6)) storeLevel(port.RxLevel, port, sent.at(6), rxPosition);
    sent.store(7, port.MinDigits);
    if (sent.has(8)) port.MaxDigits = asNumber(sent.at(8));
    if (sent.has(9)) port.IntDigPause = asNumber(sent.at(9));
    sent.store(10, port.SendComplete);
    if (sent.has(11)) port.RelaxTime = relaxSeconds(sent.at(11));
    sent.store(12, port.SwitchFlags);
    sent.store(13, port.Reserved20);
    sent.store(14, port.SimSwap);
    if (!sent.has(15)) return;
    port.Reserved17 = sent.at(15).substr(0, 4);
    port.Reserved18 = right(sent.at(15), 4);
}

}  // namespace trunvex
