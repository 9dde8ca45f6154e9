#include "cdr/calls_page.h"

#include <algorithm>
#include <set>
#include <system_error>

#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* section = "CDRConfig";
constexpr const char* allColumns = "ALL";
constexpr std::size_t sliceRows = 4000;       // some ms of reading or writing
constexpr std::size_t listSliceRows = 16000;  // the same of searching and sorting in memory

// The column behind a caption of the filter; null for a caption that is none.
const CallColumn* columnOf(const std::string& caption) {
    for (const auto& column : callColumns)
        if ((column.caption && column.caption == caption) || (!column.caption && column.name == caption))
            return &column;
    return nullptr;
}

}  // namespace

CallsPage::CallsPage(Session& session, CallStore& store, CdrDownload& download, std::function<ReportClock()> clock)
    : Page(session, {"call", "Calls", "Call records", Cdr}), platform_(session.platform), settings_(session.setting),
      state_(session.state), store_(store), download_(download), clock_(std::move(clock)),
      tell_([&session](const std::string& text) { session.tell(text); }),
      work_(session.platform, lblCDRWork, cmdCDRCancel),
      rotation_(session, store, download, work_, txtCDRPath, [this] { return clearCalls(); }) {
    std::vector<std::string> captions{allColumns};
    for (const auto& column : callColumns)
        if (column.caption) captions.emplace_back(column.caption);
    cmbCDRColumn.setItems(std::move(captions));
    cmbCDRColumn.setIndex(0);
    cmbCDRMeasure.setIndex(0);
    store_.added().connect([this](const CallRecord& record) { rowStored(record); });
    store_.gatewayLeft().connect([this] {
        if (rotation_.running()) work_.drop();
    });
    lsvCallReport.added().connect([this](std::size_t) { shownChanged_.emit(); });
    lsvCallReport.changed().connect([this] { shownChanged_.emit(); });
    lsvCallReport.workChanged().connect([this] {
        if (lsvCallReport.working() && !work_.running()) workOnList();
    });
    // What was asked of the list while something else went on.
    work_.idle().connect([this] {
        if (lsvCallReport.working()) workOnList();
    });
    cmbCDRColumn.valueChanged().connect([this] {
        if (fillingValues_) return;
        if (cmbCDRColumn.text() == allColumns)
            BuildCDRList();
        else
            GetCDRGROUP(cmbCDRColumn.text());
    });
    cmbCDRValue.valueChanged().connect([this] {
        if (!fillingValues_ && cmbCDRValue.index() != ChoiceField::none && !state_.gESN.empty())
            BuildCDRListGroup(cmbCDRColumn.text(), cmbCDRValue.text());
    });
    txtCDRSearch.valueChanged().connect([this] { lsvCallReport.search(txtCDRSearch.text()); });
    connectButtons();
    readSettings();
}

void CallsPage::connectButtons() {
    for (std::size_t index = 0; index <= 3; ++index)
        cmdCDRExport[index].pressed().connect([this, index] { exportTo(index); });
    cmdCDRExport[4].pressed().connect([this] {
        if (!state_.gESN.empty()) BuildCDRList();
    });
    cmdCDRExport[5].pressed().connect([this] { askAndClear(); });
    cmdCDRExport[6].pressed().connect([this] {
        if (download_.isConnected())
            download_.start();
        else
            platform_.dialogs().info(notConnectedText);
    });
    cmdCDRExport[7].pressed().connect([this] { download_.stop(); });
    cmdCDRExport[8].pressed().connect([this] { saveSettings(); });
    cmdPrint.pressed().connect([this] { print(); });
}

void CallsPage::readSettings() {
    txtCDRDownLimit.setText(settings_.readOr(section, "DownLimit", "0"));
    txtCDRRecordLimit.setText(settings_.readOr(section, "Max", "1000"));
    txtCDRPath.setText(settings_.readOr(section, "Path", state_.applicationFolder + "/data"));
    optCDRFormat.setIndex(static_cast<int>(val(settings_.readOr(section, "Format", "0"))));
    chkCDRIncludeHeader.setChecked(headerWanted(settings_));
    rotation_.readSettings();
}

void CallsPage::saveSettings() {
    auto path = txtCDRPath.text();
    std::error_code error;
    if (path.empty() || !std::filesystem::is_directory(path, error)) {
        platform_.dialogs().info("Path not found ,the path will changed to default value.", "path not found");
        path = state_.applicationFolder + "/data";
        txtCDRPath.setText(path);
    }
    if (!isNumeric(txtCDRDownLimit.text()) || val(txtCDRDownLimit.text()) < 0) txtCDRDownLimit.setText("0");
    if (val(txtCDRRecordLimit.text()) <= 0) txtCDRRecordLimit.setText("1000");
    settings_.WriteAll({{section, "DownLimit", txtCDRDownLimit.text()},
                        {section, "Header", chkCDRIncludeHeader.checked() ? "1" : "0"},
                        {section, "Mode", "0"},
                        {section, "Max", txtCDRRecordLimit.text()},
                        {section, "Format", std::to_string(std::max(0, optCDRFormat.index()))},
                        {section, "Path", path}});
    rotation_.readSettings();
    download_.rearm();
}

void CallsPage::opened() {
    if (!state_.gESN.empty() && !gCDRListLoaded) BuildCDRList();
}

// The calls of another gateway leave the list.
void CallsPage::identified() {
    gCDRListLoaded = false;
    if (listed_ != store_.gCDRFile()) emptyList();
    std::string reason;
    if (!quietly(
            "recover", [&] { store_.recover(); }, &reason))
        tell_("The calls can be looked at, but none can be added or cleared: " + reason);
    if (shown() && !rotation_.running()) BuildCDRList();
}

// The calls of another table leave the list, and with them the values of its filter.
void CallsPage::emptyList() {
    listed_ = store_.gCDRFile();
    work_.drop();
    lsvCallReport.clear();
    showTotal();
    fillingValues_ = true;
    cmbCDRColumn.setIndex(0);
    fillingValues_ = false;
    showValues({});
}

void CallsPage::BuildCDRList() {
    load([this] { return store_.calls(); }, false);
}

// Each row tells whether it is one of the group: a query for the group alone would look through the whole table before
// it gave the first row back, and the window would stand still.
void CallsPage::BuildCDRListGroup(const std::string& caption, const std::string& value) {
    const auto* column = columnOf(caption);
    if (column) load([this, column, &value] { return store_.callsMarked(column->name, value); }, true);
}

void CallsPage::showGroup(const std::string& caption, const std::string& value) {
    fillingValues_ = true;
    cmbCDRColumn.setText(caption);
    fillingValues_ = false;
    showValues({value});
    fillingValues_ = true;
    cmbCDRValue.setIndex(1);  // behind the blank one
    fillingValues_ = false;
    BuildCDRListGroup(caption, value);
}

// A query that fails leaves the list as it is.
void CallsPage::load(const std::function<std::unique_ptr<DatabaseRows>()>& query, bool marked) {
    if (rotation_.running() && refuseBusy()) return;
    std::shared_ptr<DatabaseRows> rows;
    if (!quietly("BuildCDRList", [&] { rows = query(); })) {
        tell_("The call database can't be read; the list stays as it is.");
        return;
    }
    work_.drop();
    lsvCallReport.clear();
    listed_ = store_.gCDRFile();
    gCDRListLoaded = true;
    work_.run({"BuildCDRList",
               [this, rows, marked] {
                   const bool more = lsvCallReport.addFrom(*rows, sliceRows, marked);
                   showTotal();
                   return more;
               },
               [this] { return "Loading: " + countedCalls(lsvCallReport.held()); },
               [this](SlicedWork::End end, const std::string& reason) {
                   gCDRListLoaded = end == SlicedWork::End::Done;
                   if (end == SlicedWork::End::Failed)
                       tell_("The call database can't be read to its end, the list is not complete: " + reason);
                   if (end == SlicedWork::End::Cancelled)
                       tell_("The loading was ended: the list is not complete. Refresh loads all calls.");
                   if (end != SlicedWork::End::Replaced) lsvCallReport.sortAgain();
               }});
}

// The values of the whole table, in their order and each once. They are gathered row by row, for the same reason.
void CallsPage::GetCDRGROUP(const std::string& caption) {
    const auto* column = columnOf(caption);
    showValues({});
    if (!column || (rotation_.running() && refuseBusy())) return;
    std::shared_ptr<DatabaseRows> rows;
    if (!quietly("GetCDRGROUP", [&] { rows = store_.values(column->name); })) return;
    struct Values {
        bool reading = true;
        std::set<std::string> found;
        std::vector<std::string> items;
    };
    auto values = std::make_shared<Values>();
    work_.run(
        {"GetCDRGROUP",
         [rows, values] {
             for (std::size_t row = 0; row < sliceRows; ++row) {
                 if (values->reading) {
                     values->reading = rows->next();
                     if (values->reading) values->found.emplace(rows->text(0));
                 } else if (!values->found.empty()) {
                     values->items.push_back(std::move(values->found.extract(values->found.begin()).value()));
                 }
             }
             return values->reading || !values->found.empty();
         },
         [values] { return "Reading: " + std::to_string(values->found.size() + values->items.size()) + " values"; },
         [this, values](SlicedWork::End end, const std::string&) {
             if (end == SlicedWork::End::Done) showValues(std::move(values->items));
         }});
}

// Behind a blank one, which is no choice yet.
void CallsPage::showValues(std::vector<std::string> values) {
    values.insert(values.begin(), " ");
    fillingValues_ = true;
    cmbCDRValue.setItems(std::move(values));
    cmbCDRValue.setIndex(0);
    fillingValues_ = false;
}

void CallsPage::workOnList() {
    work_.run({"workOnList", [this] { return lsvCallReport.work(listSliceRows); },
               [this] {
                   return (lsvCallReport.sorting() ? "Sorting: " : "Searching: ") +
                          std::to_string(lsvCallReport.percent()) + " %";
               },
               [this](SlicedWork::End end, const std::string&) {
                   // What was only put aside goes on when there is nothing else to do.
                   if (end == SlicedWork::End::Done || end == SlicedWork::End::Replaced) return;
                   lsvCallReport.giveUp();
                   txtCDRSearch.setText(lsvCallReport.searched());
               }});
}

// The list's count is what is on show, whatever filter is on; it decides on the rollover, which waits until the list is
// not loaded or written any more.
void CallsPage::rowStored(const CallRecord& record) {
    if (listed_ != store_.gCDRFile()) emptyList();
    lsvCallReport.add(record);
    showTotal();
    if (!work_.running() && rotation_.isDue(static_cast<std::int64_t>(lsvCallReport.held()))) SaveCDRFile();
}

void CallsPage::showTotal() { lblCDRTotal.setText(std::to_string(lsvCallReport.held())); }

bool CallsPage::clearCalls() {
    std::string reason;
    const bool cleared = quietly(
        "clearCalls", [&] { store_.clear(); }, &reason);
    if (!cleared) {
        tell_("The call database can't be deleted, the calls stay: " + reason);
        return false;
    }
    work_.drop();
    lsvCallReport.clear();
    showTotal();
    return true;
}

// A dialog's answer is for the gateway for which it was opened.
Ticket CallsPage::forThisGateway() {
    return Ticket([this, database = store_.gCDRFile()] {
        if (store_.gCDRFile() == database) return true;
        tell_("Another gateway has been connected meanwhile; nothing was done.");
        return false;
    });
}

void CallsPage::askAndClear() {
    if (rotation_.running() && refuseBusy()) return;
    if (platform_.dialogs().agreed(Button::Yes,
                                   {"this action will clear all the calls report !. \r\n"
                                    "are you sure that you want to continue?",
                                    "warning", ButtonSet::YesNo, BoxIcon::Warning, 2},
                                   forThisGateway()))
        clearCalls();
}

// Looked at before and after a dialog: lines go on behind it.
bool CallsPage::refuseBusy() {
    if (busy()) tell_("The list is busy (" + lblCDRWork.text() + "). Try again when that has ended.");
    return busy();
}

}  // namespace trunvex
