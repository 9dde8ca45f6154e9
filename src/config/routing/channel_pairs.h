#pragma once

#include <array>
#include <deque>
#include <optional>

#include "fields/fields.h"
#include "model/port_address.h"

namespace trunvex {

// Which line of the E1 side is bound to which port, as static allocation goes by it: B-channels 1 to 30, and the two
// reserved lines 31 and 32. The labels of both sides follow from the ports' one field each.
class ChannelPairs {
public:
    static constexpr int lines = 32;
    static constexpr int firstReserved = 31;

    ChannelPairs();

    // Picks a port or line; with one of the other side picked before it pairs them, and frees whatever the two were
    // bound to. A pair that is clicked so is parted, a pick that is clicked again let go. Numbers count from 1.
    void clickPort(int port);
    void clickLine(int line);
    void dropPick();
    std::optional<int> pickedPort() const { return pickedPort_; }
    std::optional<int> pickedLine() const { return pickedLine_; }
    // Outside of static allocation a click is told why it does nothing.
    void setStatic(bool isStatic);
    bool isStatic() const { return static_; }

    int lineOf(int port) const;  // 0 for none, and for one that was not told
    bool told(int port) const { return !bound[static_cast<std::size_t>(port - 1)].text().empty(); }

    std::deque<TextField> bound;         // by port: the number of its line, "0" for none, empty when not told
    std::deque<LabelField> lblTSLStock;  // 32, by port: "B-ch #5", "RESERVED1"
    std::deque<LabelField> lblTSLBch;    // 32, by line: "Port #12"
    LabelField lblTSLPick{"lblTSLPick"};
    sigc::signal<void()>& changed() { return changed_; }

private:
    void pair(int port, int line);
    void follow();

    std::optional<int> pickedPort_;
    std::optional<int> pickedLine_;
    bool static_ = false;
    sigc::signal<void()> changed_;
};

// "B-ch #5", "RESERVED1"; empty for no line.
std::string lineName(int line);

}  // namespace trunvex
