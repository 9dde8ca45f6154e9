#include "simulator/outbox.h"

#include <algorithm>
#include <utility>

namespace simulator {

void Outbox::put(Milliseconds due, std::string line) { waiting.emplace(due, std::move(line)); }

void Outbox::advanceTo(Milliseconds now, const std::function<void(std::string_view)>& send,
                       const std::function<void()>& endLink) {
    for (;;) {
        if (pieces.empty() && !cutNextLines(now)) break;
        if (pieces.front().due > now) break;
        // Taken off before it is sent: whoever gets it may answer at once.
        const std::string bytes = std::move(pieces.front().bytes);
        pieces.pop_front();
        send(bytes);
    }
    if (hangUp && *hangUp <= now && pieces.empty()) {
        clear();
        endLink();
    }
}

std::optional<Outbox::Milliseconds> Outbox::nextDue() const {
    std::optional<Milliseconds> next;
    if (!pieces.empty())
        next = pieces.front().due;
    else if (!waiting.empty() && !dying())
        next = leaves(waiting.begin()->first);
    if (hangUp && pieces.empty()) next = std::min(next.value_or(*hangUp), *hangUp);
    return next;
}

void Outbox::clear() {
    waiting.clear();
    pieces.clear();
    hangUp.reset();
    linesOfLink = 0;
    lastPieceDue = Milliseconds{0};
}

// Turns the next line that is due, or all that leave together with it, into pieces. False when there is none.
bool Outbox::cutNextLines(Milliseconds now) {
    if (waiting.empty() || dying()) return false;
    const Milliseconds due = leaves(waiting.begin()->first);
    if (due > now || (hangUp && due > *hangUp)) return false;
    std::string bytes;
    do {
        bytes += dressed(waiting.begin()->second);
        waiting.erase(waiting.begin());
        ++linesOfLink;
        if (dying()) hangUp = due;
    } while (faults.coalesce.count() > 0 && !dying() && !waiting.empty() && leaves(waiting.begin()->first) == due);
    cutIntoPieces(bytes, due);
    return true;
}

std::string Outbox::dressed(const std::string& line) {
    std::string bytes;
    if (linesOfLink == 0 && faults.flood > 0) bytes.append(faults.flood, '#').append("\r");
    if (random.chance(faults.garbage)) bytes += garbageLine();
    bytes += line;
    bytes += '\r';
    if (faults.nulAfterCr) bytes += '\0';
    return bytes;
}

// A short line of anything but terminators, most of it no ASCII.
std::string Outbox::garbageLine() {
    std::string line;
    for (auto left = random.between(1, 40); left > 0; --left) {
        const auto byte = static_cast<char>(random.between(1, 255));
        line += byte == '\r' ? '\xFF' : byte;
    }
    return line + "\xFE\r";
}

void Outbox::cutIntoPieces(const std::string& bytes, Milliseconds due) {
    // Pieces of the line before may have taken longer than it was until this one.
    Milliseconds moment = std::max(due, lastPieceDue);
    for (std::size_t from = 0; from < bytes.size();) {
        std::size_t size = bytes.size();
        if (faults.longestPiece > 0)
            size = static_cast<std::size_t>(random.between(1, static_cast<std::int64_t>(faults.longestPiece)));
        pieces.push_back({moment, bytes.substr(from, size)});
        from += size;
        lastPieceDue = moment;
        moment += faults.pieceGap;
    }
}

Outbox::Milliseconds Outbox::leaves(Milliseconds due) const {
    const auto window = faults.coalesce.count();
    if (window <= 0) return due;
    return Milliseconds((due.count() + window - 1) / window * window);
}

bool Outbox::dying() const { return faults.hangUpAfter > 0 && linesOfLink >= faults.hangUpAfter; }

}  // namespace simulator
