#pragma once

#include <QWidget>

namespace trunvex {

// A thin frame around a field that tells its state: red when the entry is wrong, a bar at the left while it is edited
// and not written. The room it takes never changes.
class FieldFrame : public QWidget {
public:
    explicit FieldFrame(QWidget* field, QWidget* parent = nullptr);
    void setWrong(bool wrong);
    bool wrong() const { return wrong_; }
    // The field is where the operator has to go next.
    void focusField();
    void setEdited(bool edited);
    bool edited() const { return edited_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* field_;
    bool wrong_ = false;
    bool edited_ = false;
};

}  // namespace trunvex
