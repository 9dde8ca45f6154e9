#include "queues/queue_item.h"

namespace trunvex {

bool mayAnswer(std::string_view address, const std::string& line) {
    constexpr std::size_t digits = 3;
    constexpr std::size_t mnemonic = 5;
    while (!address.empty() && address.back() == '0') address.remove_suffix(1);
    if (address.empty()) return true;
    auto own = mid(line, mnemonic + 1, digits);
    own = own.substr(0, std::min(own.size(), own.find_first_not_of("0123456789")));
    // The report of a SIM may tell the end of a command to its port.
    const auto common = std::min(own.size(), address.size());
    return common >= 2 && own.substr(0, common) == address.substr(0, common);
}

}  // namespace trunvex
