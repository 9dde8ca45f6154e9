#pragma once

#include <deque>
#include <map>

#include "config/group_write.h"
#include "config/page_tools.h"
#include "config/port_tree.h"
#include "config/write_word.h"

namespace trunvex {

// A page beside the port tree: it shows the record of the node that is selected, or those of a group together, and
// writes what the operator makes of it. A group write sends the fields that are marked for it, and nothing else.
class NodePage {
public:
    // What each of these pages has under names of its own.
    struct Frame {
        LabelField& caption;
        LabelField& hint;                 // a word on what is shown, or on why nothing is
        LabelField& remark;               // what of the edits a write would leave as it is
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

    // A field, and the include box it stands behind.
    using BoxedField = std::pair<InputField*, std::size_t>;
    static constexpr int refreshBudgetMs = 1000;

    // The last step of a page's constructor, when its fields are in the form.
    void begin(std::vector<BoxedField> fields);
    // True when the box would send an empty field, which has the gateway keep what it holds.
    virtual bool silent(std::size_t box) const = 0;
    // Reads at once, or behind the batch that runs; who passes by a node does not ask for it.
    void read(std::vector<QueueItem> batch, int budgetMs) const { tools_.read("node", std::move(batch), budgetMs); }
    std::string nodeText() const;
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
    void keepMarks();
    bool editedBehind(std::size_t box) const;
    bool emptiedBehind(std::size_t box) const;
    std::string captionsOf(bool (NodePage::*holds)(std::size_t box) const) const;
    bool isForgotten(std::size_t box) const;
    bool isKept(std::size_t box) const;
    void showRemark();
    void groupWritten(const std::string& group);
    RecordForm::Values groupValues() const;
    static std::string formKey(const std::string& key);
    void follow();
    bool mayRead();
    bool mayWrite() const;
    void write();
    bool startWrite(const std::string& line);

    GroupWrite& groupWrite_;
    bool writesHeld_ = false;
    std::vector<BoxedField> fields_;
    std::map<std::string, std::vector<bool>> marks_;  // of the groups that were left
    RecordForm::Values sent_;                         // by the last group write
    WriteWord word_;
    sigc::signal<void()> writeStarted_;
};

}  // namespace trunvex
