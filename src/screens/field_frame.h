#pragma once

#include <QWidget>

namespace trunvex {

// A thin frame around a field that tells its state: red when the entry is wrong. The room it takes never
// changes.
class FieldFrame : public QWidget {
public:
    explicit FieldFrame(QWidget* field, QWidget* parent = nullptr);
    void setWrong(bool wrong);
    bool wrong() const { return wrong_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool wrong_ = false;
};

}  // namespace trunvex
