#include "config/routing/channel_pairs.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

std::string lineName(int line) {
    if (line < 1 || line > ChannelPairs::lines) return {};
    return line < ChannelPairs::firstReserved ? "B-ch #" + std::to_string(line)
                                              : "RESERVED" + std::to_string(line - ChannelPairs::firstReserved + 1);
}

ChannelPairs::ChannelPairs() {
    for (int i = 0; i < portCount; ++i) {
        lblTSLStock.emplace_back(arrayName("lblTSLStock", i));
        bound.emplace_back(arrayName("txtTSLBound", i)).valueChanged().connect([this] { follow(); });
    }
    for (int i = 0; i < lines; ++i) lblTSLBch.emplace_back(arrayName("lblTSLBch", i));
    follow();
}

int ChannelPairs::lineOf(int port) const {
    const auto& text = bound.at(static_cast<std::size_t>(port - 1)).text();
    return wholeWithin(text, 1, lines) ? static_cast<int>(val(text)) : 0;
}

void ChannelPairs::setStatic(bool isStatic) {
    static_ = isStatic;
    pickedPort_.reset();
    pickedLine_.reset();
    follow();
}

void ChannelPairs::dropPick() { setStatic(static_); }

void ChannelPairs::clickPort(int port) {
    if (!static_) return;
    if (pickedLine_)
        pair(port, *pickedLine_);
    else
        pickedPort_ = pickedPort_ == port ? std::nullopt : std::optional(port);
    follow();
}

void ChannelPairs::clickLine(int line) {
    if (!static_) return;
    if (pickedPort_)
        pair(*pickedPort_, line);
    else
        pickedLine_ = pickedLine_ == line ? std::nullopt : std::optional(line);
    follow();
}

void ChannelPairs::pair(int port, int line) {
    pickedPort_.reset();
    pickedLine_.reset();
    const bool part = lineOf(port) == line;
    for (int other = 1; other <= portCount; ++other)
        if (lineOf(other) == line) bound[static_cast<std::size_t>(other - 1)].setText("0");
    if (!part) bound[static_cast<std::size_t>(port - 1)].setText(std::to_string(line));
}

void ChannelPairs::follow() {
    std::array<std::string, lines> ports;
    for (int port = 1; port <= static_cast<int>(bound.size()); ++port) {
        const int line = lineOf(port);
        lblTSLStock[static_cast<std::size_t>(port - 1)].setText(lineName(line));
        if (line == 0) continue;
        auto& text = ports[static_cast<std::size_t>(line - 1)];
        text += (text.empty() ? "Port #" : ", #") + std::to_string(port);
    }
    for (std::size_t line = 0; line < lblTSLBch.size(); ++line) lblTSLBch[line].setText(ports[line]);
    if (std::ranges::all_of(bound, [](const TextField& one) { return one.text().empty(); }))
        lblTSLPick.setText("Nothing was read here yet. Press Read.");
    else if (!static_)
        lblTSLPick.setText("Pairs count in static allocation only.");
    else if (pickedPort_)
        lblTSLPick.setText("Port #" + std::to_string(*pickedPort_) +
                           " is picked. Click the channel that it is to be bound to.");
    else if (pickedLine_)
        lblTSLPick.setText(lineName(*pickedLine_) + " is picked. Click the port that is to be bound to it.");
    else
        lblTSLPick.setText("Click a port and a channel to bind them; click a pair's two ends to part it.");
    changed_.emit();
}

}  // namespace trunvex
