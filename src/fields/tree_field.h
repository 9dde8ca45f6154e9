#pragma once

#include <sigc++/sigc++.h>

#include <string>
#include <string_view>
#include <vector>

#include "fields/fields.h"

namespace trunvex {

// A tree of keyed nodes with check marks: what a tree control shows. Nodes stand in the order they were added; a
// parent stands before its children.
class TreeField : public Field {
public:
    struct Node {
        std::string key;
        std::string text;
        std::string parent;  // key; empty at the top
        bool checked = false;
        bool expanded = false;
    };

    using Field::Field;

    const std::vector<Node>& nodes() const { return nodes_; }
    const Node* find(std::string_view key) const;
    // Gathers what follows into one change for the listeners.
    template <class Body>
    void change(Body&& body) {
        struct Gathering {
            explicit Gathering(int& depth) : count(depth) { ++count; }
            ~Gathering() { --count; }
            int& count;
        };
        {
            const Gathering gathering(gathering_);
            body();
        }
        tell();
    }
    void clear();
    // False, and nothing added, when the key is taken or the parent is not there.
    bool add(Node node);
    void setText(std::string_view key, std::string text);
    void setChecked(std::string_view key, bool checked);
    void setExpanded(std::string_view key, bool expanded);
    void setAllExpanded(bool expanded);

    const std::string& selected() const { return selected_; }
    void select(std::string_view key);

private:
    Node* at(std::string_view key);
    void tell();

    std::vector<Node> nodes_;
    std::string selected_;
    int gathering_ = 0;
};

}  // namespace trunvex
