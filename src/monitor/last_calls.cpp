#include "monitor/last_calls.h"

#include "text/text_rules.h"

namespace trunvex {

LastCalls::LastCalls(Session& session, Settings& history, frmSimStatus& board)
    : history_(history), session_(session.state), delay_(session.platform.makeTimer([this] { flush(); })) {
    board.dialled().connect([this, &session](int index, const std::string& number) {
        SAVE_LastCalls(index, number + " (" + session.panel.getPanelText("time") + ")");
    });
    session.events.tornDown.connect([this] { flush(); });
    for (int line = 0; line < kept; ++line) mnuLastDial.emplace_back(arrayName("mnuLastDial", line), emptyLine);
    mnuLastDial.emplace_back(arrayName("mnuLastDial", kept), "Clear").pressed().connect([this] {
        clear(menuPort_);
        for (std::size_t line = 0; line < kept; ++line) mnuLastDial[line].setCaption(emptyLine);
    });
    for (int port = 1; port <= portCount; ++port)
        board.cell(port).cmdResetLimit.pressed().connect([this, port] { openMenu(port); });
}

LastCalls::~LastCalls() { flush(); }

std::string LastCalls::section(int port) const { return "PORT" + escaped(session_.gESN) + std::to_string(port); }

void LastCalls::SAVE_LastCalls(int port, const std::string& text) {
    if (session_.gESN.empty()) return;
    const auto name = section(port);
    auto [entry, isNew] = gathered_.try_emplace(name);
    auto& ring = entry->second;
    if (isNew) {
        const auto stored = val(history_.Read(name, "index"));
        ring.next = stored >= 0 && stored < kept ? static_cast<int>(stored) : 0;
    }
    if (ring.next >= kept) ring.next = 0;
    ring.calls[static_cast<std::size_t>(ring.next++)] = text;
    if (!delay_->isActive()) delay_->start(writeDelayMs);
}

void LastCalls::flush() {
    delay_->stop();
    std::vector<Settings::Entry> entries;
    for (const auto& [name, ring] : gathered_) {
        for (std::size_t slot = 0; slot < kept; ++slot)
            if (!ring.calls[slot].empty()) entries.push_back({name, "CALL" + std::to_string(slot), ring.calls[slot]});
        entries.push_back({name, "index", std::to_string(ring.next)});
    }
    gathered_.clear();
    if (!entries.empty()) history_.WriteAll(entries);
}

std::array<std::string, LastCalls::kept> LastCalls::INIT_lastCalls(int port) {
    flush();
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

void LastCalls::openMenu(int port) {
    menuPort_ = port;
    auto lines = INIT_lastCalls(port);
    for (std::size_t line = 0; line < kept; ++line) mnuLastDial[line].setCaption(std::move(lines[line]));
}

void LastCalls::clear(int port) {
    if (session_.gESN.empty()) return;
    flush();
    history_.Remove(section(port));
}

}  // namespace trunvex
