#pragma once

#include <QFrame>

class QVBoxLayout;

namespace trunvex {

class LabelField;
class Notices;

// The line under the tool bar for what needs no box: a link that was lost, and the last notice. Hidden while there is
// nothing to say.
class NoticeLine : public QFrame {
    Q_OBJECT

public:
    NoticeLine(Notices& model, QWidget* parent);

private:
    void addText(LabelField& field, QVBoxLayout* texts);
};

}  // namespace trunvex
