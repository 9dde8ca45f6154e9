#pragma once

#include "screens/page_frame.h"

class QGroupBox;

namespace trunvex {

class Console;

// The page "system".
class SystemPageScreen : public PageFrame {
    Q_OBJECT

public:
    explicit SystemPageScreen(Console& console, QWidget* parent = nullptr);

private:
    QGroupBox* buildClock();
    QGroupBox* buildVersion();
    QGroupBox* buildConnection();

    Console& console_;
};

}  // namespace trunvex
