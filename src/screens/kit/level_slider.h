#pragma once

#include <QWidget>

class QLabel;
class QSlider;

namespace trunvex {

class SliderField;

// A lever with a word at each position. While no position is known the handle stands in the middle and a dash stands
// for the value.
class LevelSlider : public QWidget {
    Q_OBJECT

public:
    LevelSlider(SliderField& field, const QStringList& marks, QWidget* parent = nullptr);
    QSlider* slider() const { return slider_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showPosition();

    SliderField& field_;
    QStringList marks_;
    QSlider* slider_;
    QLabel* value_;
};

}  // namespace trunvex
