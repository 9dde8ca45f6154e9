#pragma once

#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "monitor/sim_figures.h"
#include "platform/clock.h"
#include "platform/database.h"

namespace trunvex {

// The figures of every read, by SIM, for each gateway in a database beside its calls: STA<serial number>.mdb. A SIM is
// known by its own number where it tells one, otherwise by its place; so a SIM that moves keeps its past.
class SimHistory {
public:
    struct Reading {
        double asr = 0;        // percent
        std::int64_t acd = 0;  // seconds
        std::int64_t dialled = 0;
    };
    static constexpr std::size_t kept = 30;  // of a SIM, in memory; the file keeps all

    explicit SimHistory(DatabaseEngine& engine) : engine_(engine) {}

    // Turns to a gateway's file and reads what it holds; an empty path forgets all. What fails throws.
    void open(const std::filesystem::path& path);
    // Adds a read of some SIMs. They count from now on, also when the file can't take them, which throws.
    void add(const std::vector<SimFigures>& read, std::chrono::local_seconds when);

    // The last reads of a SIM, the newest at the end.
    const std::deque<Reading>& of(const SimFigures& sim) const;
    // "ASR low", "ACD low", "ASR and ACD low": the last read against what is usual for this SIM. Empty while too little
    // is known, or nothing is wrong.
    std::string wordOn(const SimFigures& sim) const;

private:
    static std::string keyOf(const SimFigures& sim);
    void remember(const std::string& key, const Reading& reading);

    DatabaseEngine& engine_;
    std::filesystem::path path_;
    std::map<std::string, std::deque<Reading>> readings_;
};

}  // namespace trunvex
