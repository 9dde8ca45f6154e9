#include "model/node_key.h"

#include "text/text_rules.h"

namespace trunvex::node_key {

namespace {

constexpr std::size_t lettersLength = 3;

struct Letters {
    std::string_view text;
    Kind kind;
};

constexpr Letters allLetters[] = {{"GRP", Kind::Group},    {"PRT", Kind::GroupPorts}, {"MDD", Kind::GroupPort},
                                  {"SMM", Kind::GroupSim}, {"MOD", Kind::Gsm},        {"CDM", Kind::Cdma},
                                  {"ERR", Kind::Missing},  {"SIM", Kind::Sim}};

// A digit from 1 to `highest`; 0 for anything else.
int digit(std::string_view digits, std::size_t at, int highest) {
    const int value = digits[at] - '0';
    return value >= 1 && value <= highest ? value : 0;
}

bool isKindOfPort(Kind kind) { return kind == Kind::Gsm || kind == Kind::Cdma || kind == Kind::Missing; }

}  // namespace

Parts parse(std::string_view key) {
    for (const auto& letters : allLetters) {
        if (key.substr(0, lettersLength) != letters.text) continue;
        const auto digits = key.substr(lettersLength);
        const bool hasSim = letters.kind == Kind::Sim || letters.kind == Kind::GroupSim;
        if (digits.size() != (hasSim ? 3 : 2)) return {};
        Parts parts{letters.kind, 0, {}, hasSim ? digit(digits, 2, simsPerModule) : 0};
        if (hasSim && parts.sim == 0) return {};
        if (isKindOfPort(parts.kind) || parts.kind == Kind::Sim) {
            const int mcu = digit(digits, 0, mcuCount);
            const int module = digit(digits, 1, modulesPerMcu);
            if (mcu == 0 || module == 0) return {};
            parts.port.emplace(mcu, module);
        } else {
            const auto group = digits.substr(0, 2);
            if (!wholeWithin(group, 1, groupCount)) return {};
            parts.group = static_cast<int>(val(group));
        }
        return parts;
    }
    return {};
}

Kind kindOf(std::string_view key) { return parse(key).kind; }
bool isGroup(std::string_view key) { return kindOf(key) == Kind::Group; }
bool isPort(std::string_view key) { return isKindOfPort(kindOf(key)); }
bool isSim(std::string_view key) { return kindOf(key) == Kind::Sim; }

std::optional<PortAddress> portOf(std::string_view key) { return parse(key).port; }

std::optional<SimAddress> simOf(std::string_view key) {
    const auto parts = parse(key);
    return parts.kind == Kind::Sim ? std::optional(SimAddress(*parts.port, parts.sim)) : std::nullopt;
}

std::string ofGroup(std::string_view type, std::string_view groupKey) {
    return std::string(type) + std::string(mid(groupKey, 4, 2));
}

std::string stored(std::string_view portKey) { return "MOD" + std::string(right(portKey, 2)); }

std::string port(std::string_view type, PortAddress address) { return std::string(type) + address.digits(); }

std::string sim(SimAddress address) { return "SIM" + address.digits(); }

}  // namespace trunvex::node_key
