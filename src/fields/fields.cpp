#include "fields/fields.h"

#include <algorithm>
#include <charconv>

namespace trunvex {

namespace {

// The whole number that the text is, or -1.
int indexIn(const std::string& text) {
    int index = -1;
    const auto* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, index);
    return read.ec == std::errc() && read.ptr == end ? index : -1;
}

}  // namespace

void SliderField::setValue(const std::string& value) { setPosition(indexIn(value)); }

void ChoiceField::setValue(const std::string& value) { setIndex(indexIn(value)); }

void ChoiceField::setItems(std::vector<std::string> items) {
    if (items == items_) return;
    items_ = std::move(items);
    ++edition_;
    if (index_ >= static_cast<int>(items_.size()))
        setIndex(none);
    else
        changed().emit();
}

void ChoiceField::setDetails(std::vector<std::string> details) {
    if (details == details_) return;
    details_ = std::move(details);
    ++edition_;
    changed().emit();
}

void ChoiceField::setIndex(int index) {
    const bool known = index >= 0 && index < static_cast<int>(items_.size());
    assignValue(index_, known ? index : none);
}

std::string ChoiceField::text() const {
    return index_ == none ? std::string() : items_[static_cast<std::size_t>(index_)];
}

void ChoiceField::setText(const std::string& text) {
    const auto found = std::find(items_.begin(), items_.end(), text);
    setIndex(found == items_.end() ? none : static_cast<int>(found - items_.begin()));
}

std::string arrayName(const std::string& control, int index) { return control + "_" + std::to_string(index); }

}  // namespace trunvex
