#pragma once

#include <deque>

#include "config/group_write.h"
#include "config/page_tools.h"
#include "config/port_tree.h"

namespace trunvex {

// A page beside the port tree: it shows the record of the node that is selected, or those of a group together, and
// writes what the operator makes of it. A group write sends the fields that are marked for it, and nothing else.
class NodePage {
public:
    // What each of these pages has under names of its own.
    struct Frame {
        LabelField& caption;
        LabelField& hint;                 // a word on what is shown, or on why nothing is
        std::deque<CheckField>& include;  // which fields a group write sends
        ActionField& undo;
        ActionField& read;
        ActionField& write;
    };

    // Fills the page for a node of the tree.
    void show(const std::string& key);
    // Shows again what the tables and the tree have; what the operator has changed stays.
    void refresh();
    // Nothing is known any more.
    void forget();
    const std::string& shownKey() const { return key_; }
    bool showsGroup() const;
    // The read button was pressed: asks first when edits would be lost.
    void readAgain();
    // The node was selected: reads what was never read.
    virtual void readMissing() = 0;

    // No write is begun for a moment after one: a second press is most often the same one.
    void holdWrites(bool held);
    sigc::signal<void()>& writeStarted() { return writeStarted_; }

    const Frame frame;
    RecordForm form;

protected:
    NodePage(const PageTools& tools, PortTree& tree, GroupWrite& groupWrite, const Frame& frame);
    ~NodePage() = default;

    // The last step of a page's constructor, when its fields are in the form.
    void begin();
    bool included(std::size_t field) const { return frame.include[field].checked(); }

    // A write sends the field, and it is the operator's: what the gateway holds, and what is greyed, is not checked.
    bool checked(std::size_t box, const InputField& field) const;

    // True while the single record that is selected is one that can be written.
    virtual bool writable() const = 0;
    virtual void fillRecord() = 0;
    virtual void fillGroup(const std::vector<std::string>& ports) = 0;
    // What one field leaves to be set in another.
    virtual void followRules() = 0;
    // Empty when there is nobody to ask.
    virtual std::vector<QueueItem> readBatch() const = 0;
    // The line for the record that is shown; for a group one that is only built to check the page.
    virtual BuiltLine buildShown() = 0;
    // The line for a member of the group; none leaves the member out.
    virtual BuiltLine buildMember(const std::string& key) = 0;
    // The form's values once the gateway has taken a line, as it will tell them.
    virtual RecordForm::Values valuesAfter(std::string_view line) const = 0;

    const PageTools& tools_;
    PortTree& tree_;
    std::string key_;

private:
    void showGroup();
    void follow();
    bool mayRead();
    bool mayWrite() const;
    void write();
    bool startWrite(const std::string& line);

    GroupWrite& groupWrite_;
    bool writesHeld_ = false;
    sigc::signal<void()> writeStarted_;
};

}  // namespace trunvex
