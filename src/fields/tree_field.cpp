#include "fields/tree_field.h"

#include <algorithm>

namespace trunvex {

const TreeField::Node* TreeField::find(std::string_view key) const { return const_cast<TreeField*>(this)->at(key); }

TreeField::Node* TreeField::at(std::string_view key) {
    const auto found = std::find_if(nodes_.begin(), nodes_.end(), [&](const Node& node) { return node.key == key; });
    return found == nodes_.end() ? nullptr : &*found;
}

void TreeField::tell() {
    if (gathering_ == 0) changed().emit();
}

void TreeField::clear() {
    nodes_.clear();
    selected_.clear();
    tell();
}

bool TreeField::add(Node node) {
    if (at(node.key) || (!node.parent.empty() && !at(node.parent))) return false;
    nodes_.push_back(std::move(node));
    tell();
    return true;
}

void TreeField::setText(std::string_view key, std::string text) {
    auto* node = at(key);
    if (!node || node->text == text) return;
    node->text = std::move(text);
    tell();
}

void TreeField::setChecked(std::string_view key, bool checked) {
    auto* node = at(key);
    if (!node || node->checked == checked) return;
    node->checked = checked;
    tell();
}

void TreeField::setExpanded(std::string_view key, bool expanded) {
    auto* node = at(key);
    if (!node || node->expanded == expanded) return;
    node->expanded = expanded;
    tell();
}

void TreeField::setAllExpanded(bool expanded) {
    for (auto& node : nodes_) node.expanded = expanded;
    tell();
}

void TreeField::select(std::string_view key) {
    if (selected_ == key) return;
    selected_ = key;
    tell();
}

}  // namespace trunvex
