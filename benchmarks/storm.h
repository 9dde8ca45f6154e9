#pragma once

#include <random>
#include <string>

namespace bench {

// One line of a mixed storm of reports: calls, signals, channels and registrations over all ports.
inline std::string stormLine(std::mt19937& random) {
    static const char* const port[] = {",25,", ",25,", ",25,", ",2,0501234", ",3,", ",4,00012:", ",5,", ",21,4250", ",23,", ",15,"};
    static const char* const system[] = {",140,", ",101,", ",100,"};
    const auto pick = [&](unsigned bound) { return std::to_string(1 + random() % bound); };
    if (random() % 10 == 0) return "I_ALR000" + std::string(system[random() % 3]) + pick(30) + "," + pick(30) + ",";
    return "I_ALR" + pick(8) + pick(4) + pick(4) + port[random() % 10] + std::to_string(10 + random() % 50) + ",,";
}

}  // namespace bench
