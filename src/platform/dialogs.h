#pragma once

#include <string>

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

// Asks the operator. A box runs a nested loop: timers and lines go on behind it, so the caller looks again at whatever
// may have changed before it acts on the answer. Closing a box without choosing answers as its last button of
// refusal: Cancel, No, Abort, or Ok where there is no other.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual Button message(const MessageBox& box) = 0;
    enum class AskReplace { Dialog, Caller };
    // A path, or empty when the operator cancels. The filter's form is "Groups Data (*.grp)|*.grp". A name without an
    // extension gets the filter's. Whether a file that exists is to be replaced is asked by the dialog, or by the
    // caller in words of its own.
    virtual std::string openFile(const std::string& title, const std::string& filter) = 0;
    virtual std::string saveFile(const std::string& title, const std::string& filter, const std::string& name,
                                 AskReplace ask) = 0;

    void info(const std::string& text, const std::string& title = "info") { message({text, title}); }
};

inline constexpr const char* notConnectedText = "the gateway not connected, you must to connect first.";

}  // namespace trunvex
