#pragma once

#include "simulator/transport.h"

namespace simulator {

// A serial line: a pseudo-terminal in raw mode. A serial line has nobody who comes or goes, so the console
// counts as there from the start, and again half a second after the gateway dropped it. The terminal outlives
// all of that.
class PtyTransport : public Transport {
public:
    // linkPath may be empty. Throws std::runtime_error, also when something else than a link stands there.
    explicit PtyTransport(const std::string& linkPath);
    ~PtyTransport() override;
    PtyTransport(const PtyTransport&) = delete;
    PtyTransport& operator=(const PtyTransport&) = delete;

    std::string describe() const override;
    pollfd waitsFor() const override { return {-1, 0, 0}; }
    std::optional<std::chrono::milliseconds> nextTry() const override { return next; }
    std::optional<Link> take(std::chrono::milliseconds now) override;

private:
    void makeLink();

    Descriptor line;
    Descriptor consoleEnd;  // kept open, so that the line stays up while no console has it open
    std::string name;
    std::string link;
    std::chrono::milliseconds next{0};
};

}  // namespace simulator
