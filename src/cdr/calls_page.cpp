#include "cdr/calls_page.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* section = "CDRConfig";
constexpr const char* wholeTable = "SELECT * FROM CDR";
constexpr const char* allColumns = "ALL";
constexpr std::size_t sliceRows = 4000;  // a few ms: keys are answered between two slices
constexpr int sliceMs = 1;
constexpr std::array<const char*, 4> filters{"Excel file (*.xls)|*.xls",
                                             "Comma Separated Values file (*.csv)|*.csv",
                                             "Access file (*.mdb)|*.mdb", "XML file (*.xml)|*.xml"};

// The column behind a caption of the filter; null for a caption that is none.
const CallColumn* columnOf(const std::string& caption) {
    for (const auto& column : callColumns)
        if ((column.caption && column.caption == caption) || (!column.caption && column.name == caption))
            return &column;
    return nullptr;
}

// Returns when the file is on the disk: the table is deleted behind it.
void makeDurable(const std::filesystem::path& file) {
    const int opened = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    const bool done = opened >= 0 && ::fsync(opened) == 0;
    const int why = errno;
    if (opened >= 0) ::close(opened);
    if (!done) throw std::system_error(why, std::generic_category(), file.filename().string());
}

}  // namespace

void CallTotals::add(std::string_view duration) {
    ++calls;
    if (duration.empty() || duration == "0") return;
    ++answered;
    talkSeconds += sortKey(duration, SortKind::Duration);
}

int CallTotals::asr() const { return calls == 0 ? 0 : static_cast<int>((answered * 100 + calls / 2) / calls); }

int CallTotals::acd() const {
    return answered == 0 ? 0 : static_cast<int>(talkSeconds / static_cast<std::int64_t>(answered));
}

CallsPage::CallsPage(Platform& platform, Settings& settings, SessionState& session, CallStore& store,
                     CdrDownload& download, std::function<void(const std::string&)> tell)
    : platform_(platform), settings_(settings), session_(session), store_(store), download_(download),
      tell_(std::move(tell)) {
    std::vector<std::string> captions{allColumns};
    for (const auto& column : callColumns)
        if (column.caption) captions.emplace_back(column.caption);
    cmbCDRColumn.setItems(std::move(captions));
    cmbCDRColumn.setIndex(0);
    work_ = platform.makeTimer([this] { rows_ ? loadSlice() : exportSlice(); });
    store_.added().connect([this](const CallRecord& record) { rowStored(record); });
    lsvCallReport.changed().connect([this] {
        if (export_) cancel();
        if (!rows_) countShown();
    });
    cmbCDRColumn.changed().connect([this, was = cmbCDRColumn.index()]() mutable {
        if (std::exchange(was, cmbCDRColumn.index()) == cmbCDRColumn.index()) return;
        if (cmbCDRColumn.text() == allColumns)
            BuildCDRList(wholeTable);
        else
            GetCDRGROUP(cmbCDRColumn.text());
    });
    cmbCDRValue.changed().connect([this] {
        if (!fillingValues_ && cmbCDRValue.index() != ChoiceField::none && !session_.gESN.empty())
            BuildCDRListGroup(cmbCDRColumn.text(), cmbCDRValue.text());
    });
    txtCDRSearch.changed().connect([this] { lsvCallReport.search(txtCDRSearch.text()); });
    for (std::size_t index = 0; index <= 3; ++index)
        cmdCDRExport[index].pressed().connect([this, index] { exportTo(index); });
    cmdCDRExport[4].pressed().connect([this] {
        if (!session_.gESN.empty()) BuildCDRList(wholeTable);
    });
    cmdCDRExport[5].pressed().connect([this] { askAndClear(); });
    cmdCDRExport[6].pressed().connect([this] { download_.start(); });
    cmdCDRExport[7].pressed().connect([this] { download_.stop(); });
    cmdCDRExport[8].pressed().connect([this] { saveSettings(); });
    cmdCDRCancel.pressed().connect([this] { cancel(); });
    finishWork();
}

void CallsPage::readSettings() {
    txtCDRDownLimit.setText(settings_.readOr(section, "DownLimit", "0"));
    txtCDRRecordLimit.setText(settings_.readOr(section, "Max", "1000"));
    txtCDRPath.setText(settings_.readOr(section, "Path", session_.applicationFolder + "/data"));
    optCDRFormat.setIndex(static_cast<int>(val(settings_.readOr(section, "Format", "0"))));
    chkCDRIncludeHeader.setChecked(headerWanted());
}

bool CallsPage::headerWanted() { return val(settings_.readOr(section, "Header", "1")) == 1; }

void CallsPage::saveSettings() {
    auto path = txtCDRPath.text();
    std::error_code error;
    if (path.empty() || !std::filesystem::is_directory(path, error)) {
        platform_.dialogs().info("Path not found ,the path will changed to default value.", "path not found");
        path = session_.applicationFolder + "/data";
        txtCDRPath.setText(path);
    }
    if (!isNumeric(txtCDRDownLimit.text())) txtCDRDownLimit.setText("0");
    if (val(txtCDRRecordLimit.text()) <= 0) txtCDRRecordLimit.setText("1000");
    settings_.Write(section, "DownLimit", txtCDRDownLimit.text());
    settings_.Write(section, "Header", chkCDRIncludeHeader.checked() ? "1" : "0");
    settings_.Write(section, "Mode", "0");
    settings_.Write(section, "Max", txtCDRRecordLimit.text());
    settings_.Write(section, "Format", std::to_string(std::max(0, optCDRFormat.index())));
    settings_.Write(section, "Path", path);
    download_.rearm();
}

void CallsPage::open() {
    if (!session_.gESN.empty() && !gCDRListLoaded) BuildCDRList(wholeTable);
}

void CallsPage::gatewayKnown(bool pageShown) {
    gCDRListLoaded = false;
    if (listed_ != store_.gCDRFile()) {
        listed_ = store_.gCDRFile();
        cancel();
        lsvCallReport.clear();
        lblCDRTotal.setText("0");
    }
    // What can't be added now is added by the next download, which says what is wrong.
    quietly("recover", [&] { store_.recover(); });
    if (pageShown) BuildCDRList(wholeTable);
}

// A query that fails leaves the list as it is.
void CallsPage::BuildCDRList(const std::string& sql) {
    const bool opened = quietly("BuildCDRList", [&] {
        auto rows = store_.query(sql);
        cancel();
        lsvCallReport.clear();
        rows_ = std::move(rows);
        listed_ = store_.gCDRFile();
        gCDRListLoaded = true;
        loadSlice();
    });
    if (!opened) tell_("The call database can't be read; the list stays as it is.");
}

void CallsPage::BuildCDRListGroup(const std::string& caption, const std::string& value) {
    const auto* column = columnOf(caption);
    if (column) BuildCDRList(std::string(wholeTable) + " WHERE " + column->name + "='" + value + "'");
}

void CallsPage::GetCDRGROUP(const std::string& caption) {
    const auto* column = columnOf(caption);
    if (!column) return;
    std::vector<std::string> values{" "};
    quietly("GetCDRGROUP", [&] {
        const auto rows = store_.query("SELECT " + std::string(column->name) + " FROM CDR GROUP BY " + column->name);
        while (rows->next()) values.emplace_back(rows->text(0));
    });
    fillingValues_ = true;
    cmbCDRValue.setItems(std::move(values));
    cmbCDRValue.setIndex(0);
    fillingValues_ = false;
}

void CallsPage::loadSlice() {
    bool more = false;
    quietly("loadSlice", [&] { more = lsvCallReport.addFrom(*rows_, sliceRows); });
    lblCDRTotal.setText(std::to_string(lsvCallReport.held()));
    if (!more) {
        finishWork();
        return;
    }
    lblCDRWork.setText("Loading: " + std::to_string(lsvCallReport.held()) + " calls");
    cmdCDRCancel.setEnabled(true);
    work_->start(sliceMs);
}

void CallsPage::finishWork() {
    work_->stop();
    rows_.reset();
    export_.reset();
    lblCDRWork.setText("");
    cmdCDRCancel.setEnabled(false);
    countShown();
}

void CallsPage::cancel() {
    if (!busy()) return;
    const bool wasWriting = export_ != nullptr;
    finishWork();
    if (wasWriting) tell_("The writing was ended before it was complete; no file was made.");
}

void CallsPage::countShown() {
    totals = {};
    constexpr std::size_t duration = 10;
    for (std::size_t row = 0; row < lsvCallReport.size(); ++row) totals.add(lsvCallReport.text(row, duration));
    totalsChanged_.emit();
}

// The list's count is what is on show, whatever filter is on; it decides on the rollover.
void CallsPage::rowStored(const CallRecord& record) {
    const auto before = lsvCallReport.size();
    lsvCallReport.add(record);
    if (lsvCallReport.size() > before) totals.add(record.Duration);
    totalsChanged_.emit();
    const auto total = val(lblCDRTotal.text()) + 1;
    lblCDRTotal.setText(std::to_string(total));
    auto most = val(settings_.readOr(section, "Max", "1000"));
    if (most == 0) most = 1000;
    if (val(settings_.readOr(section, "Mode", "0")) == 0 && most <= total) SaveCDRFile();
}

void CallsPage::clearCalls() {
    const bool cleared = quietly("clearCalls", [&] {
        cancel();
        store_.clear();
        lsvCallReport.clear();
        lblCDRTotal.setText("0");
    });
    if (!cleared) tell_("The call database can't be deleted; the calls stay.");
}

void CallsPage::askAndClear() {
    if (platform_.dialogs().message({"this action will clear all the calls report !. \r\n"
                                     "are you sure that you want to continue?",
                                     "warning", ButtonSet::YesNo, BoxIcon::Warning, 2}) == Button::Yes)
        clearCalls();
}

std::filesystem::path CallsPage::rolloverPath(const std::string& folder, const char* extension) const {
    const auto now = platform_.clock().localTime();
    const auto midnight = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss time(now - midnight);
    const auto name = "CDR_" + fileNamePart(session_.gESN) + " (" + std::to_string(static_cast<unsigned>(date.day())) +
                      " - " + std::to_string(static_cast<unsigned>(date.month())) + "-" +
                      std::to_string(static_cast<int>(date.year())) + " " + std::to_string(time.hours().count()) + "," +
                      std::to_string(time.minutes().count()) + "," + std::to_string(time.seconds().count()) + ")" +
                      extension;
    return std::filesystem::path(folder) / name;
}

// The table is emptied behind it, so all of it is written, also what a filter keeps out of the list. The list holds
// rows of the table only: when it shows as many, it shows all.
bool CallsPage::writeRollover(const std::filesystem::path& file, std::int64_t format) {
    bool written = true;
    return quietly("SaveCDRFile", [&] {
        if (format != 1 && format != 2) {
            store_.copyTo(file);
        } else {
            CallList whole;
            const auto counted = store_.query("SELECT COUNT(*) FROM CDR");
            const bool listed = counted->next() && val(counted->text(0)) == static_cast<int>(lsvCallReport.size());
            if (!listed) {
                std::string columns;  // a null would end the reading
                for (const auto& column : callColumns)
                    columns += (columns.empty() ? "" : ", ") + ("ifnull(" + std::string(column.name)) + ", '')";
                const auto rows = store_.query("SELECT " + columns + " FROM CDR");
                while (whole.addFrom(*rows, sliceRows)) {
                }
            }
            const auto& list = listed ? lsvCallReport : whole;
            written = format == 1 ? CSVExport(file, list, headerWanted()) : XMLExport(list, file);
        }
        if (written) makeDurable(file);
    }) && written;
}

void CallsPage::SaveCDRFile() {
    auto folder = settings_.readOr(section, "Path", session_.applicationFolder + "/data");
    std::error_code error;
    if (std::filesystem::is_directory(folder, error) && std::filesystem::is_empty(folder, error)) {
        folder = session_.applicationFolder + "/data";
        txtCDRPath.setText(folder);
    }
    const auto format = val(settings_.readOr(section, "Format", "0"));
    const auto file = rolloverPath(folder, format == 1 ? ".csv" : format == 2 ? ".xml" : ".mdb");
    // Two of the same second have the same name: the later one waits for the next call instead of replacing the first.
    if (std::filesystem::exists(file, error)) return;
    download_.pause(true);
    if (writeRollover(file, format))
        clearCalls();
    else
        tell_("The call records can't be written to " + folder + "; they stay in the list.");
    download_.pause(false);
}

bool CallsPage::refuseBusy() {
    if (busy())
        tell_("The list is being " + std::string(rows_ ? "loaded" : "written") + ". Export it when that has ended.");
    return busy();
}

void CallsPage::exportTo(std::size_t index) {
    if (refuseBusy()) return;
    const std::filesystem::path path =
        platform_.dialogs().saveFile("Export", filters.at(index), "", Dialogs::AskReplace::Caller);
    if (path.empty()) return;
    std::error_code error;
    if (std::filesystem::equivalent(path, store_.gCDRFile(), error)) {
        tell_(path.string() + " is the call database itself; choose another name.");
        return;
    }
    if (std::filesystem::exists(path, error)) {
        const auto question = path.string() + "  already exists.\r\nDo you want to replace it?";
        if (platform_.dialogs().message({question, "Export", ButtonSet::YesNo, BoxIcon::Question, 2}) != Button::Yes)
            return;
        // The others are replaced when the new file is complete.
        if (index == 0) std::filesystem::remove(path, error);
    }
    if (index == 0 || refuseBusy()) return;
    if (index == 2) {
        if (!quietly("export", [&] { store_.copyTo(path); }))
            tell_("The database can't be written to " + path.string() + ".");
        return;
    }
    const bool begun = quietly("export", [&] {
        export_ = std::make_unique<CallExport>(lsvCallReport, path,
                                               index == 1 ? CallExport::Format::Csv : CallExport::Format::Xml, true);
    });
    if (!begun) {
        tell_("The calls can't be written to " + path.string() + ".");
        return;
    }
    cmdCDRCancel.setEnabled(true);
    work_->start(sliceMs);
}

void CallsPage::exportSlice() {
    if (!export_) return;
    bool more = false;
    const bool good = quietly("export", [&] { more = export_->write(sliceRows); });
    if (!good) tell_("The calls can't be written: the file is not complete and was removed.");
    if (more && good) {
        lblCDRWork.setText("Writing: " + std::to_string(export_->written()) + " of " +
                           std::to_string(lsvCallReport.size()) + " calls");
        return;
    }
    if (good) tell_(std::to_string(export_->written()) + " calls were written.");
    finishWork();
}

}  // namespace trunvex
