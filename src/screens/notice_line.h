#pragma once

#include <QFrame>

namespace trunvex {

class Notices;

// The line under the tool bar for what needs no box. Hidden while there is nothing to say.
class NoticeLine : public QFrame {
    Q_OBJECT

public:
    NoticeLine(Notices& model, QWidget* parent);
};

}  // namespace trunvex
