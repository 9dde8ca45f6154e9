#include "simulator/faults.h"

#include "simulator/fields.h"

#include <array>
#include <charconv>
#include <optional>

namespace simulator {

namespace {

using std::chrono::milliseconds;

constexpr int longest = 3'600'000;  // ms that a fault may hold anything up: an hour

std::optional<double> probability(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !(value >= 0.0 && value <= 1.0))
        return std::nullopt;
    return value;
}

bool setProbability(double& target, std::string_view text) {
    const auto value = probability(text);
    target = value.value_or(target);
    return value.has_value();
}

bool setLatency(ReplyFaults& replies, std::string_view text) {
    const auto ends = splitFields(text, '-');
    const auto least = number(ends.front(), 0, longest);
    const auto most = number(ends.back(), 0, longest);
    if (ends.size() > 2 || !least || !most || *most < *least) return false;
    replies.latencyMin = milliseconds(*least);
    replies.latencyMax = milliseconds(*most);
    return true;
}

// "P" or "P-MS"
bool setLate(ReplyFaults& replies, std::string_view text) {
    const auto parts = splitFields(text, '-');
    const auto by = parts.size() == 2 ? number(parts[1], 1, longest) : static_cast<int>(replies.lateBy.count());
    if (parts.size() > 2 || !by || !setProbability(replies.late, parts[0])) return false;
    replies.lateBy = milliseconds(*by);
    return true;
}

// "BYTES" or "BYTES-MS"
bool setPieces(WireFaults& wire, std::string_view text) {
    const auto parts = splitFields(text, '-');
    const auto size = number(parts[0], 1, 65536);
    const auto gap = parts.size() == 2 ? number(parts[1], 0, longest) : 0;
    if (parts.size() > 2 || !size || !gap) return false;
    wire.longestPiece = static_cast<std::size_t>(*size);
    wire.pieceGap = milliseconds(*gap);
    return true;
}

bool setRefusal(ReplyFaults& replies, std::string_view text) {
    if (text != "error" && text != "alarm") return false;
    replies.refuse = text == "error" ? Refusal::error : Refusal::alarm;
    return true;
}

template <typename Target>
bool setNumber(Target& target, std::string_view text, int least, int most) {
    const auto value = number(text, least, most);
    if (value) target = Target(*value);
    return value.has_value();
}

// A fault of the replies can be wished for one mnemonic, one of the wire only for all. Exactly one function
// is set.
struct FaultRow {
    std::string_view name;
    std::string_view usual;  // the value when none is given
    std::string_view help;
    bool (*ofReplies)(ReplyFaults&, std::string_view);
    bool (*ofWire)(WireFaults&, std::string_view);
};

using Replies = ReplyFaults;
using Wire = WireFaults;
using Text = std::string_view;

constexpr std::array<FaultRow, 14> rows{{
    {"latency", "20-200", "MIN[-MAX] ms until a reply leaves", setLatency, nullptr},
    {"silent", "1", "0 or 1: never answers", [](Replies& r, Text t) { return setNumber(r.silent, t, 0, 1); }, nullptr},
    {"try", "2", "N: answers a line on its n-th try only",
     [](Replies& r, Text t) { return setNumber(r.answersOnTry, t, 1, 1000); }, nullptr},
    {"refuse", "error", "error or alarm: refuses with ERROR or with an I_ALR", setRefusal, nullptr},
    {"lost", "0.2", "P: probability that a reply is lost", [](Replies& r, Text t) { return setProbability(r.lost, t); },
     nullptr},
    {"doubled", "0.2", "P: probability that a reply comes twice",
     [](Replies& r, Text t) { return setProbability(r.doubled, t); }, nullptr},
    {"late", "0.2", "P[-MS]: probability that a reply is late, and by how much", setLate, nullptr},
    {"pieces", "7", "BYTES[-MS]: cuts lines into pieces up to this long, MS apart", nullptr, setPieces},
    {"coalesce", "300", "MS: collects lines this long and sends them as one piece", nullptr,
     [](Wire& w, Text t) { return setNumber(w.coalesce, t, 0, longest); }},
    {"nul", "1", "0 or 1: sends a NUL behind each CR", nullptr,
     [](Wire& w, Text t) { return setNumber(w.nulAfterCr, t, 0, 1); }},
    {"garbage", "0.2", "P: probability of a garbage line in front of a line", nullptr,
     [](Wire& w, Text t) { return setProbability(w.garbage, t); }},
    {"flood", "1048576", "BYTES in one line before the first line of a link", nullptr,
     [](Wire& w, Text t) { return setNumber(w.flood, t, 0, 1 << 22); }},
    {"hangup", "20", "N: the link dies after n lines", nullptr,
     [](Wire& w, Text t) { return setNumber(w.hangUpAfter, t, 0, 1'000'000); }},
    {"bad-line", "0.1", "P: lost, late, doubled and garbage, with latency and pieces: a poor connection", nullptr,
     nullptr},
}};

// The mood of a poor connection: a little of everything that a bad line does.
bool setBadLine(ReplyFaults& replies, WireFaults& wire, std::string_view text) {
    const auto value = probability(text);
    if (!value) return false;
    replies.lost = replies.late = replies.doubled = wire.garbage = *value;
    return setLatency(replies, "20-400") && setPieces(wire, "9");
}

bool isMnemonic(std::string_view text) { return text.size() == 5 && text[1] == '_'; }

}  // namespace

const ReplyFaults& Faults::of(std::string_view mnemonic) const {
    const auto own = perMnemonic.find(mnemonic);
    return own == perMnemonic.end() ? replies : own->second;
}

std::string switchOn(Faults& faults, std::string_view wish) {
    std::string_view rest = wish;
    std::string_view mnemonic;
    if (const std::size_t colon = rest.find(':'); colon != std::string_view::npos) {
        mnemonic = rest.substr(0, colon);
        rest.remove_prefix(colon + 1);
        if (!isMnemonic(mnemonic)) return "no mnemonic of five characters: " + std::string(mnemonic);
    }
    const std::size_t equals = rest.find('=');
    const std::string_view name = rest.substr(0, equals);
    for (const FaultRow& row : rows) {
        if (row.name != name) continue;
        const std::string_view value = equals == std::string_view::npos ? row.usual : rest.substr(equals + 1);
        if (!mnemonic.empty() && !row.ofReplies)
            return "a fault of the whole link, not of one command: " + std::string(name);
        Faults changed = faults;
        ReplyFaults& replies =
            mnemonic.empty() ? changed.replies
                             : changed.perMnemonic.try_emplace(std::string(mnemonic), faults.replies).first->second;
        const bool good = row.ofReplies ? row.ofReplies(replies, value)
                          : row.ofWire  ? row.ofWire(changed.wire, value)
                                        : setBadLine(replies, changed.wire, value);
        if (!good) return "no value for " + std::string(name) + ": " + std::string(value);
        faults = std::move(changed);
        return {};
    }
    return "no such fault: " + std::string(name);
}

std::vector<std::string> faultHelp() {
    std::vector<std::string> lines;
    for (const FaultRow& row : rows) {
        std::string line(row.name);
        line.resize(10, ' ');
        lines.push_back(line + std::string(row.help) + " (" + std::string(row.usual) + ")");
    }
    return lines;
}

}  // namespace simulator
