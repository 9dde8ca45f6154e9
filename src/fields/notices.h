#pragma once

#include "fields/fields.h"

namespace trunvex {

// One line for what needs no box; empty when there is nothing to say. What is said while the console is still being
// built is gathered, so that the first look at the window finds all of it.
class Notices {
public:
    Notices() {
        cmdDismissNotice.pressed().connect([this] {
            lblLink.setText("");
            lblNotice.setText("");
        });
    }

    void tell(const std::string& text) {
        const bool more = gathering_ && !lblNotice.text().empty();
        lblNotice.setText(more ? lblNotice.text() + " " + text : text);
    }
    // What is said there is over, if it is said still.
    void withdraw(const std::string& text) {
        if (lblNotice.text() == text) lblNotice.setText("");
    }
    void endGathering() { gathering_ = false; }

    LabelField lblLink{"lblLink"};  // the link that was lost, until there is one again; no other notice covers it
    LabelField lblNotice{"lblNotice"};
    ActionField cmdDismissNotice{"cmdDismissNotice", "Dismiss"};

private:
    bool gathering_ = true;
};

}  // namespace trunvex
