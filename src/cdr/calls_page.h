#pragma once

#include <array>
#include <memory>
#include <string>

#include "cdr/call_export.h"
#include "cdr/call_list.h"
#include "cdr/call_store.h"
#include "cdr/cdr_download.h"
#include "platform/platform.h"
#include "platform/settings.h"
#include "widgets/fields.h"

namespace trunvex {

// What the shown calls come to.
struct CallTotals {
    std::size_t calls = 0;
    std::size_t answered = 0;
    std::int64_t talkSeconds = 0;

    void add(std::string_view duration);
    // Answer-seizure ratio in percent, and average call duration in seconds; 0 where there is nothing to divide by.
    int asr() const;
    int acd() const;
};

// The page "call": the list of calls, its filters, its files and the settings of the download.
class CallsPage {
public:
    CallsPage(Platform& platform, Settings& settings, SessionState& session, CallStore& store, CdrDownload& download,
              std::function<void(const std::string&)> tell);

    // Shows what the settings file holds.
    void readSettings();
    // The page is opened: the list is loaded when a gateway is known and nothing was loaded yet.
    void open();
    // The gateway has told who it is. The calls of another one leave the list.
    void gatewayKnown(bool pageShown);

    void BuildCDRList(const std::string& sql);
    void BuildCDRListGroup(const std::string& caption, const std::string& value);
    void GetCDRGROUP(const std::string& caption);
    void clearCalls();
    // The rollover: the table goes into a file of its own and begins anew.
    void SaveCDRFile();
    // Rows are being loaded or written.
    bool busy() const { return rows_ || export_; }
    void cancel();

    CallList lsvCallReport;
    LabelField lblCDRTotal{"lblCDRTotal", "0"};
    LabelField lblCDRWork{"lblCDRWork"};  // what goes on with the list, how far; empty when nothing does
    ChoiceField cmbCDRColumn{"cmbCDRColumn"};
    ChoiceField cmbCDRValue{"cmbCDRValue"};
    TextField txtCDRSearch{"txtCDRSearch"};
    // By the numbers of the buttons, from 1: CSV, Access, XML, Refresh, Clear, Start, Stop, Save Setting.
    static constexpr std::size_t exportButtons = 9;
    std::array<ActionField, exportButtons> cmdCDRExport{
        ActionField("cmdCDRExport_0"),          ActionField("cmdCDRExport_1", "CSV"),
        ActionField("cmdCDRExport_2", "Access"), ActionField("cmdCDRExport_3", "XML"),
        ActionField("cmdCDRExport_4", "Refresh"), ActionField("cmdCDRExport_5", "Clear"),
        ActionField("cmdCDRExport_6", "Start"),  ActionField("cmdCDRExport_7", "Stop"),
        ActionField("cmdCDRExport_8", "Save Setting")};
    ActionField cmdCDRCancel{"cmdCDRCancel", "Cancel"};
    TextField txtCDRDownLimit{"txtCDRDownLimit"};      // minutes, 0 = off
    TextField txtCDRRecordLimit{"txtCDRRecordLimit"};  // records a file
    TextField txtCDRPath{"txtCDRPath"};
    ChoiceField optCDRFormat{"optCDRFormat", {"Access", "CSV", "XML"}};
    CheckField chkCDRIncludeHeader{"chkCDRIncludeHeader", "Header line in CSV"};

    bool gCDRListLoaded = false;
    CallTotals totals;
    sigc::signal<void()>& totalsChanged() { return totalsChanged_; }

private:
    void rowStored(const CallRecord& record);
    void loadSlice();
    void exportSlice();
    void finishWork();
    bool refuseBusy();
    void exportTo(std::size_t index);
    void askAndClear();
    void saveSettings();
    void countShown();
    bool headerWanted();
    bool writeRollover(const std::filesystem::path& file, std::int64_t format);
    std::filesystem::path rolloverPath(const std::string& folder, const char* extension) const;

    Platform& platform_;
    Settings& settings_;
    SessionState& session_;
    CallStore& store_;
    CdrDownload& download_;
    std::function<void(const std::string&)> tell_;
    std::unique_ptr<Timer> work_;
    std::unique_ptr<DatabaseRows> rows_;
    std::unique_ptr<CallExport> export_;
    bool fillingValues_ = false;
    std::filesystem::path listed_;  // the database whose calls the list holds
    sigc::signal<void()> totalsChanged_;
};

}  // namespace trunvex
