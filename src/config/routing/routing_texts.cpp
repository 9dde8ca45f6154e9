#include "config/routing/routing_texts.h"

#include "model/port_address.h"
#include "text/split.h"
#include "text/text_rules.h"

namespace trunvex {

std::optional<int> waitingTenths(const std::string& seconds) {
    const auto text = trim(seconds);
    const auto mark = text.find_first_of(".,");
    const auto whole = text.substr(0, mark);
    const auto tenths = mark == std::string_view::npos ? std::string_view("0") : text.substr(mark + 1);
    if (!wholeWithin(whole, 0, mostWaitingTenths) || tenths.size() != 1 || !isWhole(tenths)) return {};
    const auto all = val(whole) * 10 + val(tenths);
    return all <= mostWaitingTenths ? std::optional(static_cast<int>(all)) : std::nullopt;
}

std::string waitingSeconds(const std::string& tenths) {
    if (!isWhole(tenths)) return escaped(tenths);
    const auto all = val(tenths);
    return std::to_string(all / 10) + (all % 10 == 0 ? "" : "." + std::to_string(all % 10));
}

std::optional<std::vector<int>> portsOf(const std::string& list) {
    std::vector<int> ports;
    for (const auto item : splitLong(list, ',')) {
        const auto dash = item.find('-');
        const auto first = trim(item.substr(0, dash));
        const auto last = dash == std::string_view::npos ? first : trim(item.substr(dash + 1));
        if (!wholeWithin(first, 1, portCount) || !wholeWithin(last, 1, portCount) || val(first) > val(last)) return {};
        for (auto port = val(first); port <= val(last); ++port) ports.push_back(static_cast<int>(port));
    }
    return ports;
}

bool isDialled(const std::string& text, std::size_t most) {
    return text.size() <= most && text.find_first_not_of("0123456789*#+") == std::string::npos;
}

}  // namespace trunvex
