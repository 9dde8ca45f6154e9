#pragma once

#include <sigc++/sigc++.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// The fields of the view models: what a control of a screen holds, without the control. A screen binds a widget to
// each; the rules of the system and the tests only know these. A field tells its listeners when it changes and says
// nothing when it is set to what it holds.
namespace trunvex {

class Field {
public:
    // The name is the control's; the bound widget carries it as its objectName.
    explicit Field(std::string name) : name_(std::move(name)) {}
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;

    const std::string& name() const { return name_; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled) { assign(enabled_, enabled); }
    bool visible() const { return visible_; }
    void setVisible(bool visible) { assign(visible_, visible); }
    const std::string& tip() const { return tip_; }
    void setTip(std::string tip) { assign(tip_, std::move(tip)); }

    // Anything that shows has changed: content, enabling, visibility, tip.
    sigc::signal<void()>& changed() { return changed_; }

protected:
    ~Field() = default;

    template <class Value>
    void assign(Value& held, Value value) {
        if (held == value) return;
        held = std::move(value);
        changed_.emit();
    }

private:
    std::string name_;
    std::string tip_;
    bool enabled_ = true;
    bool visible_ = true;
    sigc::signal<void()> changed_;
};

// A field that the operator may change. As a part of a record it also tells how it stands to what the gateway holds.
class InputField : public Field {
public:
    enum class Standing {
        Free,    // belongs to no record, or to none that is compared
        Unread,  // the gateway has not told yet
        AsRead,
        Edited,  // differs from what the gateway holds, and is not written yet
    };

    using Field::Field;
    // The content as text, whatever the kind of field; setValue() takes it back.
    virtual std::string value() const = 0;
    virtual void setValue(const std::string& value) = 0;
    Standing standing() const { return standing_; }
    void setStanding(Standing standing) { assign(standing_, standing); }
    // Why the content can't be written; empty while nothing is known against it.
    const std::string& problem() const { return problem_; }
    void setProblem(std::string problem) { assign(problem_, std::move(problem)); }
    // What the gateway holds of it. A field of many parts marks those that differ.
    virtual void setHeld(const std::string&) {}
    // The content alone has changed; told before changed().
    sigc::signal<void()>& valueChanged() { return valueChanged_; }

protected:
    ~InputField() = default;

    void tellValue() {
        valueChanged_.emit();
        changed().emit();
    }
    template <class Value>
    void assignValue(Value& held, Value value) {
        if (held == value) return;
        held = std::move(value);
        tellValue();
    }

private:
    sigc::signal<void()> valueChanged_;
    Standing standing_ = Standing::Free;
    std::string problem_;
};

// A line of text that the operator may edit.
class TextField : public InputField {
public:
    explicit TextField(std::string name, std::string text = {}) : InputField(std::move(name)), text_(std::move(text)) {}
    virtual ~TextField() = default;
    std::string value() const override { return text_; }
    void setValue(const std::string& value) override { setText(value); }
    const std::string& text() const { return text_; }
    void setText(std::string text) { assignValue(text_, std::move(text)); }

private:
    std::string text_;
};

// A check box, also one mark of a group of which one is set.
class CheckField final : public InputField {
public:
    explicit CheckField(std::string name, std::string caption = {})
        : InputField(std::move(name)), caption_(std::move(caption)) {}
    // "1" or "0"; any other text is "0".
    std::string value() const override { return checked_ ? "1" : "0"; }
    void setValue(const std::string& value) override { setChecked(value == "1"); }
    bool checked() const { return checked_; }
    void setChecked(bool checked) { assignValue(checked_, checked); }
    const std::string& caption() const { return caption_; }

    // The operator's press, which turns it over; what the program sets is none. A disabled box ignores it.
    void press() {
        if (!enabled()) return;
        setChecked(!checked_);
        pressed_.emit();
    }
    sigc::signal<void()>& pressed() { return pressed_; }

private:
    std::string caption_;
    bool checked_ = false;
    sigc::signal<void()> pressed_;
};

// A list of which one entry is chosen.
class ChoiceField final : public InputField {
public:
    static constexpr int none = -1;

    explicit ChoiceField(std::string name, std::vector<std::string> items = {})
        : InputField(std::move(name)), items_(std::move(items)) {}
    // The index in decimal; empty for none, and a text that is no index chooses none.
    std::string value() const override { return index_ == none ? std::string() : std::to_string(index_); }
    void setValue(const std::string& value) override;
    const std::vector<std::string>& items() const { return items_; }
    // Keeps the chosen index when the new list still has it.
    void setItems(std::vector<std::string> items);
    // What stands beside each entry for the eye only, in the order of the items; may be shorter.
    const std::vector<std::string>& details() const { return details_; }
    void setDetails(std::vector<std::string> details);
    // Grows with each change of the entries; a list may be too long to be compared.
    int edition() const { return edition_; }
    int index() const { return index_; }
    // An index outside the list chooses nothing.
    void setIndex(int index);
    std::string text() const;
    // Chooses the entry with this text, or nothing.
    void setText(const std::string& text);

private:
    std::vector<std::string> items_;
    std::vector<std::string> details_;
    int edition_ = 0;
    int index_ = none;
};

// A lever over a range of whole numbers.
class SliderField final : public InputField {
public:
    static constexpr int none = -1;  // no position is known

    SliderField(std::string name, int highest) : InputField(std::move(name)), highest_(highest) {}
    int highest() const { return highest_; }  // positions are 0 to this
    int position() const { return position_; }
    // A position outside the range is none.
    void setPosition(int position) { assignValue(position_, position < 0 || position > highest_ ? none : position); }
    // As with ChoiceField.
    std::string value() const override { return position_ == none ? std::string() : std::to_string(position_); }
    void setValue(const std::string& value) override;

private:
    int highest_;
    int position_ = none;
};

// A line of text that remembers what was entered before.
class HistoryField final : public TextField {
public:
    using TextField::TextField;
    const std::vector<std::string>& entries() const { return entries_; }
    void setEntries(std::vector<std::string> entries) { assign(entries_, std::move(entries)); }

private:
    std::vector<std::string> entries_;
};

// Colours travel as one number, blue the highest byte, red the lowest.
using Colour = std::uint32_t;
inline constexpr Colour colourBlack = 0;

// A text that only the program writes. The tag is a marker that is not shown.
class LabelField : public Field {
public:
    explicit LabelField(std::string name, std::string text = {}) : Field(std::move(name)), text_(std::move(text)) {}
    const std::string& text() const { return text_; }
    void setText(std::string text) { assign(text_, std::move(text)); }
    Colour colour() const { return colour_; }
    void setColour(Colour colour) { assign(colour_, colour); }
    bool bold() const { return bold_; }
    void setBold(bool bold) { assign(bold_, bold); }
    const std::string& tag() const { return tag_; }
    void setTag(std::string tag) { tag_ = std::move(tag); }

private:
    std::string text_;
    std::string tag_;
    Colour colour_ = colourBlack;
    bool bold_ = false;
};

// A picture, by its name; empty shows none.
class PictureField : public Field {
public:
    using Field::Field;
    const std::string& picture() const { return picture_; }
    void setPicture(std::string picture) { assign(picture_, std::move(picture)); }

private:
    std::string picture_;
};

// A button.
class ActionField : public Field {
public:
    explicit ActionField(std::string name, std::string caption = {})
        : Field(std::move(name)), caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption) { assign(caption_, std::move(caption)); }
    // True while it stands for the page of the moment.
    bool marked() const { return marked_; }
    void setMarked(bool marked) { assign(marked_, marked); }

    // The operator's press; a disabled button ignores it.
    void press() {
        if (enabled()) pressed_.emit();
    }
    sigc::signal<void()>& pressed() { return pressed_; }

private:
    std::string caption_;
    bool marked_ = false;
    sigc::signal<void()> pressed_;
};

// The names of a control array: "chkTSLPort" and 4 give "chkTSLPort_4".
std::string arrayName(const std::string& control, int index);

}  // namespace trunvex
