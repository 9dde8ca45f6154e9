#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "fields/fields.h"

namespace trunvex {

// The fields of one record that the operator may edit, beside what the gateway holds of it. Each field is marked where
// the two differ. A record that is reported anew moves only the fields that the operator has left alone, and edits of
// one record survive a look at another.
class RecordForm {
public:
    // A value for each field; a field without one is blank.
    using Values = std::map<const InputField*, std::string>;

    RecordForm() = default;
    RecordForm(const RecordForm&) = delete;
    RecordForm& operator=(const RecordForm&) = delete;

    // Fields outlive the form. Once added, a field is only compared by the form.
    void add(InputField& field);

    // Another record comes to be shown: the fields are blanked until take(). What was edited and not written of the one
    // before is kept under its key.
    void turnTo(const std::string& key);
    const std::string& key() const { return key_; }
    // What the gateway holds.
    void take(const Values& held);
    // The same, where the values are no more than a proposal and nothing is to be marked: a write to many records.
    void propose(const Values& values);
    // Nothing is known any more. What was edited and not written waits for its gateway, by the gateway's name, until
    // resume() is given it; of a gateway without a name it is lost.
    void park(const std::string& gateway);
    void resume(const std::string& gateway);
    // Nothing is known any more, edits included; but for those that wait for another gateway.
    void forgetAll();

    bool known() const { return known_; }
    // True while the form itself sets the fields: a rule between two fields then keeps out of the way.
    bool filling() const { return filling_; }
    bool edited() const;
    bool edited(const InputField& field) const;
    // Keys of the records that hold edits, the one shown included.
    std::vector<std::string> unwritten() const;
    // What was edited of a record, shown or not; fields that stand as the gateway holds them are not in it.
    Values editsOf(const std::string& key) const;
    // The same of the gateways that are away: key and gateway.
    std::vector<std::pair<std::string, std::string>> parked() const;
    // What is shown of these fields was written: it counts as held. Asked with the value that is shown.
    using Written = std::function<bool(const InputField& field, const std::string& value)>;
    void settle(const Written& written);
    // The same of a record that is not shown, by its key, for what was edited there.
    void settleDraft(const std::string& key, const Written& written);
    // What became of the last write of the record, until the operator edits anew or turns to another.
    const std::string& word() const { return word_; }
    void setWord(std::string word);
    // Back to what the gateway holds.
    void undo();
    void undo(InputField& field);
    // What was edited, spelled as the gateway will tell it once it is written; what writes nothing goes back.
    void respell(const Values& values);
    // Before the fields are checked anew: a fault between two of them may have gone with a change of the other.
    void clearProblems();

    // The operator has changed something; told before changed().
    sigc::signal<void()>& touched() { return touched_; }
    // The operator has changed something, or the gateway has.
    sigc::signal<void()>& changed() { return changed_; }
    // Edits that waited are back, and the gateway holds something else by now than when they were made.
    sigc::signal<void()>& overtaken() { return overtaken_; }

private:
    struct Entry {
        InputField* field;
        std::string held;   // by the gateway
        std::string shown;  // last value seen in the field
    };

    struct Draft {
        std::string shown;
        std::optional<std::string> held;  // by the gateway, when it was edited; none when that was not known
    };

    static bool isOvertaken(const std::optional<Draft>& draft, const std::string& held);
    void fieldChanged(std::size_t index);
    void mark(Entry& entry);
    static void hold(Entry& entry);
    static std::string valueOf(const Entry& entry, const Values& values);
    void show(Entry& entry, const std::string& value);
    void show(Entry& entry, const Values& values);

    std::vector<Entry> entries_;
    // By key: what was edited in a record that was left, the other fields empty. These follow the gateway.
    using Drafts = std::map<std::string, std::vector<std::optional<Draft>>>;
    Drafts drafts_;
    static void addDrafts(Drafts& newer, Drafts& older);
    std::map<std::string, Drafts> parked_;  // by gateway
    std::string key_;
    bool known_ = false;
    bool compared_ = true;
    bool filling_ = false;
    std::string word_;
    sigc::signal<void()> touched_;
    sigc::signal<void()> changed_;
    sigc::signal<void()> overtaken_;
};

}  // namespace trunvex
