#include "monitor/board_colours.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* section = "Colors";
constexpr std::int64_t highestColour = 0xFFFFFF;

}  // namespace

void BoardColours::load(Settings& settings) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto text = settings.Read(section, entries[i].key);
        const auto number = val(text);
        const bool usable = text.size() <= 8 && isNumeric(text) && number >= 0 && number <= highestColour;
        values[i] = usable ? static_cast<Colour>(number) : entries[i].standard;
    }
}

void BoardColours::save(Settings& settings) const {
    std::vector<Settings::Entry> rows;
    for (std::size_t i = 0; i < count; ++i) rows.push_back({section, entries[i].key, std::to_string(values[i])});
    settings.WriteAll(rows);
}

frmColors::frmColors(const BoardColours& present, std::function<void(const BoardColours&)> saved) {
    for (std::size_t i = 0; i < BoardColours::count; ++i) {
        const auto name = arrayName("lblColor", static_cast<int>(i));
        lblColor.emplace_back(name, BoardColours::entries[i].meaning).setColour(present.values[i]);
    }
    cmdDefault.pressed().connect([this] {
        for (std::size_t i = 0; i < BoardColours::count; ++i) lblColor[i].setColour(BoardColours::entries[i].standard);
    });
    cmdSave.pressed().connect([this, saved = std::move(saved)] { saved(shown()); });
}

BoardColours frmColors::shown() const {
    BoardColours colours;
    for (std::size_t i = 0; i < BoardColours::count; ++i) colours.values[i] = lblColor[i].colour();
    return colours;
}

}  // namespace trunvex
