#pragma once

#include "fields/fields.h"
#include "screens/kit/page_frame.h"

namespace trunvex {

// What the page "main" shows while there is no session: what to do first.
class StartPage : public PageFrame {
    Q_OBJECT

public:
    explicit StartPage(ActionField& connectButton, QWidget* parent = nullptr);
};

}  // namespace trunvex
