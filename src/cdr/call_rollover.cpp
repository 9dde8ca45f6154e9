#include "cdr/call_rollover.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t sliceRows = 4000;

}  // namespace

CallRollover::Format CallRollover::formatOf(std::int64_t setting) {
    return setting == 1 ? Format::Csv : setting == 2 ? Format::Xml : Format::Access;
}

std::string CallRollover::fileName(const std::string& esn, std::chrono::local_seconds now, Format format) {
    const auto midnight = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss time(now - midnight);
    return "CDR_" + fileNamePart(esn) + " (" + std::to_string(static_cast<unsigned>(date.day())) + " - " +
           std::to_string(static_cast<unsigned>(date.month())) + "-" + std::to_string(static_cast<int>(date.year())) +
           " " + std::to_string(time.hours().count()) + "," + std::to_string(time.minutes().count()) + "," +
           std::to_string(time.seconds().count()) + ")" +
           (format == Format::Csv   ? ".csv"
            : format == Format::Xml ? ".xml"
                                    : ".mdb");
}

CallRollover::CallRollover(CallStore& store, std::filesystem::path file, Format format, bool header)
    : store_(store), file_(std::move(file)), format_(format), header_(header) {}

void CallRollover::begin() {
    if (format_ == Format::Access) {
        copying_ = store_.copyTo(file_);
        return;
    }
    rows_ = store_.callsWithoutNulls();  // a null would end the reading
}

bool CallRollover::write() {
    if (!copying_ && !rows_ && !writing_) begin();
    if (copying_) return copying_->write();
    if (rows_) {
        if (table_.addFrom(*rows_, sliceRows)) return true;
        rows_.reset();
        writing_ = format_ == Format::Csv ? CSVExport(file_, table_, header_) : XMLExport(table_, file_);
    }
    return writing_->write(sliceRows);
}

std::string CallRollover::progress() const {
    if (copying_) return "New file: " + std::to_string(copying_->percent()) + " %";
    const auto handled = table_.held() + (writing_ ? writing_->written() : 0);
    return "New file: " + countedCalls(handled) + " read and written";
}

}  // namespace trunvex
