#pragma once

#include <QFrame>

namespace trunvex {

class FrmPRIGroups;

// The line under the tool bar for what needs no box. Hidden while there is nothing to say.
class NoticeLine : public QFrame {
    Q_OBJECT

public:
    NoticeLine(FrmPRIGroups& model, QWidget* parent);
};

}  // namespace trunvex
