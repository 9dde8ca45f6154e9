#pragma once

#include <optional>
#include <string>
#include <vector>

// What operators type on the routing page that is more than a number.
namespace trunvex {

inline constexpr int mostWaitingTenths = 250;

// Seconds with at most one decimal, behind a point or a comma, in tenths; nothing for any other text or beyond 25 s.
std::optional<int> waitingTenths(const std::string& seconds);
// The same back: "2.5", and "2" for whole seconds. The text as it is when it is no number of tenths.
std::string waitingSeconds(const std::string& tenths);

// The ports of a list like "1,3-5", in its order; nothing when an item is no port number or no range of them.
std::optional<std::vector<int>> portsOf(const std::string& list);

// True for what can be dialled and has at most so many digits; an empty text can.
bool isDialled(const std::string& text, std::size_t most);

}  // namespace trunvex
