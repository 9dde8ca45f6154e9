#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "cdr/call_export.h"
#include "cdr/call_list.h"
#include "cdr/call_report.h"
#include "cdr/call_rotation.h"
#include "cdr/call_store.h"
#include "cdr/call_table.h"
#include "cdr/cdr_download.h"
#include "fields/fields.h"
#include "fields/sliced_work.h"
#include "pages/page.h"
#include "platform/platform.h"
#include "platform/settings.h"

namespace trunvex {

// The page "call": the list of calls, its filters, its files and the settings of the download.
class CallsPage final : public Page {
public:
    CallsPage(Session& session, CallStore& store, CdrDownload& download, std::function<ReportClock()> clock);

    // Shows what the settings file holds.
    void readSettings();
    // The list is loaded when a gateway is known and nothing was loaded yet.
    void opened() override;
    CdrDownload& download() { return download_; }
    // The session is with a gateway that has told who it is.
    bool gatewayIsKnown() const { return !state_.gESN.empty(); }
    void tell(const std::string& text) { session_.tell(text); }
    sigc::signal<void()>& phaseChanged() { return session_.events.phaseChanged; }
    void BuildCDRList();
    void BuildCDRListGroup(const std::string& caption, const std::string& value);
    // The filter by this column and value is set, and the list loaded by it.
    void showGroup(const std::string& caption, const std::string& value);
    void GetCDRGROUP(const std::string& caption);
    // False when the database can't be deleted, which the operator is told.
    bool clearCalls();
    // The rollover: the table goes into a file of its own and begins anew.
    void SaveCDRFile() { rotation_.begin(); }
    sigc::signal<void(const std::string&)>& rolledOver() { return rotation_.rolledOver; }
    // Calls are being loaded, searched, sorted or written.
    bool busy() const { return work_.running(); }

    CallList lsvCallReport;
    CallTable callTable{lsvCallReport};
    LabelField lblCDRTotal{"lblCDRTotal", "0"};
    LabelField lblCDRWork{"lblCDRWork"};  // what goes on with the list, how far; empty when nothing does
    ChoiceField cmbCDRColumn{"cmbCDRColumn"};
    ChoiceField cmbCDRValue{"cmbCDRValue"};
    TextField txtCDRSearch{"txtCDRSearch"};
    // By the numbers of the buttons, from 1: CSV, Access, XML, Refresh, Clear, Start, Stop, Save Setting.
    static constexpr std::size_t exportButtons = 9;
    std::array<ActionField, exportButtons> cmdCDRExport{ActionField("cmdCDRExport_0"),
                                                        ActionField("cmdCDRExport_1", "CSV"),
                                                        ActionField("cmdCDRExport_2", "Access"),
                                                        ActionField("cmdCDRExport_3", "XML"),
                                                        ActionField("cmdCDRExport_4", "Refresh"),
                                                        ActionField("cmdCDRExport_5", "Clear"),
                                                        ActionField("cmdCDRExport_6", "Start"),
                                                        ActionField("cmdCDRExport_7", "Stop"),
                                                        ActionField("cmdCDRExport_8", "Save Setting")};
    ActionField cmdCDRCancel{"cmdCDRCancel", "Cancel"};
    ActionField cmdPrint{"cmdPrint", "Print"};
    ChoiceField cmbCDRMeasure{"cmbCDRMeasure", {"Calls", "Talk time", "ASR", "ACD"}};  // what the charts show
    TextField txtCDRDownLimit{"txtCDRDownLimit"};                                      // minutes, 0 = off
    TextField txtCDRRecordLimit{"txtCDRRecordLimit"};                                  // records a file
    TextField txtCDRPath{"txtCDRPath"};
    ChoiceField optCDRFormat{"optCDRFormat", {"Access", "CSV", "XML"}};
    CheckField chkCDRIncludeHeader{"chkCDRIncludeHeader", "Header line in CSV"};

    bool gCDRListLoaded = false;
    // What the list shows, or what it comes to, has changed.
    sigc::signal<void()>& shownChanged() { return shownChanged_; }

private:
    void identified() override;
    void connectButtons();
    void rowStored(const CallRecord& record);
    void emptyList();
    void showTotal();
    void load(const std::function<std::unique_ptr<DatabaseRows>()>& query, bool marked);
    void workOnList();
    bool refuseBusy();
    Ticket forThisGateway();
    void showValues(std::vector<std::string> values);
    void exportTo(std::size_t index);
    void exportCopy(const std::filesystem::path& path);
    void exportList(const std::filesystem::path& path, CallExport::Format format);
    void tellOfExport(SlicedWork::End end, const std::string& done, const std::string& why);
    void print();
    void askAndClear();
    void saveSettings();
    std::string progress(const char* doing, std::size_t done) const;

    Platform& platform_;
    Settings& settings_;
    SessionState& state_;
    CallStore& store_;
    CdrDownload& download_;
    std::function<ReportClock()> clock_;
    std::function<void(const std::string&)> tell_;
    SlicedWork work_;
    CallRotation rotation_;
    bool fillingValues_ = false;
    std::filesystem::path listed_;  // the database whose calls the list holds
    sigc::signal<void()> shownChanged_;
};

}  // namespace trunvex
