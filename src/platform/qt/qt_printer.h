#pragma once

#include <filesystem>

#include "platform/printer.h"

class QPageLayout;
class QString;

namespace trunvex {

class Dialogs;

// Prints on the machine's default printer, or on its only one. Where there is none the operator is asked for a PDF
// file.
class QtPrinter : public Printer {
public:
    explicit QtPrinter(Dialogs& dialogs) : dialogs_(&dialogs) {}
    // Prints into this PDF file and asks nobody.
    explicit QtPrinter(std::filesystem::path file) : file_(std::move(file)) {}

    std::unique_ptr<PrintDocument> begin(const std::string& title) override;

private:
    Dialogs* dialogs_ = nullptr;
    std::filesystem::path file_;
};

// The document is made in the temporary folder and handed to the queue of a printer when it is finished.
std::unique_ptr<PrintDocument> printOnQueue(const QString& queue, const QPageLayout& paper, const std::string& title);

}  // namespace trunvex
