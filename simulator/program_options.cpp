#include "simulator/program_options.h"

#include "simulator/fields.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <optional>

namespace simulator {

namespace {

using Text = std::string_view;
using Options = ProgramOptions;

// [HOST:]PORT; a host with colons of its own stands in brackets.
std::string setAddress(Options& options, Text text, bool hostNeeded) {
    const std::size_t colon = text.rfind(':');
    Text host = colon == Text::npos ? Text{} : text.substr(0, colon);
    const Text port = colon == Text::npos ? text : text.substr(colon + 1);
    if (host.size() > 2 && host.front() == '[' && host.back() == ']') host = host.substr(1, host.size() - 2);
    const bool wrongHost = colon == Text::npos ? hostNeeded : host.empty();
    if (wrongHost || !number(port, hostNeeded ? 1 : 0, 65535)) return "no address: " + std::string(text);
    if (!host.empty()) options.host = host;
    options.port = port;
    return {};
}

std::string setListen(Options& options, Text text) {
    options.way = Options::Way::listen;
    return setAddress(options, text, false);
}

std::string setDial(Options& options, Text text) {
    options.way = Options::Way::dial;
    return setAddress(options, text, true);
}

std::string setTerminal(Options& options, Text text) {
    options.way = Options::Way::terminal;
    options.terminalLink = text;
    return {};
}

std::string setSeed(Options& options, Text text) {
    std::uint64_t seed = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seed);
    if (error != std::errc{} || end != text.data() + text.size()) return "no seed: " + std::string(text);
    options.gateway.seed = options.masterPc.seed = seed;
    options.seedGiven = true;
    return {};
}

std::string setPassword(std::string& password, Text text) {
    if (text.empty() || text.find_first_of(",\r\n") != Text::npos)
        return "a password has one character or more, and no comma";
    password = text;
    return {};
}

// The serial number names files on the console's side and stands in comma-separated lines.
std::string setEsn(Options& options, Text text) {
    const bool plain = std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isalnum(c); });
    if (text.empty() || text.size() > 16 || !plain)
        return "no serial number of 1 to 16 letters and digits: " + std::string(text);
    options.gateway.esn = text;
    return {};
}

std::string setCdma(Options& options, Text text) {
    const auto count = number(text, 0, portCount);
    if (!count) return "no number of ports: " + std::string(text);
    options.gateway.cdmaPorts = *count;
    return {};
}

std::string setRecords(Options& options, Text text) {
    const auto count = number(text, 0, 10'000'000);
    if (!count) return "no number of records: " + std::string(text);
    options.gateway.callRecords = *count;
    return {};
}

std::string setPing(Options& options, Text text) {
    const auto interval = number(text, 0, 3'600'000);
    if (!interval) return "no interval in ms: " + std::string(text);
    options.masterPc.pingInterval = std::chrono::milliseconds(*interval);
    return {};
}

std::string setUnit(Options& options, Text text) {
    options.masterPc.unit = text;
    return {};
}

std::string setOn(bool& flag) {
    flag = true;
    return {};
}

enum class Value { none, needed, optional };

struct Flag {
    Text name;
    Value value;
    Text form;
    Text help;
    std::string (*set)(Options&, Text);
};

constexpr std::array flags{
    Flag{"--listen", Value::needed, "[HOST:]PORT", "waits for consoles there (127.0.0.1:4001); port 0: any free one",
         setListen},
    Flag{"--dial", Value::needed, "HOST:PORT", "calls a console that works as server, again each second", setDial},
    Flag{"--pty", Value::optional, "[LINK]", "plays a serial line: a pseudo-terminal, with a link to it", setTerminal},
    Flag{"--master", Value::none, "", "plays the master PC in front of the gateway",
         [](Options& o, Text) { return setOn(o.master); }},
    Flag{"--master-refuse", Value::none, "", "a master PC that accepts nobody",
         [](Options& o, Text) { return setOn(o.masterPc.refuses); }},
    Flag{"--master-password", Value::needed, "P", "accepts this password only (any)",
         [](Options& o, Text t) { return setPassword(o.masterPc.password, t); }},
    Flag{"--master-unit", Value::needed, "ID", "accepts this unit only (any)", setUnit},
    Flag{"--master-ping", Value::needed, "MS", "from one ping to the next, 0 for none (30000)", setPing},
    Flag{"--master-id", Value::none, "", "tells identity and time as soon as it has accepted",
         [](Options& o, Text) { return setOn(o.masterPc.announces); }},
    Flag{"--seed", Value::needed, "N", "makes all that is random repeat itself, the date too", setSeed},
    Flag{"--password", Value::needed, "P", "the gateway's admin password (kestr)",
         [](Options& o, Text t) { return setPassword(o.gateway.adminPassword, t); }},
    Flag{"--esn", Value::needed, "E", "the gateway's serial number", setEsn},
    Flag{"--cdma", Value::needed, "N", "so many of the ports in service are CDMA, the last ones (0)", setCdma},
    Flag{"--records", Value::needed, "N", "call records that wait to be fetched (200)", setRecords},
    Flag{"--life", Value::needed, "RATE",
         "what happens by itself: off, quiet, busy, storm[=LINES_PER_SECOND] (quiet; 10000)",
         [](Options& o, Text t) { return readLife(o.gateway.life, t); }},
    Flag{"--fault", Value::needed, "WISH", "switches a fault on, see below; may be given again",
         [](Options& o, Text t) { return switchOn(o.gateway.faults, t); }},
    Flag{"--quiet", Value::none, "", "says nothing but what went wrong",
         [](Options& o, Text) { return setOn(o.quiet); }},
    Flag{"--help", Value::none, "", "shows this", [](Options& o, Text) { return setOn(o.help); }},
};

const Flag* findFlag(Text name) {
    const auto found = std::find_if(flags.begin(), flags.end(), [name](const Flag& f) { return f.name == name; });
    return found == flags.end() ? nullptr : &*found;
}

bool choosesWay(Text name) { return name == "--listen" || name == "--dial" || name == "--pty"; }

}  // namespace

std::string parseArguments(const std::vector<std::string>& arguments, ProgramOptions& options) {
    std::string way;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const Text argument = arguments[i];
        const std::size_t equals = argument.find('=');
        const std::string name(argument.substr(0, equals));
        const Flag* flag = findFlag(name);
        if (!flag) return "unknown flag: " + name;
        std::optional<std::string> value;
        if (equals != Text::npos)
            value = argument.substr(equals + 1);
        else if (flag->value != Value::none && i + 1 < arguments.size() && !arguments[i + 1].starts_with("--"))
            value = arguments[++i];
        if (value && flag->value == Value::none) return name + " takes no value";
        if (!value && flag->value == Value::needed) return name + " needs a value: " + std::string(flag->form);
        if (choosesWay(name) && !way.empty() && way != name) return "one of " + way + " and " + name + " only";
        if (choosesWay(name)) way = name;
        options.master = options.master || name.starts_with("--master");
        if (const std::string why = flag->set(options, value.value_or("")); !why.empty()) return name + ": " + why;
    }
    return {};
}

std::string helpText() {
    std::string text = "trunvex-gateway plays the gateway for a Trunvex console.\n\n";
    for (const Flag& flag : flags) {
        std::string line = "  " + std::string(flag.name) + " " + std::string(flag.form);
        line.resize(std::max<std::size_t>(line.size(), 26), ' ');
        text += line + " " + std::string(flag.help) + "\n";
    }
    text +=
        "\nA WISH is [MNEMONIC:]NAME[=VALUE], such as silent, R_ESN:try=3 or latency=20-200. The value that\n"
        "stands in brackets counts when none is given.\n\n";
    for (const std::string& line : faultHelp()) text += "  " + line + "\n";
    return text;
}

}  // namespace simulator
