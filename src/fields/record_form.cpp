#include "fields/record_form.h"

#include <algorithm>
#include <utility>

namespace trunvex {

void RecordForm::add(InputField& field) {
    const auto index = entries_.size();
    entries_.push_back({&field, {}, field.value()});
    field.setStanding(InputField::Standing::Unread);
    field.valueChanged().connect([this, index] { fieldChanged(index); });
}

void RecordForm::fieldChanged(std::size_t index) {
    auto& entry = entries_[index];
    entry.shown = entry.field->value();
    entry.field->setProblem({});
    mark(entry);
    if (filling_) return;
    word_.clear();
    touched_.emit();
    changed_.emit();
}

void RecordForm::mark(Entry& entry) {
    using enum InputField::Standing;
    if (!compared_)
        entry.field->setStanding(Free);
    else if (entry.shown != entry.held)
        entry.field->setStanding(Edited);
    else
        entry.field->setStanding(known_ ? AsRead : Unread);
}

// What is shown counts as held: the value as the field has it, for what a list does not have is none there too.
void RecordForm::hold(Entry& entry) {
    entry.held = entry.shown;
    entry.field->setHeld(entry.held);
}

void RecordForm::show(Entry& entry, const std::string& value) {
    entry.field->setValue(value);
    entry.shown = entry.field->value();
}

std::string RecordForm::valueOf(const Entry& entry, const Values& values) {
    const auto value = values.find(entry.field);
    return value == values.end() ? std::string() : value->second;
}

void RecordForm::show(Entry& entry, const Values& values) { show(entry, valueOf(entry, values)); }

void RecordForm::turnTo(const std::string& key) {
    if (!key_.empty() && edited()) {
        auto& draft = drafts_[key_];
        draft.resize(entries_.size());  // an older one waits there still when the record was not told meanwhile
        for (std::size_t i = 0; i < entries_.size(); ++i)
            if (entries_[i].shown != entries_[i].held)
                draft[i] = {entries_[i].shown, known_ ? std::optional(entries_[i].held) : std::nullopt};
    }
    key_ = key;
    word_.clear();
    known_ = false;
    compared_ = true;
    filling_ = true;
    for (auto& entry : entries_) {
        entry.held.clear();
        entry.field->setProblem({});
        show(entry, std::string());
        hold(entry);  // an empty check box is "0"
        mark(entry);
    }
    filling_ = false;
    changed_.emit();
}

bool RecordForm::isOvertaken(const std::optional<Draft>& draft, const std::string& held) {
    return draft && draft->held && *draft->held != held && draft->shown != held;
}

void RecordForm::take(const Values& held) {
    const auto draft = drafts_.find(key_);
    const bool drafted = !known_ && draft != drafts_.end();
    bool overtaken = false;
    known_ = true;
    compared_ = true;
    filling_ = true;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        auto& entry = entries_[i];
        std::optional<std::string> mine;
        if (entry.shown != entry.held)
            mine = entry.shown;
        else if (drafted && draft->second[i])
            mine = draft->second[i]->shown;
        overtaken |= drafted && isOvertaken(draft->second[i], valueOf(entry, held));
        // A report without news leaves the field alone, and with it the place where the operator is at work.
        if (mine && mine == entry.shown && valueOf(entry, held) == entry.held) continue;
        const auto problem = mine ? entry.field->problem() : std::string();
        show(entry, held);
        hold(entry);
        if (mine) show(entry, *mine);
        entry.field->setProblem(problem);
        mark(entry);
    }
    filling_ = false;
    if (drafted) drafts_.erase(draft);
    changed_.emit();
    if (overtaken) overtaken_.emit();
}

void RecordForm::propose(const Values& values) {
    const auto draft = drafts_.find(key_);
    const bool drafted = compared_ && draft != drafts_.end();
    compared_ = false;
    filling_ = true;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        auto& entry = entries_[i];
        show(entry, values);
        hold(entry);
        if (drafted && draft->second[i]) show(entry, draft->second[i]->shown);
        mark(entry);
    }
    filling_ = false;
    if (drafted) drafts_.erase(draft);
    changed_.emit();
}

void RecordForm::park(const std::string& gateway) {
    turnTo(std::string(key_));
    auto left = std::exchange(drafts_, {});
    if (gateway.empty()) return;
    addDrafts(left, parked_[gateway]);
    parked_[gateway] = std::move(left);
}

// Of a field that was edited on both occasions the newer edit counts.
void RecordForm::addDrafts(Drafts& newer, Drafts& older) {
    newer.merge(older);
    for (auto& [key, values] : older) {
        auto& into = newer.at(key);
        for (std::size_t i = 0; i < values.size(); ++i)
            if (!into[i]) into[i] = std::move(values[i]);
    }
}

void RecordForm::resume(const std::string& gateway) {
    auto waiting = parked_.extract(gateway);
    if (waiting.empty()) return;
    addDrafts(drafts_, waiting.mapped());
    const auto draft = drafts_.find(key_);
    bool overtaken = false;
    if (known_ && draft != drafts_.end()) {  // a gateway may tell its name when much of it was read already
        filling_ = true;
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            auto& entry = entries_[i];
            overtaken |= isOvertaken(draft->second[i], entry.held);
            if (draft->second[i] && entry.shown == entry.held) show(entry, draft->second[i]->shown);
            mark(entry);
        }
        filling_ = false;
        drafts_.erase(draft);
    }
    changed_.emit();
    if (overtaken) overtaken_.emit();
}

void RecordForm::forgetAll() {
    const auto key = std::exchange(key_, {});
    drafts_.clear();
    turnTo(key);
}

bool RecordForm::edited() const {
    return std::any_of(entries_.begin(), entries_.end(), [](const Entry& entry) { return entry.shown != entry.held; });
}

bool RecordForm::edited(const InputField& field) const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [&field](const Entry& entry) { return entry.field == &field && entry.shown != entry.held; });
}

void RecordForm::setWord(std::string word) {
    word_ = std::move(word);
    changed_.emit();
}

std::vector<std::string> RecordForm::unwritten() const {
    std::vector<std::string> keys;
    for (const auto& draft : drafts_) keys.push_back(draft.first);
    if (edited() && !drafts_.contains(key_)) keys.insert(std::upper_bound(keys.begin(), keys.end(), key_), key_);
    return keys;
}

RecordForm::Values RecordForm::editsOf(const std::string& key) const {
    Values values;
    const bool isShown = key == key_ && known_;
    const auto draft = drafts_.find(key);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const auto& entry = entries_[i];
        if (isShown && entry.shown != entry.held) values[entry.field] = entry.shown;
        if (!isShown && draft != drafts_.end() && draft->second[i]) values[entry.field] = draft->second[i]->shown;
    }
    return values;
}

std::vector<std::pair<std::string, std::string>> RecordForm::parked() const {
    std::vector<std::pair<std::string, std::string>> keys;
    for (const auto& [gateway, drafts] : parked_)
        for (const auto& draft : drafts) keys.emplace_back(draft.first, gateway);
    return keys;
}

void RecordForm::settle(const Written& written) {
    for (auto& entry : entries_) {
        if (!written(*entry.field, entry.shown)) continue;
        hold(entry);
        mark(entry);
    }
    changed_.emit();
}

void RecordForm::settleDraft(const std::string& key, const Written& written) {
    const auto draft = drafts_.find(key);
    if (draft == drafts_.end()) return;
    auto& values = draft->second;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i] && written(*entries_[i].field, values[i]->shown)) values[i].reset();
    if (std::none_of(values.begin(), values.end(), [](const auto& value) { return value.has_value(); }))
        drafts_.erase(draft);
    changed_.emit();
}

void RecordForm::undo() {
    filling_ = true;
    for (auto& entry : entries_) {
        show(entry, entry.held);
        entry.field->setProblem({});
        mark(entry);
    }
    filling_ = false;
    changed_.emit();
}

void RecordForm::respell(const Values& values) {
    filling_ = true;
    for (auto& entry : entries_) {
        if (entry.shown != entry.held) show(entry, values);
        mark(entry);
    }
    filling_ = false;
    changed_.emit();
}

void RecordForm::clearProblems() {
    for (auto& entry : entries_) entry.field->setProblem({});
}

void RecordForm::undo(InputField& field) {
    for (auto& entry : entries_)
        if (entry.field == &field) field.setValue(entry.held);
}

}  // namespace trunvex
