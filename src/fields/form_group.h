#pragma once

#include <deque>
#include <string>
#include <vector>

#include "fields/record_form.h"

namespace trunvex {

// Records that are edited and written in one place, such as all ports of a page. Each is a form of its own, so that it
// is known of each whether it was read.
class FormGroup {
public:
    FormGroup() = default;
    FormGroup(const FormGroup&) = delete;
    FormGroup& operator=(const FormGroup&) = delete;

    // `name` is the record's for people, and its key. The form outlives the group.
    void add(RecordForm& form, const std::string& name);

    bool edited() const;
    // The records that hold edits, by name; all when any is edited that waits for a gateway which is away.
    std::vector<std::string> unwritten(bool parkedToo) const;
    void undo();
    void clearProblems();
    void park(const std::string& gateway);
    void resume(const std::string& gateway);
    void forgetAll();
    // What became of the last write, until the operator edits anew.
    const std::string& word() const { return word_; }
    void setWord(std::string word);

    sigc::signal<void()>& changed() { return changed_; }

private:
    void formChanged();

    std::vector<RecordForm*> forms_;
    std::string word_;
    bool quiet_ = false;  // many forms are about to change at once
    sigc::signal<void()> changed_;
};

}  // namespace trunvex
