#pragma once

#include <memory>
#include <string>

#include "cdr/call_list.h"
#include "platform/printer.h"

namespace trunvex {

// The gateway's clock as the page "System" shows it.
struct ReportClock {
    std::string hour;
    std::string minute;
    std::string second;
    std::string date;
};

// What the call list shows, in its order, on paper; row by row, so that a long list can be printed in slices. The
// heading is a line of blanks and names of its own, under which the values do not line up. What fails throws
// std::runtime_error; a report that is not complete is not printed.
class CallReport {
public:
    CallReport(const CallList& list, std::unique_ptr<PrintDocument> document, const ReportClock& clock);

    // Prints at most so many rows; false when the document is finished.
    bool write(std::size_t most);
    std::size_t written() const { return row_; }

private:
    void writeRow();

    const CallList& list_;
    std::unique_ptr<PrintDocument> document_;
    std::string line_;
    std::size_t row_ = 0;
};

}  // namespace trunvex
