#pragma once

#include "screens/kit/page_frame.h"

class QGroupBox;
class QWidget;

namespace trunvex {

class Console;

// The page "system".
class SystemPageScreen : public PageFrame {
    Q_OBJECT

public:
    explicit SystemPageScreen(Console& console, QWidget* parent = nullptr);

private:
    QWidget* buildClock();
    QWidget* buildVersion();
    QGroupBox* buildConnection();

    Console& console_;
};

}  // namespace trunvex
