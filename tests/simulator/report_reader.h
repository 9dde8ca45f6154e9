#pragma once

#include "console_double.h"
#include "simulator/fields.h"
#include "simulator/gateway.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace simulator {

// Follows a gateway by its reports alone, from one reading of its state on, and tells whether a later reading
// says the same. A report that cannot be true fails the test at once.
class ReportReader {
public:
    ReportReader(Gateway& ofGateway, ConsoleDouble& onConsole) : gateway(ofGateway), console(onConsole) {
        read(ports, monitor, system);
    }

    void follow(const std::string& bytes) {
        std::vector<std::string> lines = splitFields(bytes, '\r');
        lines.pop_back();
        for (const std::string& line : lines) {
            if (!line.starts_with("I_ALR")) continue;
            const auto fields = splitFields(std::string_view(line).substr(5));
            if (fields.size() == 2) continue;  // the answer to a change
            ASSERT_EQ(fields.size(), 5u) << line;
            ++codes[(fields[0] == "000" ? "system " : "") + fields[1]];
            SCOPED_TRACE(line);
            if (fields[0] == "000")
                takeSystem(fields);
            else
                takePort(fields);
        }
    }

    // Everything that can be read is what was reported.
    void expectTrue() {
        std::map<std::string, std::vector<std::string>> portsNow;
        std::string monitorNow;
        std::string systemNow;
        read(portsNow, monitorNow, systemNow);
        for (const auto& [index, fields] : portsNow) EXPECT_EQ(joinFields(fields), joinFields(ports[index]));
        EXPECT_EQ(monitorNow, monitor);
        EXPECT_EQ(systemNow, system);
        for (std::size_t row = 0; row < channelCount; ++row) {
            const Bearer& bearer = gateway.state().bearers[row];
            EXPECT_EQ(bearer.slot.has_value(), carries[row]) << row;
            EXPECT_EQ(std::to_string(bearer.cause), causes[row]) << row;
        }
    }

    int inCall() const {
        int count = 0;
        for (const auto& [index, fields] : ports) count += fields[13] != "0";
        return count;
    }

    std::map<std::string, int> codes;  // how often each came
    int calls = 0;

private:
    using Ports = std::map<std::string, std::vector<std::string>>;

    void read(Ports& toPorts, std::string& toMonitor, std::string& toSystem) {
        toMonitor = console.ask("R_MON").substr(5, 62);
        toSystem = console.ask("R_SYS");
        for (int slot = 0; slot < portCount; ++slot) {
            const std::string index = PortAddress::ofSlot(slot).text();
            const std::string answer = console.ask("R_STS" + index);
            if (answer != "ERROR\r") toPorts[index] = splitFields(answer.substr(5, answer.size() - 6));
        }
    }

    void takeSystem(const std::vector<std::string>& fields) {
        static const std::map<std::string, std::pair<std::size_t, char>> lamps{
            {"010", {2, '2'}}, {"011", {2, '0'}}, {"020", {0, '1'}}, {"021", {0, '2'}},
            {"022", {0, '0'}}, {"023", {0, '1'}}, {"024", {0, '0'}}, {"030", {1, '1'}},
            {"031", {1, '2'}}, {"032", {1, '0'}}, {"033", {1, '1'}}, {"034", {1, '0'}}};
        const std::string& code = fields[1];
        if (const auto lamp = lamps.find(code); lamp != lamps.end()) {
            system[system.size() - 6 + 2 * lamp->second.first] = lamp->second.second;
            return;
        }
        if (code == "136") {
            EXPECT_EQ(fields[4], "OK");
            monitor[static_cast<std::size_t>(PortAddress::parse(fields[2])->slot())] = fields[3][0];
            return;
        }
        const bool bound = code == "100" || code == "120";
        const auto channel = number(fields[code == "120" ? 3 : 2], 1, channelCount);
        ASSERT_TRUE(channel);
        const auto row = static_cast<std::size_t>(*channel - 1);
        if (bound) {
            EXPECT_TRUE(number(fields[code == "100" ? 3 : 2], 1, portCount));
        } else if (code == "140") {
            EXPECT_FALSE(carries[row]);
            EXPECT_EQ(monitor[portCount + row], '1');
            carries[row] = true;
            causes[row] = "0";
        } else if (code == "116") {
            EXPECT_EQ(fields[4], "OK");
            monitor[portCount + row] = fields[3][0];
        } else {
            EXPECT_TRUE(carries[row]);
            carries[row] = false;
            causes[row] = fields[3];
        }
    }

    void takePort(const std::vector<std::string>& fields) {
        const std::string index = fields[0].substr(0, 2);
        const auto sim = static_cast<std::size_t>(fields[0][2] - '0');
        const int code = std::stoi(fields[1]);
        ASSERT_TRUE(ports.contains(index));
        ASSERT_TRUE(sim >= 1 && sim <= simsPerPort);
        auto& port = ports[index];
        static const std::set<int> states{11, 13, 22, 23, 24, 26, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 50};
        if (states.contains(code)) {
            EXPECT_EQ(port[13], "0");
            port[1] = fields[1];
            if (code == 26 || (code >= 29 && code <= 40)) port[2 * sim] = fields[1];
        }
        if (code == 1 || code == 2 || code == 9) {
            EXPECT_EQ(port[13], "0");
            EXPECT_TRUE(port[1] == "23" || port[1] == "50");
            EXPECT_EQ(monitor[static_cast<std::size_t>(PortAddress::parse(index)->slot())], '1');
            EXPECT_TRUE(number(fields[2].substr(1), 0, 999'999'999));
            port[13] = "4";
            ++calls;
        }
        if (code == 3 || code == 16) {
            EXPECT_EQ(port[13], "4");
        }
        if (code == 4 || code == 12) port[13] = "8";
        if ((code >= 5 && code <= 8) || code == 10) {
            EXPECT_NE(port[13], "0");
            EXPECT_TRUE(code <= 6 || port[13] == "4");
            port[13] = "0";
        }
        if (code == 4 || code == 18 || code == 104) {
            EXPECT_GE(fields[2], port[2 * sim + 1]);
            port[2 * sim + 1] = fields[2];
        }
        if (code == 15) port[14] = fields[2], port[10] = fields[3];
        if (code == 21) port[12] = fields[2];
        if (code == 25) port[11] = fields[2];
    }

    Gateway& gateway;
    ConsoleDouble& console;
    Ports ports;
    std::string monitor;
    std::string system;
    std::array<bool, channelCount> carries{};
    std::vector<std::string> causes = std::vector<std::string>(channelCount, "0");
};

}  // namespace simulator
