#include "monitor/last_calls.h"

#include "text/text_rules.h"

namespace trunvex {

std::string LastCalls::section(int port) const { return "PORT" + escaped(session_.gESN) + std::to_string(port); }

void LastCalls::SAVE_LastCalls(int port, const std::string& text) {
    if (session_.gESN.empty()) return;
    const auto stored = val(history_.Read(section(port), "index"));
    const auto slot = stored >= 0 && stored < kept ? stored : 0;
    history_.Write(section(port), "CALL" + std::to_string(slot), text);
    history_.Write(section(port), "index", std::to_string(slot + 1));
}

std::array<std::string, LastCalls::kept> LastCalls::INIT_lastCalls(int port) {
    std::array<std::string, kept> lines;
    lines.fill(emptyLine);
    if (session_.gESN.empty()) return lines;
    std::size_t found = 0;
    for (; found < kept; ++found) {
        auto text = history_.Read(section(port), "CALL" + std::to_string(found));
        if (text.empty()) break;
        lines[found] = std::move(text);
    }
    history_.Write(section(port), "index", std::to_string(found));
    return lines;
}

void LastCalls::clear(int port) { history_.Remove(section(port)); }

}  // namespace trunvex
