#include "model/port_address.h"

#include "text/split.h"

namespace trunvex {

namespace {

Indexes digitsOf(std::string_view text, std::size_t count) {
    const auto digits = getIndexs(text);
    if (digits.count != count) throw std::out_of_range("no such address");
    return digits;
}

}  // namespace

PortAddress PortAddress::parse(std::string_view digits) {
    const auto parts = digitsOf(digits, 2);
    return {parts.at(0), parts.at(1)};
}

SimAddress SimAddress::parse(std::string_view digits) {
    const auto parts = digitsOf(digits, 3);
    return {{parts.at(0), parts.at(1)}, parts.at(2)};
}

}  // namespace trunvex
