#pragma once

#include "screens/kit/page_frame.h"

namespace trunvex {

class Console;

// What the page "main" shows while there is no session: what to do first.
class StartPage : public PageFrame {
    Q_OBJECT

public:
    explicit StartPage(Console& console, QWidget* parent = nullptr);
};

}  // namespace trunvex
