#pragma once

#include <deque>
#include <functional>

#include "config/page_tools.h"
#include "pages/page.h"

namespace trunvex {

// A page of records that belong to the gateway as a whole and to no node of the tree. Each form of the page has its
// buttons: Undo, Read, which asks before edits are lost, and Write, which sends nothing of a form that was never read.
class RecordPage : public Page {
public:
    void holdWrites(bool held) override;
    std::vector<std::string> unwritten(Edits which) const override;
    void discard() override;

protected:
    struct Buttons {
        ActionField& undo;
        ActionField& read;
        ActionField& write;
    };

    RecordPage(Session& session, Traits pageTraits, const PageTools& tools)
        : Page(session, std::move(pageTraits)), tools_(tools) {}

    // `caption` names the record; `batch` is what Read asks the gateway; `write` builds and begins the write, and tells
    // whether it has begun.
    void addForm(const std::string& caption, RecordForm& form, const Buttons& buttons, std::vector<QueueItem> batch,
                 std::function<bool()> write);
    void identified() override;

    const PageTools& tools_;

private:
    struct Sheet {
        RecordForm& form;
        Buttons buttons;
        std::vector<QueueItem> batch;
        std::function<bool()> write;
    };

    bool mayWrite(const RecordForm& form) const;

    std::deque<Sheet> sheets_;
};

}  // namespace trunvex
