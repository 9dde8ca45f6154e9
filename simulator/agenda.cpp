#include "simulator/agenda.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace simulator {

void Agenda::in(Milliseconds delay, std::function<void()> what) {
    heap.push_back({time + std::max(delay, Milliseconds{0}), planned++, std::move(what)});
    std::push_heap(heap.begin(), heap.end(), later);
}

std::optional<Agenda::Milliseconds> Agenda::nextDue() const {
    if (heap.empty()) return std::nullopt;
    return heap.front().due;
}

void Agenda::doNext() {
    std::pop_heap(heap.begin(), heap.end(), later);
    const Entry entry = std::move(heap.back());
    heap.pop_back();
    time = entry.due;
    entry.what();
}

void Agenda::idleUntil(Milliseconds moment) { time = std::max(time, std::min(moment, nextDue().value_or(moment))); }

bool Agenda::later(const Entry& a, const Entry& b) { return std::tie(a.due, a.number) > std::tie(b.due, b.number); }

}  // namespace simulator
