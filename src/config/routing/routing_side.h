#pragma once

#include <functional>
#include <memory>

#include "config/batch_word.h"
#include "config/page_tools.h"
#include "fields/form_group.h"

namespace trunvex {

// Commands that one button of the routing page sends, or the word on what is wrong.
struct RoutingBatch {
    std::vector<QueueItem> items;
    std::vector<std::string> names;  // of the items, for people
    BuiltLine fault;                 // its word is empty when nothing is
    std::function<void()> whole;     // called when the gateway has accepted all of it

    void add(std::string line, std::string caption) {
        names.push_back(caption);
        items.push_back(command(std::move(line), std::move(caption)));
    }
    static RoutingBatch wrong(BuiltLine fault) { return {{}, {}, std::move(fault), {}}; }
};

// A part of the routing page that is written as a whole: its records, its buttons, and what became of its last write.
class RoutingSide {
public:
    RoutingSide(const RoutingSide&) = delete;
    RoutingSide& operator=(const RoutingSide&) = delete;

    FormGroup records;
    ActionField undo;
    ActionField write;
    sigc::signal<void()> writeStarted;

protected:
    // `name` is that of the part for people; the buttons are named as the operator's manual has them.
    RoutingSide(const PageTools& tools, const char* name, const char* undoName, const char* writeName);
    ~RoutingSide() = default;

    // The batch as the page stands, by the button's press.
    virtual RoutingBatch build() = 0;

    void tell(const std::string& word) { records.setWord(word); }
    void send();
    // Sends what was built, and tells in the end what became of it under this name.
    void start(RoutingBatch built, const std::string& name);

    const PageTools& tools_;
    const char* firstText_ = "send data : ";

private:
    const char* name_;
    BatchWord word_;
    std::function<void()> whole_;  // of the batch under way
};

}  // namespace trunvex
