#include "simulator/station_runner.h"

#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <utility>

namespace simulator {

using std::chrono::milliseconds;

StationRunner::StationRunner(Station& ofStation, Transport& overTransport, std::function<void(const std::string&)> tell)
    : station(ofStation), transport(overTransport), tellOperator(std::move(tell)) {
    station.onOutput = [this](std::string_view bytes) { send(bytes); };
    station.onHangUp = [this] { lose("the gateway dropped the link"); };
    station.linkDown();
}

void StationRunner::run(int stop) {
    for (;;) {
        pollfd watched[2] = {{stop, POLLIN, 0}, transport.waitsFor()};
        if (link)
            watched[1] = {link->descriptor.get(), static_cast<short>(pending.empty() ? POLLIN : POLLIN | POLLOUT), 0};
        const int ready = poll(watched, 2, patience());
        if (ready < 0 && errno != EINTR) failWithErrno("poll");
        if (ready > 0 && watched[0].revents != 0) return;
        turn(ready > 0 ? watched[1].revents : short{0});
        if (afterTurn) afterTurn();
    }
}

milliseconds StationRunner::now() const {
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - started);
}

// How long poll() may wait, in ms; -1 for ever.
int StationRunner::patience() const {
    auto due = station.nextDue();
    if (const auto next = link ? std::nullopt : transport.nextTry()) due = std::min(due.value_or(*next), *next);
    if (!due) return -1;
    return static_cast<int>(std::clamp<std::int64_t>((*due - now()).count(), 0, 60000));
}

void StationRunner::turn(short events) {
    station.advanceTo(now());
    if (!link) {
        const auto next = transport.nextTry();
        if (events != 0 || (next && *next <= now())) welcome();
    } else {
        if ((events & POLLOUT) != 0) flush();
        if ((events & (POLLIN | POLLHUP | POLLERR)) != 0) readLink();
    }
    station.advanceTo(now());
}

void StationRunner::welcome() {
    link = transport.take(now());
    if (!link) return;
    tellOperator("console " + link->peer + " is on the line");
    station.linkUp();
}

void StationRunner::readLink() {
    // The link may have gone while waiting bytes were sent.
    if (!link) return;
    char bytes[16384];
    const ssize_t size = read(link->descriptor.get(), bytes, sizeof bytes);
    if (size > 0)
        station.receive({bytes, static_cast<std::size_t>(size)});
    else if (size == 0 || (errno != EAGAIN && errno != EINTR))
        lose("the console left");
}

void StationRunner::send(std::string_view bytes) {
    if (!link) return;
    pending += bytes;
    flush();
    if (pending.size() > mostPending) lose("the console does not read");
}

void StationRunner::flush() {
    while (link && !pending.empty()) {
        const ssize_t size = write(link->descriptor.get(), pending.data(), pending.size());
        if (size > 0)
            pending.erase(0, static_cast<std::size_t>(size));
        else if (errno == EAGAIN)
            return;
        else if (errno != EINTR)
            lose("the console left");
    }
}

void StationRunner::lose(const std::string& why) {
    if (!link) return;
    const std::string peer = link->peer;
    link.reset();
    pending.clear();
    station.linkDown();
    tellOperator("console " + peer + " is gone: " + why);
}

}  // namespace simulator
