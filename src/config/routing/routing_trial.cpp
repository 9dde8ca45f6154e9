#include "config/routing/routing_trial.h"

#include <algorithm>

#include "config/routing/channel_routing.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

// The rows of clearing causes, by what they are for.
enum class Reason : std::size_t {
    ChannelDisabled = 0,
    PortDisabled = 1,
    PortReserved = 2,
    PortAbsent = 3,
    NoFreePort = 4,
    GroupWithoutPorts = 7,
    PrefixUnknown = 8,
    CallerRefused = 13,
};

class Trial {
public:
    Trial(const RoutingPicture& picture, const std::string& dialled, const std::string& caller, int line)
        : picture_(picture), dialled_(dialled), caller_(caller), line_(line) {}

    std::vector<std::string> run() {
        if (admitted() && routed()) modify();
        return std::move(steps_);
    }

private:
    bool clear(Reason reason) {
        const auto row = static_cast<std::size_t>(reason);
        std::string step = std::string("The call is cleared: ") + clearingReasons.at(row);
        step += picture_.causes.empty() ? " (the causes were not read)." : ", cause " + picture_.causes.at(row) + ".";
        steps_.push_back(std::move(step));
        return false;
    }
    bool stop(std::string step) {
        steps_.push_back(std::move(step));
        return false;
    }

    bool admitted();
    bool routed();
    bool routedStatic();
    bool routedByPrefix();
    bool routedToAny();
    bool leadsTo(const std::string& group, const char* priority);
    std::string usable(const std::vector<int>& ports, Reason& why) const;
    void modify();

    const RoutingPicture& picture_;
    const std::string& dialled_;
    const std::string& caller_;
    const int line_;
    std::vector<std::string> steps_;
};

bool Trial::admitted() {
    const auto& list = picture_.fromIsdn;
    if (!list) {
        steps_.push_back("The access list of ISDN callers was not read, and is passed over here.");
        return true;
    }
    if (!list->on) return true;
    const auto row = std::ranges::find_if(list->rows, [this](const TextRow& one) { return one[0] == caller_; });
    if (caller_.empty() || row == list->rows.end()) {
        steps_.push_back((caller_.empty() ? "A caller without a number" : "Caller " + caller_) +
                         " is not in the access list.");
        return list->admitsUnlisted || clear(Reason::CallerRefused);
    }
    const bool enabled = (*row)[1] == "1";
    steps_.push_back("Caller " + caller_ + " is row " + std::to_string(row - list->rows.begin() + 1) +
                     " of the access list, " + (enabled ? "enabled." : "disabled."));
    return enabled || clear(Reason::CallerRefused);
}

bool Trial::routed() {
    if (line_ > 0) {
        const auto& enabled = picture_.channels.at(static_cast<std::size_t>(line_ - 1));
        if (enabled && !*enabled) return clear(Reason::ChannelDisabled);
    }
    if (!picture_.mode) return stop("The allocation mode was not read.");
    if (*picture_.mode == 0) return routedStatic();
    return picture_.byPrefix ? routedByPrefix() : routedToAny();
}

bool Trial::routedStatic() {
    if (line_ == 0)
        return stop("Static allocation: the call goes to the port that its B-channel is bound to. Say which channel.");
    for (std::size_t slot = 0; slot < picture_.ports.size(); ++slot) {
        const auto& port = picture_.ports[slot];
        if (port.line != line_) continue;
        const auto name = "port " + std::to_string(slot + 1);
        if (!port.present) return clear(Reason::PortAbsent);
        if (port.enabled && !*port.enabled) return clear(Reason::PortDisabled);
        steps_.push_back("Static allocation: B-channel " + std::to_string(line_) + " is bound to " + name + ".");
        return true;
    }
    steps_.push_back("Static allocation: no port is bound to B-channel " + std::to_string(line_) + ".");
    return clear(Reason::NoFreePort);
}

// The ports that can take the call, in words; else the reason why none can.
std::string Trial::usable(const std::vector<int>& ports, Reason& why) const {
    std::string text;
    for (const int port : ports) {
        const auto& told = picture_.ports[static_cast<std::size_t>(port - 1)];
        if (told.present && told.line > 30)
            why = Reason::PortReserved;
        else if (told.present && told.enabled && !*told.enabled)
            why = Reason::PortDisabled;
        else if (told.present)
            text += (text.empty() ? "" : ", ") + std::to_string(port);
    }
    return text;
}

bool Trial::routedToAny() {
    std::vector<int> all;
    for (int port = 1; port <= 32; ++port) all.push_back(port);
    auto why = Reason::NoFreePort;
    const auto ports = usable(all, why);
    if (ports.empty()) return clear(Reason::NoFreePort);
    steps_.push_back(std::string(*picture_.mode == 1 ? "Cyclic" : "Random") + " allocation over all ports: " + ports +
                     ".");
    return true;
}

bool Trial::routedByPrefix() {
    if (!picture_.prefixes) return stop("The prefix table was not read.");
    const auto& rows = *picture_.prefixes;
    const auto looked = dialled_.substr(0, picture_.prefixDigits);
    auto best = rows.end();
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        const auto& prefix = (*row)[0];
        if (prefix.empty() || !looked.starts_with(prefix)) continue;
        if (best == rows.end() || prefix.size() > (*best)[0].size()) best = row;
    }
    if (best == rows.end()) {
        steps_.push_back("No prefix of the table begins " + looked + ".");
        return clear(Reason::PrefixUnknown);
    }
    std::string step = "Row " + std::to_string(best - rows.begin() + 1) + " takes it: prefix " + (*best)[0];
    if (picture_.mnp && val((*best)[3]) > 0) step += ", MNP routing code " + (*best)[3];
    steps_.push_back(step + ".");
    const bool high = leadsTo((*best)[1], "High");
    const bool low = leadsTo((*best)[2], "Low");
    return high || low || clear(Reason::GroupWithoutPorts);
}

bool Trial::leadsTo(const std::string& group, const char* priority) {
    if (val(group) == 0) return false;
    std::vector<int> members;
    for (std::size_t slot = 0; slot < picture_.ports.size(); ++slot)
        if (val(picture_.ports[slot].group) == val(group)) members.push_back(static_cast<int>(slot) + 1);
    auto why = Reason::NoFreePort;
    const auto ports = usable(members, why);
    const auto name = std::string(priority) + " priority: group " + group + ", ";
    if (!ports.empty())
        steps_.push_back(name + (*picture_.mode == 1 ? "cyclic" : "random") + " over ports " + ports + ".");
    else if (members.empty())
        steps_.push_back(name + "no port is in it.");
    else
        steps_.push_back(name + "none of its ports can take a call (" +
                         clearingReasons.at(static_cast<std::size_t>(why)) + ").");
    return !ports.empty();
}

void Trial::modify() {
    if (!picture_.modifications) {
        steps_.push_back("The number modification was not read, and is passed over here.");
        return;
    }
    const auto& rows = *picture_.modifications;
    auto best = rows.end();
    for (auto row = rows.begin(); picture_.modifies && row != rows.end(); ++row) {
        const bool empty = (*row)[0].empty() && (*row)[1].empty();
        if (empty || !dialled_.starts_with((*row)[0])) continue;
        if (best == rows.end() || (*row)[0].size() > (*best)[0].size()) best = row;
    }
    if (best == rows.end()) {
        steps_.push_back("It dials " + dialled_ + ", not modified.");
        return;
    }
    steps_.push_back("Modification line " + std::to_string(best - rows.begin() + 1) + ": \"" + (*best)[0] +
                     "\" at the front is left out and \"" + (*best)[1] + "\" put there. It dials " + (*best)[1] +
                     dialled_.substr((*best)[0].size()) + ".");
}

}  // namespace

std::vector<std::string> tryNumber(const RoutingPicture& picture, const std::string& dialled, const std::string& caller,
                                   int line) {
    return Trial(picture, dialled, caller, line).run();
}

}  // namespace trunvex
