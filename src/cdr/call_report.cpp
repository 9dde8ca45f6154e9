#include "cdr/call_report.h"

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr const char* family = "arial";
constexpr int titlePoints = 19;
constexpr int linePoints = 10;
constexpr std::size_t ruleLength = 95;
constexpr const char* heading =
    "[port #]   [Sim #]   [Phone #]      [Connect Time]   [Desconnect Time]   [Date]    [Total Time]";
constexpr const char* firstGap = "    ";
constexpr const char* gap = "      ";
constexpr std::size_t lastColumn = 6;

}  // namespace

CallReport::CallReport(const CallList& list, std::unique_ptr<PrintDocument> document, const ReportClock& clock)
    : list_(list), document_(std::move(document)) {
    const std::string rule(ruleLength, '-');
    document_->setFont(family, titlePoints);
    document_->line("Velmora Communication -PRI System ");
    document_->setFont(family, linePoints);
    document_->line("-PRI System Time: " + clock.hour + ":" + clock.minute + ":" + clock.second + " - " + clock.date);
    document_->line(rule);
    document_->line(heading);
    document_->line(rule);
}

void CallReport::writeRow() {
    line_ = escaped(list_.text(row_, 0));
    line_ += firstGap;
    for (std::size_t column = 1; column <= lastColumn; ++column) {
        line_ += escaped(list_.text(row_, column));
        line_ += gap;
    }
    document_->line(line_);
    ++row_;
}

bool CallReport::write(std::size_t most) {
    for (std::size_t count = 0; count < most && row_ < list_.size(); ++count) writeRow();
    if (row_ < list_.size()) return true;
    document_->finish();
    return false;
}

}  // namespace trunvex
