#pragma once

#include <array>
#include <deque>
#include <functional>

#include "fields/fields.h"
#include "platform/settings.h"

namespace trunvex {

// The six state colours of a cell, in the order of the colour window. Kept in section "Colors" as decimal texts, blue
// the highest byte, red the lowest.
struct BoardColours {
    enum Which { PORT_ACTIVE, PORT_NOT_ACTIVE, PORT_CONNECTED, PORT_PROBLEM, PORT_ALARTING, PORT_CALL };
    static constexpr int count = 6;

    struct Entry {
        const char* key;
        const char* meaning;  // for the operator
        Colour standard;
    };
    static constexpr std::array<Entry, count> entries = {{
        {"PORT_ACTIVE", "Idle, SIM in service", 12251024},
        {"PORT_NOT_ACTIVE", "Reset, no SIM in service", 12238992},
        {"PORT_CONNECTED", "Call connected", 14811110},
        {"PORT_PROBLEM", "SIM or module fault", 1101823},
        {"PORT_ALARTING", "Alerting", 14408586},
        {"PORT_CALL", "Call being set up", 8840850},
    }};

    std::array<Colour, count> values{};
    Colour operator[](Which which) const { return values[which]; }

    // A key that is empty or no colour takes its default.
    void load(Settings& settings);
    void save(Settings& settings) const;
};

// The window that edits them: lblColor_0 to lblColor_5, whose colour is the one shown. Nothing is kept before cmdSave.
class frmColors {
public:
    // `saved` is called with the new colours when they are kept.
    frmColors(const BoardColours& present, std::function<void(const BoardColours&)> saved);

    std::deque<LabelField> lblColor;
    ActionField cmdDefault{"cmdDefault", "Default"};
    ActionField cmdSave{"cmdSave", "Save"};

private:
    BoardColours shown() const;
};

}  // namespace trunvex
