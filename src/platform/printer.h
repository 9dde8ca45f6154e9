#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace trunvex {

// A text on its way to paper, line after line; a page that is full is followed by the next. A line that is wider than
// the page goes on in the next line. A text is UTF-8; one that is not, or that holds what can't be printed, appears
// as escaped() has it. Nothing is printed before finish(): a document that ends unfinished leaves nothing behind.
// What fails throws std::runtime_error with a word for the operator, and the document can't be finished any more.
class PrintDocument {
public:
    virtual ~PrintDocument() = default;
    // For the lines that follow. A family that the machine does not have is printed in one that is like it.
    virtual void setFont(const std::string& family, int points) = 0;
    virtual void line(std::string_view text) = 0;
    virtual void finish() = 0;
};

class Printer {
public:
    virtual ~Printer() = default;
    // Null when the operator was asked where to and cancelled. Throws as the document does.
    virtual std::unique_ptr<PrintDocument> begin(const std::string& title) = 0;
};

}  // namespace trunvex
