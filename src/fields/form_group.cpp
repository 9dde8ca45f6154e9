#include "fields/form_group.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

void FormGroup::add(RecordForm& form, const std::string& name) {
    forms_.push_back(&form);
    form.turnTo(name);
    form.touched().connect([this] { word_.clear(); });
    form.changed().connect([this] { formChanged(); });
    form.overtaken().connect([this, &form] {
        setWord(form.key() + ": the gateway holds something else by now than when this was edited. A write puts what " +
                "stands here in its place; Undo shows the gateway's.");
    });
}

void FormGroup::formChanged() {
    if (!quiet_) changed_.emit();
}

bool FormGroup::edited() const {
    return std::any_of(forms_.begin(), forms_.end(), [](const RecordForm* form) { return form->edited(); });
}

std::vector<std::string> FormGroup::unwritten(bool parkedToo) const {
    std::vector<std::string> names;
    for (const auto* form : forms_) {
        for (auto& key : form->unwritten()) names.push_back(std::move(key));
        if (!parkedToo) continue;
        for (const auto& [key, gateway] : form->parked()) names.push_back(key + " of gateway " + escaped(gateway));
    }
    return names;
}

void FormGroup::undo() {
    quiet_ = true;
    for (auto* form : forms_)
        if (form->edited()) form->undo();
    quiet_ = false;
    changed_.emit();
}

void FormGroup::clearProblems() {
    for (auto* form : forms_) form->clearProblems();
}

void FormGroup::park(const std::string& gateway) {
    quiet_ = true;
    for (auto* form : forms_) form->park(gateway);
    quiet_ = false;
    setWord({});
}

void FormGroup::resume(const std::string& gateway) {
    for (auto* form : forms_) form->resume(gateway);
}

void FormGroup::forgetAll() {
    for (auto* form : forms_) form->forgetAll();
}

void FormGroup::setWord(std::string word) {
    word_ = std::move(word);
    changed_.emit();
}

}  // namespace trunvex
