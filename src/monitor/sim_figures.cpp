#include "monitor/sim_figures.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t places = 4;
constexpr std::size_t longestFraction = 255;

std::string rounded(double value) {
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", static_cast<int>(places), value);
    std::string number = text;
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.') number.pop_back();
    return number;
}

double numberOf(std::string_view text) { return std::strtod(std::string(text).c_str(), nullptr); }

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

std::string formatFraction(std::string_view value, std::string_view separator, int decimals, bool minutesMode) {
    std::string text(value);
    const auto pointBefore = text.find('.');
    if (pointBefore != std::string::npos && text.size() - pointBefore - 1 > places) text = rounded(numberOf(text));
    if (numberOf(text) <= 0) return minutesMode ? "0 Minutes " : text;
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
    char text[40];
    std::snprintf(text, sizeof text, "%.15g", numberOf(formatFraction(ratio, ".", 2, false)) * 100);
    return text;
}

double SimFigures::asrPercent() const { return numberOf(asr()); }

std::string SimFigures::acd() const {
    if (succeeded == 0) return "0 Minutes";
    const auto seconds = std::max<std::int64_t>(acdSeconds(), 0);
    return formatFraction(std::to_string(seconds / 60) + "." + twoDigits(seconds % 60), ":", 2, true);
}

std::string minutesAndSeconds(std::int64_t seconds) {
    return std::to_string(seconds / 60) + ":" + twoDigits(seconds % 60);
}

}  // namespace trunvex
