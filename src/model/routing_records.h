#pragma once

#include <array>
#include <string>

#include "link/session.h"
#include "model/block_table.h"
#include "model/port_address.h"

namespace trunvex {

// How the gateway finds a way for a call, as its records tell it and as it acknowledges what the console wrote. Values
// are kept as the text that travels; an empty one was not told.
class RoutingRecords {
public:
    static constexpr int lineCount = 32;  // B-channels 1 to 30, and the two reserved lines 31 and 32
    static constexpr std::size_t causeCount = 16;
    // The places of tables on the wire: blocks are numbered with two digits or three.
    static constexpr std::size_t rowsPerBlock = 9;
    static constexpr std::size_t mostPrefixBlocks = 99;
    static constexpr std::size_t mostAccessBlocks = 999;
    static constexpr std::size_t mostModifications = 99;
    static constexpr std::size_t mostDirectLines = 300;

    struct Allocation {
        std::string mode;          // 0 static, 1 cyclic, 2 random, 5 and 6 the last two by prefix groups
        std::string prefixDigits;  // the longest prefix, 1 to 16
        std::string mnp;           // "1" when prefixes carry a routing code of ported numbers
    };
    struct Port {
        std::string enabled;  // "0" or "1"
        std::string channel;  // the line that is bound to it, without leading zeros; "0" for none
        std::string group;    // its prefix group
    };
    struct Line {
        std::string enabled;
        std::string number;
    };
    // Who may call from one side: rows of number and "1" or "0".
    struct AccessList {
        std::string mode;
        std::string unlisted;  // "1" when callers that are not in the list are admitted
        BlockTable table;
    };
    // Rows of number, extension and calls; an entry without a number of calls is not limited.
    struct DirectLines {
        std::string mode;
        std::string limited;  // how many entries there are of each kind
        std::string unlimited;
        BlockTable table;
    };

    explicit RoutingRecords(Session& session);

    const Allocation& allocation() const { return allocation_; }
    const std::string& waitTenths() const { return waitTenths_; }
    const Port& port(PortAddress at) const { return ports_[at.slot()]; }
    // By its number, 1 to lineCount.
    const Line& line(int number) const { return lines_.at(static_cast<std::size_t>(number - 1)); }
    const std::array<std::string, causeCount>& causes() const { return causes_; }
    bool causesTold() const { return !causes_[0].empty(); }
    const std::string& modificationMode() const { return modificationMode_; }

    BlockTable modifications;  // rows of ignored and added digits
    BlockTable prefixes;       // rows of prefix, group of high priority, of low priority, routing code
    AccessList fromGsm;        // ICL: who may reach the E1 line
    AccessList fromIsdn;       // IIL: who may reach the radio side
    DirectLines directLines;

    sigc::signal<void()> allocationStored;
    sigc::signal<void()> waitStored;
    sigc::signal<void(PortAddress)> portStored;
    sigc::signal<void(int number)> lineStored;
    sigc::signal<void()> causesStored;
    sigc::signal<void()> modificationModeStored;

private:
    void forget();
    void takeAllocation(const Record& record);
    void takePort(const Record& record);
    void takeLine(const Record& record);
    void takeCauses(const Record& record);
    void takeModifications(const Record& record);
    void takePrefixes(const Record& record);
    void takeAccess(AccessList& list, const Record& record);
    void takeDirectLine(const Record& record, bool limited);
    void eraseDirectLines(bool limited);
    void addTables(Session& session);

    RealTimeUpdate& realTimeUpdate_;
    Allocation allocation_;
    std::string waitTenths_;
    std::array<Port, portCount> ports_;
    std::array<Line, lineCount> lines_;
    std::array<std::string, causeCount> causes_;
    std::string modificationMode_;
};

}  // namespace trunvex
