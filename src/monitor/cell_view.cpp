#include "monitor/cell_view.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int answerMs = 3000;  // a module listens for a while before it tells
constexpr std::size_t bcchColumn = 4;
constexpr std::size_t levelColumn = 5;
constexpr std::array<const char*, CellView::columns> names{"lblMCC", "lblLac", "lblCI", "lblBSIC", "lblBCCH", "lblRX"};

// Serving cell and neighbours are told apart by a blank.
std::string levelText(std::string_view field, bool serving) {
    constexpr std::int64_t highest = 31;
    constexpr std::int64_t decibelsBelow = 111;
    field = trim(field);
    if (field.empty() || field == "99" || field == "0") return {};
    if (!isWhole(field)) return escaped(field);
    return std::to_string(std::min(val(field), highest) - decibelsBelow) + (serving ? "db" : " db");
}

}  // namespace

CellView::CellView(Session& session, SharedTables& tables, BoardOperations& operations, PortMenu& menu,
                   frmSimStatus& board)
    : bar("prgCells", session.platform), session_(session), tables_(tables), operations_(operations), board_(board) {
    for (std::size_t row = 0; row < rows; ++row) {
        const auto number = static_cast<int>(row);
        for (std::size_t column = 0; column < columns; ++column)
            cells[column].emplace_back(arrayName(names[column], number));
        lblCellSelect.emplace_back(arrayName("lblCellSelect", number), "Select").pressed().connect([this, row] {
            lock(cells[bcchColumn][row].text());
        });
    }
    blank();
    picBStat.setVisible(false);
    bar.setVisible(false);
    for (const char* kind : {"CLM", "CLN"})
        session.dispatcher.on(std::string("A_") + kind,
                              [this, kind](const Record& record) { showCells(kind, splitLong(record.body, ',')); });
    bar.stepped().connect([this](int, int) { barRanOut(); });
    menu.mnuGetCell.pressed().connect([this, &menu] { open(menu.port()); });
    cmdAutoCell.pressed().connect([this] { lock("0"); });
    cmdCloseCell.pressed().connect([this] { close(); });
    cmdGetBcch.pressed().connect([this] { readAll(); });
    session.events.begun.connect([this] {
        close();
        lsvBCCH.clear();
    });
    session.events.tornDown.connect([this] { close(); });
}

void CellView::blank() {
    for (auto& column : cells)
        for (auto& cell : column) cell.setText("");
    for (auto& button : lblCellSelect) button.setVisible(false);
}

void CellView::open(int index) {
    if (!operations_.mayAsk()) return;
    close();
    blank();
    const auto port = PortAddress::ofNumber(index);
    picBStat.setTag(port.digits());
    picBStat.setText("Cells of port " + std::to_string(index));
    cellWanted_[static_cast<std::size_t>(index)] = true;
    cellStop_[static_cast<std::size_t>(index)] = false;
    picBStat.setVisible(true);
    ask("R_CLM");
}

void CellView::close() {
    bar.EndProgress(CoolProgressBar::Read);
    bar.setVisible(false);
    if (!picBStat.visible()) return;
    cellStop_[static_cast<std::size_t>(PortAddress::parse(picBStat.tag()).number())] = true;
    picBStat.setTag("");
    picBStat.setVisible(false);
}

void CellView::ask(const char* command) {
    lblCellState.setText(std::string(command) == "R_CLM" ? "Asking for the serving cell..."
                                                         : "Asking for the neighbours...");
    operations_.send(command + picBStat.tag());
    bar.StartProgress(CoolProgressBar::Read, answerMs, 1);
    bar.setVisible(true);
}

void CellView::barRanOut() {
    bar.EndProgress(CoolProgressBar::Read);
    bar.setVisible(false);
    lblCellState.setText("The module has not answered.");
}

void CellView::showCells(std::string_view kind, const std::vector<std::string_view>& fields) {
    const bool serving = kind == "CLM";
    if (serving) report(fields);
    if (!picBStat.visible() || fields.front() != picBStat.tag()) return;
    const auto index = static_cast<std::size_t>(PortAddress::parse(picBStat.tag()).number());
    bar.EndProgress(CoolProgressBar::Read);
    bar.setVisible(false);
    lblCellState.setText("");
    std::size_t row = serving ? 0 : 1;  // neighbours stand below the serving cell
    std::size_t column = 0;
    for (auto field = fields.begin() + 1; field != fields.end() && *field != endMark && row < rows; ++field) {
        cells[column][row].setText(column == levelColumn ? levelText(*field, serving) : escaped(trim(*field)));
        if (++column == columns) {
            column = 0;
            ++row;
        }
    }
    for (std::size_t at = 0; at < rows; ++at) lblCellSelect[at].setVisible(!cells[bcchColumn][at].text().empty());
    if (serving && std::exchange(cellWanted_[index], false) && !cellStop_[index]) ask("R_CLN");
}

// The lock stays as it was where the panel is only closed.
void CellView::lock(const std::string& channel) {
    if (!isWhole(channel)) {
        session_.tell("The module told no channel there that it could be locked to.");
        return;
    }
    if (!operations_.mayChange()) return;
    const auto port = std::to_string(PortAddress::parse(picBStat.tag()).number());
    operations_.change("C_CLM" + picBStat.tag() + "," + channel, channel == "0"
                                                                     ? "automatic cell of port " + port
                                                                     : "lock of port " + port + " to cell " + channel);
    close();
}

// What a serving cell does not tell stays empty; how its channel was chosen, the board knows.
void CellView::report(const std::vector<std::string_view>& fields) {
    const auto port = PortAddress::parse(fields.front());
    const auto field = [&fields](std::size_t column) {
        for (std::size_t at = 1; at <= column + 1; ++at)
            if (at >= fields.size() || fields[at] == endMark) return std::string_view();
        return trim(fields[column + 1]);
    };
    const auto mode = board_.cell(port).status.bcchMode;
    const auto number = std::to_string(port.number());
    lsvBCCH.put({number,
                 {"Port " + number, escaped(field(bcchColumn)), levelText(field(levelColumn), true), "", "",
                  mode == PortStatus::Bcch::Fixed       ? "fixed"
                  : mode == PortStatus::Bcch::Automatic ? "automatic"
                                                        : ""},
                 {static_cast<double>(port.number()), static_cast<double>(val(field(bcchColumn))),
                  static_cast<double>(val(field(levelColumn))), 0, 0, 0}});
}

void CellView::readAll() {
    if (!operations_.mayAsk()) return;
    std::vector<QueueItem> batch;
    for (const auto port : everyPort) {
        const auto& kind = tables_.port(port).Kind;
        if (kind != "ERR" && kind != "CDM")
            batch.push_back(command("R_CLM" + port.digits(), "cell of port " + std::to_string(port.number())));
    }
    lsvBCCH.clear();
    session_.refreshes.start(std::move(batch));
}

}  // namespace trunvex
