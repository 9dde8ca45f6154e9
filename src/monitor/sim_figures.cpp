#include "monitor/sim_figures.h"

#include <charconv>
#include <cmath>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t places = 4;
constexpr std::size_t longestFraction = 255;

// The system's language may write numbers with a comma; these do not.
template <class... How>
std::string numberText(double value, How... how) {
    char text[400];
    return {text, std::to_chars(std::begin(text), std::end(text), value, how...).ptr};
}

std::string rounded(double value) {
    auto number = numberText(value, std::chars_format::fixed, static_cast<int>(places));
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.') number.pop_back();
    return number;
}

std::string orZero(std::string_view part) { return part.empty() ? "0" : std::string(part); }

std::string counter(const Fields& fields, std::size_t at) {
    if (fields.at(at) == endMark) throw std::out_of_range("a record without its counters");
    return std::string(fields.at(at));
}

std::string rest(const Fields& fields, std::size_t at, bool& ended) {
    ended = ended || at >= fields.size() || fields.at(at) == endMark;
    return ended ? std::string() : std::string(fields.at(at));
}

}  // namespace

double decimalOf(std::string_view text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string formatFraction(std::string_view value, std::string_view separator, int decimals, bool minutesMode) {
    std::string text(value);
    const auto pointBefore = text.find('.');
    if (pointBefore != std::string::npos && text.size() - pointBefore - 1 > places) text = rounded(decimalOf(text));
    if (decimalOf(text) <= 0) return minutesMode ? "0 Minutes " : text;
    const auto point = text.find('.');
    if (point == std::string::npos) return text;
    const auto whole = orZero(std::string_view(text).substr(0, point));
    const auto fraction = text.substr(point + 1, longestFraction);
    const auto cut = fraction.substr(0, decimals < 1 ? 0 : static_cast<std::size_t>(decimals));
    if (minutesMode) return whole + " Minutes " + (decimals < 1 ? "" : orZero(cut) + " Seconds ");
    return decimals < 1 ? whole : whole + std::string(separator) + cut;
}

std::optional<SimFigures> SimFigures::of(const Fields& fields) {
    const auto number = val(fields.at(1));
    if (fields.at(1) == endMark || number < 1 || number > simsPerModule) return {};
    SimFigures figures{.sim = {PortAddress::parse(fields.at(0)), static_cast<int>(number)},
                       .talked = counter(fields, 2)};
    figures.dialled = val(counter(fields, 3));
    figures.succeeded = val(counter(fields, 4));
    bool ended = false;
    figures.balance = rest(fields, 5, ended);
    figures.simId = rest(fields, 6, ended);
    figures.imsi = rest(fields, 7, ended);
    return figures;
}

SimFigures SimFigures::cleared() const {
    return {.sim = sim, .talked = "00000:00", .balance = balance, .simId = simId, .imsi = imsi};
}

std::int64_t SimFigures::talkSeconds() const {
    constexpr std::size_t secondsPart = 3;  // the colon and two digits
    constexpr std::int64_t mostMinutes = 1'000'000'000;
    const auto minutes = talked.size() > secondsPart ? val(talked.substr(0, talked.size() - secondsPart)) : 0;
    if (minutes < 0 || minutes > mostMinutes) return 0;
    return minutes * 60 + val(right(talked, 2));
}

std::int64_t SimFigures::acdSeconds() const {
    if (succeeded == 0) return 0;
    return std::llround(static_cast<double>(talkSeconds()) / static_cast<double>(succeeded));
}

std::string SimFigures::asr() const {
    if (dialled == 0) return "0";
    const auto ratio = rounded(static_cast<double>(succeeded) / static_cast<double>(dialled));
    constexpr int exactDigits = 15;
    return numberText(decimalOf(formatFraction(ratio, ".", 2, false)) * 100, std::chars_format::general, exactDigits);
}

double SimFigures::asrPercent() const { return decimalOf(asr()); }

std::string SimFigures::acd() const {
    if (succeeded == 0) return "0 Minutes";
    const auto seconds = std::max<std::int64_t>(acdSeconds(), 0);
    return formatFraction(std::to_string(seconds / 60) + "." + twoDigits(seconds % 60), ":", 2, true);
}

std::string minutesAndSeconds(std::int64_t seconds) {
    return std::to_string(seconds / 60) + ":" + twoDigits(seconds % 60);
}

}  // namespace trunvex
