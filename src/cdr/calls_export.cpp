// What the page of the calls writes to files and on paper.
#include <array>
#include <system_error>

#include "cdr/calls_page.h"
#include "platform/quietly.h"
#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t sliceRows = 4000;  // some ms of writing
constexpr std::array<const char*, 4> filters{"Excel file (*.xls)|*.xls", "Comma Separated Values file (*.csv)|*.csv",
                                             "Access file (*.mdb)|*.mdb", "XML file (*.xml)|*.xml"};

// The name of a live database, or of what stands beside one, whatever serial number it is of. Files of a rollover have
// blanks in their names, and may be replaced.
bool belongsToCalls(const std::filesystem::path& path, const std::filesystem::path& folder) {
    const auto name = path.filename().string();
    if (name.rfind("CDR", 0) != 0 || name != fileNamePart(name)) return false;
    if (path.extension() == ".csv" || path.extension() == ".xml") return false;
    const auto in = std::filesystem::absolute(path).parent_path();
    std::error_code error;
    return std::filesystem::equivalent(in, folder, error) || std::filesystem::equivalent(in, folder / "data", error);
}

std::string told(std::size_t calls, const char* what) {
    return countedCalls(calls) + (calls == 1 ? " was " : " were ") + what;
}

}  // namespace

void CallsPage::exportTo(std::size_t index) {
    if (refuseBusy()) return;
    const auto gateway = forThisGateway();
    const std::filesystem::path path =
        platform_.dialogs().saveFile("Export", filters.at(index), "", Dialogs::AskReplace::Caller, gateway);
    if (path.empty()) return;
    std::error_code error;
    if (belongsToCalls(path, state_.applicationFolder)) {
        tell_(path.string() + " belongs to the call databases; choose another name.");
        return;
    }
    if (std::filesystem::exists(path, error)) {
        const auto question = path.string() + "  already exists.\r\nDo you want to replace it?";
        if (!platform_.dialogs().agreed(Button::Yes, {question, "Export", ButtonSet::YesNo, BoxIcon::Question, 2},
                                        gateway))
            return;
        // The others are replaced when the new file is complete.
        if (index == 0) std::filesystem::remove(path, error);
    }
    if (index == 0 || refuseBusy()) return;
    if (index == 2)
        exportCopy(path);
    else
        exportList(path, index == 1 ? CallExport::Format::Csv : CallExport::Format::Xml);
}

void CallsPage::exportCopy(const std::filesystem::path& path) {
    auto copying = std::make_shared<std::unique_ptr<CallCopy>>();
    work_.run(
        {"export",
         [this, copying, path] {
             if (!*copying) *copying = store_.copyTo(path);
             return (*copying)->write();
         },
         [copying] { return "Writing: " + std::to_string((*copying)->percent()) + " %"; },
         [this](SlicedWork::End end, const std::string& why) { tellOfExport(end, "The database was written.", why); }});
}

void CallsPage::exportList(const std::filesystem::path& path, CallExport::Format format) {
    auto writing = std::make_shared<std::unique_ptr<CallExport>>();
    work_.run({"export",
               [this, writing, path, format] {
                   if (!*writing)
                       *writing = format == CallExport::Format::Csv ? CSVExport(path, lsvCallReport, true)
                                                                    : XMLExport(lsvCallReport, path);
                   return (*writing)->write(sliceRows);
               },
               [this, writing] { return progress("Writing: ", (*writing)->written()); },
               [this, writing](SlicedWork::End end, const std::string& why) {
                   const auto written = *writing ? (*writing)->written() : 0;
                   tellOfExport(end, told(written, "written."), why);
               }});
}

void CallsPage::tellOfExport(SlicedWork::End end, const std::string& done, const std::string& why) {
    if (end == SlicedWork::End::Done)
        tell_(done);
    else if (end == SlicedWork::End::Failed)
        tell_("The calls can't be written; no file was made: " + why);
    else
        tell_("The writing was ended before it was complete; no file was made.");
}

void CallsPage::print() {
    if (refuseBusy()) return;
    std::shared_ptr<CallReport> report;
    std::string reason;
    const bool begun = quietly(
        "print",
        [&] {
            auto document = platform_.printer().begin("Call records");
            if (!document || refuseBusy()) return;
            report = std::make_shared<CallReport>(lsvCallReport, std::move(document), clock_());
        },
        &reason);
    if (!begun) tell_("The calls can't be printed: " + reason);
    if (!report) return;
    work_.run({"print", [report] { return report->write(sliceRows); },
               [this, report] { return progress("Printing: ", report->written()); },
               [this, report](SlicedWork::End end, const std::string& why) {
                   if (end == SlicedWork::End::Done)
                       tell_(told(report->written(), "printed."));
                   else if (end == SlicedWork::End::Failed)
                       tell_("The calls can't be printed; nothing was: " + why);
                   else
                       tell_("The printing was ended; nothing was printed.");
               }});
}

std::string CallsPage::progress(const char* doing, std::size_t done) const {
    return doing + std::to_string(done) + " of " + countedCalls(lsvCallReport.size());
}

}  // namespace trunvex
