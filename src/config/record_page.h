#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "config/page_tools.h"
#include "config/write_word.h"
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

    // A write of this line has begun.
    virtual void writing(const std::string&) {}
    // `name` is the record's for people. `batch` is what Read asks the gateway; `build` makes the line to be written,
    // or an empty one after it has told why not.
    void addForm(RecordForm& form, const char* name, const Buttons& buttons, std::vector<QueueItem> batch,
                 std::function<std::string()> build);
    void identified() override;

    const PageTools& tools_;

private:
    struct Sheet {
        RecordForm& form;
        Buttons buttons;
        std::vector<QueueItem> batch;
        std::function<std::string()> build;
        const char* name;
        std::unique_ptr<WriteWord> word;
    };

    bool mayWrite(const RecordForm& form) const;
    void write(Sheet& sheet);

    std::deque<Sheet> sheets_;
};

}  // namespace trunvex
