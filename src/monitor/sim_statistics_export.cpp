// The grid of the SIM statistics as a file.
#include <filesystem>

#include "monitor/sim_statistics.h"
#include "platform/durable_file.h"
#include "platform/quietly.h"

namespace trunvex {

namespace {

constexpr const char* filter = "Comma Separated Values file (*.csv)|*.csv";
constexpr const char* title = "export";
constexpr auto mostRows = static_cast<std::size_t>(portCount) * simsPerModule;

}  // namespace

// A comma behind every cell, also the last of a line.
std::string SimStatistics::joined() const {
    std::string text;
    for (std::size_t column = 0; column < exportedColumns; ++column) text += lstASR.heading(column) + ",";
    text += "\r\n";
    for (std::size_t row = 0; row < std::min(lstASR.rowCount(), mostRows); ++row) {
        for (std::size_t column = 0; column < exportedColumns; ++column) text += lstASR.text(row, column) + ",";
        text += "\r\n";
    }
    return text;
}

void SimStatistics::exportCsv() {
    auto& dialogs = session_.platform.dialogs();
    if (lstASR.rowCount() == 0) {
        dialogs.info("There is no data to export ! ", title);
        return;
    }
    const auto ticket = forSession(session_.state);
    const std::filesystem::path path = dialogs.saveFile(title, filter, "", Dialogs::AskReplace::Caller, ticket);
    if (path.empty()) return;
    std::error_code error;
    const auto question = path.string() + "  already exists.\r\nDo you want to replace it?";
    if (std::filesystem::exists(path, error) &&
        !dialogs.agreed(Button::Yes, {question, title, ButtonSet::YesNo, BoxIcon::Question, 2}, ticket))
        return;
    if (lstASR.rowCount() == 0) return;  // a new read has begun behind the boxes
    std::string why;
    if (quietly(
            "export", [&] { replaceFile(path, joined()); }, &why))
        session_.tell(std::to_string(std::min(lstASR.rowCount(), mostRows)) + " SIMs were written to " + path.string() +
                      ".");
    else
        session_.tell(path.string() + " was not written: " + why);
}

}  // namespace trunvex
