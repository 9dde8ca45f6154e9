#pragma once

#include <optional>
#include <string>

#include "platform/ticket.h"

namespace trunvex {

enum class Button { Ok, Cancel, Yes, No, Abort, Retry, Ignore };
enum class ButtonSet { Ok, OkCancel, YesNo, RetryCancel, AbortRetryIgnore };
enum class BoxIcon { None, Information, Question, Warning, Critical };

struct MessageBox {
    std::string text;
    std::string title;
    ButtonSet buttons = ButtonSet::Ok;
    BoxIcon icon = BoxIcon::Information;
    int defaultButton = 1;  // counted from 1 in the order of the button set's name
};

// Asks the operator. A box runs a nested loop: timers and lines go on behind it, so each question comes with a ticket
// that says what its answer is for, and gives nothing when that has gone stale. Closing a box without choosing answers
// as its last button of refusal: Cancel, No, Abort, or Ok where there is no other.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    std::optional<Button> ask(const MessageBox& box, const Ticket& ticket) {
        const auto answer = message(box);
        return ticket.good() ? std::optional(answer) : std::nullopt;
    }
    // True for that button, and only while the ticket is good.
    bool agreed(Button wanted, const MessageBox& box, const Ticket& ticket) { return ask(box, ticket) == wanted; }

    enum class AskReplace { Dialog, Caller };
    // A path, or empty when the operator cancels or the ticket has gone stale. The filter's form is "Groups Data
    // (*.grp)|*.grp". A name without an extension gets the filter's. Whether a file that exists is to be replaced is
    // asked by the dialog, or by the caller in words of its own.
    std::string openFile(const std::string& title, const std::string& filter, const Ticket& ticket) {
        auto path = openFilePath(title, filter);
        return ticket.good() ? path : std::string();
    }
    std::string saveFile(const std::string& title, const std::string& filter, const std::string& name, AskReplace ask,
                         const Ticket& ticket) {
        auto path = saveFilePath(title, filter, name, ask);
        return ticket.good() ? path : std::string();
    }

    // Tells, and waits until it was read. Nothing may follow that depends on what was so before: ask, with a ticket.
    void tell(const MessageBox& box) { message(box); }
    void info(const std::string& text, const std::string& title = "info") { message({text, title}); }

protected:
    virtual Button message(const MessageBox& box) = 0;
    virtual std::string openFilePath(const std::string& title, const std::string& filter) = 0;
    virtual std::string saveFilePath(const std::string& title, const std::string& filter, const std::string& name,
                                     AskReplace ask) = 0;
};

inline constexpr const char* notConnectedText = "the gateway not connected, you must to connect first.";

}  // namespace trunvex
